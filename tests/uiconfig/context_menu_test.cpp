// Context menus: the filter parser, and the menu chosen for selections of a
// real drawing (walls, openings, dimensions, texts, viewports).
#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "UiTestSupport.h"
#include "module/ModuleGlobals.h"
#include "platform/acad/AcDbBlockTableRecord.h"
#include "platform/acad/AcDbDatabase.h"
#include "platform/acad/AcDbHostApplicationServices.h"
#include "platform/acad/AcDbLine.h"
#include "platform/acad/AcDbSymbolTables.h"
#include "platform/acad/CarriedObjects.h"
#include "platform/dbobject/KyDbOpening.h"

namespace {

struct Buffer {
  int restype;
  std::wstring text;
  double real = 0;
  long integer = 0;
};

std::vector<Buffer> Parse(const wchar_t *filter) {
  KyAdsRBList list;
  tolv::uiconfig::BuildContextFilter(filter, list);
  std::vector<Buffer> out;
  for (resbuf *rb = list.GetHead(); rb; rb = rb->rbnext) {
    Buffer b{rb->restype, L""};
    switch (tolv::RbKindOfType(rb->restype)) {
      case tolv::RbValueKind::kText:
        b.text = rb->resval.rstring ? rb->resval.rstring : L"";
        break;
      case tolv::RbValueKind::kReal:
        b.real = rb->resval.rreal;
        break;
      case tolv::RbValueKind::kShort:
        b.integer = rb->resval.rint;
        break;
      case tolv::RbValueKind::kLong:
        b.integer = rb->resval.rlong;
        break;
      default:
        break;
    }
    out.push_back(b);
  }
  return out;
}

TEST(UiContextFilter, CodeZeroAndAQuotedTextBuildOneTypeNameBuffer) {
  auto list = Parse(L"0,'LINE'");
  ASSERT_EQ(list.size(), 1u);
  EXPECT_EQ(list[0].restype, 5020);
  EXPECT_EQ(list[0].text, L"LINE");
}

TEST(UiContextFilter, ACommaInsideQuotesStaysInTheText) {
  auto list = Parse(L"6,'DASHED,HIDDEN',0,'LINE'");
  ASSERT_EQ(list.size(), 2u);
  EXPECT_EQ(list[0].restype, 6);
  EXPECT_EQ(list[0].text, L"DASHED,HIDDEN");
  EXPECT_EQ(list[1].restype, 5020);
  EXPECT_EQ(list[1].text, L"LINE");
}

TEST(UiContextFilter, ATrailingCodeAddsNothing) {
  auto list = Parse(L"0,'LINE',62");
  ASSERT_EQ(list.size(), 1u);
  EXPECT_EQ(list[0].text, L"LINE");
  EXPECT_TRUE(Parse(L"62").empty());
}

TEST(UiContextFilter, NumbersByTheTypeOfTheirCode) {
  auto list = Parse(L"62,3,40,2.5,90,70000");
  ASSERT_EQ(list.size(), 3u);
  EXPECT_EQ(list[0].restype, 62);
  EXPECT_EQ(list[0].integer, 3);
  EXPECT_EQ(list[1].restype, 40);
  EXPECT_DOUBLE_EQ(list[1].real, 2.5);
  EXPECT_EQ(list[2].restype, 90);
  EXPECT_EQ(list[2].integer, 70000);
}

TEST(UiContextFilter, ATextsQuotesAreCutWhateverTheyAre) {
  auto list = Parse(L"0,\"LINE\"");
  ASSERT_EQ(list.size(), 1u);
  EXPECT_EQ(list[0].text, L"LINE");
}

TEST(UiContextFilter, CodesOfOtherTypesAndOutOfRangeAddNothing) {
  // A point value is no string, so its token ends at the first comma and
  // the rest of the quoted text is read on as codes and values.
  auto point = Parse(L"10,'1,2,3'");
  ASSERT_EQ(point.size(), 1u);
  EXPECT_EQ(point[0].restype, 2);
  EXPECT_EQ(point[0].text, L"");
  EXPECT_TRUE(Parse(L"99999,'x'").empty());
  EXPECT_TRUE(Parse(L"-12345,5").empty());
  // The code after one that added nothing is still read as a code.
  auto list = Parse(L"10,1,62,7");
  ASSERT_EQ(list.size(), 1u);
  EXPECT_EQ(list[0].integer, 7);
}

TEST(UiContextFilter, OddShapesGiveCleanResults) {
  EXPECT_TRUE(Parse(L"").empty());
  // An unbalanced quote runs to the next comma, and loses a character.
  auto open = Parse(L"0,'LINE");
  ASSERT_EQ(open.size(), 1u);
  EXPECT_EQ(open[0].text, L"LIN");
  // Only commas: empty codes are code 0, empty values empty texts.
  auto commas = Parse(L",,,,");
  ASSERT_EQ(commas.size(), 2u);
  EXPECT_EQ(commas[0].restype, 5020);
  EXPECT_EQ(commas[0].text, L"");
  auto quote = Parse(L"0,'");
  ASSERT_EQ(quote.size(), 1u);
  EXPECT_EQ(quote[0].text, L"");
  std::wstring huge;
  for (int i = 0; i < 20000; ++i) huge += L"0,'A,B',";
  EXPECT_EQ(Parse(huge.c_str()).size(), 20000u);
}

// A drawing with walls, openings, dimensions, texts and a viewport, and a
// context section to choose from.
class UiContextMenu : public UiTest {
 protected:
  void SetUp() override {
    // The layer filters are written in layer keys of the bundled settings'
    // standard ("TOLV": key WALL is layer WALL, key DOOR layer DOOR, ...).
    std::wstring settings = (std::filesystem::path(TOLV_SOURCE_DIR) / "share" / "support" / "config.xml").wstring();
    ASSERT_TRUE(g_dictCfg.ReadFromXML(settings.c_str()));
    for (const wchar_t *layer : {L"WALL", L"DOOR", L"WINDOW", L"DIM", L"TEXT", L"墙"}) AddLayer(layer);
    wall1_ = Add(new AcDbLine(AcGePoint3d(0, 0, 0), AcGePoint3d(6000, 0, 0)), L"WALL");
    wall2_ = Add(new AcDbLine(AcGePoint3d(0, 0, 0), AcGePoint3d(0, 4200, 0)), L"WALL");
    door_ = Add(new KyDbOpening(KyDbOpening::kDoor), L"DOOR");
    window_ = Add(new KyDbOpening(KyDbOpening::kWindow), L"WINDOW");
    dim_ = Add(new tolv::CarriedEntity(L"DIMENSION"), L"DIM");
    text_ = Add(new tolv::CarriedEntity(L"TEXT"), L"TEXT");
    redLine_ = Add(new AcDbLine(AcGePoint3d(0, 0, 0), AcGePoint3d(1, 1, 0)), L"0");
    viewport_ = Add(new AcDbViewport, L"0", db_.paperSpaceId());
    acdbHostApplicationServices()->setWorkingDatabase(&db_);
    Read(config_,
         "<Directory name=\"MENU_CONTEXT\">"
         "<MenuDef name=\"MENU_NOTHING\"><Separator/></MenuDef>"
         "<Directory name=\"MENU_PLAIN\" />"
         "<MenuDef name=\"MENU_WALL\" filter=\"0,'LINE',8,'WALL'\"><MenuItem title=\"墙体\">KyWallProp</MenuItem></MenuDef>"
         "<MenuDef name=\"MENU_OPENING\" filter=\"8,'DOOR,WINDOW'\"/>"
         "<MenuDef name=\"MENU_DIM\" filter=\"0,'DIMENSION'\"/>"
         "<MenuDef name=\"MENU_TEXT\" filter=\"0,'TEXT,MTEXT'\"/>"
         "<MenuDef name=\"MENU_RED\" filter=\"62,1\"/>"
         "<MenuDef name=\"MENU_ANY_LINE\" filter=\"0,'LINE'\"/>"
         "<MenuDef name=\"MENU_COMMON_MSPACE\" filter=\"0,'*'\"/>"
         "<MenuDef name=\"MENU_COMMON_PSPACE\"/>"
         "</Directory>");
    saved_ = g_pContextMenuDef;
    g_pContextMenuDef = config_.GetContextMenuDef();
    ASSERT_NE(g_pContextMenuDef, nullptr);
  }
  void TearDown() override {
    g_dictCfg.Reset();
    g_pContextMenuDef = saved_;
    acdbHostApplicationServices()->setWorkingDatabase(nullptr);
  }

