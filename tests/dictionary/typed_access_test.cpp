// Typed access by path, stored arrays and reference items.
#include <gtest/gtest.h>

#include "containers/KyDynArray.h"
#include "dict_test_util.h"

using dicttest::ChildNames;

// ---- Single values ----

TEST(DictTypedAccess, EachTypeComesBackFromItsKind) {
  KyDtDictionary dict;
  EXPECT_TRUE(dict.SetValue(L"b", true));
  EXPECT_TRUE(dict.SetValue(L"c", 'q'));
  EXPECT_TRUE(dict.SetValue(L"l", 123456L));
  EXPECT_TRUE(dict.SetValue(L"i", -7));
  EXPECT_TRUE(dict.SetValue(L"d", 2.25));
  EXPECT_TRUE(dict.SetValue(L"s", CString(L"文本")));
  EXPECT_TRUE(dict.SetValue(L"w", L"literal"));
  EXPECT_TRUE(dict.SetRef(L"r", L"s"));
  bool b = false;
  char c = 0;
  long l = 0;
  int i = 0;
  double d = 0;
  CString s;
  CString w;
  CString r;
  EXPECT_TRUE(dict.GetValue(L"b", b));
  EXPECT_TRUE(b);
  EXPECT_TRUE(dict.GetValue(L"c", c));
  EXPECT_EQ(c, 'q');
  EXPECT_TRUE(dict.GetValue(L"l", l));
  EXPECT_EQ(l, 123456);
  EXPECT_TRUE(dict.GetValue(L"i", i));
  EXPECT_EQ(i, -7);
  EXPECT_TRUE(dict.GetValue(L"d", d));
  EXPECT_EQ(d, 2.25);
  EXPECT_TRUE(dict.GetValue(L"s", s));
  EXPECT_EQ(s, L"文本");
  EXPECT_TRUE(dict.GetValue(L"w", w));
  EXPECT_EQ(w, L"literal");
  EXPECT_EQ(dict.FindItem(L"w")->GetType(), KyDtDictItem::DT_STRING);
  EXPECT_TRUE(dict.GetValue(L"r", r));
  EXPECT_EQ(r, L"s");
  // int and long read the same kind.
  EXPECT_TRUE(dict.GetValue(L"l", i));
  EXPECT_EQ(i, 123456);
  EXPECT_TRUE(dict.GetValue(L"i", l));
  EXPECT_EQ(l, -7);
  bool f = true;
  EXPECT_TRUE(dict.SetValue(L"b", false));
  EXPECT_TRUE(dict.GetValue(L"b", f));
  EXPECT_FALSE(f);
}

TEST(DictTypedAccess, WrongKindLeavesThePresetDefault) {
  KyDtDictionary dict;
  dict.SetValue(L"flag", true);
  dict.SetValue(L"number", 3);
  int number = 42;
  EXPECT_FALSE(dict.GetValue(L"flag", number));
  EXPECT_EQ(number, 42);
  double real = 1.5;
  EXPECT_FALSE(dict.GetValue(L"number", real));  // no conversion between kinds
  EXPECT_EQ(real, 1.5);
  CString text = L"default";
  EXPECT_FALSE(dict.GetValue(L"number", text));
  EXPECT_EQ(text, L"default");
  EXPECT_FALSE(dict.GetValue(L"missing", number));
  EXPECT_EQ(number, 42);
  bool flag = true;
  EXPECT_FALSE(dict.GetValue(L"number", flag));
  EXPECT_TRUE(flag);
}

TEST(DictTypedAccess, IntAndUnsignedReadDifferentKinds) {
  KyDtDictionary dict;
  dict.SetValue(L"number", 5);
  auto *option = static_cast<KyDtDictOptionItem *>(dict.FindOrAddItem(L"choice", KyDtDictItem::DT_OPTION));
  option->Append(CString(L"A"));
  option->Append(CString(L"B"));
  option->Append(CString(L"C"));
  option->m_nCurSel = 2;
  unsigned int index = 77;
  EXPECT_FALSE(dict.GetValue(L"number", index));
  EXPECT_EQ(index, 77u);
  EXPECT_TRUE(dict.GetValue(L"choice", index));
  EXPECT_EQ(index, 2u);
  int number = 0;
  EXPECT_FALSE(dict.GetValue(L"choice", number));
}

TEST(DictTypedAccess, BoolHoldingTwoReadsTrueResultAndFalseValue) {
  KyDtDictionary dict;
  dict.SetValue(L"flag", true);
  static_cast<KyDtDictBoolItem *>(dict.FindItem(L"flag"))->m_value = 2;
  bool value = true;
  EXPECT_TRUE(dict.GetValue(L"flag", value));
  EXPECT_FALSE(value);
}

