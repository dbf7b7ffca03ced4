// Making a drawing a block of another: the deep copy of entities and of the
// records they use, with object ids translated from source to target.
#include <unordered_map>

#include "platform/acad/AcDbDatabase.h"
#include "platform/acad/AcDbSymbolTables.h"
#include "platform/acad/AdsResbuf.h"
#include "platform/acad/CarriedObjects.h"
#include "platform/acad/DbInternals.h"

namespace tolv {

namespace {

class Copier {
 public:
  Copier(AcDbDatabase *target, AcDbDatabase *source)
      : target_(target), ts_(ObjectAccess::Db(target)), ss_(ObjectAccess::Db(source)) {}

  AcDbObjectId Run(const std::wstring &blockName) {
    CopyRecords(ss_.regAppTable, ts_.regAppTable);
    CopyRecords(ss_.linetypeTable, ts_.linetypeTable);
    CopyRecords(ss_.layerTable, ts_.layerTable);
    CopyRecords(ss_.textStyleTable, ts_.textStyleTable);
    // The source's blocks that the target lacks, their entities later.
    std::vector<std::pair<AcDbBlockTableRecord *, AcDbBlockTableRecord *>> blocks;
    if (auto *table = ObjectAccess::PeekAs<AcDbSymbolTable>(ss_.blockTable)) {
      for (AcDbObjectId id : ObjectAccess::Records(table)) {
        auto *src = ObjectAccess::PeekAs<AcDbBlockTableRecord>(id);
        if (!src || src->isErased() || src->isLayout() || id == ss_.modelSpace || id == ss_.paperSpace) continue;
        const ACHAR *name = nullptr;
        src->getName(name);
        AcDbObjectId existing = FindRecord(ts_.blockTable, name);
        if (!existing.isNull()) {
          map_[id] = existing;
          continue;
        }
        AcDbBlockTableRecord *copy = NewBlock(name, src);
        map_[id] = copy->objectId();
        blocks.emplace_back(src, copy);
      }
    }
    auto *ms = ObjectAccess::PeekAs<AcDbBlockTableRecord>(ss_.modelSpace);
    AcDbBlockTableRecord *made = NewBlock(blockName, nullptr);
    if (ms) map_[ms->objectId()] = made->objectId();
    CopyRecords(ss_.dimStyleTable, ts_.dimStyleTable);
    for (auto &[src, copy] : blocks) CopyEntities(src, copy);
    if (ms) CopyEntities(ms, made);
    return made->objectId();
  }

 private:
  AcDbObjectId Map(AcDbObjectId id) const {
    auto it = map_.find(id);
    return it == map_.end() ? AcDbObjectId() : it->second;
  }

  // The fields of the source object, with its pointers turned into the
  // target's objects; pointers to what was not copied are left out.
  std::vector<DxfTag> Fields(const AcDbObject *src) const {
    AcDbDxfFiler filer;
    src->dxfOutFields(&filer);
    std::vector<DxfTag> out;
    for (DxfTag t : filer.tags()) {
      if (IsDxfPointerCode(t.code)) {
        t.id = Map(t.id);
        if (t.id.isNull()) continue;
      }
      out.push_back(std::move(t));
    }
    return out;
  }

  static AcDbObject *Blank(const AcDbObject *src) {
    AcRxObject *made = src->isA()->create();
    auto *obj = AcDbObject::cast(made);
    if (!obj) {
      delete made;
      if (auto *e = CarriedEntity::cast(src)) return new CarriedEntity(e->dxfName());
      if (auto *o = CarriedObject::cast(src)) return new CarriedObject(o->dxfName());
      return nullptr;
    }
    if (auto *e = CarriedEntity::cast(obj)) e->setDxfName(CarriedEntity::cast(src)->dxfName());
    if (auto *o = CarriedObject::cast(obj)) o->setDxfName(CarriedObject::cast(src)->dxfName());
    return obj;
  }

  void CopyXData(const AcDbObject *src, AcDbObject *copy) {
    ObjectState &cs = ObjectAccess::State(copy);
    for (const XDataGroup &g : ObjectAccess::State(src).xdata) {
      if (FindRecord(ts_.regAppTable, g.app).isNull()) {
        auto *app = new AcDbRegAppTableRecord;
        AddRecord(ts_.regAppTable, app, g.app);
      }
      cs.xdata.push_back(XDataGroup{g.app, CopyRbChain(g.items)});
    }
  }

