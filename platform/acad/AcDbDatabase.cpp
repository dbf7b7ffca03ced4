#include "platform/acad/AcDbDatabase.h"

#include <algorithm>

#include "platform/acad/AcDbDictionary.h"
#include "platform/acad/AcDbSymbolTables.h"
#include "platform/acad/CarriedObjects.h"
#include "platform/acad/DbInternals.h"

namespace tolv {

std::vector<AcDbObjectId> &ObjectAccess::Records(AcDbSymbolTable *table) { return table->records_; }
std::vector<DxfTag> &ObjectAccess::Extras(AcDbSymbolTableRecord *record) { return record->extras_; }
void ObjectAccess::SetRecordName(AcDbSymbolTableRecord *record, const std::wstring &name) { record->name_ = name; }

AcDbObjectId FindLinetype(AcDbDatabase *db, const std::wstring &name) {
  if (!db) return AcDbObjectId();
  return FindRecord(ObjectAccess::Db(db).linetypeTable, name);
}

namespace {

// Adds a record to a table as the database's own upkeep: no open state is
// asked of the table and the record is left closed.
AcDbObjectId AddRecord(AcDbDatabase *db, AcDbObjectId tableId, AcDbSymbolTableRecord *record,
                       const std::wstring &name) {
  auto *table = ObjectAccess::PeekAs<AcDbSymbolTable>(tableId);
  if (!table) {
    delete record;
    return AcDbObjectId();
  }
  ObjectAccess::SetRecordName(record, name);
  AcDbObjectId id;
  if (ObjectAccess::Add(db, record, tableId, 0, false, &id) != Acad::eOk) {
    delete record;
    return AcDbObjectId();
  }
  ObjectAccess::Records(table).push_back(id);
  return id;
}

AcDbObjectId AddDictionaryEntry(AcDbDatabase *db, AcDbObjectId dictId, const std::wstring &key, AcDbObject *obj) {
  auto *dict = ObjectAccess::PeekAs<AcDbDictionary>(dictId);
  if (!dict) {
    delete obj;
    return AcDbObjectId();
  }
  AcDbObjectId id;
  if (ObjectAccess::Add(db, obj, dictId, 0, false, &id) != Acad::eOk) {
    delete obj;
    return AcDbObjectId();
  }
  ObjectAccess::Entries(dict).emplace_back(key, id);
  return id;
}

AcDbObjectId EnsureTable(AcDbDatabase *db, AcDbObjectId &slot, AcDbSymbolTable *fresh) {
  if (slot.isValid()) {
    delete fresh;
    return slot;
  }
  ObjectAccess::Add(db, fresh, AcDbObjectId(), 0, false, &slot);
  return slot;
}

AcDbObjectId EnsureEntry(AcDbDatabase *db, AcDbObjectId dictId, const std::wstring &key, AcDbObject *fresh) {
  auto *dict = ObjectAccess::PeekAs<AcDbDictionary>(dictId);
  AcDbObjectId id;
  if (dict && dict->getAt(key.c_str(), id) == Acad::eOk) {
    delete fresh;
    return id;
  }
  return AddDictionaryEntry(db, dictId, key, fresh);
}

CarriedObject *MakeLayout(const std::wstring &name, int tabOrder, AcDbObjectId blockId) {
  using T = DxfTag;
  std::vector<DxfTag> tags = {
      T::Text(100, L"AcDbPlotSettings"), T::Text(1, L""), T::Text(2, L"none_device"), T::Text(4, L""),
      T::Text(6, L""), T::Real(40, 0.0), T::Real(41, 0.0), T::Real(42, 0.0), T::Real(43, 0.0), T::Real(44, 0.0),
      T::Real(45, 0.0), T::Real(46, 0.0), T::Real(47, 0.0), T::Real(48, 0.0), T::Real(49, 0.0), T::Real(140, 0.0),
      T::Real(141, 0.0), T::Real(142, 1.0), T::Real(143, 1.0), T::Int(70, tabOrder == 0 ? 1712 : 688),
      T::Int(72, 1), T::Int(73, 0), T::Int(74, 5), T::Text(7, L""), T::Int(75, 16), T::Real(147, 1.0),
      T::Real(148, 0.0), T::Real(149, 0.0), T::Text(100, L"AcDbLayout"), T::Text(1, name), T::Int(70, 1),
      T::Int(71, tabOrder), T::Real(10, 0.0), T::Real(20, 0.0), T::Real(11, 420.0), T::Real(21, 297.0),
      T::Real(12, 0.0), T::Real(22, 0.0), T::Real(32, 0.0), T::Real(14, 0.0), T::Real(24, 0.0), T::Real(34, 0.0),
      T::Real(15, 0.0), T::Real(25, 0.0), T::Real(35, 0.0), T::Real(146, 0.0), T::Real(13, 0.0), T::Real(23, 0.0),
      T::Real(33, 0.0), T::Real(16, 1.0), T::Real(26, 0.0), T::Real(36, 0.0), T::Real(17, 0.0), T::Real(27, 1.0),
      T::Real(37, 0.0), T::Int(76, 0), T::Id(330, blockId),
  };
  return new CarriedObject(L"LAYOUT", std::move(tags));
}

CarriedObject *MakeStandardMlineStyle() {
  using T = DxfTag;
  return new CarriedObject(
      L"MLINESTYLE",
      {T::Text(100, L"AcDbMlineStyle"), T::Text(2, L"Standard"), T::Int(70, 0), T::Text(3, L""), T::Int(62, 256),
       T::Real(51, 90.0), T::Real(52, 90.0), T::Int(71, 2), T::Real(49, 0.5), T::Int(62, 256),
       T::Text(6, L"BYLAYER"), T::Real(49, -0.5), T::Int(62, 256), T::Text(6, L"BYLAYER")});
}

// The layout of a layout block, from the block's own pointer or, for a
// block read from a file without it, from the layouts that point at it.
AcDbObjectId EnsureLayoutOf(AcDbDatabase *db, AcDbObjectId blockId, AcDbObjectId layoutDict,
                            const std::wstring &name, int tabOrder) {
  auto *block = ObjectAccess::PeekAs<AcDbBlockTableRecord>(blockId);
  if (!block) return AcDbObjectId();
  if (block->getLayoutId().isValid()) return block->getLayoutId();
  auto *dict = ObjectAccess::PeekAs<AcDbDictionary>(layoutDict);
  if (!dict) return AcDbObjectId();
  // A layout that names the block already.
  for (auto &entry : ObjectAccess::Entries(dict)) {
    auto *layout = ObjectAccess::PeekAs<CarriedObject>(entry.second);
    if (!layout) continue;
    for (const DxfTag &t : layout->carriedTags()) {
      if (t.code == 330 && t.id == blockId) {
        ObjectState &bs = ObjectAccess::State(block);
        bool was = bs.writing;
        bs.writing = true;
        block->setLayoutId(entry.second);
        bs.writing = was;
        return entry.second;
      }
    }
  }
  std::wstring key = name;
  for (int n = 1; dict->has(key.c_str()); ++n) key = name + std::to_wstring(n);
  AcDbObjectId id = AddDictionaryEntry(db, layoutDict, key, MakeLayout(key, tabOrder, blockId));
  ObjectState &bs = ObjectAccess::State(block);
  bool was = bs.writing;
  bs.writing = true;
  block->setLayoutId(id);
  bs.writing = was;
  return id;
}

}  // namespace

AcDbObjectId EnsureLayer(AcDbDatabase *db, const std::wstring &name) {
  if (!db) return AcDbObjectId();
  DatabaseState &ds = ObjectAccess::Db(db);
  AcDbObjectId id = FindRecord(ds.layerTable, name);
  if (!id.isNull()) return id;
  auto *layer = new AcDbLayerTableRecord;
  id = AddRecord(db, ds.layerTable, layer, name);
  if (auto *rec = ObjectAccess::PeekAs<AcDbLayerTableRecord>(id)) {
    ObjectState &st = ObjectAccess::State(rec);
    st.writing = true;
    rec->setLinetypeObjectId(FindRecord(ds.linetypeTable, L"Continuous"));
    st.writing = false;
  }
  return id;
}

AcDbObjectId NormalPlotStyleId(AcDbDatabase *db) {
  if (!db) return AcDbObjectId();
  auto *nod = ObjectAccess::PeekAs<AcDbDictionary>(ObjectAccess::Db(db).namedObjects);
  if (!nod) return AcDbObjectId();
  AcDbObjectId dictId;
  if (nod->getAt(L"ACAD_PLOTSTYLENAME", dictId) != Acad::eOk) return AcDbObjectId();
  auto *carried = ObjectAccess::PeekAs<CarriedObject>(dictId);
  if (!carried) return AcDbObjectId();
  const std::vector<DxfTag> &tags = carried->carriedTags();
  for (std::size_t i = 0; i + 1 < tags.size(); ++i) {
    if (tags[i].code == 3 && SameName(tags[i].text, L"Normal") && tags[i + 1].code == 350 &&
        tags[i + 1].id.isValid()) {
      return tags[i + 1].id;
    }
  }
  return AcDbObjectId();
}

void CompleteDatabase(AcDbDatabase *db) {
  DatabaseState &ds = ObjectAccess::Db(db);
  EnsureTable(db, ds.viewportTable, new AcDbViewportTable);
  EnsureTable(db, ds.linetypeTable, new AcDbLinetypeTable);
  EnsureTable(db, ds.layerTable, new AcDbLayerTable);
  EnsureTable(db, ds.textStyleTable, new AcDbTextStyleTable);
  EnsureTable(db, ds.viewTable, new AcDbViewTable);
  EnsureTable(db, ds.ucsTable, new AcDbUCSTable);
  EnsureTable(db, ds.regAppTable, new AcDbRegAppTable);
  EnsureTable(db, ds.dimStyleTable, new AcDbDimStyleTable);
  EnsureTable(db, ds.blockTable, new AcDbBlockTable);
  if (!ds.namedObjects.isValid()) {
    ObjectAccess::Add(db, new AcDbDictionary, AcDbObjectId(), 0, false, &ds.namedObjects);
  }

  if (FindRecord(ds.viewportTable, L"*Active").isNull()) {
    auto *vport = new AcDbViewportTableRecord;
    vport->setActiveDefaults();
    AddRecord(db, ds.viewportTable, vport, L"*Active");
  }
  for (const wchar_t *name : {L"ByBlock", L"ByLayer"}) {
    if (FindRecord(ds.linetypeTable, name).isNull()) AddRecord(db, ds.linetypeTable, new AcDbLinetypeTableRecord, name);
  }
  if (FindRecord(ds.linetypeTable, L"Continuous").isNull()) {
    auto *lt = new AcDbLinetypeTableRecord;
    lt->setComments(L"Solid line");
    AddRecord(db, ds.linetypeTable, lt, L"Continuous");
  }
  EnsureLayer(db, L"0");
  // Layers read without a line type draw continuous lines.
  if (auto *layers = ObjectAccess::PeekAs<AcDbSymbolTable>(ds.layerTable)) {
    AcDbObjectId continuous = FindRecord(ds.linetypeTable, L"Continuous");
    for (AcDbObjectId id : ObjectAccess::Records(layers)) {
      auto *layer = ObjectAccess::PeekAs<AcDbLayerTableRecord>(id);
      if (layer && !layer->linetypeObjectId().isValid()) {
        ObjectState &st = ObjectAccess::State(layer);
        bool was = st.writing;
        st.writing = true;
        layer->setLinetypeObjectId(continuous);
        st.writing = was;
      }
    }
  }
  if (FindRecord(ds.textStyleTable, L"Standard").isNull()) {
    AddRecord(db, ds.textStyleTable, new AcDbTextStyleTableRecord, L"Standard");
  }
  if (FindRecord(ds.dimStyleTable, L"Standard").isNull()) {
    AddRecord(db, ds.dimStyleTable, new AcDbDimStyleTableRecord, L"Standard");
  }
  if (FindRecord(ds.regAppTable, L"ACAD").isNull()) AddRecord(db, ds.regAppTable, new AcDbRegAppTableRecord, L"ACAD");

  auto ensureBlock = [&](AcDbObjectId &slot, const wchar_t *name) {
    slot = FindRecord(ds.blockTable, name);
    if (!slot.isNull()) return;
    auto *block = new AcDbBlockTableRecord;
    slot = AddRecord(db, ds.blockTable, block, name);
    if (auto *added = ObjectAccess::PeekAs<AcDbBlockTableRecord>(slot)) ObjectAccess::AddBlockMarkers(added);
  };
  ensureBlock(ds.modelSpace, L"*Model_Space");
  ensureBlock(ds.paperSpace, L"*Paper_Space");

  AcDbObjectId nod = ds.namedObjects;
  EnsureEntry(db, nod, L"ACAD_GROUP", new AcDbDictionary);
  AcDbObjectId layouts = EnsureEntry(db, nod, L"ACAD_LAYOUT", new AcDbDictionary);
  AcDbObjectId mlineStyles = EnsureEntry(db, nod, L"ACAD_MLINESTYLE", new AcDbDictionary);
  if (auto *styles = ObjectAccess::PeekAs<AcDbDictionary>(mlineStyles)) {
    if (!styles->has(L"Standard")) AddDictionaryEntry(db, mlineStyles, L"Standard", MakeStandardMlineStyle());
  }
  EnsureEntry(db, nod, L"ACAD_PLOTSETTINGS", new AcDbDictionary);
  if (NormalPlotStyleId(db).isNull()) {
    auto *nodDict = ObjectAccess::PeekAs<AcDbDictionary>(nod);
    AcDbObjectId old;
    if (nodDict && nodDict->getAt(L"ACAD_PLOTSTYLENAME", old) == Acad::eOk) {
      auto &entries = ObjectAccess::Entries(nodDict);
      entries.erase(std::remove_if(entries.begin(), entries.end(),
                                   [&](const auto &e) { return e.second == old; }),
                    entries.end());
    }
    auto *withDefault = new CarriedObject(L"ACDBDICTIONARYWDFLT");
    AcDbObjectId dictId = AddDictionaryEntry(db, nod, L"ACAD_PLOTSTYLENAME", withDefault);
    auto *normal = new CarriedObject(L"ACDBPLACEHOLDER");
    AcDbObjectId normalId;
    if (ObjectAccess::Add(db, normal, dictId, 0, false, &normalId) != Acad::eOk) delete normal;
    withDefault->carriedTags() = {DxfTag::Text(100, L"AcDbDictionary"), DxfTag::Int(281, 1),
                                  DxfTag::Text(3, L"Normal"), DxfTag::Id(350, normalId),
                                  DxfTag::Text(100, L"AcDbDictionaryWithDefault"), DxfTag::Id(340, normalId)};
  }
  EnsureLayoutOf(db, ds.modelSpace, layouts, L"Model", 0);
  EnsureLayoutOf(db, ds.paperSpace, layouts, L"Layout1", 1);

  if (!AcDbLayerTableRecord::cast(ObjectAccess::Peek(ds.clayer))) ds.clayer = FindRecord(ds.layerTable, L"0");
  if (!AcDbTextStyleTableRecord::cast(ObjectAccess::Peek(ds.textstyle))) {
    ds.textstyle = FindRecord(ds.textStyleTable, L"Standard");
  }
  if (!AcDbDimStyleTableRecord::cast(ObjectAccess::Peek(ds.dimstyle))) {
    ds.dimstyle = FindRecord(ds.dimStyleTable, L"Standard");
  }
  if (!AcDbLinetypeTableRecord::cast(ObjectAccess::Peek(ds.celtype))) {
    ds.celtype = FindRecord(ds.linetypeTable, L"ByLayer");
  }
}

}  // namespace tolv

