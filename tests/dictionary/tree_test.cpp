// Dictionary tree and paths: parsing, lookup, growth, order and deletion.
#include <gtest/gtest.h>

#include <memory>

#include "dict_test_util.h"

using dicttest::ChildNames;
using Names = std::vector<std::wstring>;

namespace {

KyDtDictItem *Named(const wchar_t *name, int type = KyDtDictItem::DT_LONG) {
  KyDtDictItem *item = CreateDictItem(type);
  item->m_strName = name;
  return item;
}

std::vector<std::wstring> PathNames(KyDtDictPath &path) {
  std::vector<std::wstring> names;
  for (KyDtDictItem *const *slot = path.GetFirst(); slot != nullptr; slot = path.GetNext(slot)) {
    names.push_back((*slot)->m_strName.str());
  }
  return names;
}

}  // namespace

// ---- Paths ----

TEST(DictPath, CutsAtEveryBackslash) {
  KyDtDictPath path(CString(L"A\\B\\C"));
  EXPECT_EQ(PathNames(path), (Names{L"A", L"B", L"C"}));
  EXPECT_TRUE(path.IsValid());
  // Every node but the last is a dictionary.
  EXPECT_TRUE(path.GetAt(0)->IsDict());
  EXPECT_TRUE(path.GetAt(1)->IsDict());
  EXPECT_EQ(path.GetAt(2)->GetType(), -1);
}

TEST(DictPath, EmptySegmentsAreKeptAndMakeThePathInvalid) {
  struct Case {
    const wchar_t *text;
    Names names;
  };
  const Case cases[] = {
      {L"", {L""}},
      {L"A\\", {L"A", L""}},
      {L"\\A", {L"", L"A"}},
      {L"A\\\\B", {L"A", L"", L"B"}},
  };
  for (const Case &c : cases) {
    KyDtDictPath path{CString(c.text)};
    EXPECT_EQ(PathNames(path), c.names);
    EXPECT_FALSE(path.IsValid());
  }
}

TEST(DictPath, NoTrimmingNoCaseFoldingNoDots) {
  KyDtDictPath path(CString(L" a \\..\\.\\B"));
  EXPECT_EQ(PathNames(path), (Names{L" a ", L"..", L".", L"B"}));
  EXPECT_TRUE(path.IsValid());
}

// ---- Lookup ----

TEST(DictLookup, FindsNestedItemsByPath) {
  KyDtDictionary root;
  root.SetValue(L"ADVANCE\\SYSTEM\\PRECISION", 3);
  KyDtDictItem *item = root.FindItem(L"ADVANCE\\SYSTEM\\PRECISION");
  ASSERT_NE(item, nullptr);
  EXPECT_EQ(item->GetType(), KyDtDictItem::DT_LONG);
  EXPECT_EQ(root.FindItem(L"ADVANCE\\SYSTEM\\MISSING"), nullptr);
  EXPECT_EQ(root.FindItem(L"ADVANCE\\SYSTEM\\PRECISION\\deeper"), nullptr);
  KyDtDictionary *system = root.FindDict(L"ADVANCE\\SYSTEM");
  ASSERT_NE(system, nullptr);
  EXPECT_EQ(system->m_strName, L"SYSTEM");
  EXPECT_EQ(root.FindDict(L"ADVANCE\\SYSTEM\\PRECISION"), nullptr);
}

TEST(DictLookup, EmptyTextFindsTheFirstUnnamedChild) {
  KyDtDictionary root;
  EXPECT_EQ(root.FindItem(L""), nullptr);
  root.AppendItem(Named(L"a"));
  EXPECT_EQ(root.FindItem(L""), nullptr);
  KyDtDictItem *unnamed = Named(L"");
  root.AppendItem(unnamed);
  root.AppendItem(Named(L""));
  EXPECT_EQ(root.FindItem(L""), unnamed);
}

TEST(DictLookup, IsCaseSensitive) {
  KyDtDictionary root;
  root.AppendItem(Named(L"KEY"));
  EXPECT_EQ(root.FindItem(L"key"), nullptr);
  EXPECT_NE(root.FindItem(L"KEY"), nullptr);
  KyDtDictionary sorted;
  sorted.SetAutoSort(1);
  sorted.AppendItem(Named(L"KEY"));
  EXPECT_EQ(sorted.FindItem(L"key"), nullptr);
  EXPECT_NE(sorted.FindItem(L"KEY"), nullptr);
}

