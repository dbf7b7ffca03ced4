// The entity classes that the database models, and the carried ones.
#include "platform/acad/AcDbCircle.h"
#include "platform/acad/AcDbLine.h"
#include "platform/acad/CarriedObjects.h"

ACRX_DXF_DEFINE_MEMBERS(AcDbLine, AcDbEntity, 0, 0, 0, LINE, ACAD)
ACRX_DXF_DEFINE_MEMBERS(AcDbCircle, AcDbEntity, 0, 0, 0, CIRCLE, ACAD)
ACRX_DXF_DEFINE_MEMBERS(AcDbViewport, tolv::CarriedEntity, 0, 0, 0, VIEWPORT, ACAD)

namespace tolv {
ACRX_CONS_DEFINE_MEMBERS(CarriedEntity, AcDbEntity, 0)
ACRX_CONS_DEFINE_MEMBERS(CarriedObject, AcDbObject, 0)
}  // namespace tolv

AcDbLine::AcDbLine() = default;
AcDbLine::AcDbLine(const AcGePoint3d &start, const AcGePoint3d &end) : start_(start), end_(end) {}

Acad::ErrorStatus AcDbLine::setStartPoint(const AcGePoint3d &p) {
  if (Acad::ErrorStatus es = checkWriteEnabled(); es != Acad::eOk) return es;
  start_ = p;
  return Acad::eOk;
}

Acad::ErrorStatus AcDbLine::setEndPoint(const AcGePoint3d &p) {
  if (Acad::ErrorStatus es = checkWriteEnabled(); es != Acad::eOk) return es;
  end_ = p;
  return Acad::eOk;
}

Acad::ErrorStatus AcDbLine::dxfOutFields(AcDbDxfFiler *filer) const {
  AcDbEntity::dxfOutFields(filer);
  filer->writeString(100, L"AcDbLine");
  filer->writePoint3d(10, start_);
  filer->writePoint3d(11, end_);
  for (const tolv::DxfTag &t : extras_) filer->writeTag(t);
  return Acad::eOk;
}

Acad::ErrorStatus AcDbLine::dxfInFields(AcDbDxfFiler *filer) {
  AcDbEntity::dxfInFields(filer);
  extras_.clear();
  tolv::DxfTag tag;
  while (filer->readTag(tag)) {
    if (tag.code == 100) continue;
    if (tag.code == 10) {
      start_ = filer->readPointAfter(tag);
    } else if (tag.code == 11) {
      end_ = filer->readPointAfter(tag);
    } else {
      extras_.push_back(tag);
    }
  }
  return Acad::eOk;
}

AcDbCircle::AcDbCircle() = default;
AcDbCircle::AcDbCircle(const AcGePoint3d &center, double radius) : center_(center), radius_(radius) {}

Acad::ErrorStatus AcDbCircle::setCenter(const AcGePoint3d &p) {
  if (Acad::ErrorStatus es = checkWriteEnabled(); es != Acad::eOk) return es;
  center_ = p;
  return Acad::eOk;
}

Acad::ErrorStatus AcDbCircle::setRadius(double radius) {
  if (Acad::ErrorStatus es = checkWriteEnabled(); es != Acad::eOk) return es;
  if (!(radius > 0.0)) return Acad::eInvalidInput;
  radius_ = radius;
  return Acad::eOk;
}

Acad::ErrorStatus AcDbCircle::dxfOutFields(AcDbDxfFiler *filer) const {
  AcDbEntity::dxfOutFields(filer);
  filer->writeString(100, L"AcDbCircle");
  filer->writePoint3d(10, center_);
  filer->writeDouble(40, radius_);
  for (const tolv::DxfTag &t : extras_) filer->writeTag(t);
  return Acad::eOk;
}

Acad::ErrorStatus AcDbCircle::dxfInFields(AcDbDxfFiler *filer) {
  AcDbEntity::dxfInFields(filer);
  extras_.clear();
  tolv::DxfTag tag;
  while (filer->readTag(tag)) {
    if (tag.code == 100) continue;
    if (tag.code == 10) {
      center_ = filer->readPointAfter(tag);
    } else if (tag.code == 40) {
      if (tag.real > 0.0) radius_ = tag.real;
    } else {
      extras_.push_back(tag);
    }
  }
  return Acad::eOk;
}

namespace tolv {

Acad::ErrorStatus CarriedEntity::dxfOutFields(AcDbDxfFiler *filer) const {
  AcDbEntity::dxfOutFields(filer);
  for (const DxfTag &t : tags_) filer->writeTag(t);
  return Acad::eOk;
}

Acad::ErrorStatus CarriedEntity::dxfInFields(AcDbDxfFiler *filer) {
  AcDbEntity::dxfInFields(filer);
  tags_.clear();
  DxfTag tag;
  while (filer->readTag(tag)) tags_.push_back(tag);
  return Acad::eOk;
}

Acad::ErrorStatus CarriedObject::dxfOutFields(AcDbDxfFiler *filer) const {
  for (const DxfTag &t : tags_) filer->writeTag(t);
  return Acad::eOk;
}

Acad::ErrorStatus CarriedObject::dxfInFields(AcDbDxfFiler *filer) {
  tags_.clear();
  DxfTag tag;
  while (filer->readTag(tag)) tags_.push_back(tag);
  return Acad::eOk;
}

std::wstring DxfNameOf(const AcDbObject *obj) {
  if (!obj) return std::wstring();
  if (auto *e = CarriedEntity::cast(obj)) {
    if (!e->dxfName().empty()) return e->dxfName();
  }
  if (auto *o = CarriedObject::cast(obj)) return o->dxfName();
  for (const AcRxClass *c = obj->isA(); c; c = c->myParent()) {
    if (*c->dxfName()) return c->dxfName();
  }
  return std::wstring();
}

}  // namespace tolv
