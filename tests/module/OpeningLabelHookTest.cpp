// The opening-label hook the module gives the object module.
#include <gtest/gtest.h>

#include "ConfigRows.h"
#include "ModuleHarness.h"
#include "containers/KyDList.h"
#include "dictionary/KyDtDictionary.h"
#include "module/EntityHooks.h"
#include "module/ModuleGlobals.h"
#include "platform/dbobject/KyDbEntity.h"
#include "platform/dbobject/KyDbHooks.h"
#include "platform/dbobject/KyDbOpening.h"

namespace {

class OpeningLabelHook : public ModuleHarness {
 protected:
  // Each kind key holds one label type named after the key, and "DOOR" two.
  void SetUp() override {
    WriteConfig(ConfigNest(L"LABEL\\OPENING",
                           "<Bool name=\"ROUND\">TRUE</Bool>"
                           "<Directory name=\"DOOR\"><String name=\"D1\"/><String name=\"D2\"/></Directory>"
                           "<Directory name=\"WINDOW\"><String name=\"WINDOW\"/></Directory>"
                           "<Directory name=\"HOLE\"><String name=\"HOLE\"/></Directory>"
                           "<Directory name=\"PRO_WIN\"><String name=\"PRO_WIN\"/></Directory>"
                           "<Directory name=\"BAND_WIN\"><Directory name=\"BAND_WIN\"/></Directory>"));
    Start();
    ASSERT_NE(g_KyGetLabelListMethod, nullptr);
  }

  std::vector<std::wstring> LabelsOf(KyDbEntity *entity, const wchar_t *already = nullptr) {
    KyDList<CString> labels;
    if (already) labels.Append(already);
    g_KyGetLabelListMethod(labels, entity);
    std::vector<std::wstring> out;
    for (std::int32_t i = 0; i < labels.GetLength(); ++i) out.push_back(labels.GetAt(i).str());
    return out;
  }

  std::vector<std::wstring> LabelsOfKind(int kind) {
    KyDbOpening opening(kind);
    return LabelsOf(&opening);
  }
};

using Labels = std::vector<std::wstring>;

TEST_F(OpeningLabelHook, EachKindReadsItsKey) {
  EXPECT_EQ(LabelsOfKind(KyDbOpening::kDoor), (Labels{L"D1", L"D2"}));
  EXPECT_EQ(LabelsOfKind(KyDbOpening::kWindow), (Labels{L"WINDOW"}));
  EXPECT_EQ(LabelsOfKind(KyDbOpening::kHole), (Labels{L"HOLE"}));
  EXPECT_EQ(LabelsOfKind(KyDbOpening::kBayWindow), (Labels{L"PRO_WIN"}));
  EXPECT_EQ(LabelsOfKind(KyDbOpening::kBandWindow), (Labels{L"BAND_WIN"}));
}

TEST_F(OpeningLabelHook, KindThreeUsesTheWindowLabels) {
  EXPECT_EQ(LabelsOfKind(3), (Labels{L"WINDOW"}));
}

TEST_F(OpeningLabelHook, KindsSixAndNinetyNineUseTheDoorLabels) {
  EXPECT_EQ(LabelsOfKind(6), (Labels{L"D1", L"D2"}));
  EXPECT_EQ(LabelsOfKind(99), (Labels{L"D1", L"D2"}));
  EXPECT_EQ(LabelsOfKind(-1), (Labels{L"D1", L"D2"}));
}

TEST_F(OpeningLabelHook, ListIsAppendedToNotCleared) {
  KyDbOpening door(KyDbOpening::kDoor);
  EXPECT_EQ(LabelsOf(&door, L"KEEP"), (Labels{L"KEEP", L"D1", L"D2"}));
}

TEST_F(OpeningLabelHook, EntityOfAnotherClassLeavesTheListAsItWas) {
  KyDbEntity wall;
  wall.SetLayerKey(L"WALL");
  EXPECT_EQ(LabelsOf(&wall, L"KEEP"), (Labels{L"KEEP"}));
}

TEST_F(OpeningLabelHook, NullEntityLeavesTheListAsItWas) {
  EXPECT_EQ(LabelsOf(nullptr, L"KEEP"), (Labels{L"KEEP"}));
}

TEST_F(OpeningLabelHook, MissingOrNonDictionaryGroupsLeaveTheListAsItWas) {
  KyDbOpening hole(KyDbOpening::kHole);
  g_dictCfg.FindAndDel(L"LABEL\\OPENING\\HOLE");
  g_dictCfg.SetValue(L"LABEL\\OPENING\\HOLE", CString(L"not a group"));
  EXPECT_EQ(LabelsOf(&hole, L"KEEP"), (Labels{L"KEEP"}));

  g_dictCfg.FindAndDel(L"LABEL\\OPENING");
  g_dictCfg.SetValue(L"LABEL\\OPENING", 5);
  EXPECT_EQ(LabelsOf(&hole, L"KEEP"), (Labels{L"KEEP"}));

  g_dictCfg.FindAndDel(L"LABEL");
  EXPECT_EQ(LabelsOf(&hole, L"KEEP"), (Labels{L"KEEP"}));
}

TEST_F(OpeningLabelHook, OpeningKeysForEveryKind) {
  EXPECT_STREQ(KyDtOpeningLabelKey(0), L"DOOR");
  EXPECT_STREQ(KyDtOpeningLabelKey(1), L"WINDOW");
  EXPECT_STREQ(KyDtOpeningLabelKey(2), L"HOLE");
  EXPECT_STREQ(KyDtOpeningLabelKey(3), L"WINDOW");
  EXPECT_STREQ(KyDtOpeningLabelKey(4), L"PRO_WIN");
  EXPECT_STREQ(KyDtOpeningLabelKey(5), L"BAND_WIN");
  EXPECT_STREQ(KyDtOpeningLabelKey(6), L"DOOR");
  EXPECT_STREQ(KyDtOpeningLabelKey(7), L"DOOR");
}

}  // namespace