using tolv::ObjectAccess;

AcDbDatabase::AcDbDatabase(bool buildDefaultDrawing, bool) : state_(std::make_unique<tolv::DatabaseState>()) {
  if (buildDefaultDrawing) tolv::CompleteDatabase(this);
}

AcDbDatabase::~AcDbDatabase() {
  tolv::ForgetWorkingDatabase(this);
  std::vector<AcDbObjectId> ids = std::move(state_->objects);
  for (auto it = ids.rbegin(); it != ids.rend(); ++it) {
    AcDbObject *obj = ObjectAccess::Peek(*it);
    if (obj && obj->database() == this) delete obj;
  }
}

Acad::ErrorStatus AcDbDatabase::addAcDbObject(AcDbObjectId &objId, AcDbObject *obj) {
  objId.setNull();
  return ObjectAccess::Add(this, obj, AcDbObjectId(), 0, true, &objId);
}

Acad::ErrorStatus AcDbDatabase::addAcDbObject(AcDbObject *obj) {
  AcDbObjectId ignored;
  return addAcDbObject(ignored, obj);
}

Acad::ErrorStatus AcDbDatabase::getAcDbObjectId(AcDbObjectId &retId, bool, const AcDbHandle &objHandle,
                                                Adesk::UInt32) {
  retId.setNull();
  auto it = state_->byHandle.find(objHandle.value());
  if (it == state_->byHandle.end() || !it->second.isValid()) return Acad::eUnknownHandle;
  retId = it->second;
  return Acad::eOk;
}

