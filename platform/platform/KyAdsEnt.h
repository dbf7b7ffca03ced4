// One member of a selection set: an entity of a drawing, by its id.
#pragma once

#include "platform/acad/AcDbEntity.h"
#include "platform/acad/AcDbObjectId.h"

class KyAdsEnt {
 public:
  KyAdsEnt() = default;
  explicit KyAdsEnt(AcDbObjectId id) : id_(id) {}

  AcDbObjectId GetObjectId() const { return id_; }
  bool IsNull() const { return id_.isNull(); }

  // Opens the entity; the caller closes it. Fails as acdbOpenAcDbEntity
  // does (eNotAnEntity, eWasErased, eWasOpenForWrite, ...).
  Acad::ErrorStatus Open(AcDbEntity *&entity, AcDb::OpenMode mode = AcDb::kForRead) const;
  // The same for an entity of class T: eNotThatKindOfClass for another class.
  template <class T>
  Acad::ErrorStatus Open(T *&entity, AcDb::OpenMode mode = AcDb::kForRead) const {
    return acdbOpenObject(entity, id_, mode);
  }

  friend bool operator==(const KyAdsEnt &a, const KyAdsEnt &b) { return a.id_ == b.id_; }
  friend bool operator!=(const KyAdsEnt &a, const KyAdsEnt &b) { return a.id_ != b.id_; }

 private:
  AcDbObjectId id_;
};
