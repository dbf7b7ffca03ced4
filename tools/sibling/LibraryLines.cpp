// BLOCK NAME and INSERTBLOCK NAME X Y [ANGLE]: library blocks loaded into
// the document's drawing, and placed in model space, as a drawing module
// of the add-on does it.
#include <cmath>
#include <cstdlib>
#include <numbers>

#include "SiblingRegistry.h"
#include "TolvDataBase.h"
#include "platform/acad/AcDbBlockReference.h"
#include "platform/acad/AcDbBlockTableRecord.h"
#include "platform/acad/AcDbDatabase.h"
#include "platform/acad/AcutPrintf.h"
#include "platform/windows/TextCodec.h"

namespace {

// A number of the whole word, or false.
bool ParseNumber(const std::string &text, double &value) {
  if (text.empty()) return false;
  char *end = nullptr;
  value = std::strtod(text.c_str(), &end);
  return end != nullptr && *end == '\0' && std::isfinite(value);
}

std::size_t EntityCount(AcDbObjectId blockId) {
  AcDbBlockTableRecord *block = nullptr;
  if (acdbOpenObject(block, blockId, AcDb::kForRead) != Acad::eOk) return 0;
  const std::size_t count = block->entityIds().size();
  block->close();
  return count;
}

// Loads the block; prints what went wrong when it can't.
AcDbObjectId LoadBlock(const CString &name) {
  AcDbObjectId id = KyDtInitBlock(name, tolv::sibling::WorkingDatabase());
  if (id.isNull()) {
    KyDtLibBlockDef def;
    def.SetFromBlockName(name);
    acutPrintf(L"\n%ls: no block: the drawing %ls can't be read", static_cast<const wchar_t *>(name),
               static_cast<const wchar_t *>(def.GetDwgFile()));
  }
  return id;
}

bool BlockLine(const std::vector<std::string> &args) {
  if (args.size() != 1) {
    acutPrintf(L"\nBLOCK needs one block name, e.g. BLOCK ARCH$DOOR$M0921");
    return false;
  }
  const CString name = tolv::FromUtf8(args[0]).c_str();
  AcDbObjectId id = LoadBlock(name);
  if (id.isNull()) return false;
  KyDtLibBlockDef def;
  def.SetFromBlockName(name);
  acutPrintf(L"\nblock %ls: %d entities", static_cast<const wchar_t *>(def.GetBlockName()),
             static_cast<int>(EntityCount(id)));
  return true;
}

bool InsertBlockLine(const std::vector<std::string> &args) {
  double x = 0, y = 0, angle = 0;
  if (args.size() < 3 || args.size() > 4 || !ParseNumber(args[1], x) || !ParseNumber(args[2], y) ||
      (args.size() == 4 && !ParseNumber(args[3], angle))) {
    acutPrintf(L"\nINSERTBLOCK needs a block name, X, Y and optionally an angle in degrees, "
               L"e.g. INSERTBLOCK ARCH$DOOR$M0921 1200 0 90");
    return false;
  }
  const CString name = tolv::FromUtf8(args[0]).c_str();
  AcDbObjectId blockId = LoadBlock(name);
  if (blockId.isNull()) return false;
  AcDbDatabase *db = tolv::sibling::WorkingDatabase();
  AcDbBlockTableRecord *space = nullptr;
  if (acdbOpenObject(space, db->modelSpaceId(), AcDb::kForWrite) != Acad::eOk) {
    acutPrintf(L"\nINSERTBLOCK: model space can't be opened");
    return false;
  }
  auto *insert = new AcDbBlockReference(AcGePoint3d(x, y, 0.0), blockId);
  Acad::ErrorStatus es = space->appendAcDbEntity(insert);
  space->close();
  if (es != Acad::eOk) {
    delete insert;
    acutPrintf(L"\nINSERTBLOCK: the insert can't be added (%ls)", acadErrorStatusText(es));
    return false;
  }
  insert->setRotation(angle * std::numbers::pi / 180.0);
  const std::wstring placed = insert->blockName();
  insert->close();
  acutPrintf(L"\ninserted %ls at %g,%g, rotated %g", placed.c_str(), x, y, angle);
  return true;
}

const tolv::sibling::HostLine kBlock(
    "BLOCK",
    "  BLOCK NAME     loads the library block NAME (GROUP$LIB$BLOCK) into the drawing,\n"
    "                 from DwgLib under the main directory; an existing block stays\n",
    &BlockLine);

const tolv::sibling::HostLine kInsertBlock(
    "INSERTBLOCK",
    "  INSERTBLOCK NAME X Y [ANGLE]\n"
    "                 loads the library block and places it in model space at X,Y,\n"
    "                 rotated by ANGLE degrees\n",
    &InsertBlockLine);

}  // namespace
