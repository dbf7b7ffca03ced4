// Dictionary items: kinds, attributes, order, comparison and copies.
#include <gtest/gtest.h>

#include <memory>

#include "dict_test_util.h"

using dicttest::ArchiveBytes;

namespace {

std::unique_ptr<KyDtDictLongItem> LongItem(const wchar_t *name, std::int32_t value) {
  auto item = std::make_unique<KyDtDictLongItem>();
  item->m_strName = name;
  item->m_value = value;
  return item;
}

KyDtDictOptionItem *OptionItem(std::initializer_list<const wchar_t *> options, std::int32_t selected) {
  auto *item = new KyDtDictOptionItem();
  item->m_strName = L"opt";
  for (const wchar_t *option : options) item->Append(CString(option));
  item->m_nCurSel = selected;
  return item;
}

}  // namespace

// ---- Kinds and creation ----

TEST(DictItemKinds, CreateDictItemGivesEachKindAndNullOutsideTheRange) {
  for (int type = -1; type <= 7; ++type) {
    std::unique_ptr<KyDtDictItem> item(CreateDictItem(type));
    ASSERT_NE(item, nullptr) << type;
    EXPECT_EQ(item->GetType(), type);
    EXPECT_TRUE(item->m_strName.IsEmpty());
    EXPECT_NE(item->m_pAttributes, nullptr);
    EXPECT_EQ(item->IsDict(), type == 0);
  }
  EXPECT_EQ(CreateDictItem(8), nullptr);
  EXPECT_EQ(CreateDictItem(-2), nullptr);
  EXPECT_EQ(CreateDictItem(99), nullptr);
}

TEST(DictItemKinds, CreatedKindsAreTheirClasses) {
  std::unique_ptr<KyDtDictItem> dict(CreateDictItem(0));
  EXPECT_NE(dynamic_cast<KyDtDictionary *>(dict.get()), nullptr);
  std::unique_ptr<KyDtDictItem> reference(CreateDictItem(7));
  EXPECT_NE(dynamic_cast<KyDtDictReferenceItem *>(reference.get()), nullptr);
  EXPECT_NE(dynamic_cast<KyDtDictStringItem *>(reference.get()), nullptr);
  std::unique_ptr<KyDtDictItem> option(CreateDictItem(6));
  EXPECT_NE(dynamic_cast<KyList<CString> *>(dynamic_cast<KyDtDictOptionItem *>(option.get())), nullptr);
}

TEST(DictItemKinds, NewValuesAreZeroAndReferencesUnresolved) {
  KyDtDictBoolItem b;
  KyDtDictCharItem c;
  KyDtDictLongItem l;
  KyDtDictDoubleItem d;
  KyDtDictStringItem s;
  KyDtDictReferenceItem r;
  KyDtDictOptionItem o;
  EXPECT_EQ(b.m_value, 0);
  EXPECT_EQ(c.m_value, 0);
  EXPECT_EQ(l.m_value, 0);
  EXPECT_EQ(d.m_value, 0.0);
  EXPECT_TRUE(s.m_value.IsEmpty());
  EXPECT_EQ(r.GetItemRef(), nullptr);
  EXPECT_EQ(o.GetLength(), 0);
}

TEST(DictItemKinds, ConstructorTakesNullAsEmpty) {
  KyDtDictItem item(nullptr, L"local", nullptr);
  EXPECT_TRUE(item.m_strName.IsEmpty());
  EXPECT_EQ(item.m_strLocalName, L"local");
  EXPECT_TRUE(item.m_strComment.IsEmpty());
  KyDtDictionary dict(L"d", nullptr);
  EXPECT_EQ(dict.m_strName, L"d");
  EXPECT_TRUE(dict.m_strLocalName.IsEmpty());
  EXPECT_EQ(dict.IsAutoSort(), 0);
  EXPECT_EQ(CString(dict.GetClassNameW()), L"");
}

