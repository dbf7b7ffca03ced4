// Arcs and block inserts.
#include <cmath>
#include <numbers>

#include "platform/acad/AcDbArc.h"
#include "platform/acad/AcDbBlockReference.h"
#include "platform/acad/AcDbBlockTableRecord.h"
#include "platform/acad/AcDbDatabase.h"
#include "platform/acad/DbInternals.h"

ACRX_DXF_DEFINE_MEMBERS(AcDbArc, AcDbEntity, 0, 0, 0, ARC, ACAD)
ACRX_DXF_DEFINE_MEMBERS(AcDbBlockReference, AcDbEntity, 0, 0, 0, INSERT, ACAD)

namespace {

// Drawing files read after the library loads make these classes.
const bool kRegistered = AcDbArc::desc() != nullptr && AcDbBlockReference::desc() != nullptr;

constexpr double kDegree = std::numbers::pi / 180.0;

}  // namespace

// ---- AcDbArc ----

AcDbArc::AcDbArc() { (void)kRegistered; }
AcDbArc::AcDbArc(const AcGePoint3d &center, double radius, double startAngle, double endAngle)
    : center_(center), radius_(radius > 0.0 ? radius : 1.0), start_(startAngle), end_(endAngle) {}

Acad::ErrorStatus AcDbArc::setCenter(const AcGePoint3d &p) {
  if (Acad::ErrorStatus es = checkWriteEnabled(); es != Acad::eOk) return es;
  center_ = p;
  return Acad::eOk;
}

Acad::ErrorStatus AcDbArc::setRadius(double radius) {
  if (Acad::ErrorStatus es = checkWriteEnabled(); es != Acad::eOk) return es;
  if (!(radius > 0.0)) return Acad::eInvalidInput;
  radius_ = radius;
  return Acad::eOk;
}

Acad::ErrorStatus AcDbArc::setStartAngle(double angle) {
  if (Acad::ErrorStatus es = checkWriteEnabled(); es != Acad::eOk) return es;
  start_ = angle;
  return Acad::eOk;
}

Acad::ErrorStatus AcDbArc::setEndAngle(double angle) {
  if (Acad::ErrorStatus es = checkWriteEnabled(); es != Acad::eOk) return es;
  end_ = angle;
  return Acad::eOk;
}

Acad::ErrorStatus AcDbArc::dxfOutFields(AcDbDxfFiler *filer) const {
  AcDbEntity::dxfOutFields(filer);
  filer->writeString(100, L"AcDbCircle");
  filer->writePoint3d(10, center_);
  filer->writeDouble(40, radius_);
  filer->writeString(100, L"AcDbArc");
  filer->writeDouble(50, start_ / kDegree);
  filer->writeDouble(51, end_ / kDegree);
  for (const tolv::DxfTag &t : extras_) filer->writeTag(t);
  return Acad::eOk;
}

Acad::ErrorStatus AcDbArc::dxfInFields(AcDbDxfFiler *filer) {
  AcDbEntity::dxfInFields(filer);
  extras_.clear();
  tolv::DxfTag tag;
  while (filer->readTag(tag)) {
    if (tag.code == 100) continue;
    if (tag.code == 10) {
      center_ = filer->readPointAfter(tag);
    } else if (tag.code == 40) {
      if (tag.real > 0.0) radius_ = tag.real;
    } else if (tag.code == 50 && std::isfinite(tag.real)) {
      start_ = tag.real * kDegree;
    } else if (tag.code == 51 && std::isfinite(tag.real)) {
      end_ = tag.real * kDegree;
    } else {
      extras_.push_back(tag);
    }
  }
  return Acad::eOk;
}

// ---- AcDbBlockReference ----

AcDbBlockReference::AcDbBlockReference() { (void)kRegistered; }

AcDbBlockReference::AcDbBlockReference(const AcGePoint3d &position, AcDbObjectId blockTableRecord)
    : position_(position) {
  if (auto *block = tolv::ObjectAccess::PeekAs<AcDbBlockTableRecord>(blockTableRecord)) {
    const ACHAR *name = nullptr;
    block->getName(name);
    if (name) name_ = name;
  }
}

AcDbObjectId AcDbBlockReference::blockTableRecord() const {
  AcDbDatabase *db = database();
  if (db == nullptr || name_.empty()) return AcDbObjectId();
  return tolv::FindRecord(db->blockTableId(), name_);
}

Acad::ErrorStatus AcDbBlockReference::setBlockTableRecord(AcDbObjectId blockId) {
  if (Acad::ErrorStatus es = checkWriteEnabled(); es != Acad::eOk) return es;
  auto *block = tolv::ObjectAccess::PeekAs<AcDbBlockTableRecord>(blockId);
  if (block == nullptr) return Acad::eInvalidInput;
  const ACHAR *name = nullptr;
  block->getName(name);
  name_ = name ? name : L"";
  return Acad::eOk;
}

Acad::ErrorStatus AcDbBlockReference::setPosition(const AcGePoint3d &p) {
  if (Acad::ErrorStatus es = checkWriteEnabled(); es != Acad::eOk) return es;
  position_ = p;
  return Acad::eOk;
}

Acad::ErrorStatus AcDbBlockReference::setRotation(double angle) {
  if (Acad::ErrorStatus es = checkWriteEnabled(); es != Acad::eOk) return es;
  rotation_ = angle;
  return Acad::eOk;
}

Acad::ErrorStatus AcDbBlockReference::dxfOutFields(AcDbDxfFiler *filer) const {
  AcDbEntity::dxfOutFields(filer);
  filer->writeString(100, L"AcDbBlockReference");
  filer->writeString(2, name_);
  filer->writePoint3d(10, position_);
  if (rotation_ != 0.0) filer->writeDouble(50, rotation_ / kDegree);
  for (const tolv::DxfTag &t : extras_) filer->writeTag(t);
  return Acad::eOk;
}

Acad::ErrorStatus AcDbBlockReference::dxfInFields(AcDbDxfFiler *filer) {
  AcDbEntity::dxfInFields(filer);
  extras_.clear();
  rotation_ = 0.0;
  tolv::DxfTag tag;
  while (filer->readTag(tag)) {
    if (tag.code == 100) continue;
    if (tag.code == 2) {
      name_ = tag.text;
    } else if (tag.code == 10) {
      position_ = filer->readPointAfter(tag);
    } else if (tag.code == 50 && std::isfinite(tag.real)) {
      rotation_ = tag.real * kDegree;
    } else {
      extras_.push_back(tag);
    }
  }
  return Acad::eOk;
}
