// The object module's makers of text styles, dimension styles and
// registered applications. A null database means the host's working
// database.
#pragma once

#include "platform/acad/AcDbObjectId.h"

class AcDbDatabase;
class AcDbTextStyleTableRecord;
class AcDbDimStyleTableRecord;

// The style of that name (without regard to case); null when there is none.
AcDbObjectId GetTextStyleId(const wchar_t *name, AcDbDatabase *db = nullptr);
AcDbObjectId GetDimStyleId(const wchar_t *name, AcDbDatabase *db = nullptr);

// Adds a new record to its table and answers its id. With closeRecord 0
// the record stays open for write, for its maker to finish and close;
// otherwise it is closed. Null on failure (a name the table has already,
// no name, a table that can't be opened for write); the record then stays
// the caller's.
AcDbObjectId AddTextStyle(AcDbTextStyleTableRecord *record, int closeRecord, AcDbDatabase *db = nullptr);
AcDbObjectId AddDimStyle(AcDbDimStyleTableRecord *record, int closeRecord, AcDbDatabase *db = nullptr);

// Registers the application name for extended data if the database lacks
// it, and answers its record; null when it can't.
AcDbObjectId AssureRegApp(const wchar_t *name, AcDbDatabase *db = nullptr);
