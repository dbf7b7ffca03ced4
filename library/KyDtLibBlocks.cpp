#include "library/KyDtLibBlocks.h"

#include "library/KyDtLibBlockDef.h"
#include "platform/acad/AcDbDatabase.h"
#include "platform/acad/AcDbHostApplicationServices.h"
#include "platform/acad/AcDbSymbolTables.h"
#include "platform/windows/WinCrt.h"

namespace {

// A drawing named "....DWG" is there when the file is, or when its ".dxf"
// sibling is, which the host reads in its place.
bool DrawingExists(const CString &path) {
  if (_waccess(path, 0) == 0) return true;
  if (path.GetLength() < 4 || path.Right(4).CompareNoCase(L".dwg") != 0) return false;
  return _waccess(path.Left(path.GetLength() - 4) + L".dxf", 0) == 0;
}

}  // namespace

bool KyDtGetBlkImage(const wchar_t *dwgFile, CString &imageFile) {
  const CString text(dwgFile);
  if (text.IsEmpty()) return false;
  if (text.GetLength() < 4 || text.Right(4).CompareNoCase(L".dwg") != 0) return false;
  if (!DrawingExists(text)) return false;
  const CString stem = text.Left(text.GetLength() - 4);
  for (const wchar_t *extension : {L".slb", L".jpg", L".jpeg", L".bmp"}) {
    if (_waccess(stem + extension, 0) == 0) {
      imageFile = stem + extension;
      return true;
    }
  }
  // The drawing itself is the last resort, and it is there.
  imageFile = stem + L".dwg";
  return true;
}

bool KyDtGetSysBlkImage(const wchar_t *blockName, CString &imageFile) {
  KyDtLibBlockDef def;
  def.SetFromBlockName(blockName);
  return KyDtGetBlkImage(def.GetDwgFile(), imageFile);
}

AcDbObjectId KyDtLoadBlock(const wchar_t *dwgFile, AcDbDatabase *database) {
  if (database == nullptr) database = acdbHostApplicationServices()->workingDatabase();
  AcDbObjectId id;
  if (database == nullptr) return id;
  KyDtLibBlockDef def;
  def.SetFromDwgFile(dwgFile);
  const CString name = def.GetBlockName();
  AcDbBlockTable *table = nullptr;
  bool found = false;
  if (database->getSymbolTable(table, AcDb::kForRead) == Acad::eOk && table != nullptr) {
    found = table->getAt(name, id, false) == Acad::eOk;
    table->close();
  }
  if (found) return id;
  id.setNull();
  AcDbDatabase source(false, false);
  if (source.readDwgFile(dwgFile, 64, false, nullptr) == Acad::eOk) {
    if (database->insert(id, name, &source, false) != Acad::eOk) id.setNull();
  }
  return id;
}

AcDbObjectId KyDtInitBlock(const wchar_t *blockName, AcDbDatabase *database) {
  KyDtLibBlockDef def;
  def.SetFromBlockName(blockName);
  return KyDtLoadBlock(def.GetDwgFile(), database);
}
