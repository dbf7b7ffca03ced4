#include "platform/dbobject/KyDbDormer.h"

#include "platform/acad/AcDbDxfFiler.h"

ACRX_DXF_DEFINE_MEMBERS(KyDbDormer, KyDbEntity, 0, 0, 0, TOLV_DORMER, TolvDbObject)

namespace {
const bool kRegistered = KyDbDormer::desc() != nullptr;
}  // namespace

KyDbDormer::KyDbDormer() = default;
KyDbDormer::~KyDbDormer() = default;

Acad::ErrorStatus KyDbDormer::SetDormerPar(const KyDormerPar &par) {
  if (Acad::ErrorStatus es = checkWriteEnabled(); es != Acad::eOk) return es;
  if (!(par.windowWidth >= 0.0) || !(par.windowHeight >= 0.0)) return Acad::eInvalidInput;
  par_ = par;
  return Acad::eOk;
}

Acad::ErrorStatus KyDbDormer::SetLabel(const wchar_t *label) {
  if (Acad::ErrorStatus es = checkWriteEnabled(); es != Acad::eOk) return es;
  label_ = label;
  return Acad::eOk;
}

Acad::ErrorStatus KyDbDormer::SetLabelType(const wchar_t *type) {
  if (Acad::ErrorStatus es = checkWriteEnabled(); es != Acad::eOk) return es;
  labelType_ = type;
  return Acad::eOk;
}

Acad::ErrorStatus KyDbDormer::SetPosition(const AcGePoint3d &p) {
  if (Acad::ErrorStatus es = checkWriteEnabled(); es != Acad::eOk) return es;
  position_ = p;
  return Acad::eOk;
}

CString KyDbDormer::GetLayerKey() const {
  CString key = KyDbEntity::GetLayerKey();
  return key.IsEmpty() ? CString(L"WINDOW") : key;
}

Acad::ErrorStatus KyDbDormer::dxfOutFields(AcDbDxfFiler *filer) const {
  KyDbEntity::dxfOutFields(filer);
  filer->writeString(100, L"KyDbDormer");
  filer->writePoint3d(10, position_);
  filer->writeString(1, label_.GetString());
  filer->writeString(3, labelType_.GetString());
  filer->writeDouble(40, par_.windowWidth);
  filer->writeDouble(41, par_.windowHeight);
  filer->writeDouble(42, par_.width);
  filer->writeDouble(43, par_.depth);
  filer->writeDouble(50, par_.roofSlope);
  return Acad::eOk;
}

Acad::ErrorStatus KyDbDormer::dxfInFields(AcDbDxfFiler *filer) {
  if (Acad::ErrorStatus es = KyDbEntity::dxfInFields(filer); es != Acad::eOk) return es;
  if (!filer->atSubclassData(L"KyDbDormer")) return Acad::eOk;
  tolv::DxfTag tag;
  while (filer->readTag(tag)) {
    switch (tag.code) {
      case 10: position_ = filer->readPointAfter(tag); break;
      case 1: label_ = tag.text.c_str(); break;
      case 3: labelType_ = tag.text.c_str(); break;
      case 40: if (tag.real >= 0.0) par_.windowWidth = tag.real; break;
      case 41: if (tag.real >= 0.0) par_.windowHeight = tag.real; break;
      case 42: par_.width = tag.real; break;
      case 43: par_.depth = tag.real; break;
      case 50: par_.roofSlope = tag.real; break;
      default: break;
    }
  }
  return Acad::eOk;
}
