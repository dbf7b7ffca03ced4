#include "platform/acad/AcDbSymbolTable.h"

#include <cwchar>

#include "platform/acad/AcDbSymbolTables.h"
#include "platform/acad/AdsResbuf.h"
#include "platform/acad/DbInternals.h"
#include "platform/windows/WinCrt.h"

namespace tolv {

bool SameName(const std::wstring &a, const std::wstring &b) {
  if (a.size() != b.size()) return false;
  for (std::size_t i = 0; i < a.size(); ++i) {
    if (FoldLower(a[i]) != FoldLower(b[i])) return false;
  }
  return true;
}

std::wstring UpperName(const std::wstring &text) {
  std::wstring out(text);
  for (wchar_t &c : out) c = FoldUpper(c);
  return out;
}

AcDbObjectId FindRecord(AcDbObjectId tableId, const std::wstring &name) {
  auto *table = ObjectAccess::PeekAs<AcDbSymbolTable>(tableId);
  if (!table) return AcDbObjectId();
  AcDbObjectId id;
  return table->getAt(name.c_str(), id) == Acad::eOk ? id : AcDbObjectId();
}

}  // namespace tolv

namespace {

bool IsValidName(const std::wstring &name) {
  if (name.empty()) return false;
  for (std::size_t i = 0; i < name.size(); ++i) {
    wchar_t c = name[i];
    if (c < 0x20) return false;
    if (c == L'*' && i == 0) continue;
    if (std::wcschr(L"<>/\\\":;?*|,=`", c)) return false;
  }
  return true;
}

}  // namespace

// ---------------------------------------------------------------- records

ACRX_NO_CONS_DEFINE_MEMBERS(AcDbSymbolTableRecord, AcDbObject)

AcDbSymbolTableRecord::AcDbSymbolTableRecord() = default;
AcDbSymbolTableRecord::~AcDbSymbolTableRecord() = default;

Acad::ErrorStatus AcDbSymbolTableRecord::getName(ACHAR *&name) const {
  name = tolv::DupRbText(name_.c_str());
  return name ? Acad::eOk : Acad::eOutOfMemory;
}

Acad::ErrorStatus AcDbSymbolTableRecord::getName(const ACHAR *&name) const {
  name = name_.c_str();
  return Acad::eOk;
}

Acad::ErrorStatus AcDbSymbolTableRecord::setName(const ACHAR *name) {
  if (Acad::ErrorStatus es = checkWriteEnabled(); es != Acad::eOk) return es;
  std::wstring text = name ? name : L"";
  if (!IsValidName(text)) return Acad::eInvalidSymbolTableName;
  if (auto *table = tolv::ObjectAccess::PeekAs<AcDbSymbolTable>(ownerId())) {
    AcDbObjectId other;
    if (table->getAt(text.c_str(), other) == Acad::eOk && other != objectId()) return Acad::eDuplicateRecordName;
  }
  name_ = std::move(text);
  return Acad::eOk;
}

Acad::ErrorStatus AcDbSymbolTableRecord::dxfOutFields(AcDbDxfFiler *filer) const {
  filer->writeString(100, L"AcDbSymbolTableRecord");
  filer->writeString(100, subclassMarker());
  filer->writeString(2, name_);
  if (writesFlags()) filer->writeInt16(70, static_cast<Adesk::Int16>(flagsForFile()));
  writeOwnFields(filer);
  for (const tolv::DxfTag &t : extras_) filer->writeTag(t);
  return Acad::eOk;
}

Acad::ErrorStatus AcDbSymbolTableRecord::dxfInFields(AcDbDxfFiler *filer) {
  tolv::DxfTag tag;
  while (filer->readTag(tag)) {
    if (tag.code == 100) continue;  // subclass markers are written anew
    if (tag.code == 2) {
      name_ = tag.text;
    } else if (tag.code == 70) {
      setFlagsFromFile(static_cast<int>(tag.integer));
    } else if (!readOwnField(tag, filer)) {
      extras_.push_back(tag);
    }
  }
  return Acad::eOk;
}

