// Layer resolution and labels at the rate the drawing modules ask for them,
// on the bundled settings (share/support/config.xml):
//  - KyDtGetLayerName of a key resolved by its fields alone (COLUMN-HIDE),
//    by its own entry alone (PUB_HATCH), and by both (DOOR-NUM);
//  - KyDtInitLayer of a layer the drawing has already;
//  - KyDtGetLayerNameEx of a three-key pattern;
//  - KyDtGetAutoLabel in sequence mode against 1,000 and 10,000 windows
//    (items per second is members walked per second, so the cost per member
//    shows);
//  - KyDtInitDimStyle of a style the drawing has already.
// Lookups walk the dictionaries and the set linearly, with nothing cached.
#include <benchmark/benchmark.h>

#include <string>

#include "module/TolvDataBase.h"
#include "platform/acad/AcDbBlockTableRecord.h"
#include "platform/acad/AcDbDatabase.h"
#include "platform/acad/AcDbHostApplicationServices.h"
#include "platform/utility/SupportFiles.h"
#include "platform/windows/PathMap.h"

namespace {

// Loaded once for the whole program.
AcDbDatabase &Drawing() {
  static AcDbDatabase *db = [] {
    tolv::SetMainDirectory(tolv::ToSystemPath(TOLV_SOURCE_DIR "/share/support"));
    g_dictCfg.ReadFromXML(tolv::ToSystemPath(TOLV_SOURCE_DIR "/share/support/config.xml").c_str());
    auto *d = new AcDbDatabase;
    acdbHostApplicationServices()->setWorkingDatabase(d);
    return d;
  }();
  return *db;
}

void LayerName(benchmark::State &state, const wchar_t *key) {
  Drawing();
  if (KyDtGetLayerName(key).IsEmpty()) state.SkipWithError("the key does not resolve");
  for (auto _ : state) benchmark::DoNotOptimize(KyDtGetLayerName(key));
}
BENCHMARK_CAPTURE(LayerName, ByFields, L"COLUMN-HIDE");
BENCHMARK_CAPTURE(LayerName, ByAssemblyEntry, L"PUB_HATCH");
BENCHMARK_CAPTURE(LayerName, ByBoth, L"DOOR-NUM");

void InitExistingLayer(benchmark::State &state) {
  AcDbDatabase &db = Drawing();
  if (KyDtInitLayer(L"WALL", &db).isNull()) state.SkipWithError("no layer");
  for (auto _ : state) benchmark::DoNotOptimize(KyDtInitLayer(L"WALL", &db));
}
BENCHMARK(InitExistingLayer);

void LayerNameExThreeKeys(benchmark::State &state) {
  Drawing();
  for (auto _ : state) benchmark::DoNotOptimize(KyDtGetLayerNameEx(L"WALL*DOOR-NUM*AXIS"));
}
BENCHMARK(LayerNameExThreeKeys);

void InitExistingDimStyle(benchmark::State &state) {
  AcDbDatabase &db = Drawing();
  if (KyDtInitDimStyle(L"LINEAR", 100.0, &db).isNull()) state.SkipWithError("no style");
  for (auto _ : state) benchmark::DoNotOptimize(KyDtInitDimStyle(L"LINEAR", 100.0, &db));
}
BENCHMARK(InitExistingDimStyle);

// A drawing of `count` windows of one label type, numbered 1 up, in sizes
// that repeat every 20, so no new window finds a twin.
void AutoLabelSequence(benchmark::State &state) {
  Drawing();
  const int count = static_cast<int>(state.range(0));
  AcDbDatabase db;
  AcDbBlockTableRecord *ms = nullptr;
  acdbOpenObject(ms, db.modelSpaceId(), AcDb::kForWrite);
  for (int i = 1; i <= count; ++i) {
    auto *window = new KyDbOpening(KyDbOpening::kWindow, 600 + (i % 20) * 100, 1500);
    window->SetLabelType(L"普通窗");
    window->SetLabel((L"C" + std::to_wstring(i)).c_str());
    ms->appendAcDbEntity(window);
    window->close();
  }
  ms->close();
  KyAdsEntSet others;
  others.AddBlock(db.modelSpaceId());
  g_dictCfg.SetValue(CString(L"LABEL\\OPENING\\OPENINGRULE"), 1u);
  KyDbOpening fresh(KyDbOpening::kWindow, 5000, 1500);
  fresh.SetLabelType(L"普通窗");
  const CString first = KyDtGetAutoLabel(&fresh, others);
  if (first != CString((L"C" + std::to_wstring(count + 1)).c_str())) state.SkipWithError("unexpected label");
  for (auto _ : state) benchmark::DoNotOptimize(KyDtGetAutoLabel(&fresh, others));
  state.SetItemsProcessed(state.iterations() * count);
  g_dictCfg.SetValue(CString(L"LABEL\\OPENING\\OPENINGRULE"), 0u);
}
BENCHMARK(AutoLabelSequence)->Arg(1000)->Arg(10000)->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
