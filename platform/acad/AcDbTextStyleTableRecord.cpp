#include "platform/acad/AcDbTextStyleTableRecord.h"

ACRX_DXF_DEFINE_MEMBERS(AcDbTextStyleTableRecord, AcDbSymbolTableRecord, 0, 0, 0, STYLE, ACAD)

AcDbTextStyleTableRecord::AcDbTextStyleTableRecord() = default;

Acad::ErrorStatus AcDbTextStyleTableRecord::fileName(const ACHAR *&name) const {
  name = fileName_.c_str();
  return Acad::eOk;
}

Acad::ErrorStatus AcDbTextStyleTableRecord::setFileName(const ACHAR *name) {
  if (Acad::ErrorStatus es = checkWriteEnabled(); es != Acad::eOk) return es;
  fileName_ = name ? name : L"";
  return Acad::eOk;
}

Acad::ErrorStatus AcDbTextStyleTableRecord::bigFontFileName(const ACHAR *&name) const {
  name = bigFontFileName_.c_str();
  return Acad::eOk;
}

Acad::ErrorStatus AcDbTextStyleTableRecord::setBigFontFileName(const ACHAR *name) {
  if (Acad::ErrorStatus es = checkWriteEnabled(); es != Acad::eOk) return es;
  bigFontFileName_ = name ? name : L"";
  return Acad::eOk;
}

Acad::ErrorStatus AcDbTextStyleTableRecord::setXScale(double scale) {
  if (Acad::ErrorStatus es = checkWriteEnabled(); es != Acad::eOk) return es;
  xScale_ = scale;
  return Acad::eOk;
}

Acad::ErrorStatus AcDbTextStyleTableRecord::setTextSize(double size) {
  if (Acad::ErrorStatus es = checkWriteEnabled(); es != Acad::eOk) return es;
  if (size < 0.0) return Acad::eInvalidInput;
  textSize_ = size;
  return Acad::eOk;
}

Acad::ErrorStatus AcDbTextStyleTableRecord::setPriorSize(double size) {
  if (Acad::ErrorStatus es = checkWriteEnabled(); es != Acad::eOk) return es;
  priorSize_ = size;
  return Acad::eOk;
}

Acad::ErrorStatus AcDbTextStyleTableRecord::setObliquingAngle(double angle) {
  if (Acad::ErrorStatus es = checkWriteEnabled(); es != Acad::eOk) return es;
  obliquingAngle_ = angle;
  return Acad::eOk;
}

Acad::ErrorStatus AcDbTextStyleTableRecord::setFlagBits(Adesk::UInt8 bits) {
  if (Acad::ErrorStatus es = checkWriteEnabled(); es != Acad::eOk) return es;
  flagBits_ = bits;
  return Acad::eOk;
}

Acad::ErrorStatus AcDbTextStyleTableRecord::setIsShapeFile(bool shape) {
  if (Acad::ErrorStatus es = checkWriteEnabled(); es != Acad::eOk) return es;
  flags_ = shape ? (flags_ | 1) : (flags_ & ~1);
  return Acad::eOk;
}

Acad::ErrorStatus AcDbTextStyleTableRecord::setIsVertical(bool vertical) {
  if (Acad::ErrorStatus es = checkWriteEnabled(); es != Acad::eOk) return es;
  flags_ = vertical ? (flags_ | 4) : (flags_ & ~4);
  return Acad::eOk;
}

void AcDbTextStyleTableRecord::writeOwnFields(AcDbDxfFiler *filer) const {
  filer->writeDouble(40, textSize_);
  filer->writeDouble(41, xScale_);
  filer->writeDouble(50, obliquingAngle_);
  filer->writeInt16(71, flagBits_);
  filer->writeDouble(42, priorSize_);
  filer->writeString(3, fileName_);
  filer->writeString(4, bigFontFileName_);
}

bool AcDbTextStyleTableRecord::readOwnField(const tolv::DxfTag &tag, AcDbDxfFiler *) {
  switch (tag.code) {
    case 40:
      textSize_ = tag.real;
      return true;
    case 41:
      xScale_ = tag.real;
      return true;
    case 50:
      obliquingAngle_ = tag.real;
      return true;
    case 71:
      flagBits_ = static_cast<Adesk::UInt8>(tag.integer & 0xFF);
      return true;
    case 42:
      priorSize_ = tag.real;
      return true;
    case 3:
      fileName_ = tag.text;
      return true;
    case 4:
      bigFontFileName_ = tag.text;
      return true;
    default:
      return false;
  }
}