TEST(DictItemKinds, UnnamedItemIsInvalidAndEqualToAnotherUnnamed) {
  KyDtDictItem a(nullptr);
  KyDtDictItem b;
  EXPECT_FALSE(a.IsValid());
  EXPECT_TRUE(a == b);
  EXPECT_FALSE(a != b);
  KyDtDictItem named(L"x");
  EXPECT_TRUE(named.IsValid());
  EXPECT_FALSE(named == a);
}

// ---- Attributes ----

TEST(DictItemAttributes, SetOverwritesAndAbsentReadsEmpty) {
  KyDtDictItem item(L"i");
  EXPECT_EQ(item.GetAttributeValue(L"k"), L"");
  item.SetAttributeValue(L"k", L"1");
  item.SetAttributeValue(L"k", L"2");
  EXPECT_EQ(item.GetAttributeValue(L"k"), L"2");
  EXPECT_EQ(item.m_pAttributes->size(), 1u);
  // Keys are case-sensitive.
  EXPECT_EQ(item.GetAttributeValue(L"K"), L"");
}

TEST(DictItemAttributes, OnlyTheExactUpperCaseWordIsTrue) {
  KyDtDictItem item;
  item.SetAttributeValue(L"flag", L"true");
  EXPECT_FALSE(item.GetAttributeBoolValue(L"flag"));
  item.SetAttributeValue(L"flag", L"True");
  EXPECT_FALSE(item.GetAttributeBoolValue(L"flag"));
  item.SetAttributeBoolValue(L"flag", true);
  EXPECT_EQ(item.GetAttributeValue(L"flag"), L"TRUE");
  EXPECT_TRUE(item.GetAttributeBoolValue(L"flag"));
  item.SetAttributeBoolValue(L"flag", false);
  EXPECT_EQ(item.GetAttributeValue(L"flag"), L"FALSE");
  EXPECT_FALSE(item.GetAttributeBoolValue(L"missing"));
}

TEST(DictItemAttributes, IntegersUseDecimalText) {
  KyDtDictItem item;
  item.SetAttributeIntValue(L"n", -42);
  EXPECT_EQ(item.GetAttributeValue(L"n"), L"-42");
  EXPECT_EQ(item.GetAttributeIntValue(L"n"), -42);
  EXPECT_EQ(item.GetAttributeIntValue(L"missing"), 0);
}

TEST(DictItemAttributes, DoublesKeepSixSignificantDigits) {
  KyDtDictItem item;
  item.SetAttributeDoubleValue(L"d", 1234567.0);
  EXPECT_EQ(item.GetAttributeValue(L"d"), L"1.23457e+06");
  EXPECT_EQ(item.GetAttributeDoubleValue(L"d"), 1234570.0);
  item.SetAttributeDoubleValue(L"d", 0.5);
  EXPECT_EQ(item.GetAttributeValue(L"d"), L"0.5");
  EXPECT_EQ(item.GetAttributeDoubleValue(L"missing"), 0.0);
}

TEST(DictItemAttributes, EmptyValueMatchesAnAbsentKey) {
  KyDtDictItem item;
  EXPECT_TRUE(item.IsMatchAttribute(L"absent", L""));
  EXPECT_FALSE(item.IsMatchAttribute(L"absent", L"x"));
  item.SetAttributeValue(L"k", L"Abc");
  EXPECT_TRUE(item.IsMatchAttribute(L"k", L"Abc"));
  EXPECT_FALSE(item.IsMatchAttribute(L"k", L"abc"));
}

TEST(DictItemAttributes, GetAllAttributeAppendsInKeyOrderWithoutClearing) {
  KyDtDictItem item;
  item.SetAttributeValue(L"b", L"2");
  item.SetAttributeValue(L"a", L"1");
  item.SetAttributeValue(L"C", L"3");
  KyDList<CString> keys;
  KyDList<CString> values;
  keys.Append(CString(L"old"));
  values.Append(CString(L"old"));
  item.GetAllAttribute(keys, values);
  ASSERT_EQ(keys.GetLength(), 4);
  EXPECT_EQ(keys.GetAt(0), L"old");
  // Ordinal order: upper case before lower case.
  EXPECT_EQ(keys.GetAt(1), L"C");
  EXPECT_EQ(keys.GetAt(2), L"a");
  EXPECT_EQ(keys.GetAt(3), L"b");
  EXPECT_EQ(values.GetAt(1), L"3");
  EXPECT_EQ(values.GetAt(3), L"2");
}

