#include "platform/acad/AcDbBlockTableRecord.h"

#include "platform/acad/AcDbDatabase.h"
#include "platform/acad/DbInternals.h"
#include "platform/windows/WinCrt.h"

ACRX_DXF_DEFINE_MEMBERS(AcDbBlockTableRecord, AcDbSymbolTableRecord, 0, 0, 0, BLOCK_RECORD, ACAD)
ACRX_DXF_DEFINE_MEMBERS(AcDbBlockBegin, AcDbEntity, 0, 0, 0, BLOCK, ACAD)
ACRX_DXF_DEFINE_MEMBERS(AcDbBlockEnd, AcDbEntity, 0, 0, 0, ENDBLK, ACAD)

AcDbBlockTableRecord::AcDbBlockTableRecord() = default;
AcDbBlockTableRecord::~AcDbBlockTableRecord() = default;

Acad::ErrorStatus AcDbBlockTableRecord::appendAcDbEntity(AcDbEntity *entity) {
  AcDbObjectId ignored;
  return appendAcDbEntity(ignored, entity);
}

Acad::ErrorStatus AcDbBlockTableRecord::appendAcDbEntity(AcDbObjectId &entityId, AcDbEntity *entity) {
  entityId.setNull();
  if (!entity) return Acad::eNullEntityPointer;
  if (Acad::ErrorStatus es = checkWriteEnabled(); es != Acad::eOk) return es;
  if (!database()) return Acad::eWrongDatabase;
  if (!entity->isNewObject()) return Acad::eAlreadyInDb;
  if (entity->layerId().isNull()) {
    AcDb::LineWeight weight = entity->lineWeight();
    AcCmColor color = entity->color();
    double scale = entity->linetypeScale();
    AcDbObjectId linetype = entity->linetypeId();
    entity->setDatabaseDefaults(database());
    // What the maker set stays; only what is missing comes from the database.
    entity->setColor(color);
    entity->setLineWeight(weight);
    entity->setLinetypeScale(scale);
    if (!linetype.isNull()) entity->setLinetype(linetype);
  } else if (entity->linetypeId().isNull()) {
    entity->setLinetype(database()->byLayerLinetype());
  }
  Acad::ErrorStatus es = tolv::ObjectAccess::Add(database(), entity, objectId(), 0, true, &entityId);
  if (es != Acad::eOk) return es;
  entities_.push_back(entityId);
  return Acad::eOk;
}

Acad::ErrorStatus AcDbBlockTableRecord::newIterator(AcDbBlockTableRecordIterator *&iterator, bool atBeginning,
                                                    bool skipDeleted) const {
  iterator = new AcDbBlockTableRecordIterator(entities_);
  iterator->start(atBeginning, skipDeleted);
  return Acad::eOk;
}

Acad::ErrorStatus AcDbBlockTableRecord::setOrigin(const AcGePoint3d &origin) {
  if (Acad::ErrorStatus es = checkWriteEnabled(); es != Acad::eOk) return es;
  origin_ = origin;
  return Acad::eOk;
}

Acad::ErrorStatus AcDbBlockTableRecord::comments(const ACHAR *&text) const {
  text = comments_.c_str();
  return Acad::eOk;
}

Acad::ErrorStatus AcDbBlockTableRecord::setComments(const ACHAR *text) {
  if (Acad::ErrorStatus es = checkWriteEnabled(); es != Acad::eOk) return es;
  comments_ = text ? text : L"";
  return Acad::eOk;
}

bool AcDbBlockTableRecord::isAnonymous() const {
  const ACHAR *name = nullptr;
  getName(name);
  return (blockFlags_ & 1) != 0 || (name && name[0] == L'*' && !isLayout());
}

Acad::ErrorStatus AcDbBlockTableRecord::setLayoutId(AcDbObjectId layoutId) {
  if (Acad::ErrorStatus es = checkWriteEnabled(); es != Acad::eOk) return es;
  layout_ = layoutId;
  return Acad::eOk;
}

