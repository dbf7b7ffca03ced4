#include "platform/acad/AcDbLinetypeTableRecord.h"

ACRX_DXF_DEFINE_MEMBERS(AcDbLinetypeTableRecord, AcDbSymbolTableRecord, 0, 0, 0, LTYPE, ACAD)

namespace {
constexpr int kMaxDashes = 12;
}

AcDbLinetypeTableRecord::AcDbLinetypeTableRecord() = default;

Acad::ErrorStatus AcDbLinetypeTableRecord::comments(const ACHAR *&text) const {
  text = comments_.c_str();
  return Acad::eOk;
}

Acad::ErrorStatus AcDbLinetypeTableRecord::setComments(const ACHAR *text) {
  if (Acad::ErrorStatus es = checkWriteEnabled(); es != Acad::eOk) return es;
  comments_ = text ? text : L"";
  return Acad::eOk;
}

Acad::ErrorStatus AcDbLinetypeTableRecord::setPatternLength(double length) {
  if (Acad::ErrorStatus es = checkWriteEnabled(); es != Acad::eOk) return es;
  if (length < 0.0) return Acad::eInvalidInput;
  patternLength_ = length;
  return Acad::eOk;
}

Acad::ErrorStatus AcDbLinetypeTableRecord::setNumDashes(int count) {
  if (Acad::ErrorStatus es = checkWriteEnabled(); es != Acad::eOk) return es;
  if (count < 0 || count > kMaxDashes) return Acad::eInvalidInput;
  dashes_.resize(static_cast<std::size_t>(count), 0.0);
  return Acad::eOk;
}

double AcDbLinetypeTableRecord::dashLengthAt(int index) const {
  return index >= 0 && index < numDashes() ? dashes_[static_cast<std::size_t>(index)] : 0.0;
}

Acad::ErrorStatus AcDbLinetypeTableRecord::setDashLengthAt(int index, double length) {
  if (Acad::ErrorStatus es = checkWriteEnabled(); es != Acad::eOk) return es;
  if (index < 0 || index >= numDashes()) return Acad::eInvalidIndex;
  dashes_[static_cast<std::size_t>(index)] = length;
  return Acad::eOk;
}

void AcDbLinetypeTableRecord::writeOwnFields(AcDbDxfFiler *filer) const {
  filer->writeString(3, comments_);
  filer->writeInt16(72, 65);
  filer->writeInt16(73, static_cast<Adesk::Int16>(dashes_.size()));
  filer->writeDouble(40, patternLength_);
  for (double d : dashes_) {
    filer->writeDouble(49, d);
    filer->writeInt16(74, 0);
  }
}

bool AcDbLinetypeTableRecord::readOwnField(const tolv::DxfTag &tag, AcDbDxfFiler *) {
  switch (tag.code) {
    case 3:
      comments_ = tag.text;
      return true;
    case 40:
      patternLength_ = tag.real;
      return true;
    case 49:
      if (dashes_.size() < kMaxDashes) dashes_.push_back(tag.real);
      return true;
    case 74:
      if (tag.integer != 0) complexSeen_ = true;
      return true;
    // The alignment, the dash count (the 49s are counted instead) and the
    // text and shape parts of complex line types, which are drawn as plain
    // dashes here.
    case 72:
    case 73:
    case 75:
    case 340:
    case 46:
    case 50:
    case 44:
    case 45:
    case 9:
      return true;
    default:
      return false;
  }
}