// ---- Order ----

TEST(DictItemOrder, EqualityIsCaseSensitiveOnNames) {
  KyDtDictItem a(L"Key");
  KyDtDictItem b(L"key");
  KyDtDictLongItem c;
  c.m_strName = L"Key";
  EXPECT_FALSE(a == b);
  EXPECT_TRUE(a == c);  // the kind plays no part
}

TEST(DictItemOrder, GreaterIsByteOrderOfTheNarrowForm) {
  KyDtDictItem upper(L"B");
  KyDtDictItem lower(L"a");
  EXPECT_TRUE(lower > upper);  // 'a' (0x61) after 'B' (0x42)
  EXPECT_TRUE(upper < lower);
  // 中 is D6 D0 in code page 936 and 啊 is B0 A1: 中 sorts after 啊, although
  // its code point (U+4E2D) is below that of 啊 (U+554A).
  KyDtDictItem zhong(L"中");
  KyDtDictItem a(L"啊");
  EXPECT_TRUE(zhong > a);
  EXPECT_FALSE(a > zhong);
  // Every Chinese name sorts after every ASCII name.
  EXPECT_TRUE(a > lower);
}

TEST(DictItemOrder, NamesWithOneNarrowFormAreNeitherGreaterNorEqual) {
  // Neither Thai letter exists in code page 936; both narrow to "?".
  KyDtDictItem first(L"\u0E01");
  KyDtDictItem second(L"\u0E02");
  KyDtDictItem question(L"?");
  EXPECT_FALSE(first > second);
  EXPECT_FALSE(second > first);
  EXPECT_FALSE(first == second);
  EXPECT_FALSE(first > question);
  EXPECT_FALSE(question > first);
}

// ---- CompareWith ----

TEST(DictItemCompare, IdenticalItemsGiveZero) {
  auto a = LongItem(L"n", 5);
  auto b = LongItem(L"n", 5);
  a->SetAttributeValue(L"k", L"v");
  b->SetAttributeValue(L"k", L"v");
  EXPECT_EQ(a->CompareWith(*b), 0);
  b->m_value = 6;
  EXPECT_NE(a->CompareWith(*b), 0);
  b->m_value = 5;
  b->m_strComment = L"c";
  EXPECT_NE(a->CompareWith(*b), 0);
  b->m_strComment.Empty();
  b->SetAttributeValue(L"k", L"w");
  EXPECT_NE(a->CompareWith(*b), 0);
}

TEST(DictItemCompare, DifferentKindsWithSameNameAndValueGiveMinusOne) {
  KyDtDictBoolItem flag;
  flag.m_strName = L"x";
  flag.m_value = 1;
  auto number = LongItem(L"x", 1);
  EXPECT_EQ(flag.CompareWith(*number), -1);
  EXPECT_EQ(number->CompareWith(flag), -1);
}

TEST(DictItemCompare, DifferentLengthsGiveMinusOne) {
  KyDtDictStringItem a;
  KyDtDictStringItem b;
  a.m_value = L"zzzz";
  b.m_value = L"a";
  EXPECT_EQ(a.CompareWith(b), -1);
  EXPECT_EQ(b.CompareWith(a), -1);
}

TEST(DictItemCompare, SameLengthGivesTheSignOfTheBytes) {
  KyDtDictStringItem a;
  KyDtDictStringItem b;
  a.m_value = L"b";
  b.m_value = L"a";
  EXPECT_GT(a.CompareWith(b), 0);
  EXPECT_LT(b.CompareWith(a), 0);
}

