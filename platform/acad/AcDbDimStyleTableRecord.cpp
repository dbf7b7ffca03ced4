#include "platform/acad/AcDbDimStyleTableRecord.h"

#include <cmath>
#include <numbers>

#include "platform/acad/AcDbCircle.h"
#include "platform/acad/AcDbLine.h"
#include "platform/acad/AcDbSymbolTables.h"
#include "platform/acad/DbInternals.h"

ACRX_DXF_DEFINE_MEMBERS(AcDbDimStyleTableRecord, AcDbSymbolTableRecord, 0, 0, 0, DIMSTYLE, ACAD)

AcDbDimStyleTableRecord::AcDbDimStyleTableRecord() = default;

#define TOLV_DIM_SETTER(Name, field, type)                                      \
  Acad::ErrorStatus AcDbDimStyleTableRecord::Name(type value) {                 \
    if (Acad::ErrorStatus es = checkWriteEnabled(); es != Acad::eOk) return es; \
    field = value;                                                              \
    return Acad::eOk;                                                           \
  }

TOLV_DIM_SETTER(setDimasz, dimasz_, double)
TOLV_DIM_SETTER(setDimdle, dimdle_, double)
TOLV_DIM_SETTER(setDimdli, dimdli_, double)
TOLV_DIM_SETTER(setDimexe, dimexe_, double)
TOLV_DIM_SETTER(setDimexo, dimexo_, double)
TOLV_DIM_SETTER(setDimgap, dimgap_, double)
TOLV_DIM_SETTER(setDimlfac, dimlfac_, double)
TOLV_DIM_SETTER(setDimscale, dimscale_, double)
TOLV_DIM_SETTER(setDimtxt, dimtxt_, double)
TOLV_DIM_SETTER(setDimadec, dimadec_, int)
TOLV_DIM_SETTER(setDimaunit, dimaunit_, int)
TOLV_DIM_SETTER(setDimazin, dimazin_, int)
TOLV_DIM_SETTER(setDimdec, dimdec_, int)
TOLV_DIM_SETTER(setDimtad, dimtad_, int)
TOLV_DIM_SETTER(setDimtdec, dimtdec_, int)
TOLV_DIM_SETTER(setDimtmove, dimtmove_, int)
TOLV_DIM_SETTER(setDimtih, dimtih_, bool)
TOLV_DIM_SETTER(setDimtix, dimtix_, bool)
TOLV_DIM_SETTER(setDimtofl, dimtofl_, bool)
TOLV_DIM_SETTER(setDimtoh, dimtoh_, bool)
TOLV_DIM_SETTER(setDimclrt, dimclrt_, const AcCmColor &)
#undef TOLV_DIM_SETTER

Acad::ErrorStatus AcDbDimStyleTableRecord::setDimpost(const ACHAR *value) {
  if (Acad::ErrorStatus es = checkWriteEnabled(); es != Acad::eOk) return es;
  dimpost_ = value ? value : L"";
  return Acad::eOk;
}

Acad::ErrorStatus AcDbDimStyleTableRecord::setDimtxsty(AcDbObjectId value) {
  if (Acad::ErrorStatus es = checkWriteEnabled(); es != Acad::eOk) return es;
  if (!value.isNull() && !AcDbTextStyleTableRecord::cast(tolv::ObjectAccess::Peek(value))) {
    return Acad::eWrongObjectType;
  }
  dimtxsty_ = value;
  return Acad::eOk;
}

Acad::ErrorStatus AcDbDimStyleTableRecord::setDimblk(const ACHAR *name) {
  if (Acad::ErrorStatus es = checkWriteEnabled(); es != Acad::eOk) return es;
  dimblk_ = name ? name : L"";
  // "." is the host's word for its default arrow.
  if (dimblk_ == L".") dimblk_.clear();
  if (database() && !dimblk_.empty()) tolv::EnsureArrowBlock(database(), dimblk_);
  return Acad::eOk;
}

Acad::ErrorStatus AcDbDimStyleTableRecord::setDimblk(AcDbObjectId blockId) {
  if (blockId.isNull()) return setDimblk(L"");
  auto *block = AcDbBlockTableRecord::cast(tolv::ObjectAccess::Peek(blockId));
  if (!block) return Acad::eWrongObjectType;
  const ACHAR *name = nullptr;
  block->getName(name);
  return setDimblk(name);
}

