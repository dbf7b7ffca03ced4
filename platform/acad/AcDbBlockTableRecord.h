// A block: a named, ordered list of entities with an origin. Model space
// and paper space are blocks too, with a layout each.
#pragma once

#include "platform/acad/AcDbEntity.h"
#include "platform/acad/AcDbSymbolTable.h"

class AcDbBlockTableRecordIterator;

class AcDbBlockTableRecord : public AcDbSymbolTableRecord {
 public:
  ACRX_DECLARE_MEMBERS(AcDbBlockTableRecord);
  AcDbBlockTableRecord();
  ~AcDbBlockTableRecord() override;

  // Takes a new entity; the block must be in a database and open for
  // write. The entity gets the database's defaults where it has nothing
  // set and stays open for write.
  Acad::ErrorStatus appendAcDbEntity(AcDbEntity *entity);
  Acad::ErrorStatus appendAcDbEntity(AcDbObjectId &entityId, AcDbEntity *entity);
  Acad::ErrorStatus newIterator(AcDbBlockTableRecordIterator *&iterator, bool atBeginning = true,
                                bool skipDeleted = true) const;

  AcGePoint3d origin() const { return origin_; }
  Acad::ErrorStatus setOrigin(const AcGePoint3d &origin);
  Acad::ErrorStatus comments(const ACHAR *&text) const;
  Acad::ErrorStatus setComments(const ACHAR *text);
  bool isAnonymous() const;
  bool isLayout() const { return !layout_.isNull(); }
  AcDbObjectId getLayoutId() const { return layout_; }
  Acad::ErrorStatus setLayoutId(AcDbObjectId layoutId);
  bool hasAttributeDefinitions() const { return (blockFlags_ & 2) != 0; }
  // The entities, in order, erased ones left out.
  std::vector<AcDbObjectId> entityIds() const;

 protected:
  const wchar_t *subclassMarker() const override { return L"AcDbBlockTableRecord"; }
  bool writesFlags() const override { return false; }
  void writeOwnFields(AcDbDxfFiler *filer) const override;
  bool readOwnField(const tolv::DxfTag &tag, AcDbDxfFiler *filer) override;

 private:
  friend class tolv::ObjectAccess;
  friend class AcDbBlockTableRecordIterator;
  std::vector<AcDbObjectId> entities_;
  AcDbObjectId layout_;
  AcDbObjectId begin_;  // the BLOCK and ENDBLK objects of the file
  AcDbObjectId end_;
  AcGePoint3d origin_;
  std::wstring comments_;
  int blockFlags_ = 0;  // group 70 of the BLOCK: 1 anonymous, 2 attributes
};

class AcDbBlockTableRecordIterator {
 public:
  void start(bool atBeginning = true, bool skipDeleted = true);
  bool done() const;
  void step(bool forward = true, bool skipDeleted = true);
  Acad::ErrorStatus getEntityId(AcDbObjectId &id) const;
  Acad::ErrorStatus getEntity(AcDbEntity *&entity, AcDb::OpenMode mode, bool openErasedEntity = false) const;

 private:
  friend class AcDbBlockTableRecord;
  explicit AcDbBlockTableRecordIterator(std::vector<AcDbObjectId> ids) : ids_(std::move(ids)) {}
  void skip(bool forward, bool skipDeleted);
  std::vector<AcDbObjectId> ids_;
  long long pos_ = 0;
};

// The BLOCK and ENDBLK markers around a block's entities in a drawing file.
class AcDbBlockBegin : public AcDbEntity {
 public:
  ACRX_DECLARE_MEMBERS(AcDbBlockBegin);
};

class AcDbBlockEnd : public AcDbEntity {
 public:
  ACRX_DECLARE_MEMBERS(AcDbBlockEnd);
};