#define TOLV_TABLE_ACCESS(TYPE, FIELD)                                                   \
  Acad::ErrorStatus AcDbDatabase::getSymbolTable(TYPE *&table, AcDb::OpenMode mode) {    \
    table = nullptr;                                                                     \
    return acdbOpenObject(table, state_->FIELD, mode);                                   \
  }
TOLV_TABLE_ACCESS(AcDbBlockTable, blockTable)
TOLV_TABLE_ACCESS(AcDbLayerTable, layerTable)
TOLV_TABLE_ACCESS(AcDbLinetypeTable, linetypeTable)
TOLV_TABLE_ACCESS(AcDbTextStyleTable, textStyleTable)
TOLV_TABLE_ACCESS(AcDbDimStyleTable, dimStyleTable)
TOLV_TABLE_ACCESS(AcDbRegAppTable, regAppTable)
#undef TOLV_TABLE_ACCESS

AcDbObjectId AcDbDatabase::blockTableId() const { return state_->blockTable; }
AcDbObjectId AcDbDatabase::layerTableId() const { return state_->layerTable; }
AcDbObjectId AcDbDatabase::linetypeTableId() const { return state_->linetypeTable; }
AcDbObjectId AcDbDatabase::textStyleTableId() const { return state_->textStyleTable; }
AcDbObjectId AcDbDatabase::dimStyleTableId() const { return state_->dimStyleTable; }
AcDbObjectId AcDbDatabase::regAppTableId() const { return state_->regAppTable; }