AcDbObjectId AcDbDimStyleTableRecord::dimblk() const {
  if (dimblk_.empty() || !database()) return AcDbObjectId();
  return tolv::FindRecord(tolv::ObjectAccess::Db(database()).blockTable, dimblk_);
}

void AcDbDimStyleTableRecord::writeOwnFields(AcDbDxfFiler *filer) const {
  if (!dimpost_.empty()) filer->writeString(3, dimpost_);
  filer->writeDouble(40, dimscale_);
  filer->writeDouble(41, dimasz_);
  filer->writeDouble(42, dimexo_);
  filer->writeDouble(43, dimdli_);
  filer->writeDouble(44, dimexe_);
  filer->writeDouble(46, dimdle_);
  filer->writeInt16(73, dimtih_ ? 1 : 0);
  filer->writeInt16(74, dimtoh_ ? 1 : 0);
  filer->writeInt16(77, static_cast<Adesk::Int16>(dimtad_));
  filer->writeInt16(79, static_cast<Adesk::Int16>(dimazin_));
  filer->writeDouble(140, dimtxt_);
  filer->writeDouble(144, dimlfac_);
  filer->writeDouble(147, dimgap_);
  filer->writeInt16(172, dimtofl_ ? 1 : 0);
  filer->writeInt16(174, dimtix_ ? 1 : 0);
  filer->writeInt16(178, static_cast<Adesk::Int16>(dimclrt_.colorIndex()));
  filer->writeInt16(179, static_cast<Adesk::Int16>(dimadec_));
  filer->writeInt16(271, static_cast<Adesk::Int16>(dimdec_));
  filer->writeInt16(272, static_cast<Adesk::Int16>(dimtdec_));
  filer->writeInt16(275, static_cast<Adesk::Int16>(dimaunit_));
  filer->writeInt16(279, static_cast<Adesk::Int16>(dimtmove_));
  filer->writeObjectId(340, dimtxsty_);
  filer->writeObjectId(342, dimblk());
}

bool AcDbDimStyleTableRecord::readOwnField(const tolv::DxfTag &tag, AcDbDxfFiler *) {
  auto asInt = [&] { return static_cast<int>(tag.integer); };
  switch (tag.code) {
    case 3: dimpost_ = tag.text; return true;
    case 40: dimscale_ = tag.real; return true;
    case 41: dimasz_ = tag.real; return true;
    case 42: dimexo_ = tag.real; return true;
    case 43: dimdli_ = tag.real; return true;
    case 44: dimexe_ = tag.real; return true;
    case 46: dimdle_ = tag.real; return true;
    case 73: dimtih_ = tag.integer != 0; return true;
    case 74: dimtoh_ = tag.integer != 0; return true;
    case 77: dimtad_ = asInt(); return true;
    case 79: dimazin_ = asInt(); return true;
    case 140: dimtxt_ = tag.real; return true;
    case 144: dimlfac_ = tag.real; return true;
    case 147: dimgap_ = tag.real; return true;
    case 172: dimtofl_ = tag.integer != 0; return true;
    case 174: dimtix_ = tag.integer != 0; return true;
    case 178:
      if (tag.integer >= 0 && tag.integer <= 256) dimclrt_.setColorIndex(static_cast<Adesk::UInt16>(tag.integer));
      return true;
    case 179: dimadec_ = asInt(); return true;
    case 271: dimdec_ = asInt(); return true;
    case 272: dimtdec_ = asInt(); return true;
    case 275: dimaunit_ = asInt(); return true;
    case 279: dimtmove_ = asInt(); return true;
    case 340: dimtxsty_ = tag.id; return true;
    case 5:  // the arrow block by name, as files of old releases give it
      dimblk_ = tag.text;
      return true;
    case 342:
      if (auto *block = AcDbBlockTableRecord::cast(tolv::ObjectAccess::Peek(tag.id))) {
        const ACHAR *name = nullptr;
        block->getName(name);
        dimblk_ = name;
      }
      return true;
    default:
      return false;
  }
}

