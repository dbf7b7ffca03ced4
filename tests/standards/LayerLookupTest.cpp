// Layer names, layer filters and layers made in a drawing for keys.
#include <gtest/gtest.h>

#include "LayerConfig.h"
#include "StandardsFixture.h"
#include "platform/acad/AcDbLayerTableRecord.h"
#include "platform/acad/AcDbSymbolTables.h"
#include "platform/dbobject/DbObjectSettings.h"
#include "platform/dbobject/KyDbEntity.h"
#include "platform/dbobject/KyDbHooks.h"
#include "platform/dbobject/KyDbLayerMakers.h"
#include "standards/KyDtLayerFunctions.h"

namespace {

class LayerLookupTest : public StandardsTest {
 protected:
  void SetUp() override { LoadConfig(LayerConfigBody()); }
};

TEST_F(LayerLookupTest, NameOfAKey) {
  EXPECT_EQ(KyDtGetLayerName(L"A-B").str(), L"a-b");
  EXPECT_EQ(KyDtGetLayerName(L"WALL").str(), L"墙");
  EXPECT_TRUE(KyDtGetLayerName(L"NOPE").IsEmpty());
  EXPECT_TRUE(KyDtGetLayerName(L"").IsEmpty());
}

TEST_F(LayerLookupTest, LineScaleAndWeightOfAKey) {
  EXPECT_DOUBLE_EQ(KyDtGetLayerLineScale(L"A"), 2.0);
  EXPECT_DOUBLE_EQ(KyDtGetLayerLineScale(L"WALL"), 1.0);  // stored 0
  EXPECT_DOUBLE_EQ(KyDtGetLayerLineScale(L"NOPE"), 1.0);
  EXPECT_DOUBLE_EQ(KyDtGetLayerLineWeight(L"B"), 0.35);
  EXPECT_DOUBLE_EQ(KyDtGetLayerLineWeight(L"NOPE"), 0.0);
}

TEST_F(LayerLookupTest, MakesTheLayerWithItsLook) {
  const AcDbObjectId id = KyDtInitLayer(L"WALL", &db_);
  ASSERT_FALSE(id.isNull());
  EXPECT_EQ(LayerNameOf(id), L"墙");
  EXPECT_EQ(LayerColorOf(id), 2);
  EXPECT_EQ(LayerLinetypeOf(id), L"CENTER");
  EXPECT_EQ(LayerLineWeightOf(id), 50);
  EXPECT_EQ(KyDtInitLayer(L"WALL", &db_), id);
}

TEST_F(LayerLookupTest, NullDatabaseMeansTheWorkingOne) {
  const AcDbObjectId id = KyDtInitLayer(L"A-B", nullptr);
  EXPECT_EQ(GetLayerIdFromString(L"a-b", &db_), id);
}

TEST_F(LayerLookupTest, ExistingLayerIsNeverRestyled) {
  const AcDbObjectId mine = InitLayer(L"墙", 7, &db_);
  ASSERT_FALSE(mine.isNull());
  EXPECT_EQ(KyDtInitLayer(L"WALL", &db_), mine);
  EXPECT_EQ(LayerColorOf(mine), 7);
  EXPECT_EQ(LayerLinetypeOf(mine), L"Continuous");
}

TEST_F(LayerLookupTest, LayerWithoutItsLineTypeKeepsDefaultWeightToo) {
  const AcDbObjectId id = KyDtInitLayer(L"NOLT", &db_);
  ASSERT_FALSE(id.isNull());
  EXPECT_EQ(LayerColorOf(id), 4);
  EXPECT_EQ(LayerLinetypeOf(id), L"Continuous");
  EXPECT_EQ(LayerLineWeightOf(id), static_cast<int>(AcDb::kLnWtByLwDefault));
}

TEST_F(LayerLookupTest, ColourOutOfRangeGivesTheMakersDefault) {
  const AcDbObjectId id = KyDtInitLayer(L"BADCOLOR", &db_);
  ASSERT_FALSE(id.isNull());
  EXPECT_EQ(LayerColorOf(id), 7);
}

TEST_F(LayerLookupTest, UnresolvedKeyGivesNullIdAndNoLayer) {
  EXPECT_TRUE(KyDtInitLayer(L"NOPE", &db_).isNull());
  EXPECT_TRUE(KyDtInitStdLayer(L"", &db_).isNull());
}

TEST_F(LayerLookupTest, StandardsOffAnswerTheCurrentLayer) {
  const AcDbObjectId other = InitLayer(L"other", 3, &db_);
  ASSERT_EQ(db_.setClayer(other), Acad::eOk);
  g_bUseLayerStd = false;
  EXPECT_EQ(KyDtInitLayer(L"ANY", &db_), other);
  EXPECT_EQ(KyDtInitLayer(L"WALL", nullptr), other);
  AcDbDatabase second;
  EXPECT_EQ(KyDtInitLayer(L"WALL", &second), second.clayer());
  // The standard is still there for who asks for it.
  EXPECT_EQ(LayerNameOf(KyDtInitStdLayer(L"WALL", &db_)), L"墙");
}

TEST_F(LayerLookupTest, EntityHookUsesItsLayerKey) {
  KyDbEntity entity;
  entity.SetLayerKey(L"A-B");
  EXPECT_EQ(LayerNameOf(KyDtGetEntityLayerId(&entity)), L"a-b");
  EXPECT_TRUE(KyDtGetEntityLayerId(nullptr).isNull());
  KyDbEntity unkeyed;
  EXPECT_TRUE(KyDtGetEntityLayerId(&unkeyed).isNull());
}

TEST_F(LayerLookupTest, FilterOfTwoKeysJoinedByAStar) {
  EXPECT_EQ(KyDtGetLayerNameEx(L"A*B").str(), L"a*b");
}

TEST_F(LayerLookupTest, UnknownMiddleKeyLeavesTwoStars) {
  EXPECT_EQ(KyDtGetLayerNameEx(L"A*NOPE*B").str(), L"a**b");
}

TEST_F(LayerLookupTest, HyphensAtTheEndsOfKeysStay) {
  EXPECT_EQ(KyDtGetLayerNameEx(L"A-*-B").str(), L"a-*-b");
  // A piece of one character is not examined.
  EXPECT_EQ(KyDtGetLayerNameEx(L"A*-").str(), L"a*");
}

TEST_F(LayerLookupTest, WholeKeysMatchingThePatternComeFirst) {
  EXPECT_EQ(KyDtGetLayerNameEx(L"WALL*").str(), L"墙,弧墙,墙");
  // One piece that does not resolve adds nothing, not even a star.
  EXPECT_EQ(KyDtGetLayerNameEx(L"*ARC").str(), L"弧墙,");
}

TEST_F(LayerLookupTest, ListOfKeysGivesListOfFilters) {
  EXPECT_EQ(KyDtGetLayerNameEx(L"A,B").str(), L"a,b");
  EXPECT_EQ(KyDtGetLayerNameEx(L"A,,NOPE").str(), L"a,");
  // Only a pattern without any piece is looked up whole, and kept when it
  // does not resolve.
  EXPECT_EQ(KyDtGetLayerNameEx(L"**").str(), L"BA_LAYER,ax,墙,弧墙,**");
  EXPECT_EQ(KyDtGetLayerNameEx(L"").str(), L"");
  EXPECT_EQ(KyDtGetLayerNameEx(L"*").str(), L"BA_LAYER,ax,墙,弧墙,*");
}

TEST_F(LayerLookupTest, WildcardPatternsOfEveryShapeFailCleanly) {
  for (const wchar_t *pattern :
       {L"[", L"[~", L"]", L"`", L"~", L"#@.?", L"[a-", L"[]]", L"~*", L"**", L"A*`", L"[~]-]*", L",,,", L"-", L"--*--"}) {
    const CString out = KyDtGetLayerNameEx(pattern);
    EXPECT_LT(out.GetLength(), 200) << out.str().size();
  }
}

TEST_F(LayerLookupTest, TenThousandKeysInAFilter) {
  std::wstring keys;
  for (int i = 0; i < 10000; ++i) keys += L"A*";
  const CString out = KyDtGetLayerNameEx(keys.c_str());
  EXPECT_EQ(out.GetLength(), 10000 * 2 - 1);
}

TEST_F(LayerLookupTest, HooksAreTheLayerFunctions) {
  // Stored by the module at start; here called as the object module would.
  KyGetLayerIdByKeyFunc byKey = &KyDtInitLayer;
  EXPECT_EQ(LayerNameOf(byKey(L"WALL", &db_)), L"墙");
}

}  // namespace