  void AddLayer(const wchar_t *name) {
    AcDbLayerTable *table = nullptr;
    ASSERT_EQ(db_.getLayerTable(table, AcDb::kForWrite), Acad::eOk);
    auto *layer = new AcDbLayerTableRecord;
    layer->setName(name);
    ASSERT_EQ(table->add(layer), Acad::eOk);
    layer->close();
    table->close();
  }

  AcDbObjectId Add(AcDbEntity *entity, const wchar_t *layer, AcDbObjectId block = AcDbObjectId()) {
    AcDbBlockTableRecord *space = nullptr;
    EXPECT_EQ(acdbOpenObject(space, block.isNull() ? db_.modelSpaceId() : block, AcDb::kForWrite), Acad::eOk);
    AcDbObjectId id;
    EXPECT_EQ(space->appendAcDbEntity(id, entity), Acad::eOk);
    EXPECT_EQ(entity->setLayer(layer), Acad::eOk);
    entity->close();
    space->close();
    return id;
  }

  std::wstring Menu(std::initializer_list<AcDbObjectId> ids) {
    KyAdsEntSet set;
    for (AcDbObjectId id : ids) set.Add(id);
    KyDtUIDirectory *menu = KyDtGetContextMenu(set);
    return menu ? std::wstring(menu->GetName().GetString()) : L"(none)";
  }

