// Automatic labels of openings: size codes, sequence numbers against the
// openings of a drawing, corner windows and dormers, and faulty rules.
#include <gtest/gtest.h>

#include <limits>

#include "LabelConfig.h"
#include "StandardsFixture.h"
#include "platform/acad/AcDbBlockTableRecord.h"
#include "platform/acad/AcDbLine.h"
#include "platform/dbobject/KyDbCornerWin.h"
#include "platform/dbobject/KyDbDormer.h"
#include "platform/dbobject/KyDbOpening.h"
#include "platform/platform/KyAdsEntSet.h"
#include "standards/KyDtLabelCfg.h"

namespace {

using tolv::standards::GetSizeDigits;
using tolv::standards::SizeCode;

class OpeningLabelTest : public StandardsTest {
 protected:
  void Rules(bool sequence, bool round, bool unionLabel, int widthPos = 1) {
    LoadConfig(LabelConfigBody(sequence, round, unionLabel, widthPos));
  }

  AcDbObjectId Append(AcDbEntity *entity) {
    AcDbBlockTableRecord *ms = nullptr;
    EXPECT_EQ(acdbOpenObject(ms, db_.modelSpaceId(), AcDb::kForWrite), Acad::eOk);
    AcDbObjectId id;
    EXPECT_EQ(ms->appendAcDbEntity(id, entity), Acad::eOk);
    entity->close();
    ms->close();
    return id;
  }

  AcDbObjectId AddOpening(int kind, double w, double h, const wchar_t *label, const wchar_t *type = L"",
                          AcDbObjectId style2d = AcDbObjectId(), AcDbObjectId style3d = AcDbObjectId()) {
    auto *op = new KyDbOpening(kind, w, h);
    op->SetLabel(label);
    op->SetLabelType(type);
    op->SetStyle2d(style2d);
    op->SetStyle3d(style3d);
    return Append(op);
  }

  AcDbObjectId AddDormer(double w, double h, const wchar_t *label) {
    auto *d = new KyDbDormer;
    KyDormerPar par;
    par.windowWidth = w;
    par.windowHeight = h;
    d->SetDormerPar(par);
    d->SetLabel(label);
    d->SetLabelType(L"老虎窗");
    return Append(d);
  }

  KyAdsEntSet Drawing() {
    KyAdsEntSet set;
    set.AddBlock(db_.modelSpaceId());
    return set;
  }

  std::wstring LabelOf(const KyDbEntity &entity) { return KyDtGetAutoLabel(&entity, Drawing()).str(); }

  // A new opening of the kind's usual label type unless one is given, as
  // the drawing commands make them.
  std::wstring LabelOfNew(int kind, double w, double h, const wchar_t *type = nullptr,
                          AcDbObjectId s2 = AcDbObjectId(), AcDbObjectId s3 = AcDbObjectId()) {
    KyDbOpening op(kind, w, h);
    if (!type) type = (kind == KyDbOpening::kWindow || kind == KyDbOpening::kHighWindow) ? L"普通窗" : L"普通门";
    op.SetLabelType(type);
    op.SetStyle2d(s2);
    op.SetStyle3d(s3);
    return LabelOf(op);
  }