TEST(DictTypedAccess, ReferenceReadsAsItsPathText) {
  KyDtDictionary dict;
  dict.SetValue(L"target", CString(L"value"));
  dict.SetRef(L"link", L"target");
  dict.TranslateRef();
  CString text;
  EXPECT_TRUE(dict.GetValue(L"link", text));
  EXPECT_EQ(text, L"target");
}

TEST(DictTypedAccess, SetValueCreatesTheWayAndGivesNewItemsNoHeader) {
  KyDtDictionary dict;
  EXPECT_TRUE(dict.SetValue(L"A\\B\\C\\value", 2.5));
  ASSERT_NE(dict.FindDict(L"A\\B\\C"), nullptr);
  KyDtDictItem *item = dict.FindItem(L"A\\B\\C\\value");
  EXPECT_EQ(item->GetType(), KyDtDictItem::DT_DOUBLE);
  EXPECT_TRUE(item->m_strLocalName.IsEmpty());
  EXPECT_TRUE(item->m_strComment.IsEmpty());
  EXPECT_TRUE(item->m_pAttributes->empty());
  // Overwriting keeps the one item.
  EXPECT_TRUE(dict.SetValue(L"A\\B\\C\\value", 3.5));
  EXPECT_EQ(dict.FindDict(L"A\\B\\C")->GetLength(), 1);
}

TEST(DictTypedAccess, SetValueFailsOnBadPathsAndOtherKinds) {
  KyDtDictionary dict;
  EXPECT_FALSE(dict.SetValue(L"", 1));
  EXPECT_FALSE(dict.SetValue(L"A\\\\B", 1));
  dict.SetValue(L"V", CString(L"text"));
  EXPECT_FALSE(dict.SetValue(L"V\\x", 1));
  // The kinds of a path are kept apart: another kind standing there fails.
  EXPECT_FALSE(dict.SetValue(L"V", 1));
  CString text;
  EXPECT_TRUE(dict.GetValue(L"V", text));
  EXPECT_EQ(text, L"text");
  EXPECT_FALSE(dict.SetRef(L"V", L"somewhere"));
  dict.SetRef(L"R", L"target");
  EXPECT_FALSE(dict.SetValue(L"R", CString(L"text")));
}

TEST(DictTypedAccess, OptionIndexMustLieInTheList) {
  KyDtDictionary dict;
  // A new Option has no options: the store fails and the empty item stays.
  EXPECT_FALSE(dict.SetValue(L"choice", 0u));
  auto *option = static_cast<KyDtDictOptionItem *>(dict.FindItem(L"choice"));
  ASSERT_NE(option, nullptr);
  EXPECT_EQ(option->GetType(), KyDtDictItem::DT_OPTION);
  option->Append(CString(L"A"));
  option->Append(CString(L"B"));
  option->m_nCurSel = 0;
  EXPECT_TRUE(dict.SetValue(L"choice", 1u));
  EXPECT_EQ(option->m_nCurSel, 1);
  EXPECT_FALSE(dict.SetValue(L"choice", 2u));  // the number of options
  EXPECT_EQ(option->m_nCurSel, 1);
  EXPECT_FALSE(dict.SetValue(L"choice", 0xFFFFFFFFu));  // -1 as signed
  EXPECT_EQ(option->m_nCurSel, 1);
}

TEST(DictTypedAccess, SetRefStoresTheTextAtOnceWithoutResolving) {
  KyDtDictionary dict;
  dict.SetValue(L"target", 1);
  EXPECT_TRUE(dict.SetRef(L"refs\\one", L"target"));
  CString text;
  EXPECT_TRUE(dict.GetValue(L"refs\\one", text));
  EXPECT_EQ(text, L"target");
  auto *reference = static_cast<KyDtDictReferenceItem *>(dict.FindItem(L"refs\\one"));
  EXPECT_EQ(reference->GetItemRef(), nullptr);
  dict.TranslateRef();
  EXPECT_EQ(reference->GetItemRef(), dict.FindItem(L"target"));
}

// ---- Arrays ----

