// Library nodes: the attribute store, matching, comparisons, value copies,
// Clone, CopyFrom and CopyDirectoryFrom.
#include <gtest/gtest.h>

#include <typeinfo>

#include "LibraryTestHelpers.h"

using libtest::AddDirectory;
using libtest::AddItem;
using libtest::ChildNames;

TEST(LibraryAttributes, AbsentKeyReadsAsEmptyZeroAndFalse) {
  KyDtLibItemBase node;
  EXPECT_FALSE(node.HasAttribute(L"K"));
  EXPECT_EQ(node.GetAttributeValue(L"K"), CString());
  int i = 7;
  double d = 7.5;
  bool b = true;
  node.GetAttributeValue(L"K", i);
  node.GetAttributeValue(L"K", d);
  node.GetAttributeValue(L"K", b);
  EXPECT_EQ(i, 0);
  EXPECT_EQ(d, 0.0);
  EXPECT_FALSE(b);
}

TEST(LibraryAttributes, TypedValuesGoThroughText) {
  KyDtLibItemBase node;
  node.SetAttributeValue(L"I", -42);
  node.SetAttributeValue(L"D", 2.5);
  node.SetAttributeValue(L"T", true);
  node.SetAttributeValue(L"F", false);
  EXPECT_EQ(node.GetAttributeValue(L"I"), CString(L"-42"));
  EXPECT_EQ(node.GetAttributeValue(L"D"), CString(L"2.5"));
  EXPECT_EQ(node.GetAttributeValue(L"T"), CString(L"TRUE"));
  EXPECT_EQ(node.GetAttributeValue(L"F"), CString(L"FALSE"));
  int i = 0;
  double d = 0;
  bool t = false, f = true;
  node.GetAttributeValue(L"I", i);
  node.GetAttributeValue(L"D", d);
  node.GetAttributeValue(L"T", t);
  node.GetAttributeValue(L"F", f);
  EXPECT_EQ(i, -42);
  EXPECT_EQ(d, 2.5);
  EXPECT_TRUE(t);
  EXPECT_FALSE(f);
}

TEST(LibraryAttributes, BoolIsTrueOnlyForUpperCaseTrue) {
  KyDtLibItemBase node;
  bool value = true;
  node.SetAttributeValue(L"K", L"true");
  node.GetAttributeValue(L"K", value);
  EXPECT_FALSE(value);
  node.SetAttributeValue(L"K", L"TRUE ");
  value = true;
  node.GetAttributeValue(L"K", value);
  EXPECT_FALSE(value);
  node.SetAttributeValue(L"K", L"TRUE");
  node.GetAttributeValue(L"K", value);
  EXPECT_TRUE(value);
}

TEST(LibraryAttributes, DoubleKeepsSixSignificantDigits) {
  KyDtLibItemBase node;
  node.SetAttributeValue(L"K", 1234567.0);
  EXPECT_EQ(node.GetAttributeValue(L"K"), CString(L"1.23457e+06"));
  double back = 0;
  node.GetAttributeValue(L"K", back);
  EXPECT_EQ(back, 1234570.0);
  node.SetAttributeValue(L"K", 0.1);
  EXPECT_EQ(node.GetAttributeValue(L"K"), CString(L"0.1"));
}

TEST(LibraryAttributes, SetReplacesAndAllAttributesComeInKeyOrderAppended) {
  KyDtLibItemBase node;
  node.SetAttributeValue(L"b", L"2");
  node.SetAttributeValue(L"B", L"1");
  node.SetAttributeValue(L"a", L"x");
  node.SetAttributeValue(L"a", L"3");
  KyDtAttributeList list;
  list.Add(L"first", L"kept");
  node.GetAllAttribute(list);
  ASSERT_EQ(list.GetLength(), 4);
  // Code order: upper case before lower case.
  EXPECT_EQ(list.GetAt(0), KyDtAttribute(L"first", L"kept"));
  EXPECT_EQ(list.GetAt(1), KyDtAttribute(L"B", L"1"));
  EXPECT_EQ(list.GetAt(2), KyDtAttribute(L"a", L"3"));
  EXPECT_EQ(list.GetAt(3), KyDtAttribute(L"b", L"2"));
}

TEST(LibraryAttributes, NameIsAFieldOfItsOwn) {
  KyDtLibItemBase node;
  node.SetName(L"Door");
  EXPECT_FALSE(node.HasAttribute(L"name"));
  node.SetAttributeValue(L"name", L"Other");
  EXPECT_EQ(node.GetName(), CString(L"Door"));
}