  AcDbObjectId AddRecord(AcDbObjectId tableId, AcDbSymbolTableRecord *rec, const std::wstring &name) {
    ObjectAccess::SetRecordName(rec, name);
    AcDbObjectId id;
    if (ObjectAccess::Add(target_, rec, tableId, 0, false, &id) != Acad::eOk) {
      delete rec;
      return AcDbObjectId();
    }
    ObjectAccess::Records(ObjectAccess::PeekAs<AcDbSymbolTable>(tableId)).push_back(id);
    return id;
  }

  void CopyRecords(AcDbObjectId srcTableId, AcDbObjectId dstTableId) {
    auto *srcTable = ObjectAccess::PeekAs<AcDbSymbolTable>(srcTableId);
    if (!srcTable || !ObjectAccess::PeekAs<AcDbSymbolTable>(dstTableId)) return;
    for (AcDbObjectId id : ObjectAccess::Records(srcTable)) {
      auto *src = ObjectAccess::PeekAs<AcDbSymbolTableRecord>(id);
      if (!src || src->isErased()) continue;
      const ACHAR *name = nullptr;
      src->getName(name);
      AcDbObjectId existing = FindRecord(dstTableId, name);
      if (!existing.isNull()) {
        map_[id] = existing;
        continue;
      }
      auto *copy = AcDbSymbolTableRecord::cast(Blank(src));
      if (!copy) continue;
      AcDbObjectId copyId = AddRecord(dstTableId, copy, name);
      if (copyId.isNull()) continue;
      map_[id] = copyId;
      AcDbDxfFiler filer(Fields(src));
      copy->dxfInFields(&filer);
      CopyXData(src, copy);
      if (auto *style = AcDbDimStyleTableRecord::cast(copy)) {
        if (*style->dimblkName()) EnsureArrowBlock(target_, style->dimblkName());
      }
    }
  }

  AcDbBlockTableRecord *NewBlock(const std::wstring &name, const AcDbBlockTableRecord *src) {
    auto *block = new AcDbBlockTableRecord;
    AddRecord(ts_.blockTable, block, name);
    ObjectAccess::AddBlockMarkers(block);
    if (src) {
      ObjectState &bs = ObjectAccess::State(block);
      bs.writing = true;
      block->setOrigin(src->origin());
      const ACHAR *comments = nullptr;
      src->comments(comments);
      block->setComments(comments);
      bs.writing = false;
    }
    return block;
  }

  void CopyEntities(AcDbBlockTableRecord *src, AcDbBlockTableRecord *dst) {
    std::vector<std::pair<const AcDbObject *, AcDbObject *>> made;
    for (AcDbObjectId id : ObjectAccess::Entities(src)) {
      AcDbObject *ent = ObjectAccess::Peek(id);
      if (!ent || ent->isErased()) continue;
      AcDbObject *copy = Blank(ent);
      if (!copy) continue;
      AcDbObjectId copyId;
      if (ObjectAccess::Add(target_, copy, dst->objectId(), 0, false, &copyId) != Acad::eOk) {
        delete copy;
        continue;
      }
      ObjectAccess::Entities(dst).push_back(copyId);
      map_[id] = copyId;
      made.emplace_back(ent, copy);
    }
    // Sub-entities (vertices, attributes) keep their owning entity.
    for (auto &[ent, copy] : made) {
      AcDbObjectId owner = Map(ent->ownerId());
      if (AcDbEntity::cast(ObjectAccess::Peek(owner))) ObjectAccess::SetOwner(copy, owner);
      AcDbDxfFiler filer(Fields(ent));
      copy->dxfInFields(&filer);
      CopyXData(ent, copy);
    }
  }

  AcDbDatabase *target_;
  DatabaseState &ts_;
  DatabaseState &ss_;
  std::unordered_map<AcDbObjectId, AcDbObjectId> map_;
};

}  // namespace

}  // namespace tolv

Acad::ErrorStatus AcDbDatabase::insert(AcDbObjectId &blockId, const ACHAR *pBlockName, AcDbDatabase *pDb, bool) {
  blockId.setNull();
  if (!pBlockName || !*pBlockName || !pDb) return Acad::eInvalidInput;
  if (pDb == this) return Acad::eSelfReference;
  std::wstring name(pBlockName);
  for (wchar_t c : name) {
    if (c < 0x20 || std::wstring(L"<>/\\\":;?*|,=`").find(c) != std::wstring::npos) return Acad::eInvalidBlockName;
  }
  if (!tolv::FindRecord(state_->blockTable, name).isNull()) return Acad::eDuplicateRecordName;
  if (!state_->blockTable.isValid()) return Acad::eWrongDatabase;
  blockId = tolv::Copier(this, pDb).Run(name);
  return blockId.isNull() ? Acad::eInvalidInput : Acad::eOk;
}