TEST(DictArrays, EachElementTypeRoundTrips) {
  KyDtDictionary dict;
  KyDynArray<KyStringW> wide;
  wide.Append(KyStringW(L"甲"));
  wide.Append(KyStringW(L"乙"));
  wide.Append(KyStringW(L"甲"));
  KyDynArray<CString> texts;
  texts.Append(CString(L"x"));
  KyDynArray<double> reals;
  reals.Append(1.5);
  reals.Append(-2.0);
  KyDynArray<long> longs;
  longs.Append(10L);
  longs.Append(-20L);
  KyDynArray<int> ints;
  ints.Append(3);
  KyDynArray<char> chars;
  chars.Append('a');
  chars.Append('b');
  KyDynArray<bool> bools;
  bools.Append(true);
  bools.Append(false);
  EXPECT_TRUE(dict.SetValue(L"arr\\wide", wide));
  EXPECT_TRUE(dict.SetValue(L"arr\\texts", texts));
  EXPECT_TRUE(dict.SetValue(L"arr\\reals", reals));
  EXPECT_TRUE(dict.SetValue(L"arr\\longs", longs));
  EXPECT_TRUE(dict.SetValue(L"arr\\ints", ints));
  EXPECT_TRUE(dict.SetValue(L"arr\\chars", chars));
  EXPECT_TRUE(dict.SetValue(L"arr\\bools", bools));

  KyDynArray<KyStringW> wideBack;
  ASSERT_TRUE(dict.GetValue(L"arr\\wide", wideBack));
  ASSERT_EQ(wideBack.GetLength(), 3);
  EXPECT_EQ(wideBack[0], KyStringW(L"甲"));
  EXPECT_EQ(wideBack[2], KyStringW(L"甲"));
  KyDynArray<CString> textsBack;
  ASSERT_TRUE(dict.GetValue(L"arr\\texts", textsBack));
  EXPECT_EQ(textsBack.GetLength(), 1);
  KyDynArray<double> realsBack;
  ASSERT_TRUE(dict.GetValue(L"arr\\reals", realsBack));
  ASSERT_EQ(realsBack.GetLength(), 2);
  EXPECT_EQ(realsBack[1], -2.0);
  KyDynArray<long> longsBack;
  ASSERT_TRUE(dict.GetValue(L"arr\\longs", longsBack));
  ASSERT_EQ(longsBack.GetLength(), 2);
  EXPECT_EQ(longsBack[1], -20);
  KyDynArray<int> intsBack;
  ASSERT_TRUE(dict.GetValue(L"arr\\longs", intsBack));  // int reads Long items too
  EXPECT_EQ(intsBack.GetLength(), 2);
  KyDynArray<char> charsBack;
  ASSERT_TRUE(dict.GetValue(L"arr\\chars", charsBack));
  ASSERT_EQ(charsBack.GetLength(), 2);
  EXPECT_EQ(charsBack[1], 'b');
  KyDynArray<bool> boolsBack;
  ASSERT_TRUE(dict.GetValue(L"arr\\bools", boolsBack));
  ASSERT_EQ(boolsBack.GetLength(), 2);
  EXPECT_TRUE(boolsBack[0]);
  EXPECT_FALSE(boolsBack[1]);
  // The elements are unnamed items of the kind.
  KyDtDictionary *array = dict.FindDict(L"arr\\wide");
  EXPECT_EQ(ChildNames(*array), (std::vector<std::wstring>{L"", L"", L""}));
  EXPECT_EQ(array->GetAt(0)->GetType(), KyDtDictItem::DT_STRING);
}

TEST(DictArrays, MissingPathGivesFalseAndAnEmptyArray) {
  KyDtDictionary dict;
  KyDynArray<int> values;
  values.Append(1);
  values.Append(2);
  EXPECT_FALSE(dict.GetValue(L"nothing", values));
  EXPECT_EQ(values.GetLength(), 0);
  values.Append(1);
  dict.SetValue(L"scalar", 1);
  EXPECT_FALSE(dict.GetValue(L"scalar", values));
  EXPECT_EQ(values.GetLength(), 0);
}

TEST(DictArrays, ChildrenOfOtherKindsAreSkipped) {
  KyDtDictionary dict;
  dict.SetValue(L"mixed\\a", 1);
  dict.SetValue(L"mixed\\b", CString(L"text"));
  dict.SetValue(L"mixed\\c", 3);
  KyDynArray<long> values;
  ASSERT_TRUE(dict.GetValue(L"mixed", values));
  ASSERT_EQ(values.GetLength(), 2);  // named children count as well
  EXPECT_EQ(values[0], 1);
  EXPECT_EQ(values[1], 3);
  KyDynArray<CString> texts;
  ASSERT_TRUE(dict.GetValue(L"mixed", texts));
  EXPECT_EQ(texts.GetLength(), 1);
  KyDynArray<double> none;
  EXPECT_TRUE(dict.GetValue(L"mixed", none));  // true also when empty
  EXPECT_EQ(none.GetLength(), 0);
}

