#include "platform/acad/AcDbDictionary.h"

#include "platform/acad/AcDbDxfFiler.h"
#include "platform/acad/AcDbXrecord.h"
#include "platform/acad/AdsResbuf.h"
#include "platform/acad/DbInternals.h"

ACRX_DXF_DEFINE_MEMBERS(AcDbDictionary, AcDbObject, 0, 0, 0, DICTIONARY, ACAD)

AcDbDictionary::AcDbDictionary() = default;
AcDbDictionary::~AcDbDictionary() = default;

Acad::ErrorStatus AcDbDictionary::getAt(const ACHAR *entryName, AcDbObjectId &entryObj) const {
  entryObj.setNull();
  if (!entryName) return Acad::eInvalidKey;
  for (const auto &e : entries_) {
    if (e.second.isValid() && !e.second.isErased() && tolv::SameName(e.first, entryName)) {
      entryObj = e.second;
      return Acad::eOk;
    }
  }
  return Acad::eKeyNotFound;
}

Acad::ErrorStatus AcDbDictionary::getAt(const ACHAR *entryName, AcDbObject *&entryObj, AcDb::OpenMode mode) const {
  entryObj = nullptr;
  AcDbObjectId id;
  Acad::ErrorStatus es = getAt(entryName, id);
  return es == Acad::eOk ? acdbOpenAcDbObject(entryObj, id, mode) : es;
}

Acad::ErrorStatus AcDbDictionary::nameAt(AcDbObjectId objId, const ACHAR *&name) const {
  name = nullptr;
  for (const auto &e : entries_) {
    if (e.second == objId) {
      name = e.first.c_str();
      return Acad::eOk;
    }
  }
  return Acad::eKeyNotFound;
}

bool AcDbDictionary::has(const ACHAR *entryName) const {
  AcDbObjectId id;
  return getAt(entryName, id) == Acad::eOk;
}

bool AcDbDictionary::has(AcDbObjectId objId) const {
  for (const auto &e : entries_) {
    if (e.second == objId) return !objId.isErased();
  }
  return false;
}

Adesk::UInt32 AcDbDictionary::numEntries() const {
  Adesk::UInt32 n = 0;
  for (const auto &e : entries_) {
    if (e.second.isValid() && !e.second.isErased()) ++n;
  }
  return n;
}

Acad::ErrorStatus AcDbDictionary::setAt(const ACHAR *srchKey, AcDbObject *newValue, AcDbObjectId &retObjId) {
  retObjId.setNull();
  if (!srchKey || !*srchKey) return Acad::eInvalidKey;
  if (!newValue) return Acad::eNullObjectPointer;
  if (Acad::ErrorStatus es = checkWriteEnabled(); es != Acad::eOk) return es;
  if (!database()) return Acad::eWrongDatabase;
  if (newValue->isNewObject()) {
    Acad::ErrorStatus es = tolv::ObjectAccess::Add(database(), newValue, objectId(), 0, true, &retObjId);
    if (es != Acad::eOk) return es;
  } else {
    if (newValue->database() != database()) return Acad::eWrongDatabase;
    if (newValue->objectId() == objectId()) return Acad::eSelfReference;
    retObjId = newValue->objectId();
    tolv::ObjectAccess::SetOwner(newValue, objectId());
  }
  for (auto &e : entries_) {
    if (tolv::SameName(e.first, srchKey) && e.second.isValid() && !e.second.isErased()) {
      if (e.second != retObjId) {
        if (AcDbObject *old = tolv::ObjectAccess::Peek(e.second)) tolv::ObjectAccess::State(old).erased = true;
      }
      e.second = retObjId;
      return Acad::eOk;
    }
  }
  entries_.emplace_back(srchKey, retObjId);
  return Acad::eOk;
}

Acad::ErrorStatus AcDbDictionary::remove(const ACHAR *key) {
  AcDbObjectId ignored;
  return remove(key, ignored);
}

Acad::ErrorStatus AcDbDictionary::remove(const ACHAR *key, AcDbObjectId &returnId) {
  returnId.setNull();
  if (Acad::ErrorStatus es = checkWriteEnabled(); es != Acad::eOk) return es;
  if (!key) return Acad::eInvalidKey;
  for (auto it = entries_.begin(); it != entries_.end(); ++it) {
    if (tolv::SameName(it->first, key) && !it->second.isErased()) {
      returnId = it->second;
      if (AcDbObject *obj = tolv::ObjectAccess::Peek(returnId)) tolv::ObjectAccess::SetOwner(obj, AcDbObjectId());
      entries_.erase(it);
      return Acad::eOk;
    }
  }
  return Acad::eKeyNotFound;
}

Acad::ErrorStatus AcDbDictionary::setName(const ACHAR *oldName, const ACHAR *newName) {
  if (Acad::ErrorStatus es = checkWriteEnabled(); es != Acad::eOk) return es;
  if (!newName || !*newName) return Acad::eInvalidKey;
  if (has(newName)) return Acad::eDuplicateKey;
  for (auto &e : entries_) {
    if (oldName && tolv::SameName(e.first, oldName) && !e.second.isErased()) {
      e.first = newName;
      return Acad::eOk;
    }
  }
  return Acad::eKeyNotFound;
}

