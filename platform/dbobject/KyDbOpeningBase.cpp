#include "platform/dbobject/KyDbOpeningBase.h"

#include "platform/acad/AcDbDxfFiler.h"

ACRX_NO_CONS_DEFINE_MEMBERS(KyDbOpeningBase, KyDbEntity)

KyDbOpeningBase::KyDbOpeningBase() = default;
KyDbOpeningBase::~KyDbOpeningBase() = default;

Acad::ErrorStatus KyDbOpeningBase::SetLabel(const wchar_t *label) {
  if (Acad::ErrorStatus es = checkWriteEnabled(); es != Acad::eOk) return es;
  label_ = label;
  return Acad::eOk;
}

Acad::ErrorStatus KyDbOpeningBase::SetLabelType(const wchar_t *type) {
  if (Acad::ErrorStatus es = checkWriteEnabled(); es != Acad::eOk) return es;
  labelType_ = type;
  return Acad::eOk;
}

Acad::ErrorStatus KyDbOpeningBase::SetHeight(double height) {
  if (Acad::ErrorStatus es = checkWriteEnabled(); es != Acad::eOk) return es;
  if (!(height >= 0.0)) return Acad::eInvalidInput;
  height_ = height;
  return Acad::eOk;
}

Acad::ErrorStatus KyDbOpeningBase::SetPosition(const AcGePoint3d &p) {
  if (Acad::ErrorStatus es = checkWriteEnabled(); es != Acad::eOk) return es;
  position_ = p;
  return Acad::eOk;
}

Acad::ErrorStatus KyDbOpeningBase::dxfOutFields(AcDbDxfFiler *filer) const {
  KyDbEntity::dxfOutFields(filer);
  filer->writeString(100, L"KyDbOpeningBase");
  filer->writePoint3d(10, position_);
  filer->writeDouble(41, height_);
  filer->writeString(1, label_.GetString());
  filer->writeString(3, labelType_.GetString());
  return Acad::eOk;
}

bool KyDbOpeningBase::readBaseTag(const tolv::DxfTag &tag) {
  switch (tag.code) {
    case 10: return true;  // the point is taken by the caller
    case 41: if (tag.real >= 0.0) height_ = tag.real; return true;
    case 1: label_ = tag.text.c_str(); return true;
    case 3: labelType_ = tag.text.c_str(); return true;
    default: return false;
  }
}

Acad::ErrorStatus KyDbOpeningBase::dxfInFields(AcDbDxfFiler *filer) {
  if (Acad::ErrorStatus es = KyDbEntity::dxfInFields(filer); es != Acad::eOk) return es;
  if (!filer->atSubclassData(L"KyDbOpeningBase")) return Acad::eOk;
  tolv::DxfTag tag;
  while (filer->readTag(tag)) {
    if (tag.code == 100) {
      filer->pushBackItem();
      break;
    }
    if (tag.code == 10) {
      position_ = filer->readPointAfter(tag);
      continue;
    }
    readBaseTag(tag);
  }
  return Acad::eOk;
}