TEST(DictItemCompare, ChildrenInAnotherOrderDiffer) {
  KyDtDictionary first(L"d");
  first.AppendItem(LongItem(L"a", 1).release());
  first.AppendItem(LongItem(L"b", 2).release());
  KyDtDictionary second(L"d");
  second.AppendItem(LongItem(L"b", 2).release());
  second.AppendItem(LongItem(L"a", 1).release());
  EXPECT_NE(first.CompareWith(second), 0);
  KyDtDictionary third(L"d");
  third.AppendItem(LongItem(L"a", 1).release());
  third.AppendItem(LongItem(L"b", 2).release());
  EXPECT_EQ(first.CompareWith(third), 0);
}

TEST(DictItemCompare, ResolvedTargetAndSortFlagTakeNoPart) {
  KyDtDictReferenceItem a;
  KyDtDictReferenceItem b;
  a.m_value = b.m_value = L"X\\Y";
  a.SetItemRef(&b);
  EXPECT_EQ(a.CompareWith(b), 0);
  KyDtDictionary sorted(L"d");
  sorted.SetAutoSort(1);
  KyDtDictionary unsorted(L"d");
  EXPECT_EQ(sorted.CompareWith(unsorted), 0);
}

TEST(DictItemCompare, ClassNameTakesPart) {
  KyDtDictionary a(L"d");
  KyDtDictionary b(L"d");
  b.SetClassName(L"Floor");
  EXPECT_NE(a.CompareWith(b), 0);
}

// ---- CopyData ----

TEST(DictItemCopyData, CarriesTheValueAndKeepsTheIdentity) {
  auto source = LongItem(L"src", 7);
  source->m_strLocalName = L"srcLocal";
  source->SetAttributeValue(L"k", L"v");
  auto target = LongItem(L"dst", 1);
  target->CopyData(*source);
  EXPECT_EQ(target->m_value, 7);
  EXPECT_EQ(target->m_strName, L"dst");
  EXPECT_TRUE(target->m_strLocalName.IsEmpty());
  EXPECT_TRUE(target->m_pAttributes->empty());
}

TEST(DictItemCopyData, EachValueKindCopiesItsValue) {
  KyDtDictBoolItem b1, b2;
  b1.m_value = 7;
  b2.CopyData(b1);
  EXPECT_EQ(b2.m_value, 7);
  KyDtDictCharItem c1, c2;
  c1.m_value = 'q';
  c2.CopyData(c1);
  EXPECT_EQ(c2.m_value, 'q');
  KyDtDictDoubleItem d1, d2;
  d1.m_value = 2.5;
  d2.CopyData(d1);
  EXPECT_EQ(d2.m_value, 2.5);
  KyDtDictStringItem s1, s2;
  s1.m_value = L"文本";
  s2.CopyData(s1);
  EXPECT_EQ(s2.m_value, L"文本");
}

TEST(DictItemCopyData, BetweenKindsDoesNothing) {
  KyDtDictStringItem text;
  text.m_value = L"12";
  auto number = LongItem(L"n", 3);
  number->CopyData(text);
  EXPECT_EQ(number->m_value, 3);
  KyDtDictReferenceItem reference;
  reference.m_value = L"old";
  reference.CopyData(text);  // a String is not a Reference
  EXPECT_EQ(reference.m_value, L"old");
  KyDtDictItem bare;
  bare.CopyData(*number);  // the bare item holds nothing
  EXPECT_EQ(bare.GetType(), -1);
}

TEST(DictItemCopyData, ReferenceCopiesPathAndResolvedTarget) {
  KyDtDictLongItem target;
  KyDtDictReferenceItem source;
  source.m_value = L"A\\B";
  source.SetItemRef(&target);
  KyDtDictReferenceItem copy;
  copy.CopyData(source);
  EXPECT_EQ(copy.m_value, L"A\\B");
  EXPECT_EQ(copy.GetItemRef(), &target);
}

