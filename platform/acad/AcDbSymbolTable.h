// Symbol tables and their records: the named lists of a drawing (layers,
// line types, text and dimension styles, blocks, applications, views).
// Names are compared without regard to case, as the host does.
#pragma once

#include <string>
#include <vector>

#include "platform/acad/AcDbDxfFiler.h"
#include "platform/acad/AcDbObject.h"

class AcDbSymbolTableIterator;

class AcDbSymbolTableRecord : public AcDbObject {
 public:
  ACRX_DECLARE_MEMBERS(AcDbSymbolTableRecord);
  AcDbSymbolTableRecord();
  ~AcDbSymbolTableRecord() override;

  // A new copy the caller frees with acutDelString.
  Acad::ErrorStatus getName(ACHAR *&name) const;
  // Points into the record; valid while it is open and unchanged.
  Acad::ErrorStatus getName(const ACHAR *&name) const;
  // eInvalidSymbolTableName for an empty name or one with a character the
  // host refuses (< > / \ " : ; ? * | , = `, except a leading '*' of the
  // host's own blocks); eDuplicateRecordName when another record of the
  // table has the name already.
  Acad::ErrorStatus setName(const ACHAR *name);
  bool isDependent() const { return false; }

  Acad::ErrorStatus dxfOutFields(AcDbDxfFiler *filer) const override;
  Acad::ErrorStatus dxfInFields(AcDbDxfFiler *filer) override;

 protected:
  // The subclass marker of the record's class, e.g. L"AcDbLayerTableRecord".
  virtual const wchar_t *subclassMarker() const = 0;
  // Whether the record writes the standard flags (group 70).
  virtual bool writesFlags() const { return true; }
  virtual int flagsForFile() const { return flags_; }
  virtual void setFlagsFromFile(int flags) { flags_ = flags; }
  // The class's own fields, between the name and flags and what the file
  // held that the record does not model.
  virtual void writeOwnFields(AcDbDxfFiler *filer) const;
  // Takes one tag of the file; false leaves it to be carried through.
  virtual bool readOwnField(const tolv::DxfTag &tag, AcDbDxfFiler *filer);

  int flags_ = 0;
  std::vector<tolv::DxfTag> extras_;

 private:
  friend class tolv::ObjectAccess;
  std::wstring name_;
};

class AcDbSymbolTable : public AcDbObject {
 public:
  ACRX_DECLARE_MEMBERS(AcDbSymbolTable);
  AcDbSymbolTable();
  ~AcDbSymbolTable() override;

  // eKeyNotFound when the table has no record of the name.
  Acad::ErrorStatus getAt(const ACHAR *entryName, AcDbObjectId &recordId, bool getErasedRecord = false) const;
  Acad::ErrorStatus getAt(const ACHAR *entryName, AcDbSymbolTableRecord *&record, AcDb::OpenMode mode,
                          bool openErasedRec = false) const;
  template <class R>
  Acad::ErrorStatus getAt(const ACHAR *entryName, R *&record, AcDb::OpenMode mode, bool openErasedRec = false) const {
    record = nullptr;
    AcDbObjectId id;
    Acad::ErrorStatus es = getAt(entryName, id, openErasedRec);
    return es == Acad::eOk ? acdbOpenObject(record, id, mode, openErasedRec) : es;
  }
  bool has(const ACHAR *name) const;
  bool has(AcDbObjectId id) const;

  // Takes a new record of the table's kind (eWrongObjectType otherwise),
  // which must have a name no other record has (eDuplicateRecordName). The
  // table must be open for write. The record stays open for write.
  Acad::ErrorStatus add(AcDbSymbolTableRecord *record);
  Acad::ErrorStatus add(AcDbObjectId &recordId, AcDbSymbolTableRecord *record);

  Acad::ErrorStatus newIterator(AcDbSymbolTableIterator *&iterator, bool atBeginning = true,
                                bool skipDeleted = true) const;

  // The DXF name of the table (LAYER, LTYPE, ...).
  virtual const wchar_t *tableName() const = 0;

 protected:
  virtual bool acceptsRecord(const AcDbSymbolTableRecord *record) const = 0;
  // Called when a record joined the table.
  virtual void recordAdded(AcDbSymbolTableRecord *record);

 private:
  friend class tolv::ObjectAccess;
  friend class AcDbSymbolTableIterator;
  std::vector<AcDbObjectId> records_;
};

class AcDbSymbolTableIterator {
 public:
  ~AcDbSymbolTableIterator() = default;
  void start(bool atBeginning = true, bool skipDeleted = true);
  bool done() const;
  void step(bool forward = true, bool skipDeleted = true);
  Acad::ErrorStatus getRecordId(AcDbObjectId &id) const;
  Acad::ErrorStatus getRecord(AcDbSymbolTableRecord *&record, AcDb::OpenMode mode, bool openErasedRec = false) const;
  template <class R>
  Acad::ErrorStatus getRecord(R *&record, AcDb::OpenMode mode, bool openErasedRec = false) const {
    record = nullptr;
    AcDbObjectId id;
    Acad::ErrorStatus es = getRecordId(id);
    return es == Acad::eOk ? acdbOpenObject(record, id, mode, openErasedRec) : es;
  }

 private:
  friend class AcDbSymbolTable;
  explicit AcDbSymbolTableIterator(std::vector<AcDbObjectId> ids) : ids_(std::move(ids)) {}
  void skip(bool forward, bool skipDeleted);
  std::vector<AcDbObjectId> ids_;
  long long pos_ = 0;
};