std::vector<AcDbObjectId> AcDbBlockTableRecord::entityIds() const {
  std::vector<AcDbObjectId> ids;
  for (AcDbObjectId id : entities_) {
    if (id.isValid() && !id.isErased()) ids.push_back(id);
  }
  return ids;
}

void AcDbBlockTableRecord::writeOwnFields(AcDbDxfFiler *filer) const { filer->writeObjectId(340, layout_); }

bool AcDbBlockTableRecord::readOwnField(const tolv::DxfTag &tag, AcDbDxfFiler *) {
  switch (tag.code) {
    case 340:
      layout_ = tag.id;
      return true;
    // Units, explodability, scalability and the preview of later releases.
    case 70:
    case 280:
    case 281:
    case 310:
      return true;
    default:
      return false;
  }
}

// --------------------------------------------------------------- iterator

void AcDbBlockTableRecordIterator::start(bool atBeginning, bool skipDeleted) {
  pos_ = atBeginning ? 0 : static_cast<long long>(ids_.size()) - 1;
  skip(atBeginning, skipDeleted);
}

bool AcDbBlockTableRecordIterator::done() const { return pos_ < 0 || pos_ >= static_cast<long long>(ids_.size()); }

void AcDbBlockTableRecordIterator::step(bool forward, bool skipDeleted) {
  if (done()) return;
  pos_ += forward ? 1 : -1;
  skip(forward, skipDeleted);
}

void AcDbBlockTableRecordIterator::skip(bool forward, bool skipDeleted) {
  while (!done()) {
    AcDbObjectId id = ids_[static_cast<std::size_t>(pos_)];
    if (id.isValid() && !(skipDeleted && id.isErased())) return;
    pos_ += forward ? 1 : -1;
  }
}

Acad::ErrorStatus AcDbBlockTableRecordIterator::getEntityId(AcDbObjectId &id) const {
  if (done()) return Acad::eInvalidIndex;
  id = ids_[static_cast<std::size_t>(pos_)];
  return Acad::eOk;
}

Acad::ErrorStatus AcDbBlockTableRecordIterator::getEntity(AcDbEntity *&entity, AcDb::OpenMode mode,
                                                          bool openErasedEntity) const {
  entity = nullptr;
  AcDbObjectId id;
  Acad::ErrorStatus es = getEntityId(id);
  return es == Acad::eOk ? acdbOpenAcDbEntity(entity, id, mode, openErasedEntity) : es;
}

// ------------------------------------------------------- internal access

namespace tolv {

std::vector<AcDbObjectId> &ObjectAccess::Entities(AcDbBlockTableRecord *block) { return block->entities_; }
void ObjectAccess::SetBlockMarkers(AcDbBlockTableRecord *block, AcDbObjectId begin, AcDbObjectId end) {
  block->begin_ = begin;
  block->end_ = end;
}
AcDbObjectId ObjectAccess::BlockBegin(const AcDbBlockTableRecord *block) { return block->begin_; }
AcDbObjectId ObjectAccess::BlockEnd(const AcDbBlockTableRecord *block) { return block->end_; }
int &ObjectAccess::BlockFlags(AcDbBlockTableRecord *block) { return block->blockFlags_; }

void ObjectAccess::AddBlockMarkers(AcDbBlockTableRecord *block) {
  AcDbDatabase *db = block->database();
  if (!db) return;
  AcDbObjectId layer0 = FindRecord(Db(db).layerTable, L"0");
  auto *begin = new AcDbBlockBegin;
  auto *end = new AcDbBlockEnd;
  begin->layerId_ = layer0;
  end->layerId_ = layer0;
  Add(db, begin, block->objectId(), 0, false, &block->begin_);
  Add(db, end, block->objectId(), 0, false, &block->end_);
}

}  // namespace tolv
