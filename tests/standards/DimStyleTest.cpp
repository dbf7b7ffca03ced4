// Dimension styles by key: the family member's name, its measuring scale
// and decimals, and the dimension variables it is made with.
#include <gtest/gtest.h>

#include "StandardsFixture.h"
#include "StyleConfig.h"
#include "platform/acad/AcDbDimStyleTableRecord.h"
#include "platform/dbobject/DbObjectSettings.h"
#include "platform/dbobject/KyDbDrawUnit.h"
#include "platform/dbobject/KyDbStyleMakers.h"
#include "standards/KyDtDimStyle.h"
#include "standards/KyDtTextStyle.h"

namespace {

class DimStyleTest : public StandardsTest {
 protected:
  void SetUp() override { LoadConfig(StyleConfigBody()); }
  void TearDown() override {
    g_nLinearDimType = 0;
    g_nArcDimType = 0;
  }

  void Units(unsigned draw, unsigned dim) {
    ASSERT_TRUE(KyDbSetDrawUnit(static_cast<unsigned char>(draw), &db_));
    ASSERT_TRUE(KyDbSetDimUnit(static_cast<unsigned char>(dim), &db_));
  }

  struct Style {
    std::wstring name;
    double lfac = 0, gap = 0, txt = 0, asz = 0, exo = 0, exe = 0, dle = 0, scale = 0, dli = 0;
    int dec = -1, tad = -1, tmove = -1, adec = -1, azin = -1, aunit = -1, tdec = -1, clrt = -1;
    bool tofl = false, toh = true, tix = false, tih = true;
    std::wstring post, blk;
    AcDbObjectId txsty;
  };

