// The named-object dictionary, dictionaries and records of data.
#include <gtest/gtest.h>

#include "DbTestHelpers.h"
#include "platform/acad/AcDbDictionary.h"
#include "platform/acad/AcDbXrecord.h"
#include "platform/acad/AdsResbuf.h"

namespace {

AcDbObjectId AddDictionary(AcDbDatabase &db, const wchar_t *key) {
  AcDbDictionary *nod = nullptr;
  EXPECT_EQ(db.getNamedObjectsDictionary(nod, AcDb::kForWrite), Acad::eOk);
  auto *dict = new AcDbDictionary;
  AcDbObjectId id;
  EXPECT_EQ(nod->setAt(key, dict, id), Acad::eOk);
  dict->close();
  nod->close();
  return id;
}

}  // namespace

TEST(Dictionary, NamedObjectsHoldTheHostsStandardEntries) {
  AcDbDatabase db;
  AcDbDictionary *nod = nullptr;
  ASSERT_EQ(db.getNamedObjectsDictionary(nod, AcDb::kForRead), Acad::eOk);
  EXPECT_EQ(nod->objectId(), db.namedObjectsDictionaryId());
  EXPECT_TRUE(nod->has(L"ACAD_GROUP"));
  EXPECT_TRUE(nod->has(L"ACAD_LAYOUT"));
  EXPECT_TRUE(nod->has(L"ACAD_MLINESTYLE"));
  EXPECT_TRUE(nod->has(L"ACAD_PLOTSTYLENAME"));
  nod->close();
}

TEST(Dictionary, GetAtAnswersKeyNotFoundTwentyTwo) {
  AcDbDatabase db;
  AcDbObjectId dictId = AddDictionary(db, L"TOLV_TEST");
  AcDbDictionary *dict = nullptr;
  ASSERT_EQ(acdbOpenObject(dict, dictId, AcDb::kForRead), Acad::eOk);
  AcDbObjectId id;
  Acad::ErrorStatus es = dict->getAt(L"MISSING", id);
  EXPECT_EQ(es, Acad::eKeyNotFound);
  EXPECT_EQ(static_cast<int>(es), 22);
  EXPECT_TRUE(id.isNull());
  dict->close();
}

TEST(Dictionary, SetAtNeedsWriteAndKeepsEntriesUnderTheirKeys) {
  AcDbDatabase db;
  AcDbObjectId dictId = AddDictionary(db, L"TOLV_TEST");
  AcDbDictionary *dict = nullptr;
  ASSERT_EQ(acdbOpenObject(dict, dictId, AcDb::kForRead), Acad::eOk);
  auto *first = new AcDbXrecord;
  AcDbObjectId firstId;
  EXPECT_EQ(dict->setAt(L"Key", first, firstId), Acad::eNotOpenForWrite);
  ASSERT_EQ(dict->upgradeOpen(), Acad::eOk);
  EXPECT_EQ(dict->setAt(L"", first, firstId), Acad::eInvalidKey);
  ASSERT_EQ(dict->setAt(L"Key", first, firstId), Acad::eOk);
  EXPECT_EQ(first->ownerId(), dictId);
  EXPECT_TRUE(first->isWriteEnabled());
  first->close();
  AcDbObjectId found;
  EXPECT_EQ(dict->getAt(L"KEY", found), Acad::eOk);
  EXPECT_EQ(found, firstId);
  const ACHAR *name = nullptr;
  EXPECT_EQ(dict->nameAt(firstId, name), Acad::eOk);
  EXPECT_STREQ(name, L"Key");
  EXPECT_EQ(dict->numEntries(), 1u);

  // The same key again replaces the entry and erases the old object.
  auto *second = new AcDbXrecord;
  AcDbObjectId secondId;
  ASSERT_EQ(dict->setAt(L"key", second, secondId), Acad::eOk);
  second->close();
  EXPECT_EQ(dict->numEntries(), 1u);
  EXPECT_TRUE(firstId.isErased());
  EXPECT_EQ(dict->getAt(L"Key", found), Acad::eOk);
  EXPECT_EQ(found, secondId);

  AcDbObject *opened = nullptr;
  EXPECT_EQ(dict->getAt(L"Key", opened, AcDb::kForRead), Acad::eOk);
  EXPECT_NE(AcDbXrecord::cast(opened), nullptr);
  opened->close();

  EXPECT_EQ(dict->setName(L"Key", L"Renamed"), Acad::eOk);
  EXPECT_TRUE(dict->has(L"renamed"));
  AcDbObjectId removed;
  EXPECT_EQ(dict->remove(L"Renamed", removed), Acad::eOk);
  EXPECT_EQ(removed, secondId);
  EXPECT_EQ(dict->numEntries(), 0u);
  EXPECT_EQ(dict->remove(L"Renamed"), Acad::eKeyNotFound);
  dict->close();
}

TEST(Dictionary, IteratorWalksEntriesInOrder) {
  AcDbDatabase db;
  AcDbObjectId dictId = AddDictionary(db, L"TOLV_TEST");
  AcDbDictionary *dict = nullptr;
  ASSERT_EQ(acdbOpenObject(dict, dictId, AcDb::kForWrite), Acad::eOk);
  for (const wchar_t *key : {L"B", L"A", L"C"}) {
    auto *x = new AcDbXrecord;
    AcDbObjectId id;
    ASSERT_EQ(dict->setAt(key, x, id), Acad::eOk);
    x->close();
  }
  std::vector<std::wstring> keys;
  AcDbDictionaryIterator *it = dict->newIterator();
  for (; !it->done(); it->next()) {
    keys.push_back(it->name());
    AcDbObject *obj = nullptr;
    EXPECT_EQ(it->getObject(obj, AcDb::kForRead), Acad::eOk);
    obj->close();
  }
  delete it;
  dict->close();
  EXPECT_EQ(keys, (std::vector<std::wstring>{L"B", L"A", L"C"}));
}

TEST(Xrecord, KeepsItsListOfValues) {
  AcDbDatabase db;
  AcDbObjectId dictId = AddDictionary(db, L"TOLV_TEST");
  AcDbDictionary *dict = nullptr;
  ASSERT_EQ(acdbOpenObject(dict, dictId, AcDb::kForWrite), Acad::eOk);
  auto *x = new AcDbXrecord;
  const double p[3] = {1, 2, 3};
  resbuf *data = acutBuildList(1, L"name", 40, 2.5, 70, 3, 10, p, 0);
  ASSERT_EQ(x->setFromRbChain(*data), Acad::eOk);
  acutRelRb(data);
  resbuf *bad = acutBuildList(RTSTR, L"not a group code", 0);
  EXPECT_EQ(x->setFromRbChain(*bad), Acad::eInvalidInput);
  acutRelRb(bad);
  AcDbObjectId id;
  ASSERT_EQ(dict->setAt(L"DATA", x, id), Acad::eOk);
  x->close();
  dict->close();
  AcDbXrecord *back = nullptr;
  ASSERT_EQ(acdbOpenObject(back, id, AcDb::kForRead), Acad::eOk);
  resbuf *list = nullptr;
  back->rbChain(&list);
  back->close();
  ASSERT_NE(list, nullptr);
  EXPECT_STREQ(list->resval.rstring, L"name");
  EXPECT_DOUBLE_EQ(list->rbnext->resval.rreal, 2.5);
  EXPECT_EQ(list->rbnext->rbnext->resval.rint, 3);
  EXPECT_DOUBLE_EQ(list->rbnext->rbnext->rbnext->resval.rpoint[2], 3.0);
  acutRelRb(list);
}
