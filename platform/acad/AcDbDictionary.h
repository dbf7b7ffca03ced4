// A dictionary: objects of the database under text keys. Keys are
// compared without regard to case and keep the case they were given. The
// dictionary owns its entries.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "platform/acad/AcDbObject.h"

class AcDbDictionaryIterator;

class AcDbDictionary : public AcDbObject {
 public:
  ACRX_DECLARE_MEMBERS(AcDbDictionary);
  AcDbDictionary();
  ~AcDbDictionary() override;

  // eKeyNotFound (22) when no entry has the key.
  Acad::ErrorStatus getAt(const ACHAR *entryName, AcDbObjectId &entryObj) const;
  Acad::ErrorStatus getAt(const ACHAR *entryName, AcDbObject *&entryObj, AcDb::OpenMode mode) const;
  // The key of an entry; eKeyNotFound when the object is no entry.
  Acad::ErrorStatus nameAt(AcDbObjectId objId, const ACHAR *&name) const;
  bool has(const ACHAR *entryName) const;
  bool has(AcDbObjectId objId) const;
  Adesk::UInt32 numEntries() const;

  // Puts the object under the key; the dictionary must be in a database and
  // open for write. A new object joins the database, owned by the
  // dictionary, and stays open for write; an entry of the same key is
  // erased and replaced. eInvalidKey for an empty key.
  Acad::ErrorStatus setAt(const ACHAR *srchKey, AcDbObject *newValue, AcDbObjectId &retObjId);
  // Takes the entry out (the object stays in the database, without owner).
  Acad::ErrorStatus remove(const ACHAR *key);
  Acad::ErrorStatus remove(const ACHAR *key, AcDbObjectId &returnId);
  Acad::ErrorStatus setName(const ACHAR *oldName, const ACHAR *newName);

  AcDbDictionaryIterator *newIterator() const;

  Acad::ErrorStatus dxfOutFields(AcDbDxfFiler *filer) const override;
  Acad::ErrorStatus dxfInFields(AcDbDxfFiler *filer) override;

 private:
  friend class tolv::ObjectAccess;
  std::vector<std::pair<std::wstring, AcDbObjectId>> entries_;
  int hardOwner_ = 0;  // group 280
  int mergeStyle_ = 1;  // group 281
};

class AcDbDictionaryIterator {
 public:
  const ACHAR *name() const;
  AcDbObjectId objectId() const;
  Acad::ErrorStatus getObject(AcDbObject *&obj, AcDb::OpenMode mode);
  bool done() const { return pos_ >= entries_.size(); }
  bool next();

 private:
  friend class AcDbDictionary;
  explicit AcDbDictionaryIterator(std::vector<std::pair<std::wstring, AcDbObjectId>> entries);
  void skipErased();
  std::vector<std::pair<std::wstring, AcDbObjectId>> entries_;
  std::size_t pos_ = 0;
};