Acad::ErrorStatus AcDbDatabase::getNamedObjectsDictionary(AcDbDictionary *&dict, AcDb::OpenMode mode) {
  dict = nullptr;
  return acdbOpenObject(dict, state_->namedObjects, mode);
}

AcDbObjectId AcDbDatabase::namedObjectsDictionaryId() const { return state_->namedObjects; }

namespace {

template <class R>
Acad::ErrorStatus SetCurrent(AcDbDatabase *db, AcDbObjectId &slot, AcDbObjectId id) {
  AcDbObject *obj = ObjectAccess::Peek(id);
  if (!R::cast(obj) || obj->database() != db || obj->isErased()) return Acad::eWrongObjectType;
  slot = id;
  return Acad::eOk;
}

}  // namespace

AcDbObjectId AcDbDatabase::clayer() const { return state_->clayer; }
Acad::ErrorStatus AcDbDatabase::setClayer(AcDbObjectId id) {
  return SetCurrent<AcDbLayerTableRecord>(this, state_->clayer, id);
}
AcDbObjectId AcDbDatabase::textstyle() const { return state_->textstyle; }
Acad::ErrorStatus AcDbDatabase::setTextstyle(AcDbObjectId id) {
  return SetCurrent<AcDbTextStyleTableRecord>(this, state_->textstyle, id);
}
AcDbObjectId AcDbDatabase::dimstyle() const { return state_->dimstyle; }
Acad::ErrorStatus AcDbDatabase::setDimstyle(AcDbObjectId id) {
  return SetCurrent<AcDbDimStyleTableRecord>(this, state_->dimstyle, id);
}
AcDbObjectId AcDbDatabase::celtype() const { return state_->celtype; }
Acad::ErrorStatus AcDbDatabase::setCeltype(AcDbObjectId id) {
  return SetCurrent<AcDbLinetypeTableRecord>(this, state_->celtype, id);
}