  Style Make(const wchar_t *key, double scale) {
    Style s;
    const AcDbObjectId id = KyDtInitDimStyle(key, scale, &db_);
    AcDbDimStyleTableRecord *rec = nullptr;
    EXPECT_EQ(acdbOpenObject(rec, id, AcDb::kForRead), Acad::eOk);
    if (!rec) return s;
    const ACHAR *name = nullptr;
    rec->getName(name);
    s.name = name;
    s.lfac = rec->dimlfac();
    s.gap = rec->dimgap();
    s.txt = rec->dimtxt();
    s.asz = rec->dimasz();
    s.exo = rec->dimexo();
    s.exe = rec->dimexe();
    s.dle = rec->dimdle();
    s.scale = rec->dimscale();
    s.dli = rec->dimdli();
    s.dec = rec->dimdec();
    s.tad = rec->dimtad();
    s.tmove = rec->dimtmove();
    s.adec = rec->dimadec();
    s.azin = rec->dimazin();
    s.aunit = rec->dimaunit();
    s.tdec = rec->dimtdec();
    s.clrt = rec->dimclrt().colorIndex();
    s.tofl = rec->dimtofl();
    s.toh = rec->dimtoh();
    s.tix = rec->dimtix();
    s.tih = rec->dimtih();
    s.post = rec->dimpost();
    s.blk = rec->dimblkName();
    s.txsty = rec->dimtxsty();
    rec->close();
    return s;
  }
};

TEST_F(DimStyleTest, MillimetreDrawingDimensionedInMetres) {
  Units(0, 1);
  Style s = Make(L"LINEAR", 1.0);
  EXPECT_EQ(s.name, L"DIM(M-M)");
  EXPECT_DOUBLE_EQ(s.lfac, 1.0);
  EXPECT_EQ(s.dec, 2);
  // Without a scale the member follows the units as they are.
  KyDtDimStyleDef def;
  def.key = L"LINEAR";
  def.styleName = L"DIM";
  const tolv::standards::DimStyleName n = tolv::standards::ComposeDimStyleName(def, 1e-12 + 0.002, 0, 1);
  EXPECT_EQ(n.name.str(), L"DIM(0.002-M)");
}

TEST_F(DimStyleTest, SuffixAndMeasuringScaleByUnits) {
  struct Row {
    unsigned draw, dim;
    double scale;
    const wchar_t *name;
    double lfac;
    int dec;
    const wchar_t *post;
  };
  const Row rows[] = {
      {0, 1, 0.0, L"DIM", 1.0, 0, L""},             // scale 0: both units become 0
      {0, 1, 100.0, L"DIM(100-M)", 100.0, 2, L"<>m"},
      {0, 0, 100.0, L"DIM(100)", 100.0, 0, L""},
      {1, 0, 100.0, L"DIM(100)", 100.0, 0, L""},
      {1, 1, 100.0, L"DIM(100-M)", 100.0, 2, L"<>m"},
      {0, 1, 1.0, L"DIM(M-M)", 1.0, 2, L"<>m"},     // ignores the drawing unit
      {0, 1, -1.0, L"DIM", 1.0, 0, L""},            // ignores the dimension unit
      {1, 0, 1.0, L"DIM", 1.0, 0, L""},
      {1, 0, -1.0, L"DIM(M-M)", 1.0, 2, L"<>m"},
      {1, 1, -1.0, L"DIM(M-M)", 1.0, 2, L"<>m"},
      {0, 0, 1.0, L"DIM", 1.0, 0, L""},
      {0, 0, 2.5, L"DIM(2.5)", 2.5, 0, L""},
      // A negative scale other than -1 keeps both units.
      {0, 1, -5.0, L"DIM(mm-M)", 0.001, 2, L"<>m"},
      {1, 1, -5.0, L"DIM(M-M)", 1.0, 2, L"<>m"},
      {1, 0, -5.0, L"DIM(M-mm)", 1000.0, 0, L""},
      {0, 0, -5.0, L"DIM", 1.0, 0, L""},
  };
  for (const Row &r : rows) {
    AcDbDatabase db;
    ASSERT_TRUE(KyDbSetDrawUnit(static_cast<unsigned char>(r.draw), &db));
    ASSERT_TRUE(KyDbSetDimUnit(static_cast<unsigned char>(r.dim), &db));
    const AcDbObjectId id = KyDtInitDimStyle(L"LINEAR", r.scale, &db);
    AcDbDimStyleTableRecord *rec = nullptr;
    ASSERT_EQ(acdbOpenObject(rec, id, AcDb::kForRead), Acad::eOk);
    const ACHAR *name = nullptr;
    rec->getName(name);
    EXPECT_STREQ(name, r.name) << r.draw << r.dim << " " << r.scale;
    EXPECT_DOUBLE_EQ(rec->dimlfac(), r.lfac) << r.draw << r.dim << " " << r.scale;
    EXPECT_EQ(rec->dimdec(), r.dec) << r.draw << r.dim << " " << r.scale;
    EXPECT_STREQ(rec->dimpost(), r.post) << r.draw << r.dim << " " << r.scale;
    rec->close();
  }
}

TEST_F(DimStyleTest, DimensionVariablesOfANewStyle) {
  const AcDbObjectId textId = KyDtInitTextStyle(L"DIM", &db_);
  Style s = Make(L"LINEAR", 0.0);
  EXPECT_EQ(s.name, L"DIM");
  EXPECT_EQ(s.blk, L"_ARCHTICK");
  EXPECT_DOUBLE_EQ(s.gap, 0.8);  // the configured gap replaces the first 1.0
  EXPECT_DOUBLE_EQ(s.txt, 2.5);
  EXPECT_EQ(s.txsty, textId);
  EXPECT_DOUBLE_EQ(s.exe, 3.0);
  EXPECT_DOUBLE_EQ(s.exo, 2.0);
  EXPECT_DOUBLE_EQ(s.asz, 1.2);
  EXPECT_DOUBLE_EQ(s.scale, 1.0);
  EXPECT_DOUBLE_EQ(s.dli, 0.0);
  EXPECT_TRUE(s.tofl);
  EXPECT_EQ(s.tmove, 2);
  EXPECT_EQ(s.tdec, 0);
  EXPECT_EQ(s.dec, 0);
  EXPECT_EQ(s.aunit, 0);
  EXPECT_EQ(s.adec, 2);
  EXPECT_EQ(s.azin, 2);
  EXPECT_FALSE(s.toh);
  EXPECT_EQ(s.tad, 1);
  EXPECT_TRUE(s.tix);
  EXPECT_FALSE(s.tih);
  EXPECT_DOUBLE_EQ(s.dle, 0.5);
  EXPECT_DOUBLE_EQ(s.lfac, 1.0);
  EXPECT_EQ(s.clrt, 3);  // the text style's colour
}

TEST_F(DimStyleTest, TextStyleColourZeroLeavesDimclrtAlone) {
  Style s = Make(L"LINEAR2", 0.0);
  EXPECT_EQ(s.clrt, 0);  // the record's own default: by block
  EXPECT_DOUBLE_EQ(s.txt, 3.5);
  EXPECT_DOUBLE_EQ(s.gap, 0.0);  // missing attributes read as 0.0
  EXPECT_EQ(s.blk, L"");
}

TEST_F(DimStyleTest, UnknownTextStyleFallsBackToTheCurrentOne) {
  Style s = Make(L"LINEAR3", 0.0);
  EXPECT_EQ(s.txsty, db_.textstyle());
  EXPECT_DOUBLE_EQ(s.txt, 0.0);
}

TEST_F(DimStyleTest, AngleStyleHasNoSuffixNoScaleAndTextAbove) {
  Units(0, 1);
  Style s = Make(L"ANGLE", 100.0);
  EXPECT_EQ(s.name, L"ANG");
  EXPECT_EQ(s.tad, 3);
  EXPECT_DOUBLE_EQ(s.lfac, 1.0);
  EXPECT_EQ(s.dec, 0);
}

TEST_F(DimStyleTest, SecondAngleStyleIsMadeAsALinearOne) {
  Units(0, 1);
  Style s = Make(L"ANGLE2", 100.0);
  EXPECT_EQ(s.name, L"ANG2(100-M)");
  EXPECT_EQ(s.tad, 1);
  EXPECT_DOUBLE_EQ(s.lfac, 100.0);
  KyDtDimStyleDef misspelt;
  misspelt.key = L"ANGEL2";
  misspelt.styleName = L"X";
  EXPECT_TRUE(tolv::standards::ComposeDimStyleName(misspelt, 100.0, 0, 1).isAngle);
}

TEST_F(DimStyleTest, ArcStyleHasSuffixScaleAndTextAbove) {
  Style s = Make(L"ARC", 50.0);
  EXPECT_EQ(s.name, L"ARC(50)");
  EXPECT_EQ(s.tad, 3);
  EXPECT_DOUBLE_EQ(s.lfac, 50.0);
  EXPECT_EQ(Make(L"ARC2", 0.0).tad, 3);
}

TEST_F(DimStyleTest, ExistingStyleOfTheComposedNameIsReturnedUnchanged) {
  auto *mine = new AcDbDimStyleTableRecord;
  mine->setName(L"DIM(100)");
  mine->setDimtad(4);
  const AcDbObjectId id = AddDimStyle(mine, 1, &db_);
  ASSERT_FALSE(id.isNull());
  EXPECT_EQ(KyDtInitDimStyle(L"LINEAR", 100.0, &db_), id);
  EXPECT_EQ(Make(L"LINEAR", 100.0).tad, 4);
  EXPECT_EQ(KyDtInitDimStyle(L"LINEAR", 0.0, &db_), KyDtInitDimStyle(L"LINEAR", 0.0, &db_));
}

TEST_F(DimStyleTest, KeysByTheDimensionForms) {
  EXPECT_EQ(Make(L"LINEAR", 0).name, L"DIM");
  g_nLinearDimType = 0;
  EXPECT_EQ(KyDtInitLinearDimStyle(0.0, &db_), KyDtInitDimStyle(L"LINEAR", 0.0, &db_));
  g_nLinearDimType = 1;
  EXPECT_EQ(KyDtInitLinearDimStyle(0.0, &db_), KyDtInitDimStyle(L"LINEAR2", 0.0, &db_));
  g_nLinearDimType = 7;
  EXPECT_EQ(KyDtInitLinearDimStyle(0.0, &db_), KyDtInitDimStyle(L"LINEAR3", 0.0, &db_));
  g_nArcDimType = 0;
  EXPECT_EQ(KyDtInitArcDimStyle(0.0, &db_), KyDtInitDimStyle(L"ARC", 0.0, &db_));
  EXPECT_EQ(KyDtInitAngleDimStyle(&db_), KyDtInitDimStyle(L"ANGLE", 0.0, &db_));
  g_nArcDimType = 2;
  EXPECT_EQ(KyDtInitArcDimStyle(0.0, &db_), KyDtInitDimStyle(L"ARC2", 0.0, &db_));
  EXPECT_EQ(KyDtInitAngleDimStyle(&db_), KyDtInitDimStyle(L"ANGLE2", 0.0, &db_));
}

TEST_F(DimStyleTest, UnresolvedKeysMakeNothing) {
  EXPECT_TRUE(KyDtInitDimStyle(L"LINEAR4", 0.0, &db_).isNull());  // a dictionary
  EXPECT_TRUE(KyDtInitDimStyle(L"NONE", 0.0, &db_).isNull());
  EXPECT_TRUE(KyDtInitDimStyle(L"", 0.0, &db_).isNull());
  LoadConfig("<Int name=\"DIM_STYLE\">1</Int>");
  EXPECT_EQ(KyDtDimStyleCfg().GetDict(), nullptr);
  EXPECT_TRUE(KyDtInitDimStyle(L"LINEAR", 0.0, &db_).isNull());
}

TEST_F(DimStyleTest, NullDatabaseMeansTheWorkingOne) {
  const AcDbObjectId id = KyDtInitDimStyle(L"LINEAR", 0.0, nullptr);
  EXPECT_EQ(GetDimStyleId(L"DIM", &db_), id);
}

}  // namespace