TEST(DictLookup, DoesNotFollowReferences) {
  KyDtDictionary root;
  root.SetValue(L"target\\x", 1);
  root.SetRef(L"link", L"target");
  root.TranslateRef();
  EXPECT_EQ(root.FindItem(L"link\\x"), nullptr);
  EXPECT_EQ(root.FindItem(L"link")->GetType(), KyDtDictItem::DT_REFERENCE);
}

TEST(DictLookup, ParsedPathIsConsumed) {
  KyDtDictionary root;
  root.SetValue(L"A\\B\\C", 1);
  KyDtDictPath path(CString(L"A\\B\\C"));
  EXPECT_NE(root.FindItem(path), nullptr);
  EXPECT_EQ(path.GetLength(), 1);
  KyDtDictPath empty(CString(L"A"));
  empty.Reset();
  EXPECT_EQ(root.FindItem(empty), nullptr);
}

TEST(DictLookup, LeavesTheCursorOnTheMatch) {
  KyDtDictionary root;
  root.SetValue(L"a", 1);
  root.SetValue(L"b", 2);
  root.SetValue(L"c", 3);
  root.FindItem(L"b");
  EXPECT_EQ(root.GetCur(), 1);
}

TEST(DictLookup, SortedLookupOfChineseNames) {
  KyDtDictionary root;
  root.SetAutoSort(1);
  const wchar_t *names[] = {L"墙", L"门", L"窗", L"柱子", L"楼板", L"A", L"z", L"屋顶"};
  for (const wchar_t *name : names) ASSERT_TRUE(root.SetValue(CString(name), CString(name)));
  for (const wchar_t *name : names) {
    CString value;
    EXPECT_TRUE(root.GetValue(CString(name), value)) << name;
    EXPECT_EQ(value, name);
  }
  EXPECT_EQ(root.FindItem(L"地板"), nullptr);
}

TEST(DictLookup, SearchByAttributeIsDepthFirstWithDictionariesAfterTheirMatches) {
  KyDtDictionary root;
  root.SetAttributeValue(L"tag", L"yes");  // the start is never tested
  KyDtDictionary *outer = root.FindOrAddDict(L"outer");
  outer->SetAttributeValue(L"tag", L"yes");
  root.SetValue(L"outer\\inner", 1);
  root.FindItem(L"outer\\inner")->SetAttributeValue(L"tag", L"yes");
  root.SetValue(L"outer\\other", 2);
  root.SetValue(L"after", 3);
  root.FindItem(L"after")->SetAttributeValue(L"tag", L"yes");
  root.SetValue(L"notagged", 4);
  KyDList<KyDtDictItem *> found;
  KyDtDictItem *before = Named(L"before");
  found.Append(before);
  root.FindItem(L"tag", L"yes", found);
  ASSERT_EQ(found.GetLength(), 4);
  EXPECT_EQ(found.GetAt(0), before);
  EXPECT_EQ(found.GetAt(1)->m_strName, L"inner");
  EXPECT_EQ(found.GetAt(2)->m_strName, L"outer");
  EXPECT_EQ(found.GetAt(3)->m_strName, L"after");
  delete before;
  // The empty value matches every item without the key.
  KyDList<KyDtDictItem *> untagged;
  root.FindItem(L"tag", L"", untagged);
  ASSERT_EQ(untagged.GetLength(), 2);
  EXPECT_EQ(untagged.GetAt(0)->m_strName, L"other");
  EXPECT_EQ(untagged.GetAt(1)->m_strName, L"notagged");
}

// ---- Growth ----

TEST(DictGrowth, FindOrAddDictOfTheEmptyTextGivesNullAndCreatesNothing) {
  KyDtDictionary root;
  EXPECT_EQ(root.FindOrAddDict(L""), nullptr);
  EXPECT_EQ(root.FindOrAddDict(L"A\\\\B"), nullptr);
  EXPECT_EQ(root.GetLength(), 0);
}

TEST(DictGrowth, FindOrAddDictTwiceGivesTheSameDictionary) {
  KyDtDictionary root;
  KyDtDictionary *first = root.FindOrAddDict(L"A\\B");
  ASSERT_NE(first, nullptr);
  EXPECT_EQ(first->m_strName, L"B");
  KyDtDictionary *second = root.FindOrAddDict(L"A\\B");
  EXPECT_EQ(first, second);
  EXPECT_EQ(root.GetLength(), 1);
  EXPECT_EQ(root.FindDict(L"A")->GetLength(), 1);
}