void AcDbSymbolTableRecord::writeOwnFields(AcDbDxfFiler *) const {}
bool AcDbSymbolTableRecord::readOwnField(const tolv::DxfTag &, AcDbDxfFiler *) { return false; }

// ----------------------------------------------------------------- tables

ACRX_NO_CONS_DEFINE_MEMBERS(AcDbSymbolTable, AcDbObject)

AcDbSymbolTable::AcDbSymbolTable() = default;
AcDbSymbolTable::~AcDbSymbolTable() = default;

Acad::ErrorStatus AcDbSymbolTable::getAt(const ACHAR *entryName, AcDbObjectId &recordId,
                                         bool getErasedRecord) const {
  recordId.setNull();
  if (!entryName) return Acad::eInvalidInput;
  std::wstring wanted(entryName);
  for (AcDbObjectId id : records_) {
    auto *rec = tolv::ObjectAccess::PeekAs<AcDbSymbolTableRecord>(id);
    if (!rec) continue;
    if (rec->isErased() && !getErasedRecord) continue;
    const ACHAR *name = nullptr;
    rec->getName(name);
    if (tolv::SameName(name, wanted)) {
      recordId = id;
      return Acad::eOk;
    }
  }
  return Acad::eKeyNotFound;
}

Acad::ErrorStatus AcDbSymbolTable::getAt(const ACHAR *entryName, AcDbSymbolTableRecord *&record, AcDb::OpenMode mode,
                                         bool openErasedRec) const {
  record = nullptr;
  AcDbObjectId id;
  Acad::ErrorStatus es = getAt(entryName, id, openErasedRec);
  return es == Acad::eOk ? acdbOpenObject(record, id, mode, openErasedRec) : es;
}

bool AcDbSymbolTable::has(const ACHAR *name) const {
  AcDbObjectId id;
  return getAt(name, id) == Acad::eOk;
}

bool AcDbSymbolTable::has(AcDbObjectId id) const {
  for (AcDbObjectId r : records_) {
    if (r == id) return !id.isErased();
  }
  return false;
}

Acad::ErrorStatus AcDbSymbolTable::add(AcDbSymbolTableRecord *record) {
  AcDbObjectId ignored;
  return add(ignored, record);
}

Acad::ErrorStatus AcDbSymbolTable::add(AcDbObjectId &recordId, AcDbSymbolTableRecord *record) {
  recordId.setNull();
  if (!record) return Acad::eNullObjectPointer;
  if (Acad::ErrorStatus es = checkWriteEnabled(); es != Acad::eOk) return es;
  if (!database()) return Acad::eWrongDatabase;
  if (!record->isNewObject()) return Acad::eAlreadyInDb;
  if (!acceptsRecord(record)) return Acad::eWrongObjectType;
  const ACHAR *name = nullptr;
  record->getName(name);
  if (!name || !*name) return Acad::eInvalidSymbolTableName;
  if (has(name)) return Acad::eDuplicateRecordName;
  Acad::ErrorStatus es = tolv::ObjectAccess::Add(database(), record, objectId(), 0, true, &recordId);
  if (es != Acad::eOk) return es;
  records_.push_back(recordId);
  recordAdded(record);
  return Acad::eOk;
}

Acad::ErrorStatus AcDbSymbolTable::newIterator(AcDbSymbolTableIterator *&iterator, bool atBeginning,
                                               bool skipDeleted) const {
  iterator = new AcDbSymbolTableIterator(records_);
  iterator->start(atBeginning, skipDeleted);
  return Acad::eOk;
}

void AcDbSymbolTable::recordAdded(AcDbSymbolTableRecord *) {}

// --------------------------------------------------------------- iterator

void AcDbSymbolTableIterator::start(bool atBeginning, bool skipDeleted) {
  pos_ = atBeginning ? 0 : static_cast<long long>(ids_.size()) - 1;
  skip(atBeginning, skipDeleted);
}