TEST(DictItemCopyData, OptionsSelectByText) {
  std::unique_ptr<KyDtDictOptionItem> source(OptionItem({L"X", L"Y", L"Z", L"B"}, 3));
  std::unique_ptr<KyDtDictOptionItem> target(OptionItem({L"B", L"C"}, 1));
  target->CopyData(*source);
  EXPECT_EQ(target->m_nCurSel, 0);
  EXPECT_EQ(target->GetLength(), 2);  // the list itself is never copied
  std::unique_ptr<KyDtDictOptionItem> without(OptionItem({L"C", L"D"}, 1));
  without->CopyData(*source);
  EXPECT_EQ(without->m_nCurSel, 1);
  // A source selection outside its list changes nothing.
  source->m_nCurSel = 9;
  target->m_nCurSel = 1;
  target->CopyData(*source);
  EXPECT_EQ(target->m_nCurSel, 1);
}

TEST(DictItemCopyData, DictionariesPourValuesIntoNamesakes) {
  KyDtDictionary source(L"s");
  source.SetClassName(L"Style");
  source.SetValue(L"a", 10);
  source.SetValue(L"sub\\b", 2.5);
  source.SetValue(L"extra", 1);
  source.SetValue(L"text", CString(L"new"));
  KyDtDictionary target(L"t");
  target.SetValue(L"a", 1);
  target.SetValue(L"sub\\b", 0.5);
  target.SetValue(L"sub\\keep", 3);
  target.SetValue(L"text", 5);  // another kind under the same name
  target.CopyData(source);
  EXPECT_EQ(CString(target.GetClassNameW()), L"Style");
  int a = 0;
  double b = 0;
  int keep = 0;
  int text = 0;
  EXPECT_TRUE(target.GetValue(L"a", a));
  EXPECT_EQ(a, 10);
  EXPECT_TRUE(target.GetValue(L"sub\\b", b));
  EXPECT_EQ(b, 2.5);
  EXPECT_TRUE(target.GetValue(L"sub\\keep", keep));
  EXPECT_EQ(keep, 3);
  EXPECT_TRUE(target.GetValue(L"text", text));
  EXPECT_EQ(text, 5);
  EXPECT_EQ(target.FindItem(L"extra"), nullptr);  // nothing is added
  EXPECT_EQ(target.GetLength(), 3);
}

// ---- DeepCopy and Clone ----

TEST(DictItemDeepCopy, ReplacesContentAndKeepsAttributesTheSourceLacks) {
  auto source = LongItem(L"src", 9);
  source->m_strComment = L"comment";
  source->SetAttributeValue(L"shared", L"fromSource");
  auto target = LongItem(L"dst", 1);
  target->SetAttributeValue(L"own", L"kept");
  target->SetAttributeValue(L"shared", L"old");
  target->DeepCopy(*source);
  EXPECT_EQ(target->m_strName, L"src");
  EXPECT_EQ(target->m_strComment, L"comment");
  EXPECT_EQ(target->m_value, 9);
  EXPECT_EQ(target->GetAttributeValue(L"own"), L"kept");
  EXPECT_EQ(target->GetAttributeValue(L"shared"), L"fromSource");
  EXPECT_NE(target->m_pAttributes, source->m_pAttributes);
}

TEST(DictItemDeepCopy, ReplacesChildrenAndOptions) {
  KyDtDictionary source(L"s");
  source.SetValue(L"x", 1);
  KyDtDictionary target(L"t");
  target.SetValue(L"old", 2);
  target.DeepCopy(source);
  EXPECT_EQ(dicttest::ChildNames(target), std::vector<std::wstring>{L"x"});
  std::unique_ptr<KyDtDictOptionItem> optSource(OptionItem({L"A", L"B"}, 1));
  std::unique_ptr<KyDtDictOptionItem> optTarget(OptionItem({L"Q"}, 0));
  optTarget->DeepCopy(*optSource);
  ASSERT_EQ(optTarget->GetLength(), 2);
  EXPECT_EQ(optTarget->GetSelString(), L"B");
}