TEST(LibraryAttributes, HugeValueIsKept) {
  KyDtLibItemBase node;
  const std::wstring big(100000, L'\x95e8');
  node.SetAttributeValue(L"K", big.c_str());
  EXPECT_EQ(node.GetAttributeValue(L"K").GetLength(), 100000);
  EXPECT_TRUE(node.IsMatch(L"K", big.c_str()));
}

TEST(LibraryMatch, StarMatchesAnyValueOfAnExistingAttribute) {
  KyDtLibItemBase node;
  EXPECT_FALSE(node.IsMatch(L"K", L"*"));
  node.SetAttributeValue(L"K", L"");
  EXPECT_TRUE(node.IsMatch(L"K", L"*"));
  EXPECT_TRUE(node.IsMatch(L"K", L""));
}

TEST(LibraryMatch, ValuesCompareCaseSensitivelyWithoutPatterns) {
  KyDtLibItemBase node;
  node.SetAttributeValue(L"K", L"A");
  EXPECT_FALSE(node.IsMatch(L"K", L"a"));
  EXPECT_TRUE(node.IsMatch(L"K", L"A"));
  node.SetAttributeValue(L"K", L"AB");
  EXPECT_FALSE(node.IsMatch(L"K", L"A*"));
  node.SetAttributeValue(L"K", L"A*");
  EXPECT_TRUE(node.IsMatch(L"K", L"A*"));
  EXPECT_FALSE(node.IsMatch(L"k", L"*"));
}

TEST(LibraryMatch, ListNeedsEveryPairAndEmptyListMatchesAll) {
  KyDtLibItemBase node;
  KyDtAttributeList empty;
  EXPECT_TRUE(node.IsMatch(empty));
  node.SetAttributeValue(L"W", L"900");
  node.SetAttributeValue(L"T", L"single");
  KyDtAttributeList pairs;
  pairs.Add(L"W", L"900");
  pairs.Add(L"T", L"*");
  EXPECT_TRUE(node.IsMatch(pairs));
  pairs.Add(L"H", L"*");
  EXPECT_FALSE(node.IsMatch(pairs));
}

TEST(LibraryAttributeClass, ComparisonsByNameThenValue) {
  KyDtAttribute a(L"a", L"1"), a2(L"a", L"2"), b(L"b", L"0"), A(L"A", L"1");
  EXPECT_TRUE(a == KyDtAttribute(L"a", L"1"));
  EXPECT_TRUE(a != a2);
  EXPECT_TRUE(a2 > a);
  EXPECT_TRUE(a < a2);
  EXPECT_TRUE(b > a2);
  EXPECT_TRUE(a > A);  // case counts, in code order
  EXPECT_FALSE(a > a);
  EXPECT_FALSE(a < a);
}

TEST(LibraryNodeCompare, ByNameCaseSensitively) {
  KyDtLibItem a, b, c;
  a.SetName(L"door");
  b.SetName(L"Door");
  c.SetName(L"door");
  EXPECT_TRUE(a == c);
  EXPECT_TRUE(a != b);
  EXPECT_TRUE(a > b);
  EXPECT_TRUE(b < a);
  KyDtLib lib1, lib2;
  lib1.SetName(L"A");
  lib2.SetName(L"B");
  EXPECT_TRUE(lib1 < lib2);
  EXPECT_TRUE(lib2 > lib1);
  EXPECT_TRUE(lib1 != lib2);
  lib2.SetName(L"A");
  EXPECT_TRUE(lib1 == lib2);
}

TEST(LibraryValueCopy, CopiesShareTheAttributeStore) {
  KyDtLibItem item;
  item.SetName(L"I");
  item.SetDataFile(L"f");
  item.SetAttributeValue(L"K", L"1");
  {
    KyDtLibItem copy(item);
    copy.SetAttributeValue(L"K", L"2");
    copy.SetName(L"J");
    EXPECT_EQ(item.GetAttributeValue(L"K"), CString(L"2"));
    EXPECT_EQ(item.GetName(), CString(L"I"));  // the name is the copy's own
    EXPECT_EQ(copy.GetDataFile(), CString(L"f"));
  }
  // The store outlives the copy.
  EXPECT_EQ(item.GetAttributeValue(L"K"), CString(L"2"));
  KyDtLibItemBase assigned;
  assigned = item;
  assigned.SetAttributeValue(L"N", L"new");
  EXPECT_TRUE(item.HasAttribute(L"N"));
  KyDtLibDirectory dir;
  AddItem(dir, L"child");
  dir.SetAttributeValue(L"D", L"1");
  KyDtLibDirectory dirCopy(dir);
  dirCopy.SetAttributeValue(L"D", L"2");
  EXPECT_EQ(dir.GetAttributeValue(L"D"), CString(L"2"));
  EXPECT_EQ(dirCopy.GetLength(), 0);  // children have one owner
}

