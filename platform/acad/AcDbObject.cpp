#include "platform/acad/AcDbObject.h"

#include <cwchar>
#include <vector>

#include "platform/acad/AcDbEntity.h"
#include "platform/acad/AcDbSymbolTables.h"
#include "platform/acad/AdsResbuf.h"
#include "platform/acad/DbInternals.h"

namespace {

// One row per id ever handed out; the id is the row number plus one. Rows
// are never reused, so stale ids stay distinct. The table is never freed:
// databases that static objects own may die after it otherwise.
struct Slot {
  AcDbObject *object = nullptr;
  AcDbDatabase *db = nullptr;
  std::uint64_t handle = 0;
};

std::vector<Slot> &Slots() {
  static auto *slots = new std::vector<Slot>();
  return *slots;
}

const Slot *FindSlot(AcDbObjectId id) {
  std::uint64_t serial = id.asOldId();
  std::vector<Slot> &slots = Slots();
  if (serial == 0 || serial > slots.size()) return nullptr;
  return &slots[serial - 1];
}

constexpr int kMaxReaders = 256;

bool IsXDataCode(int code) { return code >= 1000 && code <= 1071; }

}  // namespace

const AcDbObjectId AcDbObjectId::kNull;

bool AcDbObjectId::isValid() const {
  const Slot *slot = FindSlot(*this);
  return slot && slot->object;
}

bool AcDbObjectId::isErased() const {
  const Slot *slot = FindSlot(*this);
  return slot && slot->object && tolv::ObjectAccess::State(slot->object).erased;
}

AcDbDatabase *AcDbObjectId::database() const {
  const Slot *slot = FindSlot(*this);
  return slot && slot->object ? slot->db : nullptr;
}

AcDbHandle AcDbObjectId::handle() const {
  const Slot *slot = FindSlot(*this);
  return slot ? AcDbHandle(slot->handle) : AcDbHandle();
}

void AcDbHandle::getIntoAsciiBuffer(wchar_t *buffer, std::size_t size) const {
  if (!buffer || size == 0) return;
  std::swprintf(buffer, size, L"%llX", static_cast<unsigned long long>(value_));
}

namespace tolv {

ObjectState::~ObjectState() {
  for (XDataGroup &g : xdata) acutRelRb(g.items);
}

AcDbObject *ObjectAccess::Peek(AcDbObjectId id) {
  const Slot *slot = FindSlot(id);
  return slot ? slot->object : nullptr;
}

Acad::ErrorStatus ObjectAccess::Add(AcDbDatabase *db, AcDbObject *obj, AcDbObjectId owner, std::uint64_t handle,
                                    bool leaveOpen, AcDbObjectId *idOut) {
  if (!db) return Acad::eNullObjectPointer;
  if (!obj) return Acad::eNullObjectPointer;
  ObjectState &st = *obj->state_;
  if (st.db) return Acad::eAlreadyInDb;
  DatabaseState &ds = *db->state_;
  if (handle == 0) {
    while (ds.byHandle.count(ds.nextHandle)) ++ds.nextHandle;
    handle = ds.nextHandle++;
  } else if (ds.byHandle.count(handle)) {
    return Acad::eHandleExists;
  }
  if (handle >= ds.nextHandle) ds.nextHandle = handle + 1;
  std::vector<Slot> &slots = Slots();
  slots.push_back(Slot{obj, db, handle});
  AcDbObjectId id;
  id.setFromOldId(slots.size());
  st.id = id;
  st.db = db;
  st.owner = owner;
  st.readers = 0;
  st.writing = leaveOpen;
  ds.byHandle[handle] = id;
  ds.objects.push_back(id);
  if (idOut) *idOut = id;
  return Acad::eOk;
}

void ObjectAccess::SetEntityLayer(AcDbEntity *ent, AcDbObjectId layer) { ent->layerId_ = layer; }
void ObjectAccess::SetEntityLinetype(AcDbEntity *ent, AcDbObjectId linetype) { ent->linetypeId_ = linetype; }

}  // namespace tolv

ACRX_NO_CONS_DEFINE_MEMBERS(AcDbObject, AcRxObject)

AcDbObject::AcDbObject() : state_(std::make_unique<tolv::ObjectState>()) {}

AcDbObject::~AcDbObject() {
  std::uint64_t serial = state_->id.asOldId();
  std::vector<Slot> &slots = Slots();
  if (serial > 0 && serial <= slots.size() && slots[serial - 1].object == this) slots[serial - 1].object = nullptr;
}

AcDbObjectId AcDbObject::objectId() const { return state_->id; }
AcDbObjectId AcDbObject::ownerId() const { return state_->owner; }

Acad::ErrorStatus AcDbObject::setOwnerId(AcDbObjectId ownerId) {
  state_->owner = ownerId;
  return Acad::eOk;
}

AcDbDatabase *AcDbObject::database() const { return state_->db; }

bool AcDbObject::isReadEnabled() const { return !state_->db || state_->writing || state_->readers > 0; }
bool AcDbObject::isWriteEnabled() const { return !state_->db || state_->writing; }
bool AcDbObject::isNewObject() const { return state_->db == nullptr; }
bool AcDbObject::isErased() const { return state_->erased; }