AcDbDictionaryIterator *AcDbDictionary::newIterator() const { return new AcDbDictionaryIterator(entries_); }

Acad::ErrorStatus AcDbDictionary::dxfOutFields(AcDbDxfFiler *filer) const {
  filer->writeString(100, L"AcDbDictionary");
  if (hardOwner_) filer->writeInt16(280, static_cast<Adesk::Int16>(hardOwner_));
  filer->writeInt16(281, static_cast<Adesk::Int16>(mergeStyle_));
  for (const auto &e : entries_) {
    if (!e.second.isValid() || e.second.isErased()) continue;
    filer->writeString(3, e.first);
    filer->writeObjectId(hardOwner_ ? 360 : 350, e.second);
  }
  return Acad::eOk;
}

Acad::ErrorStatus AcDbDictionary::dxfInFields(AcDbDxfFiler *filer) {
  entries_.clear();
  tolv::DxfTag tag;
  std::wstring key;
  bool haveKey = false;
  while (filer->readTag(tag)) {
    switch (tag.code) {
      case 280:
        hardOwner_ = tag.integer ? 1 : 0;
        break;
      case 281:
        mergeStyle_ = static_cast<int>(tag.integer);
        break;
      case 3:
        key = tag.text;
        haveKey = true;
        break;
      case 350:
      case 360:
        if (haveKey && !key.empty() && tag.id.isValid()) entries_.emplace_back(key, tag.id);
        haveKey = false;
        break;
      default:
        break;
    }
  }
  return Acad::eOk;
}

AcDbDictionaryIterator::AcDbDictionaryIterator(std::vector<std::pair<std::wstring, AcDbObjectId>> entries)
    : entries_(std::move(entries)) {
  skipErased();
}

void AcDbDictionaryIterator::skipErased() {
  while (pos_ < entries_.size() && (!entries_[pos_].second.isValid() || entries_[pos_].second.isErased())) ++pos_;
}

const ACHAR *AcDbDictionaryIterator::name() const { return done() ? nullptr : entries_[pos_].first.c_str(); }
AcDbObjectId AcDbDictionaryIterator::objectId() const { return done() ? AcDbObjectId() : entries_[pos_].second; }

Acad::ErrorStatus AcDbDictionaryIterator::getObject(AcDbObject *&obj, AcDb::OpenMode mode) {
  obj = nullptr;
  if (done()) return Acad::eInvalidIndex;
  return acdbOpenAcDbObject(obj, entries_[pos_].second, mode);
}

bool AcDbDictionaryIterator::next() {
  if (done()) return false;
  ++pos_;
  skipErased();
  return !done();
}

namespace tolv {
std::vector<std::pair<std::wstring, AcDbObjectId>> &ObjectAccess::Entries(AcDbDictionary *dict) {
  return dict->entries_;
}
}  // namespace tolv

// ----------------------------------------------------------------- Xrecord

ACRX_DXF_DEFINE_MEMBERS(AcDbXrecord, AcDbObject, 0, 0, 0, XRECORD, ACAD)

AcDbXrecord::AcDbXrecord() = default;
AcDbXrecord::~AcDbXrecord() { acutRelRb(data_); }

Acad::ErrorStatus AcDbXrecord::rbChain(resbuf **ppRb, AcDbDatabase *) const {
  if (!ppRb) return Acad::eInvalidInput;
  *ppRb = tolv::CopyRbChain(data_);
  return Acad::eOk;
}

Acad::ErrorStatus AcDbXrecord::setFromRbChain(const resbuf &pRb, AcDbDatabase *) {
  if (Acad::ErrorStatus es = checkWriteEnabled(); es != Acad::eOk) return es;
  for (const resbuf *rb = &pRb; rb; rb = rb->rbnext) {
    int c = rb->restype;
    if (c <= 0 || c >= 1000 || c == 5 || c == 100 || c == 102 || c == 105 || c == 330) return Acad::eInvalidInput;
    if (tolv::RbKindOfType(c) == tolv::RbValueKind::kNone) return Acad::eInvalidInput;
  }
  resbuf *copy = tolv::CopyRbChain(&pRb);
  if (!copy) return Acad::eOutOfMemory;
  acutRelRb(data_);
  data_ = copy;
  return Acad::eOk;
}

Acad::ErrorStatus AcDbXrecord::dxfOutFields(AcDbDxfFiler *filer) const {
  filer->writeString(100, L"AcDbXrecord");
  filer->writeInt16(280, 1);
  std::vector<tolv::DxfTag> tags;
  tolv::AppendRbAsTags(data_, tags);
  for (const tolv::DxfTag &t : tags) filer->writeTag(t);
  return Acad::eOk;
}

Acad::ErrorStatus AcDbXrecord::dxfInFields(AcDbDxfFiler *filer) {
  acutRelRb(data_);
  data_ = nullptr;
  filer->atSubclassData(L"AcDbXrecord");
  const tolv::DxfTag *first = filer->peek();
  if (first && first->code == 280) {
    tolv::DxfTag ignored;
    filer->readTag(ignored);
  }
  const std::vector<tolv::DxfTag> &tags = filer->tags();
  data_ = tolv::TagsToRb(tags, filer->position(), tags.size());
  return Acad::eOk;
}
