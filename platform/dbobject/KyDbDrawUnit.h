// The units of a drawing as the add-on counts them: 0 millimetres, 1
// metres. The drawing unit is the drawing's own ($INSUNITS: metres give 1,
// anything else 0); the unit of dimensions is kept in the named-object
// dictionary under "TOLV_DIM_UNIT" and is the drawing unit while it is not
// set. A null database means the host's working database.
#pragma once

class AcDbDatabase;

unsigned char KyDbGetDrawUnit(AcDbDatabase *db = nullptr);
unsigned char KyDbGetDimUnit(AcDbDatabase *db = nullptr);
// False for a unit other than 0 or 1, or when the drawing can't be changed.
bool KyDbSetDrawUnit(unsigned char unit, AcDbDatabase *db = nullptr);
bool KyDbSetDimUnit(unsigned char unit, AcDbDatabase *db = nullptr);