TEST(DictGrowth, FindOrAddDictThroughAStringGivesNullAndChangesNothing) {
  KyDtDictionary root;
  root.SetValue(L"A", CString(L"text"));
  EXPECT_EQ(root.FindOrAddDict(L"A\\B"), nullptr);
  EXPECT_EQ(root.GetLength(), 1);
  EXPECT_EQ(root.FindItem(L"A")->GetType(), KyDtDictItem::DT_STRING);
}

TEST(DictGrowth, FindOrAddDictKeepsWhatItCreatedBeforeAValueItem) {
  KyDtDictionary root;
  root.SetValue(L"A\\B", CString(L"text"));
  EXPECT_EQ(root.FindOrAddDict(L"A\\B\\C"), nullptr);
  ASSERT_NE(root.FindDict(L"A"), nullptr);
  EXPECT_EQ(root.FindItem(L"A\\B")->GetType(), KyDtDictItem::DT_STRING);
  // A part created on the way stays as well.
  KyDtDictionary *made = root.FindOrAddDict(L"N\\A\\B\\C");
  EXPECT_EQ(made, root.FindDict(L"N\\A\\B\\C"));
  root.SetValue(L"M\\v", 1);
  made = root.FindOrAddDict(L"M\\new\\more");
  EXPECT_EQ(made, root.FindDict(L"M\\new\\more"));
}

TEST(DictGrowth, NewDictionariesTakeTheParentsSortFlag) {
  KyDtDictionary root;
  root.SetAutoSort(1);
  KyDtDictionary *leaf = root.FindOrAddDict(L"x\\y");
  ASSERT_NE(leaf, nullptr);
  EXPECT_EQ(leaf->IsAutoSort(), 1);
  EXPECT_EQ(root.FindDict(L"x")->IsAutoSort(), 1);
}

TEST(DictGrowth, FindOrAddItemGivesAnExistingItemWhateverItsKind) {
  KyDtDictionary root;
  KyDtDictionary *x = root.FindOrAddDict(L"X");
  EXPECT_EQ(root.FindOrAddItem(L"X", KyDtDictItem::DT_LONG), x);
  KyDtDictItem *text = root.FindOrAddItem(L"A\\T", KyDtDictItem::DT_STRING);
  ASSERT_NE(text, nullptr);
  EXPECT_EQ(text->GetType(), KyDtDictItem::DT_STRING);
  EXPECT_EQ(root.FindOrAddItem(L"A\\T", KyDtDictItem::DT_LONG), text);
  EXPECT_EQ(root.GetLength(), 2);
}

TEST(DictGrowth, FindOrAddItemOfAnUnknownKindGivesNullAfterMakingTheWay) {
  KyDtDictionary root;
  EXPECT_EQ(root.FindOrAddItem(L"A\\X", static_cast<KyDtDictItem::DictDataType>(99)), nullptr);
  ASSERT_NE(root.FindDict(L"A"), nullptr);
  EXPECT_EQ(root.FindDict(L"A")->GetLength(), 0);
  root.SetValue(L"E", 1);
  EXPECT_EQ(root.FindOrAddItem(L"E", static_cast<KyDtDictItem::DictDataType>(99)), nullptr);
}

TEST(DictGrowth, FindOrAddItemRefusesInvalidPathsAndValueItemsOnTheWay) {
  KyDtDictionary root;
  EXPECT_EQ(root.FindOrAddItem(L"", KyDtDictItem::DT_LONG), nullptr);
  EXPECT_EQ(root.FindOrAddItem(L"A\\", KyDtDictItem::DT_LONG), nullptr);
  root.SetValue(L"V", 1);
  EXPECT_EQ(root.FindOrAddItem(L"V\\x", KyDtDictItem::DT_LONG), nullptr);
  EXPECT_EQ(root.GetLength(), 1);
  KyDtDictItem *made = root.FindOrAddItem(L"N\\bare", KyDtDictItem::DT_NONE);
  ASSERT_NE(made, nullptr);
  EXPECT_EQ(made->GetType(), -1);
  EXPECT_EQ(made->m_strName, L"bare");
}

// ---- AppendItem ----

TEST(DictAppend, SecondNamesakeIsRefusedWithTheCursorOnTheFirst) {
  KyDtDictionary root;
  KyDtDictItem *first = Named(L"x");
  ASSERT_TRUE(root.AppendItem(first));
  EXPECT_EQ(root.GetCur(), 0);
  root.AppendItem(Named(L"y"));
  EXPECT_EQ(root.GetCur(), 1);
  std::unique_ptr<KyDtDictItem> second(Named(L"x"));
  EXPECT_FALSE(root.AppendItem(second.get()));
  EXPECT_EQ(root.GetCur(), 0);
  EXPECT_EQ(root.GetCurData(), first);
  EXPECT_EQ(root.GetLength(), 2);
  // The caller still owns `second`; unique_ptr frees it.
}