TEST(DictItemDeepCopy, DictionaryKeepsItsOwnSortFlagForTheWholeSubtree) {
  KyDtDictionary source(L"s");
  source.SetValue(L"sub\\b", 1);
  source.SetValue(L"sub\\a", 1);
  KyDtDictionary target(L"t");
  target.SetAutoSort(1);
  target.DeepCopy(source);
  EXPECT_EQ(target.IsAutoSort(), 1);
  KyDtDictionary *sub = target.FindDict(L"sub");
  ASSERT_NE(sub, nullptr);
  EXPECT_EQ(sub->IsAutoSort(), 1);
  // Read in sorted mode, the children come in order.
  EXPECT_EQ(dicttest::ChildNames(*sub), (std::vector<std::wstring>{L"a", L"b"}));
}

TEST(DictItemClone, GivesAnEqualItemOfTheSameKind) {
  for (int type = -1; type <= 7; ++type) {
    std::unique_ptr<KyDtDictItem> item(CreateDictItem(type));
    item->m_strName = L"名字";
    item->m_strLocalName = L"local";
    item->SetAttributeValue(L"k", L"v");
    std::unique_ptr<KyDtDictItem> copy(item->Clone());
    ASSERT_NE(copy, nullptr);
    EXPECT_EQ(copy->GetType(), type);
    EXPECT_EQ(copy->CompareWith(*item), 0) << type;
    EXPECT_NE(copy->m_pAttributes, item->m_pAttributes);
  }
}

TEST(DictItemClone, ResolvedReferenceClonesUnresolved) {
  KyDtDictLongItem target;
  KyDtDictReferenceItem reference;
  reference.m_value = L"A\\B";
  reference.SetItemRef(&target);
  std::unique_ptr<KyDtDictItem> copy(reference.Clone());
  auto *clone = dynamic_cast<KyDtDictReferenceItem *>(copy.get());
  ASSERT_NE(clone, nullptr);
  EXPECT_EQ(clone->m_value, L"A\\B");
  EXPECT_EQ(clone->GetItemRef(), nullptr);
}

TEST(DictItemClone, SortedDictionaryClonesUnsortedInTheSameOrder) {
  KyDtDictionary sorted(L"s");
  sorted.SetAutoSort(1);
  sorted.SetValue(L"b", 1);
  sorted.SetValue(L"a", 2);
  sorted.SetValue(L"c\\y", 3);
  sorted.SetValue(L"c\\x", 4);
  ASSERT_EQ(dicttest::ChildNames(sorted), (std::vector<std::wstring>{L"a", L"b", L"c"}));
  std::unique_ptr<KyDtDictItem> copy(sorted.Clone());
  auto *clone = static_cast<KyDtDictionary *>(copy.get());
  EXPECT_EQ(clone->IsAutoSort(), 0);
  EXPECT_EQ(dicttest::ChildNames(*clone), (std::vector<std::wstring>{L"a", L"b", L"c"}));
  EXPECT_EQ(clone->FindDict(L"c")->IsAutoSort(), 0);
  EXPECT_EQ(dicttest::ChildNames(*clone->FindDict(L"c")), (std::vector<std::wstring>{L"x", L"y"}));
  EXPECT_EQ(clone->CompareWith(sorted), 0);
}

// ---- Member-wise copies ----

TEST(DictItemMemberwiseCopy, CopyConstructorSharesTheBag) {
  auto original = LongItem(L"n", 4);
  original->m_strLocalName = L"local";
  original->SetAttributeValue(L"k", L"v");
  auto copy = std::make_unique<KyDtDictLongItem>(*original);
  EXPECT_EQ(copy->m_pAttributes, original->m_pAttributes);
  EXPECT_EQ(copy->m_strName, L"n");
  EXPECT_EQ(copy->m_strLocalName, L"local");
  EXPECT_EQ(copy->m_value, 4);
  copy->SetAttributeValue(L"added", L"1");
  EXPECT_EQ(original->GetAttributeValue(L"added"), L"1");
  // Only one of the two may free the shared bag.
  copy->m_pAttributes = new KyDtAttributeMap;
}