TEST(LibraryClone, EachClassClonesToItsOwnAndLibrariesToTheirBase) {
  KyDtLibItemBase base;
  KyDtLibItem item;
  KyDtLibDirectory dir;
  KyDtDwgLib lib;
  lib.SetFileName(L"C:\\x\\a.DML");
  lib.SetNextFileIndex(9);
  lib.SetMulitiView(true);
  KyDtDwgLibGroup group;
  group.SetFileName(L"C:\\x\\LibGroup.DMLS");
  std::unique_ptr<KyDtLibItemBase> c1(base.Clone()), c2(item.Clone()), c3(dir.Clone()), c4(lib.Clone()),
      c5(group.Clone());
  EXPECT_EQ(libtest::TypeOf(c1.get()), typeid(KyDtLibItemBase));
  EXPECT_EQ(libtest::TypeOf(c2.get()), typeid(KyDtLibItem));
  EXPECT_EQ(libtest::TypeOf(c3.get()), typeid(KyDtLibDirectory));
  EXPECT_EQ(libtest::TypeOf(c4.get()), typeid(KyDtLibDirectory));  // no file name, no counter
  EXPECT_EQ(libtest::TypeOf(c5.get()), typeid(KyDtLibItemBase));   // a bare node
  EXPECT_TRUE(c4->IsDirectory());
  EXPECT_FALSE(c5->IsDirectory());
  EXPECT_FALSE(group.IsDirectory());
  EXPECT_TRUE(lib.IsDirectory());
}

TEST(LibraryClone, CloneIsIndependent) {
  KyDtLibItem item;
  item.SetName(L"I");
  item.SetDataFile(L"d.DWG");
  item.SetAttributeValue(L"K", L"1");
  std::unique_ptr<KyDtLibItemBase> clone(item.Clone());
  clone->SetAttributeValue(L"K", L"2");
  EXPECT_EQ(item.GetAttributeValue(L"K"), CString(L"1"));
  EXPECT_EQ(static_cast<KyDtLibItem &>(*clone).GetDataFile(), CString(L"d.DWG"));
  EXPECT_EQ(clone->GetName(), CString(L"I"));
}

TEST(LibraryCopyFrom, BaseTakesNameAndReplacesAttributes) {
  KyDtLibItemBase from, to;
  from.SetName(L"F");
  from.SetAttributeValue(L"A", L"1");
  to.SetAttributeValue(L"old", L"x");
  to.CopyFrom(&from);
  EXPECT_EQ(to.GetName(), CString(L"F"));
  EXPECT_EQ(libtest::AttributesOf(to), L"A=1;");
  // From a node sharing the store: nothing is lost.
  KyDtLibItemBase shared(from);
  shared.CopyFrom(&from);
  EXPECT_EQ(libtest::AttributesOf(from), L"A=1;");
}

TEST(LibraryCopyFrom, ItemTakesTheDataFile) {
  KyDtLibItem from, to;
  from.SetName(L"F");
  from.SetDataFile(L"a.DWG");
  from.SetAttributeValue(L"A", L"1");
  to.CopyFrom(&from);
  EXPECT_EQ(to.GetDataFile(), CString(L"a.DWG"));
  EXPECT_EQ(libtest::AttributesOf(to), L"A=1;");
}

namespace {

// D(K=1) { I(K=1, file i.DWG), E { J } }, F
void BuildSample(KyDtLibDirectory &root) {
  root.SetName(L"root");
  root.SetAttributeValue(L"R", L"r");
  KyDtLibDirectory *d = AddDirectory(root, L"D");
  d->SetAttributeValue(L"K", L"1");
  KyDtLibItem *i = AddItem(*d, L"I", L"i.DWG");
  i->SetAttributeValue(L"K", L"1");
  KyDtLibDirectory *e = AddDirectory(*d, L"E");
  AddItem(*e, L"J", L"j.DWG")->SetAttributeValue(L"Z", L"z");
  AddItem(root, L"F", L"f.DWG");
}

}  // namespace

TEST(LibraryCopyFrom, DirectoryClonesTheWholeTreeWithAttributes) {
  KyDtLibDirectory source;
  BuildSample(source);
  KyDtLibDirectory target;
  AddItem(target, L"old");
  target.CopyFrom(&source);
  EXPECT_EQ(libtest::Dump(target), libtest::Dump(source));
  EXPECT_EQ(target.GetName(), CString(L"root"));
  EXPECT_EQ(libtest::AttributesOf(target), L"R=r;");
  // Independent: changing the copy leaves the source.
  target.FindItem(L"K", L"1")->SetAttributeValue(L"K", L"2");
  EXPECT_NE(source.FindItem(L"K", L"1"), nullptr);
}