AcDbObjectId AcDbDatabase::byLayerLinetype() const { return tolv::FindRecord(state_->linetypeTable, L"ByLayer"); }
AcDbObjectId AcDbDatabase::byBlockLinetype() const { return tolv::FindRecord(state_->linetypeTable, L"ByBlock"); }
AcDbObjectId AcDbDatabase::continuousLinetype() const {
  return tolv::FindRecord(state_->linetypeTable, L"Continuous");
}

AcDbObjectId AcDbDatabase::modelSpaceId() const { return state_->modelSpace; }
AcDbObjectId AcDbDatabase::paperSpaceId() const { return state_->paperSpace; }
AcDbObjectId AcDbDatabase::currentSpaceId() const { return state_->tileMode ? state_->modelSpace : state_->paperSpace; }
bool AcDbDatabase::tileMode() const { return state_->tileMode; }
Acad::ErrorStatus AcDbDatabase::setTileMode(bool tileMode) {
  state_->tileMode = tileMode;
  return Acad::eOk;
}

AcDb::UnitsValue AcDbDatabase::insunits() const { return static_cast<AcDb::UnitsValue>(state_->insunits); }
Acad::ErrorStatus AcDbDatabase::setInsunits(AcDb::UnitsValue units) {
  if (static_cast<int>(units) < 0 || static_cast<int>(units) > 20) return Acad::eInvalidInput;
  state_->insunits = units;
  return Acad::eOk;
}

Acad::ErrorStatus AcDbDatabase::getFilename(const ACHAR *&fileName) const {
  fileName = state_->fileName.c_str();
  return Acad::eOk;
}
