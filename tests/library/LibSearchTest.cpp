// Search of library directories: all matches, first matches, items and
// directories, by one pair and by a list, and by item name.
#include <gtest/gtest.h>

#include "LibraryTestHelpers.h"

using libtest::AddDirectory;
using libtest::AddItem;
using libtest::NamesOf;
using Names = std::vector<std::wstring>;

namespace {

// root { D(K=1) { I(K=1), E(K=2) { J(K=1, T=x) } }, F(K=1, T=x), G }
class LibrarySearch : public ::testing::Test {
 protected:
  void SetUp() override {
    root.SetName(L"root");
    root.SetAttributeValue(L"K", L"1");  // never tested itself
    KyDtLibDirectory *d = AddDirectory(root, L"D");
    d->SetAttributeValue(L"K", L"1");
    AddItem(*d, L"I")->SetAttributeValue(L"K", L"1");
    KyDtLibDirectory *e = AddDirectory(*d, L"E");
    e->SetAttributeValue(L"K", L"2");
    KyDtLibItem *j = AddItem(*e, L"J");
    j->SetAttributeValue(L"K", L"1");
    j->SetAttributeValue(L"T", L"x");
    KyDtLibItem *f = AddItem(root, L"F");
    f->SetAttributeValue(L"K", L"1");
    f->SetAttributeValue(L"T", L"x");
    AddItem(root, L"G");
  }
  KyDtLibDirectory root;
};

}  // namespace

TEST(LibrarySearchBasic, DirectoryAndItsItemBothMatch) {
  KyDtLibDirectory parent;
  KyDtLibDirectory *d = AddDirectory(parent, L"D");
  d->SetAttributeValue(L"K", L"1");
  AddItem(*d, L"I")->SetAttributeValue(L"K", L"1");
  KyDynArray<KyDtLibItemBase *> all;
  parent.Find(L"K", L"1", all);
  EXPECT_EQ(NamesOf(all), (Names{L"D", L"I"}));
  EXPECT_EQ(parent.FindItem(L"K", L"1")->GetName(), CString(L"I"));
  EXPECT_EQ(parent.FindDirectory(L"K", L"1")->GetName(), CString(L"D"));
}

TEST_F(LibrarySearch, AllMatchesDepthFirstDirectoryBeforeContent) {
  KyDynArray<KyDtLibItemBase *> all;
  root.Find(L"K", L"1", all);
  EXPECT_EQ(NamesOf(all), (Names{L"D", L"I", L"J", L"F"}));
  KyDynArray<KyDtLibItemBase *> any;
  root.Find(L"K", L"*", any);
  EXPECT_EQ(NamesOf(any), (Names{L"D", L"I", L"E", L"J", L"F"}));
}

TEST_F(LibrarySearch, ResultsAreAppendedNotCleared) {
  KyDynArray<KyDtLibItemBase *> all;
  root.Find(L"T", L"x", all);
  root.Find(L"T", L"x", all);
  EXPECT_EQ(NamesOf(all), (Names{L"J", L"F", L"J", L"F"}));
  KyList<KyDtLibItemBase *> list;  // any container of the family
  root.Find(L"T", L"x", list);
  EXPECT_EQ(NamesOf(list), (Names{L"J", L"F"}));
}

TEST_F(LibrarySearch, FirstMatchForms) {
  EXPECT_EQ(root.Find(L"K", L"1")->GetName(), CString(L"D"));
  EXPECT_EQ(root.Find(L"K", L"2")->GetName(), CString(L"E"));
  EXPECT_EQ(root.Find(L"K", L"3"), nullptr);
  EXPECT_EQ(root.FindItem(L"K", L"1")->GetName(), CString(L"I"));
  EXPECT_EQ(root.FindItem(L"K", L"2"), nullptr);
  EXPECT_EQ(root.FindDirectory(L"K", L"1")->GetName(), CString(L"D"));
  EXPECT_EQ(root.FindDirectory(L"T", L"x"), nullptr);
}

TEST_F(LibrarySearch, AllItemsAndAllDirectories) {
  KyDynArray<KyDtLibItem *> items;
  root.FindItem(L"K", L"*", items);
  EXPECT_EQ(NamesOf(items), (Names{L"I", L"J", L"F"}));
  KyDynArray<KyDtLibDirectory *> dirs;
  root.FindDirectory(L"K", L"*", dirs);
  EXPECT_EQ(NamesOf(dirs), (Names{L"D", L"E"}));
}

