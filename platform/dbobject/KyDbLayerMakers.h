// The object module's makers of layers and line types in a drawing. A null
// database means the host's working database. Records that a drawing has
// already are answered as they are, never changed.
#pragma once

#include "platform/acad/AcDbObjectId.h"

class AcDbDatabase;

// The layer of that name (without regard to case); null when there is none.
AcDbObjectId GetLayerIdFromString(const wchar_t *name, AcDbDatabase *db = nullptr);

// Makes the layer with that colour index (1 to 255; any other value gives
// colour 7) and the database's default line type and weight, and answers
// its id, closed. A layer of that name that exists is answered as it is.
// Null when the name is empty or refused, or the layer table can't be
// opened for write.
AcDbObjectId InitLayer(const wchar_t *name, int color, AcDbDatabase *db = nullptr);

// Makes the line type available: the one the drawing has, or one made from
// its definition in the bundled line-type file "tolv.lin" (found through
// FindFile). Null for a name the file does not define, or when the file is
// missing.
AcDbObjectId InitLineType(const wchar_t *name, AcDbDatabase *db = nullptr);