namespace tolv {

namespace {

void AddLine(AcDbBlockTableRecord *block, double x1, double y1, double x2, double y2) {
  auto *line = new AcDbLine(AcGePoint3d(x1, y1, 0.0), AcGePoint3d(x2, y2, 0.0));
  line->setColorIndex(0);  // by block: the arrow takes the dimension's colour
  if (block->appendAcDbEntity(line) == Acad::eOk) {
    line->close();
  } else {
    delete line;
  }
}

void AddCircle(AcDbBlockTableRecord *block, double radius) {
  auto *circle = new AcDbCircle(AcGePoint3d::kOrigin, radius);
  circle->setColorIndex(0);
  if (block->appendAcDbEntity(circle) == Acad::eOk) {
    circle->close();
  } else {
    delete circle;
  }
}

// Arrows are drawn for a size of 1, pointing at the origin from the right.
void DrawArrow(AcDbBlockTableRecord *block, const std::wstring &upper) {
  const double s = 1.0 / 6.0;
  if (upper == L"_NONE") return;
  if (upper == L"_DOT" || upper == L"_DOTBLANK") {
    AddCircle(block, 0.25);
  } else if (upper == L"_DOTSMALL") {
    AddCircle(block, 0.0625);
  } else if (upper == L"_ORIGIN" || upper == L"_ORIGIN2") {
    AddCircle(block, 0.5);
    if (upper == L"_ORIGIN2") AddCircle(block, 0.25);
  } else if (upper == L"_OPEN" || upper == L"_OPEN30" || upper == L"_OPEN90" || upper == L"_SMALL") {
    double half = upper == L"_OPEN90" ? 0.5 : (upper == L"_OPEN30" ? std::tan(std::numbers::pi / 12.0) : s);
    double len = upper == L"_SMALL" ? 0.5 : 1.0;
    AddLine(block, 0.0, 0.0, len, half * len);
    AddLine(block, 0.0, 0.0, len, -half * len);
  } else if (upper == L"_CLOSED" || upper == L"_CLOSEDBLANK" || upper == L"_DATUMBLANK" ||
             upper == L"_DATUMFILLED") {
    AddLine(block, 0.0, 0.0, 1.0, s);
    AddLine(block, 0.0, 0.0, 1.0, -s);
    AddLine(block, 1.0, s, 1.0, -s);
  } else if (upper == L"_BOXBLANK" || upper == L"_BOXFILLED") {
    AddLine(block, -0.5, -0.5, 0.5, -0.5);
    AddLine(block, 0.5, -0.5, 0.5, 0.5);
    AddLine(block, 0.5, 0.5, -0.5, 0.5);
    AddLine(block, -0.5, 0.5, -0.5, -0.5);
  } else if (upper == L"_INTEGRAL") {
    AddLine(block, -0.45, -0.45, 0.0, 0.0);
    AddLine(block, 0.0, 0.0, 0.45, 0.45);
  } else {
    // The architectural tick, the oblique stroke, and any name the host
    // does not draw by itself.
    AddLine(block, -0.5, -0.5, 0.5, 0.5);
  }
}

}  // namespace

AcDbObjectId EnsureArrowBlock(AcDbDatabase *db, const std::wstring &name) {
  if (!db || name.empty()) return AcDbObjectId();
  DatabaseState &ds = ObjectAccess::Db(db);
  AcDbObjectId existing = FindRecord(ds.blockTable, name);
  if (!existing.isNull()) return existing;
  auto *table = ObjectAccess::PeekAs<AcDbBlockTable>(ds.blockTable);
  if (!table) return AcDbObjectId();
  auto *block = new AcDbBlockTableRecord;
  block->setName(name.c_str());
  // The table may be open elsewhere; this is the database's own upkeep.
  ObjectState &ts = ObjectAccess::State(table);
  bool wasWriting = ts.writing;
  ts.writing = true;
  AcDbObjectId id;
  Acad::ErrorStatus es = table->add(id, block);
  ts.writing = wasWriting;
  if (es != Acad::eOk) {
    delete block;
    return AcDbObjectId();
  }
  DrawArrow(block, UpperName(name));
  block->close();
  return id;
}

}  // namespace tolv
