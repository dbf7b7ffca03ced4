// Materials by name in a drawing.
#pragma once

#include "platform/acad/AcDbObjectId.h"

class AcDbDatabase;

// The material of that name in the drawing's material dictionary (null:
// the working database), made from the object module's data when missing.
// The system materials are seen to first, whatever the name. Null for an
// empty name or when the dictionary can't be had or changed.
AcDbObjectId KyDtInitMaterial(const wchar_t *name, AcDbDatabase *db);