TEST(DictAppend, UnnamedItemsAreAlwaysTaken) {
  KyDtDictionary root;
  EXPECT_TRUE(root.AppendItem(Named(L"")));
  EXPECT_TRUE(root.AppendItem(Named(L"")));
  EXPECT_EQ(root.GetLength(), 2);
  EXPECT_EQ(root.GetCur(), 1);
  EXPECT_FALSE(root.AppendItem(nullptr));
}

TEST(DictAppend, UnsortedKeepsArrivalOrder) {
  KyDtDictionary root;
  root.AppendItem(Named(L"B"));
  root.AppendItem(Named(L"A"));
  EXPECT_EQ(ChildNames(root), (Names{L"B", L"A"}));
}

TEST(DictAppend, SortedOrdersByBytes) {
  KyDtDictionary root;
  root.SetAutoSort(1);
  root.AppendItem(Named(L"B"));
  root.AppendItem(Named(L"A"));
  root.AppendItem(Named(L"a"));
  EXPECT_EQ(ChildNames(root), (Names{L"A", L"B", L"a"}));
  EXPECT_EQ(root.GetCur(), 2);  // on the new item
  std::unique_ptr<KyDtDictItem> again(Named(L"B"));
  EXPECT_FALSE(root.AppendItem(again.get()));
  EXPECT_EQ(root.GetCur(), 1);
}

TEST(DictAppend, SortedRefusesANameWithTheSameNarrowForm) {
  KyDtDictionary root;
  root.SetAutoSort(1);
  EXPECT_TRUE(root.AppendItem(Named(L"\u0E01")));
  std::unique_ptr<KyDtDictItem> other(Named(L"\u0E02"));
  EXPECT_FALSE(root.AppendItem(other.get()));
  EXPECT_EQ(root.GetLength(), 1);
  // Unsorted, the wide names differ and both are taken.
  KyDtDictionary unsorted;
  EXPECT_TRUE(unsorted.AppendItem(Named(L"\u0E01")));
  EXPECT_TRUE(unsorted.AppendItem(Named(L"\u0E02")));
}

TEST(DictAppend, SortedUnnamedItemsKeepArrivalOrderBeforeNamedOnes) {
  KyDtDictionary root;
  root.SetAutoSort(1);
  KyDtDictItem *u1 = Named(L"");
  KyDtDictItem *u2 = Named(L"");
  KyDtDictItem *u3 = Named(L"");
  root.AppendItem(Named(L"m"));
  root.AppendItem(u1);
  root.AppendItem(Named(L"b"));
  root.AppendItem(u2);
  root.AppendItem(u3);
  EXPECT_EQ(root.GetCur(), 2);
  EXPECT_EQ(ChildNames(root), (Names{L"", L"", L"", L"b", L"m"}));
  EXPECT_EQ(root.GetAt(0), u1);
  EXPECT_EQ(root.GetAt(1), u2);
  EXPECT_EQ(root.GetAt(2), u3);
}

TEST(DictAppend, SortedChineseNamesFollowTheNarrowBytes) {
  KyDtDictionary root;
  root.SetAutoSort(1);
  // Code page 936: 啊 B0A1, 白 B0D7, 中 D6D0, 墙 C7BD, 门 C3C5.
  for (const wchar_t *name : {L"中", L"墙", L"啊", L"门", L"白", L"Z"}) root.AppendItem(Named(name));
  EXPECT_EQ(ChildNames(root), (Names{L"Z", L"啊", L"白", L"门", L"墙", L"中"}));
}

TEST(DictAppend, DictionaryTakesTheFlagEvenWhenRefused) {
  KyDtDictionary root;
  root.SetAutoSort(1);
  root.AppendItem(Named(L"d", KyDtDictItem::DT_DICT));
  auto refused = std::make_unique<KyDtDictionary>(L"d");
  EXPECT_FALSE(root.AppendItem(refused.get()));
  EXPECT_EQ(refused->IsAutoSort(), 1);
}

TEST(DictAppend, SetAutoSortDoesNotSort) {
  KyDtDictionary root;
  root.AppendItem(Named(L"b"));
  root.AppendItem(Named(L"a"));
  root.SetAutoSort(1);
  EXPECT_EQ(ChildNames(root), (Names{L"b", L"a"}));
  EXPECT_EQ(root.IsAutoSort(), 1);
}

