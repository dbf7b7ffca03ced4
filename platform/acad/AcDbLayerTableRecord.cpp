#include "platform/acad/AcDbLayerTableRecord.h"

#include <cstdlib>

#include "platform/acad/AcDbLinetypeTableRecord.h"
#include "platform/acad/DbInternals.h"

ACRX_DXF_DEFINE_MEMBERS(AcDbLayerTableRecord, AcDbSymbolTableRecord, 0, 0, 0, LAYER, ACAD)

AcDbLayerTableRecord::AcDbLayerTableRecord() { color_.setColorIndex(7); }

Acad::ErrorStatus AcDbLayerTableRecord::setColor(const AcCmColor &color) {
  if (Acad::ErrorStatus es = checkWriteEnabled(); es != Acad::eOk) return es;
  if (color.isByLayer() || color.isByBlock()) return Acad::eInvalidInput;
  color_ = color;
  return Acad::eOk;
}

Acad::ErrorStatus AcDbLayerTableRecord::setLinetypeObjectId(AcDbObjectId id) {
  if (Acad::ErrorStatus es = checkWriteEnabled(); es != Acad::eOk) return es;
  if (!id.isNull() && !AcDbLinetypeTableRecord::cast(tolv::ObjectAccess::Peek(id))) return Acad::eWrongObjectType;
  linetypeId_ = id;
  return Acad::eOk;
}

Acad::ErrorStatus AcDbLayerTableRecord::setLineWeight(AcDb::LineWeight weight) {
  if (Acad::ErrorStatus es = checkWriteEnabled(); es != Acad::eOk) return es;
  if (weight == AcDb::kLnWtByLayer || weight == AcDb::kLnWtByBlock || weight < -3 || weight > 211) {
    return Acad::eInvalidInput;
  }
  lineWeight_ = weight;
  return Acad::eOk;
}

Acad::ErrorStatus AcDbLayerTableRecord::setIsOff(bool off) {
  if (Acad::ErrorStatus es = checkWriteEnabled(); es != Acad::eOk) return es;
  off_ = off;
  return Acad::eOk;
}

Acad::ErrorStatus AcDbLayerTableRecord::setIsFrozen(bool frozen) {
  if (Acad::ErrorStatus es = checkWriteEnabled(); es != Acad::eOk) return es;
  flags_ = frozen ? (flags_ | 1) : (flags_ & ~1);
  return Acad::eOk;
}

Acad::ErrorStatus AcDbLayerTableRecord::setIsLocked(bool locked) {
  if (Acad::ErrorStatus es = checkWriteEnabled(); es != Acad::eOk) return es;
  flags_ = locked ? (flags_ | 4) : (flags_ & ~4);
  return Acad::eOk;
}

Acad::ErrorStatus AcDbLayerTableRecord::setIsPlottable(bool plottable) {
  if (Acad::ErrorStatus es = checkWriteEnabled(); es != Acad::eOk) return es;
  plottable_ = plottable;
  return Acad::eOk;
}

void AcDbLayerTableRecord::writeOwnFields(AcDbDxfFiler *filer) const {
  int index = color_.colorIndex();
  filer->writeInt16(62, static_cast<Adesk::Int16>(off_ ? -index : index));
  std::wstring linetype = L"Continuous";
  if (auto *lt = tolv::ObjectAccess::PeekAs<AcDbLinetypeTableRecord>(linetypeId_)) {
    const ACHAR *name = nullptr;
    lt->getName(name);
    linetype = name;
  }
  filer->writeString(6, linetype);
  if (!plottable_) filer->writeBool(290, false);
  filer->writeInt16(370, static_cast<Adesk::Int16>(lineWeight_));
  filer->writeObjectId(390, tolv::NormalPlotStyleId(database()));
}

bool AcDbLayerTableRecord::readOwnField(const tolv::DxfTag &tag, AcDbDxfFiler *) {
  switch (tag.code) {
    case 62: {
      int index = static_cast<int>(std::llabs(tag.integer));
      off_ = tag.integer < 0;
      if (index >= 1 && index <= 255) color_.setColorIndex(static_cast<Adesk::UInt16>(index));
      return true;
    }
    case 6:
      linetypeId_ = tolv::FindLinetype(database(), tag.text);
      return true;
    case 290:
      plottable_ = tag.integer != 0;
      return true;
    case 370:
      if (tag.integer >= -3 && tag.integer <= 211 && tag.integer != -1 && tag.integer != -2) {
        lineWeight_ = static_cast<AcDb::LineWeight>(tag.integer);
      }
      return true;
    case 390:  // plot style, pointed at anew when written
    case 347:  // material and visual style of later releases
    case 348:
      return true;
    default:
      return false;
  }
}