TEST(DictArrays, BoolArraysReadOnlyOneAsTrue) {
  KyDtDictionary dict;
  KyDynArray<bool> bools;
  bools.Append(true);
  dict.SetValue(L"flags", bools);
  static_cast<KyDtDictBoolItem *>(dict.FindDict(L"flags")->GetAt(0))->m_value = 2;
  KyDynArray<bool> back;
  ASSERT_TRUE(dict.GetValue(L"flags", back));
  ASSERT_EQ(back.GetLength(), 1);
  EXPECT_FALSE(back[0]);
}

TEST(DictArrays, EmptyArrayLeavesAnEmptyDictionary) {
  KyDtDictionary dict;
  KyDynArray<int> values;
  values.Append(1);
  values.Append(2);
  dict.SetValue(L"arr", values);
  EXPECT_EQ(dict.FindDict(L"arr")->GetLength(), 2);
  KyDynArray<int> empty;
  EXPECT_TRUE(dict.SetValue(L"arr", empty));
  KyDtDictionary *array = dict.FindDict(L"arr");
  ASSERT_NE(array, nullptr);
  EXPECT_EQ(array->GetLength(), 0);
}

TEST(DictArrays, ArraysIgnoreTheSortFlagAndFailThroughValueItems) {
  KyDtDictionary dict;
  dict.SetAutoSort(1);
  KyDynArray<CString> values;
  values.Append(CString(L"z"));
  values.Append(CString(L"a"));
  ASSERT_TRUE(dict.SetValue(L"arr", values));
  KyDynArray<CString> back;
  ASSERT_TRUE(dict.GetValue(L"arr", back));
  EXPECT_EQ(back[0], L"z");
  EXPECT_EQ(back[1], L"a");
  dict.SetValue(L"v", 1);
  EXPECT_FALSE(dict.SetValue(L"v", values));
  EXPECT_FALSE(dict.SetValue(L"", values));
}

TEST(DictArrays, ReferenceArrays) {
  KyDtDictionary dict;
  dict.SetValue(L"t1", 1);
  dict.SetValue(L"t2", 2);
  KyDynArray<CString> targets;
  targets.Append(CString(L"t1"));
  targets.Append(CString(L"t2"));
  ASSERT_TRUE(dict.SetRef(L"refs", targets));
  KyDynArray<KyStringW> wideTargets;
  wideTargets.Append(KyStringW(L"t2"));
  ASSERT_TRUE(dict.SetRef(L"wrefs", wideTargets));
  dict.TranslateRef();
  KyDtDictionary *refs = dict.FindDict(L"refs");
  ASSERT_EQ(refs->GetLength(), 2);
  EXPECT_EQ(refs->GetAt(1)->GetType(), KyDtDictItem::DT_REFERENCE);
  EXPECT_EQ(static_cast<KyDtDictReferenceItem *>(refs->GetAt(1))->GetItemRef(), dict.FindItem(L"t2"));
  EXPECT_EQ(static_cast<KyDtDictReferenceItem *>(dict.FindDict(L"wrefs")->GetAt(0))->GetItemRef(),
            dict.FindItem(L"t2"));
  KyDynArray<CString> back;
  ASSERT_TRUE(dict.GetValue(L"refs", back));
  EXPECT_EQ(back[0], L"t1");
}

// ---- References ----

TEST(DictReferences, ResolvedFromTheRootNotFromTheirOwnDictionary) {
  KyDtDictionary root;
  root.SetValue(L"A\\B", 1);
  root.SetValue(L"sub\\A\\B", 2);
  root.SetRef(L"sub\\link", L"A\\B");
  root.TranslateRef();
  auto *reference = static_cast<KyDtDictReferenceItem *>(root.FindItem(L"sub\\link"));
  EXPECT_EQ(reference->GetItemRef(), root.FindItem(L"A\\B"));
  // Resolving from the sub-dictionary makes it the base.
  KyDtDictionary *sub = root.FindDict(L"sub");
  sub->TranslateRef();
  EXPECT_EQ(reference->GetItemRef(), root.FindItem(L"sub\\A\\B"));
}

TEST(DictReferences, EmptyTextStaysUnresolvedAndSilent) {
  dicttest::CapturedCommandLine output;
  KyDtDictionary root;
  root.SetValue(L"a", 1);
  root.SetRef(L"empty", L"");
  root.TranslateRef();
  EXPECT_EQ(static_cast<KyDtDictReferenceItem *>(root.FindItem(L"empty"))->GetItemRef(), nullptr);
  EXPECT_EQ(output.Text(), L"");
}