TEST(DictItemMemberwiseCopy, AssignmentTakesTheSourceBagAndLetsGoOfItsOwn) {
  auto source = LongItem(L"src", 8);
  source->SetAttributeValue(L"k", L"v");
  auto target = LongItem(L"dst", 1);
  KyDtAttributeMap *ownBag = target->m_pAttributes;
  ownBag->emplace(CString(L"own"), CString(L"x"));
  *target = *source;
  EXPECT_EQ(target->m_pAttributes, source->m_pAttributes);
  EXPECT_EQ(target->m_value, 8);
  // The old bag was let go of, not freed: it is still intact here.
  EXPECT_EQ(ownBag->at(CString(L"own")), L"x");
  delete ownBag;
  target->m_pAttributes = new KyDtAttributeMap;
}

TEST(DictItemMemberwiseCopy, OptionAndReferenceCopiesShareTheBag) {
  std::unique_ptr<KyDtDictOptionItem> option(OptionItem({L"A", L"B"}, 1));
  KyDtDictOptionItem optionCopy(*option);
  EXPECT_EQ(optionCopy.m_pAttributes, option->m_pAttributes);
  EXPECT_EQ(optionCopy.GetLength(), 2);
  EXPECT_EQ(optionCopy.GetSelString(), L"B");
  optionCopy.m_pAttributes = new KyDtAttributeMap;

  KyDtDictLongItem target;
  KyDtDictReferenceItem reference;
  reference.m_value = L"p";
  reference.SetItemRef(&target);
  KyDtDictReferenceItem referenceCopy(reference);
  EXPECT_EQ(referenceCopy.m_pAttributes, reference.m_pAttributes);
  EXPECT_EQ(referenceCopy.GetItemRef(), &target);
  referenceCopy.m_pAttributes = new KyDtAttributeMap;
}

TEST(DictItemMemberwiseCopy, DictionaryCopySharesChildrenAndBag) {
  KyDtDictionary original(L"d");
  original.SetClassName(L"Floor");
  original.SetValue(L"a", 1);
  auto *copy = new KyDtDictionary(original);
  EXPECT_EQ(copy->m_pAttributes, original.m_pAttributes);
  EXPECT_EQ(CString(copy->GetClassNameW()), L"Floor");
  ASSERT_EQ(copy->GetLength(), 1);
  EXPECT_EQ(copy->GetAt(0), original.GetAt(0));
  // Let the copy go without touching what it shares.
  while (copy->GetLength() > 0) copy->TakeOffHead();
  copy->m_pAttributes = new KyDtAttributeMap;
  delete copy;
  int a = 0;
  EXPECT_TRUE(original.GetValue(L"a", a));
}

// ---- Reference items ----

TEST(DictReferenceItem, TrueItemRefFollowsTheChain) {
  KyDtDictLongItem end;
  KyDtDictReferenceItem second;
  second.SetItemRef(&end);
  KyDtDictReferenceItem first;
  first.SetItemRef(&second);
  EXPECT_EQ(first.GetItemRef(), &second);
  EXPECT_EQ(first.GetTrueItemRef(), &end);
  EXPECT_EQ(second.GetTrueItemRef(), &end);
}

TEST(DictReferenceItem, HardnessIsTheHardAttribute) {
  KyDtDictReferenceItem reference;
  EXPECT_FALSE(reference.IsHardReference());
  reference.SetHardReference(true);
  EXPECT_EQ(reference.GetAttributeValue(L"hard"), L"TRUE");
  EXPECT_TRUE(reference.IsHardReference());
  reference.SetHardReference(false);
  EXPECT_EQ(reference.GetAttributeValue(L"hard"), L"FALSE");
  EXPECT_FALSE(reference.IsHardReference());
}

TEST(DictOptionItem, SelectedStringIsEmptyOutsideTheList) {
  std::unique_ptr<KyDtDictOptionItem> option(OptionItem({L"A", L"B"}, 1));
  EXPECT_EQ(option->GetSelString(), L"B");
  option->m_nCurSel = -1;
  EXPECT_EQ(option->GetSelString(), L"");
  option->m_nCurSel = 2;
  EXPECT_EQ(option->GetSelString(), L"");
}