TEST(LibraryCopyFrom, LibraryCopiesAsDirectoryAndKeepsItsOwnFields) {
  KyDtLibDirectory source;
  BuildSample(source);
  KyDtDwgLib lib;
  lib.SetFileName(L"C:\\L.DML");
  lib.SetNextFileIndex(5);
  lib.CopyFrom(&source);
  EXPECT_EQ(libtest::Dump(lib), libtest::Dump(source));
  EXPECT_EQ(lib.GetNextFileIndex(), 5);
  EXPECT_EQ(lib.GetFileName(), CString(L"C:\\L.DML"));
}

TEST(LibraryCopyFrom, DirectoryFromANonDirectoryIsLeftEmpty) {
  KyDtLibDirectory dir;
  AddItem(dir, L"x");
  KyDtLibItem item;
  item.SetName(L"I");
  dir.CopyFrom(&item);
  EXPECT_EQ(dir.GetLength(), 0);
  EXPECT_EQ(dir.GetName(), CString(L"I"));
}

TEST(LibraryCopyDirectoryFrom, DropsAttributesAtEveryLevel) {
  KyDtLibDirectory source;
  BuildSample(source);
  KyDtLibDirectory target;
  target.SetAttributeValue(L"own", L"kept");
  AddItem(target, L"old");
  EXPECT_TRUE(target.CopyDirectoryFrom(source));
  EXPECT_EQ(libtest::Dump(target),
            L"Directory D {}\n"
            L"  Item I [i.DWG] {}\n"
            L"  Directory E {}\n"
            L"    Item J [j.DWG] {}\n"
            L"Item F [f.DWG] {}\n");
  EXPECT_EQ(target.GetName(), CString(L"root"));
  EXPECT_EQ(libtest::AttributesOf(target), L"own=kept;");
}

TEST(LibraryCopyDirectoryFrom, PassesOverOtherNodeNames) {
  KyDtLibDirectory source;
  source.Append(new KyDtLibItemBase);  // "Node"
  auto *lib = new KyDtDwgLib;          // "TolvDwgLib"
  lib->SetName(L"nested");
  source.Append(lib);
  AddItem(source, L"I");
  KyDtLibDirectory target;
  EXPECT_TRUE(target.CopyDirectoryFrom(source));
  EXPECT_EQ(ChildNames(target), std::vector<std::wstring>{L"I"});
}

TEST(LibraryCopyDirectoryFrom, LibraryAndGroupCopyKeepTheirClassFields) {
  KyDtLibDirectory source;
  BuildSample(source);
  KyDtWordLib lib;
  lib.SetMulitiView(true);
  EXPECT_TRUE(lib.CopyDirectoryFrom(source));
  EXPECT_TRUE(lib.IsMulitiView());
  EXPECT_EQ(ChildNames(lib), (std::vector<std::wstring>{L"D", L"F"}));
}

TEST(LibraryTree, DeepTreeIsBuiltCopiedAndFreedWithoutRecursion) {
  auto root = std::make_unique<KyDtLibDirectory>();
  KyDtLibDirectory *dir = root.get();
  for (int i = 0; i < 100000; ++i) dir = AddDirectory(*dir, L"d");
  AddItem(*dir, L"bottom")->SetAttributeValue(L"K", L"1");
  EXPECT_EQ(root->Find(L"bottom")->GetName(), CString(L"bottom"));
  KyDtLibDirectory copy, shape;
  copy.CopyFrom(root.get());
  EXPECT_NE(copy.FindItem(L"K", L"1"), nullptr);
  EXPECT_TRUE(shape.CopyDirectoryFrom(*root));
  EXPECT_NE(shape.Find(L"bottom"), nullptr);
  root.reset();
}

TEST(LibraryCopyFrom, GroupCopiesAsABaseNodeWithoutItsLibraries) {
  KyDtDwgLibGroup from;
  from.SetName(L"G");
  from.SetAttributeValue(L"a", L"1");
  from.SetFileName(L"C:\\G\\LibGroup.DMLS");
  from.Append(from.NewLib());
  KyDtDwgLibGroup to;
  to.CopyFrom(&from);
  EXPECT_EQ(to.GetName(), CString(L"G"));
  EXPECT_EQ(libtest::AttributesOf(to), L"a=1;");
  EXPECT_EQ(to.GetLength(), 0);
  EXPECT_EQ(to.GetFileName(), CString());
  // A group's value copy shares the store and leaves the libraries with
  // their one owner.
  KyDtDwgLibGroup copy(from);
  copy.SetAttributeValue(L"a", L"2");
  EXPECT_EQ(from.GetAttributeValue(L"a"), CString(L"2"));
  EXPECT_EQ(copy.GetLength(), 0);
  EXPECT_EQ(copy.GetFileName(), from.GetFileName());
}