  AcDbDatabase db_;
  KyDtUIConfig config_;
  KyDtUIDirectory *saved_ = nullptr;
  AcDbObjectId wall1_, wall2_, door_, window_, dim_, text_, redLine_, viewport_;
};

TEST_F(UiContextMenu, WallsOnTheirLayersGetTheWallMenu) {
  EXPECT_EQ(Menu({wall1_}), L"MENU_WALL");
  EXPECT_EQ(Menu({wall1_, wall2_}), L"MENU_WALL");
}

TEST_F(UiContextMenu, LayerKeysResolveThroughTheCurrentStandard) {
  // Under the Chinese standard the key WALL names the layer 墙.
  AcDbObjectId chinese = Add(new AcDbLine(AcGePoint3d(0, 0, 0), AcGePoint3d(1, 0, 0)), L"墙");
  EXPECT_EQ(Menu({chinese}), L"MENU_ANY_LINE");
  ASSERT_TRUE(g_dictCfg.SetValue(L"LAYER\\CUR_STD", L"GB"));
  EXPECT_EQ(Menu({chinese}), L"MENU_WALL");
  EXPECT_EQ(Menu({wall1_}), L"MENU_ANY_LINE");
  KyAdsRBList list;
  tolv::uiconfig::BuildContextFilter(L"8,'WALL,DOOR'", list);
  ASSERT_NE(list.GetHead(), nullptr);
  EXPECT_EQ(std::wstring(list.GetHead()->resval.rstring), L"墙,门");
}

TEST_F(UiContextMenu, OpeningsGetTheOpeningMenuByALayerListWithACommaInQuotes) {
  EXPECT_EQ(Menu({door_}), L"MENU_OPENING");
  EXPECT_EQ(Menu({door_, window_}), L"MENU_OPENING");
}

TEST_F(UiContextMenu, DimensionsAndTextsGetTheirMenus) {
  EXPECT_EQ(Menu({dim_}), L"MENU_DIM");
  EXPECT_EQ(Menu({text_}), L"MENU_TEXT");
}

TEST_F(UiContextMenu, EveryEntityMustPassAndTheFirstMatchWins) {
  // A wall and a door pass no filter but the catch-all.
  EXPECT_EQ(Menu({wall1_, door_}), L"MENU_COMMON_MSPACE");
  // A line on layer 0 is no wall: the next filter it passes.
  EXPECT_EQ(Menu({redLine_}), L"MENU_ANY_LINE");
  EXPECT_EQ(Menu({wall1_, redLine_}), L"MENU_ANY_LINE");
}

TEST_F(UiContextMenu, ColourFilterComparesTheColourIndex) {
  AcDbEntity *entity = nullptr;
  ASSERT_EQ(acdbOpenAcDbEntity(entity, redLine_, AcDb::kForWrite), Acad::eOk);
  entity->setColorIndex(1);
  entity->close();
  EXPECT_EQ(Menu({redLine_}), L"MENU_RED");
}

TEST_F(UiContextMenu, AViewportAndALineGetNoMenu) {
  EXPECT_EQ(Menu({viewport_, wall1_}), L"(none)");
  EXPECT_EQ(Menu({wall1_, viewport_}), L"(none)");
}

TEST_F(UiContextMenu, AnEmptySelectionGetsTheMenuOfTheCurrentSpace) {
  EXPECT_FALSE(IsCurrentPaperSpace(nullptr));
  EXPECT_EQ(Menu({}), L"MENU_COMMON_MSPACE");
  ASSERT_EQ(db_.setTileMode(false), Acad::eOk);
  EXPECT_TRUE(IsCurrentPaperSpace(nullptr));
  EXPECT_TRUE(IsCurrentPaperSpace(&db_));
  EXPECT_EQ(Menu({}), L"MENU_COMMON_PSPACE");
}

TEST_F(UiContextMenu, AnEmptySelectionWithoutTheSpacesMenuGetsNull) {
  KyDtUIConfig other;
  Read(other, "<Directory name=\"MENU_CONTEXT\"><Directory name=\"MENU_COMMON_MSPACE\"/>"
              "<MenuDef name=\"MENU_WALL\" filter=\"0,'LINE'\"/></Directory>");
  g_pContextMenuDef = other.GetContextMenuDef();
  EXPECT_EQ(Menu({}), L"(none)");
  KyDtUIConfig none;
  Read(none, "<Directory name=\"MENU_CONTEXT\"/>");
  g_pContextMenuDef = none.GetContextMenuDef();
  EXPECT_EQ(Menu({}), L"(none)");
  g_pContextMenuDef = config_.GetContextMenuDef();
}

TEST_F(UiContextMenu, NoContextSectionGivesNull) {
  g_pContextMenuDef = nullptr;
  EXPECT_EQ(Menu({wall1_}), L"(none)");
  EXPECT_EQ(Menu({}), L"(none)");
}

TEST_F(UiContextMenu, AMenuWithAnEmptyFilterNeverMatches) {
  auto *nothing = static_cast<KyDtUIMenuDef *>(config_.FindNamedItem(L"MENU_NOTHING"));
  ASSERT_NE(nothing, nullptr);
  KyAdsEntSet set;
  set.Add(wall1_);
  EXPECT_FALSE(nothing->IsMatch(set));
  auto *wall = static_cast<KyDtUIMenuDef *>(config_.FindNamedItem(L"MENU_WALL"));
  EXPECT_TRUE(wall->IsMatch(set));
  EXPECT_FALSE(wall->IsMatch(KyAdsEntSet()));
}

TEST_F(UiContextMenu, AnErasedEntityIsPassedOverInTheViewportTestButFailsTheFilters) {
  AcDbObjectId gone = Add(new AcDbViewport, L"0", db_.paperSpaceId());
  AcDbEntity *entity = nullptr;
  ASSERT_EQ(acdbOpenAcDbEntity(entity, gone, AcDb::kForWrite), Acad::eOk);
  ASSERT_EQ(entity->erase(), Acad::eOk);
  entity->close();
  EXPECT_EQ(Menu({wall1_, gone}), L"(none)");
  EXPECT_EQ(Menu({wall1_}), L"MENU_WALL");
}

TEST_F(UiContextMenu, AThousandWallsStillGetTheWallMenu) {
  KyAdsEntSet set;
  set.Add(wall1_);
  for (int i = 0; i < 1000; ++i) set.Add(Add(new AcDbLine(AcGePoint3d(i, 0, 0), AcGePoint3d(i, 100, 0)), L"WALL"));
  KyDtUIDirectory *menu = KyDtGetContextMenu(set);
  ASSERT_NE(menu, nullptr);
  EXPECT_EQ(menu->GetName(), CString(L"MENU_WALL"));
  EXPECT_EQ(CString(menu->GetAt(0)->GetTrueTitle()), CString(L"墙体"));
}

}  // namespace
