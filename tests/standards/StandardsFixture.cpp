#include "StandardsFixture.h"

#include <filesystem>

#include "dictionary/KyDtDictionary.h"
#include "module/ModuleGlobals.h"
#include "platform/acad/AcDbHostApplicationServices.h"
#include "platform/acad/AcDbLayerTableRecord.h"
#include "platform/acad/AcDbLinetypeTableRecord.h"
#include "platform/acad/AcDbSymbolTables.h"
#include "platform/dbobject/DbObjectSettings.h"
#include "platform/utility/SupportFiles.h"

StandardsTest::StandardsTest() {
  tolv::SetMainDirectory(dir_.wide());
  std::filesystem::copy_file(std::filesystem::path(TOLV_SOURCE_DIR) / "share/support/tolv.lin", dir_.path() / "tolv.lin");
  acdbHostApplicationServices()->setWorkingDatabase(&db_);
  g_bUseLayerStd = true;
}

StandardsTest::~StandardsTest() {
  g_dictCfg.SetLength(0, false);  // the owning list deletes what it drops
  acdbHostApplicationServices()->setWorkingDatabase(nullptr);
  tolv::SetMainDirectory(L"");
  g_bUseLayerStd = true;
}

void StandardsTest::LoadConfig(const std::string &body) {
  const std::string xml = "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n<TolvDictionary name=\"\">" + body +
                          "</TolvDictionary>\n";
  tolvtest::WriteFileBytes(dir_.path() / "config.xml", xml);
  ASSERT_TRUE(g_dictCfg.ReadFromXML(dir_.wide("config.xml").c_str()));
}

void StandardsTest::LoadBundledConfig() {
  ASSERT_TRUE(g_dictCfg.ReadFromXML((std::filesystem::path(TOLV_SOURCE_DIR) / "share/support/config.xml").wstring().c_str()));
}

namespace {
template <class F>
auto WithLayer(AcDbObjectId id, F f) -> decltype(f(static_cast<AcDbLayerTableRecord *>(nullptr))) {
  AcDbLayerTableRecord *layer = nullptr;
  if (acdbOpenObject(layer, id, AcDb::kForRead) != Acad::eOk) return {};
  auto out = f(layer);
  layer->close();
  return out;
}
}  // namespace

std::wstring LayerNameOf(AcDbObjectId id) {
  return WithLayer(id, [](AcDbLayerTableRecord *l) {
    const ACHAR *name = nullptr;
    l->getName(name);
    return std::wstring(name ? name : L"");
  });
}

int LayerColorOf(AcDbObjectId id) {
  return WithLayer(id, [](AcDbLayerTableRecord *l) { return static_cast<int>(l->color().colorIndex()); });
}

std::wstring LayerLinetypeOf(AcDbObjectId id) {
  const AcDbObjectId lt = WithLayer(id, [](AcDbLayerTableRecord *l) { return l->linetypeObjectId(); });
  AcDbLinetypeTableRecord *rec = nullptr;
  if (acdbOpenObject(rec, lt, AcDb::kForRead) != Acad::eOk) return L"";
  const ACHAR *name = nullptr;
  rec->getName(name);
  std::wstring out = name ? name : L"";
  rec->close();
  return out;
}

int LayerLineWeightOf(AcDbObjectId id) {
  return WithLayer(id, [](AcDbLayerTableRecord *l) { return static_cast<int>(l->lineWeight()); });
}