Acad::ErrorStatus AcDbObject::checkWriteEnabled() const {
  return isWriteEnabled() ? Acad::eOk : Acad::eNotOpenForWrite;
}

Acad::ErrorStatus AcDbObject::close() {
  tolv::ObjectState &st = *state_;
  if (!st.db) return Acad::eOk;
  if (st.writing) {
    st.writing = false;
    return Acad::eOk;
  }
  if (st.readers > 0) {
    --st.readers;
    return Acad::eOk;
  }
  return Acad::eNotOpenForRead;
}

Acad::ErrorStatus AcDbObject::upgradeOpen() {
  tolv::ObjectState &st = *state_;
  if (!st.db || st.writing) return Acad::eOk;
  if (st.readers == 0) return Acad::eNotOpenForRead;
  if (st.readers > 1) return Acad::eHadMultipleReaders;
  st.readers = 0;
  st.writing = true;
  return Acad::eOk;
}

Acad::ErrorStatus AcDbObject::downgradeOpen() {
  tolv::ObjectState &st = *state_;
  if (!st.db) return Acad::eOk;
  if (!st.writing) return Acad::eNotOpenForWrite;
  st.writing = false;
  st.readers = 1;
  return Acad::eOk;
}

Acad::ErrorStatus AcDbObject::erase(bool erasing) {
  if (Acad::ErrorStatus es = checkWriteEnabled(); es != Acad::eOk) return es;
  state_->erased = erasing;
  return Acad::eOk;
}

resbuf *AcDbObject::xData(const ACHAR *regappName) const {
  resbuf *head = nullptr;
  resbuf **tail = &head;
  for (const tolv::XDataGroup &g : state_->xdata) {
    if (regappName && !tolv::SameName(g.app, regappName)) continue;
    resbuf *name = acutBuildList(1001, g.app.c_str(), 0);
    if (!name) break;
    name->rbnext = tolv::CopyRbChain(g.items);
    *tail = name;
    while (*tail) tail = &(*tail)->rbnext;
  }
  return head;
}

Acad::ErrorStatus AcDbObject::setXData(const resbuf *xdata) {
  if (Acad::ErrorStatus es = checkWriteEnabled(); es != Acad::eOk) return es;
  if (!xdata || xdata->restype != 1001) return Acad::eInvalidInput;
  // Check the whole list before changing anything.
  for (const resbuf *rb = xdata; rb; rb = rb->rbnext) {
    if (!IsXDataCode(rb->restype)) return Acad::eInvalidInput;
    if (rb->restype != 1001) continue;
    if (!rb->resval.rstring || !*rb->resval.rstring) return Acad::eInvalidInput;
    if (state_->db) {
      AcDbObjectId table = tolv::ObjectAccess::Db(state_->db).regAppTable;
      if (tolv::FindRecord(table, rb->resval.rstring).isNull()) return Acad::eRegappIdNotFound;
    }
  }
  const resbuf *rb = xdata;
  while (rb) {
    std::wstring app = rb->resval.rstring;
    const resbuf *first = rb->rbnext;
    const resbuf *end = first;
    while (end && end->restype != 1001) end = end->rbnext;
    // Copy [first, end).
    resbuf *items = nullptr;
    resbuf **tail = &items;
    for (const resbuf *p = first; p != end; p = p->rbnext) {
      resbuf single = *p;
      single.rbnext = nullptr;
      resbuf *copy = tolv::CopyRbChain(&single);
      if (!copy) {
        acutRelRb(items);
        return Acad::eOutOfMemory;
      }
      *tail = copy;
      tail = &copy->rbnext;
    }
    std::vector<tolv::XDataGroup> &groups = state_->xdata;
    auto it = groups.begin();
    while (it != groups.end() && !tolv::SameName(it->app, app)) ++it;
    if (!items) {
      if (it != groups.end()) {
        acutRelRb(it->items);
        groups.erase(it);
      }
    } else if (it != groups.end()) {
      acutRelRb(it->items);
      it->items = items;
    } else {
      groups.push_back(tolv::XDataGroup{app, items});
    }
    rb = end;
  }
  return Acad::eOk;
}

Acad::ErrorStatus AcDbObject::dxfOutFields(AcDbDxfFiler *) const { return Acad::eOk; }
Acad::ErrorStatus AcDbObject::dxfInFields(AcDbDxfFiler *) { return Acad::eOk; }

Acad::ErrorStatus acdbOpenAcDbObject(AcDbObject *&obj, AcDbObjectId id, AcDb::OpenMode mode, bool openErased) {
  obj = nullptr;
  if (id.isNull()) return Acad::eNullObjectId;
  AcDbObject *o = tolv::ObjectAccess::Peek(id);
  if (!o) return Acad::eUnknownHandle;
  tolv::ObjectState &st = tolv::ObjectAccess::State(o);
  if (st.erased && !openErased) return Acad::eWasErased;
  if (st.writing) return Acad::eWasOpenForWrite;
  if (mode == AcDb::kForWrite) {
    if (st.readers > 0) return Acad::eWasOpenForRead;
    st.writing = true;
  } else {
    if (st.readers >= kMaxReaders) return Acad::eAtMaxReaders;
    ++st.readers;
  }
  obj = o;
  return Acad::eOk;
}
