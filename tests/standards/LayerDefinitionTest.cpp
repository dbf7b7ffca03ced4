// Layer definitions, standards and the configuration view: lookup of
// fields and whole keys, assembly of keys, and the kept quirks.
#include <gtest/gtest.h>

#include <string>

#include "LayerConfig.h"
#include "StandardsFixture.h"
#include "dictionary/KyDtDictionary.h"
#include "module/ModuleGlobals.h"
#include "standards/KyDtLayerCfg.h"

namespace {

class LayerDefinitionTest : public StandardsTest {
 protected:
  void SetUp() override { LoadConfig(LayerConfigBody()); }

  KyDtLayerDef Resolve(const wchar_t *key, bool *ok = nullptr) {
    KyDtLayerDef def;
    def.key = key;
    const bool found = KyDtLayerCfg().GetLayerDef(def);
    if (ok) *ok = found;
    return def;
  }
};

TEST_F(LayerDefinitionTest, TwoFieldsJoinTheirLayerNamesWithAHyphen) {
  for (const wchar_t *key : {L"A-B", L"A--B", L"-A-B", L"A-B-"}) {
    bool ok = false;
    KyDtLayerDef def = Resolve(key, &ok);
    EXPECT_TRUE(ok) << CString(key).str().size();
    EXPECT_EQ(def.layerName.str(), L"a-b");
    EXPECT_EQ(def.localName.str(), L"甲-乙");
    EXPECT_EQ(def.key.str(), key);
  }
}

TEST_F(LayerDefinitionTest, LastFieldDecidesLineWeightEvenWhenUnset) {
  KyDtLayerDef def = Resolve(L"A-B");
  EXPECT_EQ(def.lineWeight, -3);
  EXPECT_EQ(def.color, 3);           // the last colour that is set wins
  EXPECT_EQ(def.lineType.str(), L"DASHED");  // B sets none
  EXPECT_EQ(Resolve(L"B-C").lineWeight, 30);
  EXPECT_EQ(Resolve(L"A").lineWeight, 25);
}

TEST_F(LayerDefinitionTest, MissingFieldLeavesAssemblyUntouchedAndWholeKeyDecides) {
  KyDtLayerStd std(KyDtLayerCfg().GetCurLayerStd());
  KyDtLayerDef def;
  def.key = L"A-X";
  def.localName = L"before";
  EXPECT_FALSE(std.AssembleLayer(def));
  EXPECT_EQ(def.localName.str(), L"before");
  EXPECT_TRUE(def.layerName.IsEmpty());

  bool ok = false;
  KyDtLayerDef whole = Resolve(L"A-X", &ok);
  EXPECT_TRUE(ok);
  EXPECT_EQ(whole.layerName.str(), L"ax");
  EXPECT_EQ(whole.color, 0);

  Resolve(L"A-Y", &ok);
  EXPECT_FALSE(ok);
}

TEST_F(LayerDefinitionTest, WholeKeyCorrectsAssemblyButKeepsItsDisplayName) {
  KyDtLayerDef def = Resolve(L"B-A");
  EXPECT_EQ(def.layerName.str(), L"BA_LAYER");
  EXPECT_EQ(def.localName.str(), L"乙-甲");
  EXPECT_EQ(def.color, 5);
  EXPECT_EQ(def.lineType.str(), L"DASHED");
  EXPECT_EQ(def.lineWeight, 25);  // the entry has none, the assembly's stands
  EXPECT_EQ(def.comment.str(), L"");
}

TEST_F(LayerDefinitionTest, EmptyDisplayNameOfALaterFieldLeavesTrailingHyphen) {
  EXPECT_EQ(Resolve(L"A-C").localName.str(), L"甲-");
}

TEST_F(LayerDefinitionTest, KnownAttributeNamesAreTestedAsSubstrings) {
  KyDtLayerDef def = Resolve(L"A");
  EXPECT_EQ(def.GetAttributeValue(L"width").str(), L"100");
  EXPECT_EQ(def.GetAttributeValue(L"linescale").str(), L"2");
  EXPECT_TRUE(def.GetAttributeValue(L"type").IsEmpty());  // "type" is part of "linetype"
  EXPECT_TRUE(def.GetAttributeValue(L"color").IsEmpty());
  EXPECT_TRUE(def.GetAttributeValue(L"name").IsEmpty());
  // Assembly never carries a field's comment; the lookup itself does.
  EXPECT_TRUE(def.comment.IsEmpty());
  KyDtLayerDef found;
  found.key = L"A";
  ASSERT_TRUE(KyDtLayerStd::FindLayer(KyDtLayerStd(KyDtLayerCfg().GetCurLayerStd()).GetFieldDict(), found));
  EXPECT_EQ(found.comment.str(), L"first");
  EXPECT_EQ(found.localName.str(), L"甲");
  EXPECT_EQ(found.lineWeight, 25);
}

TEST_F(LayerDefinitionTest, LineScaleAndLineWeightDefaults) {
  KyDtLayerDef def;
  EXPECT_DOUBLE_EQ(def.GetLineScale(), 1.0);
  EXPECT_DOUBLE_EQ(def.GetLineWeight(), 0.0);
  def.SetLineScale(0.0);
  def.SetLineWeight(-2.5);
  EXPECT_DOUBLE_EQ(def.GetLineScale(), 1.0);
  EXPECT_DOUBLE_EQ(def.GetLineWeight(), 0.0);
  def.SetLineScale(2.5);
  def.SetLineWeight(0.35);
  EXPECT_EQ(def.GetAttributeValue(L"linescale").str(), L"2.5");
  EXPECT_DOUBLE_EQ(def.GetLineScale(), 2.5);
  EXPECT_DOUBLE_EQ(def.GetLineWeight(), 0.35);
  EXPECT_DOUBLE_EQ(Resolve(L"A-B").GetLineScale(), 2.0);
  EXPECT_DOUBLE_EQ(Resolve(L"A-B").GetLineWeight(), 0.35);
}

TEST_F(LayerDefinitionTest, CopiesOwnTheirAttributesAndHaveNoOrder) {
  KyDtLayerDef a = Resolve(L"A");
  KyDtLayerDef b(a);
  EXPECT_NE(a.attributes, b.attributes);
  b.SetAttributeValue(L"width", L"7");
  EXPECT_EQ(a.GetAttributeValue(L"width").str(), L"100");
  KyDtLayerDef c;
  c.SetAttributeValue(L"gone", L"1");
  c = a;
  EXPECT_TRUE(c.GetAttributeValue(L"gone").IsEmpty());
  EXPECT_EQ(c.layerName.str(), L"a");
  EXPECT_FALSE(a < b);
  EXPECT_FALSE(a > b);
  EXPECT_FALSE(b < a);
}

TEST_F(LayerDefinitionTest, MergeFollowsItsRules) {
  KyDtLayerDef base;
  KyDtLayerDef field;
  field.localName = L"x";
  field.color = 4;
  field.lineWeight = 13;
  field.SetAttributeValue(L"keep", L"");
  field.SetAttributeValue(L"k", L"v");
  base += field;
  EXPECT_EQ(base.localName.str(), L"x");
  EXPECT_TRUE(base.layerName.IsEmpty());
  EXPECT_EQ(base.color, 4);
  EXPECT_EQ(base.lineWeight, 13);
  EXPECT_TRUE(base.GetAttributeValue(L"keep").IsEmpty());
  EXPECT_EQ(base.attributes->count(CString(L"keep")), 0u);
  KyDtLayerDef second;
  second.layerName = L"n";
  base += second;
  EXPECT_EQ(base.localName.str(), L"x-");
  EXPECT_EQ(base.layerName.str(), L"n");
  EXPECT_EQ(base.color, 4);
  EXPECT_EQ(base.lineWeight, -3);
}

TEST_F(LayerDefinitionTest, KeyWithoutTokensAssemblesToTheUnchangedDefinition) {
  KyDtLayerStd std(KyDtLayerCfg().GetCurLayerStd());
  KyDtLayerDef def;
  def.key = L"---";
  def.layerName = L"kept";
  EXPECT_TRUE(std.AssembleLayer(def));
  EXPECT_EQ(def.layerName.str(), L"kept");
}

TEST_F(LayerDefinitionTest, ConfigurationViewFindsStandards) {
  KyDtLayerCfg cfg;
  ASSERT_NE(cfg.GetDict(), nullptr);
  EXPECT_EQ(cfg.GetCurStdName().str(), L"TEST");
  EXPECT_NE(cfg.GetLayerStd(L"OTHER"), nullptr);
  EXPECT_EQ(cfg.GetLayerStd(L"CUR_STD"), nullptr);
  EXPECT_EQ(cfg.GetLayerStd(L"NONE"), nullptr);
  KyDynArray<KyDtDictionary *> all;
  all.Append(nullptr);
  cfg.GetAllLayerStd(all);
  ASSERT_EQ(all.GetLength(), 3);  // not cleared first
  EXPECT_EQ(all[1]->m_strName.str(), L"TEST");
  EXPECT_EQ(all[2]->m_strName.str(), L"OTHER");

  KyDtLayerDef def;
  def.key = L"A";
  EXPECT_TRUE(cfg.GetLayerDef(def, cfg.GetLayerStd(L"OTHER")));
  EXPECT_EQ(def.layerName.str(), L"other_a");
}

TEST_F(LayerDefinitionTest, ChangeOfCurrentStandardTakesEffectAtOnce) {
  ASSERT_TRUE(g_dictCfg.SetValue(CString(L"LAYER\\CUR_STD"), CString(L"OTHER")));
  EXPECT_EQ(Resolve(L"A").layerName.str(), L"other_a");
  ASSERT_TRUE(g_dictCfg.SetValue(CString(L"LAYER\\CUR_STD"), CString(L"MISSING")));
  bool ok = true;
  Resolve(L"A", &ok);
  EXPECT_FALSE(ok);
  KyDtLayerDef preset;
  preset.key = L"A";
  preset.layerName = L"preset";
  EXPECT_TRUE(KyDtLayerCfg().GetLayerDef(preset));
}

TEST_F(LayerDefinitionTest, StandardWithoutFieldsStillResolvesWholeKeys) {
  KyDtDictionary *test = KyDtLayerCfg().GetLayerStd(L"TEST");
  ASSERT_TRUE(test->FindAndDel(CString(L"LAYER_FIELD_DEF")));
  bool ok = false;
  EXPECT_EQ(Resolve(L"WALL", &ok).layerName.str(), L"墙");
  EXPECT_TRUE(ok);
  Resolve(L"A", &ok);
  EXPECT_FALSE(ok);
}

TEST_F(LayerDefinitionTest, NullStandardFindsNothing) {
  KyDtLayerStd none(nullptr);
  EXPECT_EQ(none.GetFieldDict(), nullptr);
  EXPECT_EQ(none.GetAssemblyDict(), nullptr);
  KyDtLayerDef def;
  def.key = L"A";
  EXPECT_FALSE(none.GetLayerDef(def));
  EXPECT_FALSE(KyDtLayerStd::FindLayer(nullptr, def));
}

// Bad input.

TEST_F(LayerDefinitionTest, KeysOfDictionariesAndOtherKindsDoNotResolve) {
  bool ok = true;
  Resolve(L"MAJOR", &ok);
  EXPECT_FALSE(ok);
  Resolve(L"GROUP", &ok);
  EXPECT_FALSE(ok);
  Resolve(L"D", &ok);
  EXPECT_FALSE(ok);
  Resolve(L"ARCS", &ok);
  EXPECT_FALSE(ok);
}

TEST_F(LayerDefinitionTest, OutOfRangeAndTextColoursConvertQuietly) {
  KyDtLayerDef big = Resolve(L"BADCOLOR");
  EXPECT_EQ(big.layerName.str(), L"bc");
  EXPECT_EQ(big.color, static_cast<std::uint16_t>(99999));
  KyDtLayerDef text = Resolve(L"TEXTCOLOR");
  EXPECT_EQ(text.color, 0);
  EXPECT_EQ(text.lineWeight, 0);
}

TEST_F(LayerDefinitionTest, KeyOfTenThousandTokens) {
  std::wstring key;
  for (int i = 0; i < 10000; ++i) key += (i % 2) ? L"B-" : L"A-";
  bool ok = false;
  KyDtLayerDef def = Resolve(key.c_str(), &ok);
  EXPECT_TRUE(ok);
  EXPECT_EQ(def.layerName.GetLength(), 10000 * 2 - 1);
  key += L"Q";
  Resolve(key.c_str(), &ok);
  EXPECT_FALSE(ok);
}

TEST_F(LayerDefinitionTest, SectionOfTheWrongKind) {
  LoadConfig(R"(<String name="LAYER">TEST</String>)");
  KyDtLayerCfg cfg;
  EXPECT_EQ(cfg.GetDict(), nullptr);
  EXPECT_TRUE(cfg.GetCurStdName().IsEmpty());
  EXPECT_EQ(cfg.GetCurLayerStd(), nullptr);
  KyDynArray<KyDtDictionary *> all;
  cfg.GetAllLayerStd(all);
  EXPECT_EQ(all.GetLength(), 0);
  bool ok = true;
  Resolve(L"A", &ok);
  EXPECT_FALSE(ok);

  LoadConfig(R"(<Directory name="LAYER"><String name="CUR_STD">S</String>
    <Directory name="S"><String name="LAYER_FIELD_DEF">x</String><Int name="ASSEMBLY_LAYER_DEF">1</Int></Directory></Directory>)");
  KyDtLayerStd s(KyDtLayerCfg().GetCurLayerStd());
  EXPECT_EQ(s.GetFieldDict(), nullptr);
  EXPECT_EQ(s.GetAssemblyDict(), nullptr);
  Resolve(L"A", &ok);
  EXPECT_FALSE(ok);
}

}  // namespace