TEST_F(LibrarySearch, ListForms) {
  KyDtAttributeList pairs;
  pairs.Add(L"K", L"1");
  pairs.Add(L"T", L"*");
  KyDynArray<KyDtLibItemBase *> all;
  root.Find(pairs, all);
  EXPECT_EQ(NamesOf(all), (Names{L"J", L"F"}));
  EXPECT_EQ(root.Find(pairs)->GetName(), CString(L"J"));
  EXPECT_EQ(root.FindItem(pairs)->GetName(), CString(L"J"));
  EXPECT_EQ(root.FindDirectory(pairs), nullptr);
  KyDynArray<KyDtLibItem *> items;
  root.FindItem(pairs, items);
  EXPECT_EQ(NamesOf(items), (Names{L"J", L"F"}));
  KyDtAttributeList dirPairs;
  dirPairs.Add(L"K", L"*");
  KyDynArray<KyDtLibDirectory *> dirs;
  root.FindDirectory(dirPairs, dirs);
  EXPECT_EQ(NamesOf(dirs), (Names{L"D", L"E"}));
  EXPECT_EQ(root.FindDirectory(dirPairs)->GetName(), CString(L"D"));
}

TEST_F(LibrarySearch, EmptyListMatchesEveryNode) {
  KyDtAttributeList none;
  KyDynArray<KyDtLibItemBase *> all;
  root.Find(none, all);
  EXPECT_EQ(NamesOf(all), (Names{L"D", L"I", L"E", L"J", L"F", L"G"}));
}

TEST_F(LibrarySearch, ByNameFindsItemsOnlyDepthFirst) {
  EXPECT_EQ(root.Find(L"J")->GetName(), CString(L"J"));
  EXPECT_EQ(root.Find(L"G")->GetName(), CString(L"G"));
  EXPECT_EQ(root.Find(L"D"), nullptr);  // a directory is never the result
  EXPECT_EQ(root.Find(L"E"), nullptr);
  EXPECT_EQ(root.Find(L"j"), nullptr);  // case counts
  EXPECT_EQ(root.Find(L"nothing"), nullptr);
}

TEST(LibrarySearchByName, FirstHitDepthFirstAndOnlyUnderPlainDirectories) {
  KyDtLibDirectory root;
  KyDtLibDirectory *a = AddDirectory(root, L"A");
  KyDtLibItem *deep = AddItem(*AddDirectory(*a, L"B"), L"X", L"deep");
  AddItem(root, L"X", L"shallow");
  EXPECT_EQ(root.Find(L"X"), deep);
  // A library nested in a tree has another node name and isn't entered.
  KyDtLibDirectory other;
  auto *lib = new KyDtDwgLib;
  AddItem(*lib, L"Y");
  other.Append(lib);
  EXPECT_EQ(other.Find(L"Y"), nullptr);
  // But the attribute search walks every directory.
  lib->GetAt(0)->SetAttributeValue(L"K", L"1");
  EXPECT_NE(other.FindItem(L"K", L"1"), nullptr);
}

TEST(LibrarySearchBasic, NullSlotsAreSkipped) {
  KyDtLibDirectory root;
  root.Append(nullptr);
  AddItem(root, L"I")->SetAttributeValue(L"K", L"1");
  EXPECT_EQ(root.FindItem(L"K", L"1")->GetName(), CString(L"I"));
  EXPECT_EQ(root.Find(L"I")->GetName(), CString(L"I"));
}

TEST(LibrarySearchBasic, SearchLeavesTheCursorsOutside) {
  KyDtLibDirectory root;
  KyDtLibDirectory *d = AddDirectory(root, L"D");
  AddItem(*d, L"I");
  root.MoveToFirst();
  d->MoveToFirst();
  KyDynArray<KyDtLibItemBase *> all;
  root.Find(L"K", L"*", all);
  EXPECT_TRUE(root.IsOut());
  EXPECT_TRUE(d->IsOut());
}

TEST(LibrarySearchBasic, DeepTreeSearchDoesNotRecurse) {
  KyDtLibDirectory root;
  KyDtLibDirectory *dir = &root;
  for (int i = 0; i < 20000; ++i) {
    dir = AddDirectory(*dir, L"d");
  }
  AddItem(*dir, L"leaf")->SetAttributeValue(L"K", L"v");
  EXPECT_EQ(root.FindItem(L"K", L"v")->GetName(), CString(L"leaf"));
  KyDynArray<KyDtLibDirectory *> dirs;
  root.FindDirectory(L"K", L"*", dirs);
  EXPECT_EQ(dirs.GetLength(), 0);
}
