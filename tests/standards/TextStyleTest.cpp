// Text styles by key: definitions, making them in a drawing with their
// "_MRV" data, heights and colours.
#include <gtest/gtest.h>

#include "StandardsFixture.h"
#include "StyleConfig.h"
#include "platform/acad/AcDbTextStyleTableRecord.h"
#include "platform/acad/AdsResbuf.h"
#include "platform/dbobject/KyDbStyleMakers.h"
#include "standards/KyDtTextStyle.h"

namespace {

class TextStyleTest : public StandardsTest {
 protected:
  void SetUp() override { LoadConfig(StyleConfigBody()); }
};

TEST_F(TextStyleTest, DefinitionFromItsItem) {
  KyDtTextStyleDef def;
  def.key = L"DIM";
  ASSERT_TRUE(KyDtTextStyleCfg().GetTextStyleDef(def));
  EXPECT_EQ(def.styleName.str(), L"S_DIM");
  EXPECT_EQ(def.chsFont.str(), L"gbcbig.shx");
  EXPECT_EQ(def.enFont.str(), L"gbenor.shx");
  EXPECT_DOUBLE_EQ(def.xScale, 0.7);
  EXPECT_DOUBLE_EQ(def.ecXScale, 0.9);
  EXPECT_DOUBLE_EQ(def.ecYScale, 1.1);
  EXPECT_EQ(def.color, 3);
  EXPECT_EQ(def.textHeight.str(), L"2.5");
}

TEST_F(TextStyleTest, MissingScalesOverwriteTheDefaultsWithZero) {
  KyDtTextStyleDef def;
  EXPECT_DOUBLE_EQ(def.xScale, 1.0);
  def.key = L"PLAIN";
  ASSERT_TRUE(KyDtTextStyleCfg().GetTextStyleDef(def));
  EXPECT_DOUBLE_EQ(def.xScale, 0.0);
  EXPECT_DOUBLE_EQ(def.ecXScale, 0.0);
  EXPECT_DOUBLE_EQ(def.ecYScale, 0.0);
}

TEST_F(TextStyleTest, PathsBelowTheSectionAndItemsOfOtherKinds) {
  KyDtTextStyleDef def;
  def.key = L"GROUP\\INNER";
  EXPECT_TRUE(KyDtTextStyleCfg().GetTextStyleDef(def));
  def.key = L"GROUP";  // a dictionary
  EXPECT_FALSE(KyDtTextStyleCfg().GetTextStyleDef(def));
  def.key = L"NUMBER";
  EXPECT_FALSE(KyDtTextStyleCfg().GetTextStyleDef(def));
  def.key = L"NONE";
  EXPECT_FALSE(KyDtTextStyleCfg().GetTextStyleDef(def));
  EXPECT_TRUE(KyDtInitTextStyle(L"GROUP", &db_).isNull());
}

TEST_F(TextStyleTest, MakesTheStyleWithFontsAndData) {
  const AcDbObjectId id = KyDtInitTextStyle(L"DIM", &db_);
  ASSERT_FALSE(id.isNull());
  AcDbTextStyleTableRecord *rec = nullptr;
  ASSERT_EQ(acdbOpenObject(rec, id, AcDb::kForRead), Acad::eOk);
  const ACHAR *text = nullptr;
  rec->getName(text);
  EXPECT_STREQ(text, L"S_DIM");
  rec->fileName(text);
  EXPECT_STREQ(text, L"gbenor.shx");
  rec->bigFontFileName(text);
  EXPECT_STREQ(text, L"gbcbig.shx");
  EXPECT_DOUBLE_EQ(rec->xScale(), 0.7);
  resbuf *xdata = rec->xData(L"_MRV");
  rec->close();
  ASSERT_NE(xdata, nullptr);
  const resbuf *rb = xdata;
  EXPECT_EQ(rb->restype, 1001);
  rb = rb->rbnext;
  EXPECT_EQ(rb->restype, 1040);
  EXPECT_DOUBLE_EQ(rb->resval.rreal, 1.1);  // the y scale first
  rb = rb->rbnext;
  EXPECT_EQ(rb->restype, 1040);
  EXPECT_DOUBLE_EQ(rb->resval.rreal, 0.9);
  rb = rb->rbnext;
  EXPECT_EQ(rb->restype, 1070);
  EXPECT_EQ(rb->resval.rint, 3);
  EXPECT_EQ(rb->rbnext, nullptr);
  acutRelRb(xdata);
  EXPECT_EQ(GetTextStyleColor(id), 3);
  EXPECT_EQ(KyDtInitTextStyle(L"DIM", &db_), id);
}

TEST_F(TextStyleTest, ExistingStyleIsReturnedAsItIs) {
  auto *mine = new AcDbTextStyleTableRecord;
  mine->setName(L"S_DIM");
  mine->setFileName(L"romans.shx");
  const AcDbObjectId id = AddTextStyle(mine, 1, &db_);
  ASSERT_FALSE(id.isNull());
  EXPECT_EQ(KyDtInitTextStyle(L"DIM", &db_), id);
  AcDbTextStyleTableRecord *rec = nullptr;
  ASSERT_EQ(acdbOpenObject(rec, id, AcDb::kForRead), Acad::eOk);
  const ACHAR *font = nullptr;
  rec->fileName(font);
  EXPECT_STREQ(font, L"romans.shx");
  rec->close();
  EXPECT_EQ(GetTextStyleColor(id), 0);  // made by someone else
}

TEST_F(TextStyleTest, ColourOfStylesWithoutTheData) {
  EXPECT_EQ(GetTextStyleColor(AcDbObjectId()), 0);
  EXPECT_EQ(GetTextStyleColor(db_.textstyle()), 0);
  EXPECT_EQ(GetTextStyleColor(db_.modelSpaceId()), 0);  // not a text style
  EXPECT_EQ(GetTextStyleColor(KyDtInitTextStyle(L"PLAIN", &db_)), 0);
}

TEST_F(TextStyleTest, DefaultHeights) {
  EXPECT_DOUBLE_EQ(KyDtGetDefaultTextHeight(L"DIM"), 2.5);
  EXPECT_DOUBLE_EQ(KyDtGetDefaultTextHeight(L"PLAIN"), 3.5);
  EXPECT_DOUBLE_EQ(KyDtGetDefaultTextHeight(L"NOHEIGHT"), 3.5);
  EXPECT_DOUBLE_EQ(KyDtGetDefaultTextHeight(L"NONE"), 0.0);
  EXPECT_DOUBLE_EQ(KyDtGetDefaultTextHeight(L"GROUP\\INNER"), 4.0);
}

TEST_F(TextStyleTest, SectionMissingOrOfTheWrongKind) {
  LoadConfig(R"(<String name="TEXT_STYLE">x</String>)");
  EXPECT_EQ(KyDtTextStyleCfg().GetDict(), nullptr);
  EXPECT_TRUE(KyDtInitTextStyle(L"DIM", &db_).isNull());
  EXPECT_DOUBLE_EQ(KyDtGetDefaultTextHeight(L"DIM"), 0.0);
}

}  // namespace