  // Block ids serve as style ids: any object of the drawing will do.
  AcDbObjectId StyleA() { return db_.modelSpaceId(); }
  AcDbObjectId StyleB() { return db_.paperSpaceId(); }
};

TEST(SizeDigitsTest, RoundingAndCutting) {
  EXPECT_EQ(GetSizeDigits(false, 950).str(), L"09");
  EXPECT_EQ(GetSizeDigits(true, 950).str(), L"10");
  EXPECT_EQ(GetSizeDigits(false, 949).str(), L"09");
  EXPECT_EQ(GetSizeDigits(true, 949).str(), L"09");
  EXPECT_EQ(GetSizeDigits(true, 10000).str(), L"100");
  EXPECT_EQ(GetSizeDigits(false, 0).str(), L"00");
}

TEST(SizeDigitsTest, AbsurdSizesStopAtTheIntegerRange) {
  EXPECT_EQ(GetSizeDigits(true, 1e300).str(), L"2147483647");
  EXPECT_EQ(GetSizeDigits(false, std::numeric_limits<double>::infinity()).str(), L"2147483647");
  EXPECT_EQ(GetSizeDigits(true, std::numeric_limits<double>::quiet_NaN()).str(), L"00");
}

TEST(SizeDigitsTest, TheFourFormatsOfASizeCode) {
  EXPECT_EQ(SizeCode(true, 1500, 1800).str(), L"1518");
  EXPECT_EQ(SizeCode(true, 900, 2100).str(), L"0921");
  EXPECT_EQ(SizeCode(true, 1500, 900).str(), L"1509");
  EXPECT_EQ(SizeCode(true, 900, 600).str(), L"0906");
  EXPECT_EQ(SizeCode(true, 10000, 2100).str(), L"10021");
}

TEST_F(OpeningLabelTest, SizeLabelsByKind) {
  Rules(false, true, false);
  // Without a label type of its own each kind takes its default.
  EXPECT_EQ(LabelOfNew(KyDbOpening::kDoor, 900, 2100, L""), L"M0921");
  EXPECT_EQ(LabelOfNew(KyDbOpening::kWindow, 1500, 1800, L""), L"C1518");
  EXPECT_EQ(LabelOfNew(KyDbOpening::kHole, 1000, 2000, L""), L"D1020");
  EXPECT_EQ(LabelOfNew(KyDbOpening::kHighWindow, 1500, 1800, L""), L"C1518");
  EXPECT_EQ(LabelOfNew(KyDbOpening::kBayWindow, 1800, 1500, L""), L"TC1815");
  EXPECT_EQ(LabelOfNew(KyDbOpening::kBandWindow, 3000, 1500, L""), L"DC3015");
  EXPECT_EQ(LabelOfNew(KyDbOpening::kDoorWindow, 900, 2100, L""), L"M0921");
  EXPECT_EQ(LabelOfNew(99, 900, 2100, L""), L"M0921");
  EXPECT_EQ(LabelOfNew(KyDbOpening::kDoor, 1000, 2100, L"防火门"), L"FM1021");
}

TEST_F(OpeningLabelTest, RoundingOfSizeLabels) {
  Rules(false, false, false);
  EXPECT_EQ(LabelOfNew(KyDbOpening::kDoor, 950, 2100), L"M0921");
  Rules(false, true, false);
  EXPECT_EQ(LabelOfNew(KyDbOpening::kDoor, 950, 2100), L"M1021");
  EXPECT_EQ(LabelOfNew(KyDbOpening::kDoor, 949, 2100), L"M0921");
}

TEST_F(OpeningLabelTest, WideOpeningGrowsItsLabel) {
  Rules(false, true, true);
  EXPECT_EQ(LabelOfNew(KyDbOpening::kWindow, 10000, 1500), L"C-10015");
}

TEST_F(OpeningLabelTest, SequenceWithEmptySetStartsAtOne) {
  Rules(true, true, false);
  KyDbOpening op(KyDbOpening::kDoor, 900, 2100);
  EXPECT_EQ(KyDtGetAutoLabel(&op, KyAdsEntSet()).str(), L"M1");
  Rules(true, true, true);
  EXPECT_EQ(KyDtGetAutoLabel(&op, KyAdsEntSet()).str(), L"M-1");
}

TEST_F(OpeningLabelTest, SequenceNumbersFollowTheDrawing) {
  Rules(true, true, false);
  AddOpening(KyDbOpening::kDoor, 900, 2100, L"M1", L"普通门", StyleA(), StyleA());
  AddOpening(KyDbOpening::kDoor, 1000, 2100, L"M2", L"普通门", StyleA(), StyleA());
  AddOpening(KyDbOpening::kWindow, 1500, 1800, L"C7", L"普通窗");
  // Lines and other kinds in the set are passed over.
  Append(new AcDbLine(AcGePoint3d(0, 0, 0), AcGePoint3d(1, 0, 0)));
  AddDormer(900, 1200, L"LC9");

  EXPECT_EQ(LabelOfNew(KyDbOpening::kDoor, 900, 2100, nullptr, StyleA(), StyleA()), L"M1");  // twin
  EXPECT_EQ(LabelOfNew(KyDbOpening::kDoor, 1200, 2100, nullptr, StyleA(), StyleA()), L"M3");
  EXPECT_EQ(LabelOfNew(KyDbOpening::kDoor, 900, 2100, nullptr, StyleB(), StyleA()), L"M3");  // other plan style
  EXPECT_EQ(LabelOfNew(KyDbOpening::kDoor, 900, 2100, nullptr, StyleA(), StyleB()), L"M3");  // other model style
  EXPECT_EQ(LabelOfNew(KyDbOpening::kDoorWindow, 900, 2100, nullptr, StyleA(), StyleA()), L"M3");  // other kind
  EXPECT_EQ(LabelOfNew(KyDbOpening::kWindow, 1500, 1800), L"C7");
  EXPECT_EQ(LabelOfNew(KyDbOpening::kWindow, 1200, 1800), L"C8");
  EXPECT_EQ(LabelOfNew(KyDbOpening::kDoor, 900, 2100, L"防火门"), L"FM1");
}

TEST_F(OpeningLabelTest, NumberingComparesTheOpeningsOwnLabelType) {
  Rules(true, true, false);
  AddOpening(KyDbOpening::kDoor, 900, 2100, L"M4", L"普通门");
  // The prefix comes from the default type, the numbering from the
  // opening's own (empty) one.
  EXPECT_EQ(LabelOfNew(KyDbOpening::kDoor, 1000, 2100, L""), L"M1");
  AddOpening(KyDbOpening::kDoor, 900, 2100, L"M6", L"");
  EXPECT_EQ(LabelOfNew(KyDbOpening::kDoor, 1000, 2100, L""), L"M7");
}

TEST_F(OpeningLabelTest, TheOpeningItselfIsNotItsOwnTwin) {
  Rules(true, true, true);
  AddOpening(KyDbOpening::kDoor, 900, 2100, L"M-4", L"普通门");
  const AcDbObjectId self = AddOpening(KyDbOpening::kDoor, 1200, 2100, L"M-9", L"普通门");
  KyDbOpening *op = nullptr;
  ASSERT_EQ(acdbOpenObject(op, self, AcDb::kForRead), Acad::eOk);
  EXPECT_EQ(LabelOf(*op), L"M-5");
  op->close();
}

TEST_F(OpeningLabelTest, SizeLabelledMembersAreLeftOut) {
  Rules(true, true, false);
  AddOpening(KyDbOpening::kDoor, 900, 2100, L"M0921", L"普通门");
  EXPECT_EQ(LabelOfNew(KyDbOpening::kDoor, 1000, 2100), L"M1");
  AddOpening(KyDbOpening::kDoor, 1500, 2100, L"M12", L"普通门");
  EXPECT_EQ(LabelOfNew(KyDbOpening::kDoor, 1000, 2100), L"M13");
}

TEST_F(OpeningLabelTest, SizeLabelCountsOnlyUnderTheCurrentRounding) {
  Rules(true, true, false);
  // 950 wide: "0921" when cut, "1021" when rounded.
  AddOpening(KyDbOpening::kDoor, 950, 2100, L"M0921", L"普通门");
  EXPECT_EQ(LabelOfNew(KyDbOpening::kDoor, 1500, 2100), L"M922");
  Rules(true, false, false);
  EXPECT_EQ(LabelOfNew(KyDbOpening::kDoor, 1500, 2100), L"M1");
}

TEST_F(OpeningLabelTest, HugeNumberInUseDoesNotOverflow) {
  Rules(true, true, false);
  AddOpening(KyDbOpening::kDoor, 900, 2100, L"M99999999999999999999", L"普通门");
  EXPECT_EQ(LabelOfNew(KyDbOpening::kDoor, 1000, 2100), L"M2147483647");
}

TEST_F(OpeningLabelTest, LabelWithoutDigitsCountsAsZero) {
  Rules(true, true, false);
  AddOpening(KyDbOpening::kDoor, 900, 2100, L"M", L"普通门");
  EXPECT_EQ(LabelOfNew(KyDbOpening::kDoor, 900, 2100), L"M0");
  EXPECT_EQ(LabelOfNew(KyDbOpening::kDoor, 1000, 2100), L"M1");
}

TEST_F(OpeningLabelTest, EmptyLabelsAndOtherLabelTypesDoNotCount) {
  Rules(true, true, false);
  AddOpening(KyDbOpening::kDoor, 900, 2100, L"", L"普通门");
  AddOpening(KyDbOpening::kDoor, 900, 2100, L"FM5", L"防火门");
  EXPECT_EQ(LabelOfNew(KyDbOpening::kDoor, 900, 2100), L"M1");
}

TEST_F(OpeningLabelTest, LabelTypeComparesWithoutCase) {
  LoadConfig(R"(<Directory name="LABEL"><Directory name="OPENING">
    <Bool name="DIVIDELABEL">FALSE</Bool><Option name="OPENINGRULE" options="a b">b</Option>
    <Option name="OPENINWIDTHPOS" options="a b c">b</Option><Bool name="ROUND">TRUE</Bool><Bool name="UNIONLABEL">FALSE</Bool>
    <Directory name="DOOR"><String name="Fire" localname="F"/></Directory></Directory></Directory>)");
  AddOpening(KyDbOpening::kDoor, 900, 2100, L"F3", L"FIRE");
  EXPECT_EQ(LabelOfNew(KyDbOpening::kDoor, 1000, 2100, L"Fire"), L"F4");
}

CString CornerLabel(const std::vector<double> &legs, double height, const KyAdsEntSet &others) {
  KyDbCornerWin win;
  EXPECT_TRUE(win.SetFromLegs(legs, 200));
  win.SetHeight(height);
  return KyDtGetAutoLabel(&win, others);
}

TEST_F(OpeningLabelTest, CornerWindowWidthByPosition) {
  // Legs 1200 and 1500 in a wall 200 thick: base 2700, inner face 2500,
  // outer face 2900.
  const std::pair<int, const wchar_t *> cases[] = {{0, L"DC2515"}, {1, L"DC2715"}, {2, L"DC2915"}, {3, L"DC2715"}};
  for (const auto &[pos, label] : cases) {
    Rules(false, true, false, pos);
    EXPECT_EQ(CornerLabel({1200, 1500}, 1500, KyAdsEntSet()).str(), label) << pos;
    EXPECT_EQ(KyDtGetWinPos(), pos);
  }
}

TEST_F(OpeningLabelTest, CornerWindowSegmentsWithUnionLabel) {
  Rules(false, true, true, 1);
  EXPECT_EQ(CornerLabel({1200, 1500}, 1500, KyAdsEntSet()).str(), L"DC-(12+15)15");
  EXPECT_EQ(CornerLabel({600, 2400, 900}, 1800, KyAdsEntSet()).str(), L"DC-(06+24+09)18");
  Rules(false, true, true, 0);
  EXPECT_EQ(CornerLabel({1200, 1500}, 1500, KyAdsEntSet()).str(), L"DC-(11+14)15");
  Rules(false, true, true, 2);
  EXPECT_EQ(CornerLabel({1200, 1500}, 1500, KyAdsEntSet()).str(), L"DC-(13+16)15");
  Rules(false, true, true, 3);
  EXPECT_EQ(CornerLabel({1200, 1500}, 1500, KyAdsEntSet()).str(), L"DC-2715");
}

TEST_F(OpeningLabelTest, CornerWindowInSequenceIsAlwaysOne) {
  Rules(true, true, false);
  auto *placed = new KyDbCornerWin;
  placed->SetFromLegs({1200, 1500}, 200);
  placed->SetHeight(1500);
  placed->SetLabel(L"DC5");
  Append(placed);
  AddOpening(KyDbOpening::kBandWindow, 3000, 1500, L"DC8", L"带形窗");
  EXPECT_EQ(CornerLabel({1200, 1500}, 1500, Drawing()).str(), L"DC1");
  EXPECT_EQ(CornerLabel({900, 900, 900}, 1500, Drawing()).str(), L"DC1");
}

TEST_F(OpeningLabelTest, DormerLabels) {
  Rules(false, true, false);
  KyDbDormer dormer;
  dormer.SetLabelType(L"老虎窗");
  EXPECT_EQ(LabelOf(dormer), L"LC0912");
  KyDbDormer untyped;  // a dormer has no default label type
  EXPECT_EQ(LabelOf(untyped), L"");
}

TEST_F(OpeningLabelTest, DormerSizeLabelsCountUnderEitherRounding) {
  Rules(true, true, false);
  AddDormer(950, 1200, L"LC0912");  // the cut code of a 950 window
  AddDormer(900, 1200, L"LC3");
  KyDbDormer dormer;
  dormer.SetLabelType(L"老虎窗");
  KyDormerPar par;
  par.windowWidth = 1200;
  dormer.SetDormerPar(par);
  EXPECT_EQ(LabelOf(dormer), L"LC4");
  par.windowWidth = 900;
  dormer.SetDormerPar(par);
  EXPECT_EQ(LabelOf(dormer), L"LC3");  // twin
}

TEST_F(OpeningLabelTest, NoRulesNoLabel) {
  LoadConfig("<Directory name=\"OTHER\"/>");
  EXPECT_EQ(LabelOfNew(KyDbOpening::kDoor, 900, 2100), L"");
  EXPECT_EQ(KyDtGetWinPos(), -1);
  LoadConfig("<Directory name=\"LABEL\"/>");
  EXPECT_EQ(LabelOfNew(KyDbOpening::kDoor, 900, 2100), L"");
  EXPECT_EQ(KyDtGetWinPos(), -1);
  LoadConfig("<String name=\"LABEL\">x</String>");
  EXPECT_EQ(LabelOfNew(KyDbOpening::kDoor, 900, 2100), L"");
}

TEST_F(OpeningLabelTest, RuleDictionaryMissingOneItemGivesNoLabel) {
  for (const char *missing : {"DIVIDELABEL", "OPENINGRULE", "OPENINWIDTHPOS", "ROUND", "UNIONLABEL"}) {
    LoadConfig(LabelConfigBody(true, true, false, 1, missing));
    EXPECT_EQ(LabelOfNew(KyDbOpening::kDoor, 900, 2100), L"") << missing;
  }
}

TEST_F(OpeningLabelTest, LabelTypeWithoutRuleItemGivesNoLabel) {
  Rules(true, true, false);
  EXPECT_EQ(LabelOfNew(KyDbOpening::kDoor, 900, 2100, L"卷帘门"), L"");
  LoadConfig(R"(<Directory name="LABEL"><Directory name="OPENING">
    <Bool name="DIVIDELABEL">FALSE</Bool><Option name="OPENINGRULE" options="a b">b</Option>
    <Option name="OPENINWIDTHPOS" options="a b c">b</Option><Bool name="ROUND">TRUE</Bool><Bool name="UNIONLABEL">FALSE</Bool>
    <String name="DOOR">not a dictionary</String></Directory></Directory>)");
  EXPECT_EQ(LabelOfNew(KyDbOpening::kDoor, 900, 2100), L"");
}

TEST_F(OpeningLabelTest, OtherEntitiesGetNoLabel) {
  Rules(false, true, false);
  KyDbEntity plain;
  EXPECT_EQ(KyDtGetAutoLabel(&plain, KyAdsEntSet()).str(), L"");
  EXPECT_EQ(KyDtGetAutoLabel(nullptr, KyAdsEntSet()).str(), L"");
}

TEST_F(OpeningLabelTest, LabelsAgainstThousandsOfOpenings) {
  Rules(true, true, true);
  for (int i = 1; i <= 2000; ++i) {
    AddOpening(KyDbOpening::kWindow, 600 + (i % 20) * 100, 1500, (L"C-" + std::to_wstring(i)).c_str(), L"普通窗");
  }
  EXPECT_EQ(LabelOfNew(KyDbOpening::kWindow, 5000, 1500), L"C-2001");
}

}  // namespace