bool AcDbSymbolTableIterator::done() const { return pos_ < 0 || pos_ >= static_cast<long long>(ids_.size()); }

void AcDbSymbolTableIterator::step(bool forward, bool skipDeleted) {
  if (done()) return;
  pos_ += forward ? 1 : -1;
  skip(forward, skipDeleted);
}

void AcDbSymbolTableIterator::skip(bool forward, bool skipDeleted) {
  while (!done()) {
    AcDbObjectId id = ids_[static_cast<std::size_t>(pos_)];
    if (id.isValid() && !(skipDeleted && id.isErased())) return;
    pos_ += forward ? 1 : -1;
  }
}

Acad::ErrorStatus AcDbSymbolTableIterator::getRecordId(AcDbObjectId &id) const {
  if (done()) return Acad::eInvalidIndex;
  id = ids_[static_cast<std::size_t>(pos_)];
  return Acad::eOk;
}

Acad::ErrorStatus AcDbSymbolTableIterator::getRecord(AcDbSymbolTableRecord *&record, AcDb::OpenMode mode,
                                                     bool openErasedRec) const {
  record = nullptr;
  AcDbObjectId id;
  Acad::ErrorStatus es = getRecordId(id);
  return es == Acad::eOk ? acdbOpenObject(record, id, mode, openErasedRec) : es;
}

// ---------------------------------------------------------- concrete tables

ACRX_CONS_DEFINE_MEMBERS(AcDbBlockTable, AcDbSymbolTable, 0)
ACRX_CONS_DEFINE_MEMBERS(AcDbLayerTable, AcDbSymbolTable, 0)
ACRX_CONS_DEFINE_MEMBERS(AcDbLinetypeTable, AcDbSymbolTable, 0)
ACRX_CONS_DEFINE_MEMBERS(AcDbTextStyleTable, AcDbSymbolTable, 0)
ACRX_CONS_DEFINE_MEMBERS(AcDbDimStyleTable, AcDbSymbolTable, 0)
ACRX_CONS_DEFINE_MEMBERS(AcDbRegAppTable, AcDbSymbolTable, 0)
ACRX_CONS_DEFINE_MEMBERS(AcDbViewportTable, AcDbSymbolTable, 0)
ACRX_CONS_DEFINE_MEMBERS(AcDbViewTable, AcDbSymbolTable, 0)
ACRX_CONS_DEFINE_MEMBERS(AcDbUCSTable, AcDbSymbolTable, 0)

void AcDbBlockTable::recordAdded(AcDbSymbolTableRecord *record) {
  // Every block has its BLOCK and ENDBLK markers in the drawing file.
  auto *block = AcDbBlockTableRecord::cast(record);
  tolv::ObjectAccess::AddBlockMarkers(block);
}
void AcDbLayerTable::recordAdded(AcDbSymbolTableRecord *record) {
  // A layer without a line type draws continuous lines.
  auto *layer = AcDbLayerTableRecord::cast(record);
  if (layer->linetypeObjectId().isNull()) {
    AcDbObjectId continuous = tolv::FindRecord(tolv::ObjectAccess::Db(database()).linetypeTable, L"Continuous");
    if (!continuous.isNull()) layer->setLinetypeObjectId(continuous);
  }
}
void AcDbLinetypeTable::recordAdded(AcDbSymbolTableRecord *) {}
void AcDbTextStyleTable::recordAdded(AcDbSymbolTableRecord *) {}
void AcDbDimStyleTable::recordAdded(AcDbSymbolTableRecord *record) {
  auto *style = AcDbDimStyleTableRecord::cast(record);
  if (!style->dimblk_.empty()) tolv::EnsureArrowBlock(database(), style->dimblk_);
}
void AcDbRegAppTable::recordAdded(AcDbSymbolTableRecord *) {}
void AcDbViewportTable::recordAdded(AcDbSymbolTableRecord *) {}
void AcDbViewTable::recordAdded(AcDbSymbolTableRecord *) {}
void AcDbUCSTable::recordAdded(AcDbSymbolTableRecord *) {}