TEST(DictReferences, UnresolvableTextIsPrintedAndTheOldTargetCleared) {
  dicttest::CapturedCommandLine output;
  KyDtDictionary root;
  root.SetValue(L"a", 1);
  root.SetRef(L"link", L"a");
  root.TranslateRef();
  auto *reference = static_cast<KyDtDictReferenceItem *>(root.FindItem(L"link"));
  ASSERT_NE(reference->GetItemRef(), nullptr);
  root.FindAndDel(L"a");
  root.TranslateRef();
  EXPECT_EQ(reference->GetItemRef(), nullptr);
  EXPECT_EQ(output.Text(), L"\n无法解析的引用：a");
}

TEST(DictReferences, AllAreGatheredBreadthFirstAndResolved) {
  KyDtDictionary root;
  root.SetValue(L"target", 1);
  root.SetRef(L"one", L"target");
  root.SetRef(L"deep\\er\\two", L"target");
  root.SetRef(L"deep\\chain", L"one");
  root.TranslateRef();
  auto *one = static_cast<KyDtDictReferenceItem *>(root.FindItem(L"one"));
  auto *two = static_cast<KyDtDictReferenceItem *>(root.FindItem(L"deep\\er\\two"));
  auto *chain = static_cast<KyDtDictReferenceItem *>(root.FindItem(L"deep\\chain"));
  EXPECT_EQ(one->GetItemRef(), root.FindItem(L"target"));
  EXPECT_EQ(two->GetItemRef(), root.FindItem(L"target"));
  EXPECT_EQ(chain->GetItemRef(), one);
  EXPECT_EQ(chain->GetTrueItemRef(), root.FindItem(L"target"));
}

TEST(DictReferences, TranslateOneReference) {
  KyDtDictionary root;
  root.SetValue(L"x\\y", 1);
  KyDtDictReferenceItem loose;
  loose.m_value = L"x\\y";
  root.TranslateRef(&loose);
  EXPECT_EQ(loose.GetItemRef(), root.FindItem(L"x\\y"));
}

TEST(DictReferences, FindAndDelRefCountsAndKeepsTheTarget) {
  dicttest::CapturedCommandLine output;
  KyDtDictionary root;
  root.SetValue(L"target", 1);
  root.SetRef(L"r1", L"target");
  root.SetRef(L"sub\\r2", L"target");
  root.SetRef(L"other", L"elsewhere");
  root.TranslateRef();
  EXPECT_EQ(static_cast<KyDtDictReferenceItem *>(root.FindItem(L"r1"))->GetItemRef(), root.FindItem(L"target"));
  EXPECT_EQ(root.FindAndDelRef(L"target"), 2);
  EXPECT_EQ(root.FindItem(L"r1"), nullptr);
  EXPECT_EQ(root.FindItem(L"sub\\r2"), nullptr);
  EXPECT_NE(root.FindItem(L"target"), nullptr);
  EXPECT_NE(root.FindItem(L"other"), nullptr);
  EXPECT_EQ(root.FindAndDelRef(L"target"), 0);
}

TEST(DictReferences, AdjacentMatchesAreAllDeleted) {
  KyDtDictionary root;
  KyDynArray<CString> targets;
  for (int i = 0; i < 3; ++i) targets.Append(CString(L"t"));
  targets.Append(CString(L"u"));
  targets.Append(CString(L"t"));
  root.SetRef(L"list", targets);
  root.SetRef(L"first", L"t");
  EXPECT_EQ(root.FindAndDelRef(L"t"), 5);
  KyDtDictionary *list = root.FindDict(L"list");
  ASSERT_EQ(list->GetLength(), 1);
  EXPECT_EQ(static_cast<KyDtDictReferenceItem *>(list->GetAt(0))->m_value, L"u");
}

TEST(DictReferences, OnlyTheTextIsCompared) {
  KyDtDictionary root;
  root.SetValue(L"target", 1);
  root.SetRef(L"r", L"target");
  root.TranslateRef();
  // Same target, other text.
  root.SetRef(L"alias", L"nothing");
  static_cast<KyDtDictReferenceItem *>(root.FindItem(L"alias"))->SetItemRef(root.FindItem(L"target"));
  EXPECT_EQ(root.FindAndDelRef(L"target"), 1);
  EXPECT_NE(root.FindItem(L"alias"), nullptr);
  // Strings holding the text are no references.
  root.SetValue(L"s", CString(L"nothing"));
  EXPECT_EQ(root.FindAndDelRef(L"nothing"), 1);
  EXPECT_NE(root.FindItem(L"s"), nullptr);
}
