#include "platform/dbobject/KyDbOpening.h"

#include "platform/acad/AcDbDxfFiler.h"

ACRX_DXF_DEFINE_MEMBERS(KyDbOpening, KyDbOpeningBase, 0, 0, 0, TOLV_OPENING, TolvDbObject)

namespace {
// Drawing files create openings by type name.
const bool kRegistered = KyDbOpening::desc() != nullptr;
}  // namespace

KyDbOpening::KyDbOpening() = default;
KyDbOpening::KyDbOpening(int kind) : kind_(kind) {}
KyDbOpening::KyDbOpening(int kind, double width, double height) : kind_(kind), width_(width) { SetHeight(height); }
KyDbOpening::~KyDbOpening() = default;

Acad::ErrorStatus KyDbOpening::SetWidth(double width) {
  if (Acad::ErrorStatus es = checkWriteEnabled(); es != Acad::eOk) return es;
  if (!(width >= 0.0)) return Acad::eInvalidInput;
  width_ = width;
  return Acad::eOk;
}

Acad::ErrorStatus KyDbOpening::SetStyle2d(AcDbObjectId id) {
  if (Acad::ErrorStatus es = checkWriteEnabled(); es != Acad::eOk) return es;
  style2d_ = id;
  return Acad::eOk;
}

Acad::ErrorStatus KyDbOpening::SetStyle3d(AcDbObjectId id) {
  if (Acad::ErrorStatus es = checkWriteEnabled(); es != Acad::eOk) return es;
  style3d_ = id;
  return Acad::eOk;
}

CString KyDbOpening::GetLayerKey() const {
  CString key = KyDbEntity::GetLayerKey();
  if (!key.IsEmpty()) return key;
  switch (kind_) {
    case kWindow:
    case kHighWindow:
    case kBayWindow:
    case kBandWindow:
      return CString(L"WINDOW");
    case kHole:
      return CString(L"HOLE");
    default:
      return CString(L"DOOR");
  }
}

Acad::ErrorStatus KyDbOpening::dxfOutFields(AcDbDxfFiler *filer) const {
  KyDbOpeningBase::dxfOutFields(filer);
  filer->writeString(100, L"KyDbOpening");
  filer->writeInt16(70, static_cast<Adesk::Int16>(kind_));
  filer->writeDouble(40, width_);
  filer->writeObjectId(340, style2d_);
  filer->writeObjectId(341, style3d_);
  return Acad::eOk;
}

Acad::ErrorStatus KyDbOpening::dxfInFields(AcDbDxfFiler *filer) {
  if (Acad::ErrorStatus es = KyDbOpeningBase::dxfInFields(filer); es != Acad::eOk) return es;
  if (!filer->atSubclassData(L"KyDbOpening")) return Acad::eOk;
  tolv::DxfTag tag;
  while (filer->readTag(tag)) {
    switch (tag.code) {
      case 70: kind_ = static_cast<int>(tag.integer); break;
      case 40: if (tag.real >= 0.0) width_ = tag.real; break;
      case 340: style2d_ = tag.id; break;
      case 341: style3d_ = tag.id; break;
      default: break;
    }
  }
  return Acad::eOk;
}