TEST(DictAppend, ByPathNeedsAnExistingDictionary) {
  KyDtDictionary root;
  std::unique_ptr<KyDtDictItem> item(Named(L"x"));
  EXPECT_FALSE(root.AppendItem(L"A\\B", item.get()));
  EXPECT_EQ(root.GetLength(), 0);
  root.FindOrAddDict(L"A\\B");
  EXPECT_TRUE(root.AppendItem(L"A\\B", item.release()));
  EXPECT_NE(root.FindItem(L"A\\B\\x"), nullptr);
  root.SetValue(L"V", 1);
  std::unique_ptr<KyDtDictItem> other(Named(L"y"));
  EXPECT_FALSE(root.AppendItem(L"V", other.get()));
}

TEST(DictAppend, NamesWithABackslashAreTakenButUnreachable) {
  KyDtDictionary root;
  EXPECT_TRUE(root.AppendItem(Named(L"a\\b")));
  EXPECT_EQ(root.FindItem(L"a\\b"), nullptr);
}

// ---- Class names ----

TEST(DictClassName, IsClassOfComparesCaseSensitively) {
  KyDtDictionary dict;
  dict.SetClassName(L"Floor");
  EXPECT_TRUE(dict.IsClassOf(L"Floor"));
  EXPECT_FALSE(dict.IsClassOf(L"floor"));
  EXPECT_EQ(CString(dict.GetClassNameW()), L"Floor");
}

// ---- Deletion ----

TEST(DictDelete, DeletesEveryNamesakeUnderTheParent) {
  KyDtDictionary root;
  KyDtDictionary *a = root.FindOrAddDict(L"A");
  // List operations bypass the namesake check.
  a->Append(Named(L"x"));
  a->Append(Named(L"y"));
  a->Append(Named(L"x"));
  EXPECT_TRUE(root.FindAndDel(L"A\\x"));
  EXPECT_EQ(ChildNames(*a), (Names{L"y"}));
  EXPECT_FALSE(root.FindAndDel(L"A\\x"));
  EXPECT_FALSE(root.FindAndDel(L"missing\\x"));
  EXPECT_FALSE(root.FindAndDel(L""));
  EXPECT_FALSE(root.FindAndDel(L"A\\"));
  root.SetValue(L"V", 1);
  EXPECT_FALSE(root.FindAndDel(L"V\\x"));
}

TEST(DictDelete, DeletesTheWholeSubtree) {
  dicttest::CountedItem::alive = 0;
  {
    KyDtDictionary root;
    KyDtDictionary *a = root.FindOrAddDict(L"A\\B\\C");
    a->AppendItem(new dicttest::CountedItem(L"leaf1"));
    a->AppendItem(new dicttest::CountedItem(L"leaf2"));
    root.FindDict(L"A")->AppendItem(new dicttest::CountedItem(L"leaf3"));
    root.AppendItem(new dicttest::CountedItem(L"keep"));
    EXPECT_EQ(dicttest::CountedItem::alive, 4);
    EXPECT_TRUE(root.FindAndDel(L"A"));
    EXPECT_EQ(dicttest::CountedItem::alive, 1);
    EXPECT_EQ(ChildNames(root), (Names{L"keep"}));
  }
  EXPECT_EQ(dicttest::CountedItem::alive, 0);
}

TEST(DictDelete, WorksInSortedDictionariesToo) {
  KyDtDictionary root;
  root.SetAutoSort(1);
  root.SetValue(L"b", 1);
  root.SetValue(L"a", 2);
  root.SetValue(L"c", 3);
  EXPECT_TRUE(root.FindAndDel(L"b"));
  EXPECT_EQ(ChildNames(root), (Names{L"a", L"c"}));
}

TEST(DictDelete, DestroyingAVeryDeepTreeDoesNotRecurse) {
  constexpr int kDepth = 200000;
  dicttest::CountedItem::alive = 0;
  {
    KyDtDictionary root;
    KyDtDictionary *dict = &root;
    for (int depth = 0; depth < kDepth; ++depth) {
      auto *child = new KyDtDictionary(L"d");
      dict->Append(child);
      child->Append(new dicttest::CountedItem(L"leaf"));
      dict = child;
    }
    EXPECT_EQ(dicttest::CountedItem::alive, kDepth);
    // Resetting a level deletes the subtree below it the same way.
    KyDtDictionary *middle = root.FindDict(L"d\\d\\d");
    ASSERT_NE(middle, nullptr);
    middle->Reset();
    EXPECT_EQ(dicttest::CountedItem::alive, 2);
  }
  EXPECT_EQ(dicttest::CountedItem::alive, 0);
}
