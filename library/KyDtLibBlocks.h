// Library blocks in drawings: the preview image of a block drawing, and
// loading a block drawing into a drawing database as a block.
#pragma once

#include "platform/acad/AcDbObjectId.h"
#include "platform/mfc/CString.h"

class AcDbDatabase;

// The preview of a block drawing ("....DWG"): the first of ".slb", ".jpg",
// ".jpeg", ".bmp" beside it, else the drawing itself. False for an empty
// name, a drawing that isn't there, or a name not ending in ".dwg" (any
// case). A drawing stands on disk as its ".dxf" sibling as well.
bool KyDtGetBlkImage(const wchar_t *dwgFile, CString &imageFile);
// The same for a block name ("GROUP$LIB$BLOCK") of the system library.
bool KyDtGetSysBlkImage(const wchar_t *blockName, CString &imageFile);
// The block of the drawing file in the database (null: the working one),
// named from the path as "GROUP$LIB$BLOCK": an existing block of that name
// as it is, else the drawing read and inserted. A null id on failure.
AcDbObjectId KyDtLoadBlock(const wchar_t *dwgFile, AcDbDatabase *database);
// The same from a block name, with the drawing in the system library.
AcDbObjectId KyDtInitBlock(const wchar_t *blockName, AcDbDatabase *database);
