// The UI configuration at start-up size: a generated UIConfig.xml of 5,000
// commands and 20,000 references (about 3 MB). ReadFromXML against pugixml's
// own parse of the same file, FindNamedItem, GetItemFromDFSId of the last
// id, FindItemByValue of a missing command, KyDtGetContextMenu for a
// selection of 1,000 entities, and SaveToXML. After the table a summary
// gives the ratio of ReadFromXML to pugixml (median of several runs).
//
// Times are the thread's CPU time, as "manual time"; building the objects
// an operation works on and freeing what it built are never timed.
#include <benchmark/benchmark.h>
#include <time.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <memory>
#include <string>
#include <vector>

#include <pugixml.hpp>

#include "TolvDataBase.h"
#include "platform/acad/AcDbBlockTableRecord.h"
#include "platform/acad/AcDbDatabase.h"
#include "platform/acad/AcDbHostApplicationServices.h"
#include "platform/acad/AcDbLine.h"
#include "platform/acad/AcDbSymbolTables.h"
#include "platform/acad/AcutPrintf.h"
#include "platform/utility/KyUtXMLDOMFile.h"
#include "platform/windows/TextCodec.h"

namespace {

constexpr int kCommands = 5000;
constexpr int kReferences = 20000;

double CpuSeconds() {
  timespec t{};
  clock_gettime(CLOCK_THREAD_CPUTIME_ID, &t);
  return static_cast<double>(t.tv_sec) + static_cast<double>(t.tv_nsec) * 1e-9;
}

// The generated file: 50 command groups of 100, then menus of references to
// them, a context section whose last menu matches a selection of walls,
// tool boxes, hot keys and short commands.
std::string Generate() {
  std::string x = "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n<TolvUIConfig localname=\"SenvarArch UI配置\">\n";
  char line[512];
  x += "\t<Directory name=\"ALL_COMMAND_DEF\" localname=\"全部命令\">\n";
  for (int g = 0; g < kCommands / 100; ++g) {
    std::snprintf(line, sizeof line, "\t\t<Directory name=\"GROUP_%02d\" localname=\"命令组%02d\">\n", g, g);
    x += line;
    for (int i = g * 100; i < (g + 1) * 100; ++i) {
      std::snprintf(line, sizeof line,
                    "\t\t\t<CommandDef name=\"CMD_%05d\" title=\"建筑命令%05d\" comment=\"绘制或编辑第%05d号构件的命令\">"
                    "KyCmd%05d</CommandDef>\n",
                    i, i, i, i);
      x += line;
    }
    x += "\t\t</Directory>\n";
  }
  x += "\t</Directory>\n\t<Directory name=\"MENU\" localname=\"主菜单\">\n";
  for (int r = 0; r < kReferences - 1000; ++r) {
    if (r % 200 == 0) {
      if (r) x += "\t\t</Directory>\n";
      std::snprintf(line, sizeof line, "\t\t<Directory localname=\"菜单%03d\">\n", r / 200);
      x += line;
    }
    std::snprintf(line, sizeof line, "\t\t\t<Reference title=\"菜单项%05d\" comment=\"第%05d项\">CMD_%05d</Reference>\n",
                  r, r, (r * 7919) % kCommands);
    x += line;
  }
  x += "\t\t</Directory>\n\t</Directory>\n\t<Directory name=\"MENU_CONTEXT\">\n";
  for (int m = 0; m < 9; ++m) {
    std::snprintf(line, sizeof line, "\t\t<MenuDef name=\"MENU_%d\" filter=\"0,'TEXT,MTEXT',8,'TEXT%d*'\">\n", m, m);
    x += line;
    for (int r = 0; r < 50; ++r) {
      std::snprintf(line, sizeof line, "\t\t\t<Reference>CMD_%05d</Reference>\n", m * 50 + r);
      x += line;
    }
    x += "\t\t</MenuDef>\n";
  }
  // Without a layer standard loaded, layer keys resolve to nothing: the
  // walls are told by type and colour ("by layer").
  x += "\t\t<MenuDef name=\"MENU_WALL\" filter=\"0,'LINE,LWPOLYLINE',62,256\">\n";
  for (int r = 0; r < 50; ++r) x += "\t\t\t<Reference>CMD_00001</Reference>\n";
  x += "\t\t</MenuDef>\n\t</Directory>\n";
  x += "\t<ToolBoxDef name=\"TOOLBOX\" autohide=\"FALSE\" right=\"FALSE\" visible=\"TRUE\">\n";
  for (int r = 0; r < 500; ++r) {
    std::snprintf(line, sizeof line, "\t\t<Reference>CMD_%05d</Reference>\n", r);
    x += line;
  }
  x += "\t</ToolBoxDef>\n\t<Directory name=\"HOT_KEY\">\n";
  for (int r = 0; r < 100; ++r) {
    std::snprintf(line, sizeof line, "\t\t<ShortCut name=\"K%03d\" command=\"KyCmd%05d\" />\n", r, r);
    x += line;
  }
  x += "\t</Directory>\n</TolvUIConfig>\n";
  return x;
}

struct Setup {
  std::string path;
  std::wstring wide;
  std::string saved;
  std::size_t bytes = 0;
};

Setup &TheSetup() {
  static Setup setup = [] {
    Setup s;
    const char *folder = std::getenv("TOLV_BENCH_DIR");
    std::filesystem::path dir = folder ? folder : std::filesystem::temp_directory_path();
    s.path = (dir / ("tolv-bench-uiconfig-" + std::to_string(::getpid()) + ".xml")).string();
    s.saved = (dir / ("tolv-bench-uiconfig-saved-" + std::to_string(::getpid()) + ".xml")).string();
    std::string text = Generate();
    std::ofstream(s.path, std::ios::binary) << text;
    s.bytes = text.size();
    s.wide = tolv::FromUtf8(s.path);
    RegisterUIElementFactories();
    tolv::SetCommandLineSink([](const std::wstring &) {});
    return s;
  }();
  return setup;
}

// One config read from the file, shared by the lookups.
KyDtUIConfig &Loaded() {
  static KyDtUIConfig *config = [] {
    auto *c = new KyDtUIConfig;
    c->ReadFromXML(TheSetup().wide.c_str());
    return c;
  }();
  return *config;
}

double PugixmlOnce() {
  pugi::xml_document doc;
  double start = CpuSeconds();
  doc.load_file(TheSetup().path.c_str());
  return CpuSeconds() - start;
}

double ReadOnce() {
  auto config = std::make_unique<KyDtUIConfig>();
  double start = CpuSeconds();
  config->ReadFromXML(TheSetup().wide.c_str());
  return CpuSeconds() - start;
}

void BM_PugixmlParse(benchmark::State &state) {
  for (auto _ : state) state.SetIterationTime(PugixmlOnce());
  state.SetBytesProcessed(static_cast<int64_t>(state.iterations() * TheSetup().bytes));
}
BENCHMARK(BM_PugixmlParse)->UseManualTime()->Unit(benchmark::kMillisecond);

void BM_ReadFromXML(benchmark::State &state) {
  for (auto _ : state) state.SetIterationTime(ReadOnce());
  state.SetBytesProcessed(static_cast<int64_t>(state.iterations() * TheSetup().bytes));
}
BENCHMARK(BM_ReadFromXML)->UseManualTime()->Unit(benchmark::kMillisecond);

// The wrapper's calls that reading makes, building nothing: the share of
// reading that lies in the XML wrapper.
double WrapperWalkOnce() {
  KyUtXMLDOMFile document;
  double start = CpuSeconds();
  document.Open(TheSetup().wide.c_str());
  std::vector<_auto_ptr<KyUtXMLDOMNodes>> stack;
  _auto_ptr<KyUtXMLDOMNode> root = document.GetRoot();
  stack.push_back(root->GetChildrenNodes());
  std::vector<int> next{0};
  std::size_t chars = 0;
  while (!stack.empty()) {
    if (next.back() >= stack.back()->GetCount()) {
      stack.pop_back();
      next.pop_back();
      continue;
    }
    _auto_ptr<KyUtXMLDOMNode> node = stack.back()->GetItem(next.back()++);
    for (const wchar_t *a : {L"name", L"localname", L"title", L"comment"}) chars += std::wcslen(node->GetAttributeValue(a));
    chars += std::wcslen(node->GetNodeValue());
    chars += std::wcslen(node->GetNodeName());
    stack.push_back(node->GetChildrenNodes());
    next.push_back(0);
  }
  benchmark::DoNotOptimize(chars);
  return CpuSeconds() - start;
}

void BM_WrapperWalk(benchmark::State &state) {
  for (auto _ : state) state.SetIterationTime(WrapperWalkOnce());
}
BENCHMARK(BM_WrapperWalk)->UseManualTime()->Unit(benchmark::kMillisecond);

void BM_FindNamedItem(benchmark::State &state) {
  KyDtUIConfig &config = Loaded();
  std::vector<CString> names;
  for (int i = 0; i < 1000; ++i) {
    CString name;
    name.Format(L"CMD_%05d", (i * 4999) % kCommands);
    names.push_back(name);
  }
  std::size_t i = 0;
  for (auto _ : state) {
    benchmark::DoNotOptimize(config.FindNamedItem(names[i++ % names.size()]));
  }
}
BENCHMARK(BM_FindNamedItem);

void BM_GetItemFromDFSIdOfTheLastId(benchmark::State &state) {
  KyDtUIConfig &config = Loaded();
  const unsigned last = static_cast<unsigned>(config.GetChildNum() - 1);
  for (auto _ : state) benchmark::DoNotOptimize(config.GetItemFromDFSId(last));
}
BENCHMARK(BM_GetItemFromDFSIdOfTheLastId)->Unit(benchmark::kMicrosecond);

void BM_FindItemByValueOfAMissingCommand(benchmark::State &state) {
  KyDtUIConfig &config = Loaded();
  for (auto _ : state) benchmark::DoNotOptimize(config.FindItemByValue(L"KyNoSuchCommand"));
}
BENCHMARK(BM_FindItemByValueOfAMissingCommand)->Unit(benchmark::kMicrosecond);

void BM_ContextMenuForAThousandWalls(benchmark::State &state) {
  KyDtUIConfig &config = Loaded();
  AcDbDatabase db;
  {
    AcDbLayerTable *table = nullptr;
    db.getLayerTable(table, AcDb::kForWrite);
    auto *layer = new AcDbLayerTableRecord;
    layer->setName(L"WALL");
    table->add(layer);
    layer->close();
    table->close();
  }
  KyAdsEntSet set;
  AcDbBlockTableRecord *ms = nullptr;
  acdbOpenObject(ms, db.modelSpaceId(), AcDb::kForWrite);
  for (int i = 0; i < 1000; ++i) {
    auto *line = new AcDbLine(AcGePoint3d(i * 100.0, 0, 0), AcGePoint3d(i * 100.0, 3000, 0));
    AcDbObjectId id;
    ms->appendAcDbEntity(id, line);
    line->setLayer(L"WALL");
    line->close();
    set.Add(id);
  }
  ms->close();
  acdbHostApplicationServices()->setWorkingDatabase(&db);
  KyDtUIDirectory *saved = g_pContextMenuDef;
  g_pContextMenuDef = config.GetContextMenuDef();
  for (auto _ : state) {
    KyDtUIDirectory *menu = KyDtGetContextMenu(set);
    if (!menu || menu->GetName() != CString(L"MENU_WALL")) state.SkipWithError("the wall menu was not chosen");
    benchmark::DoNotOptimize(menu);
  }
  g_pContextMenuDef = saved;
  acdbHostApplicationServices()->setWorkingDatabase(nullptr);
}
BENCHMARK(BM_ContextMenuForAThousandWalls)->Unit(benchmark::kMillisecond);

void BM_SaveToXML(benchmark::State &state) {
  KyDtUIConfig &config = Loaded();
  const std::wstring saved = tolv::FromUtf8(TheSetup().saved);
  for (auto _ : state) {
    std::filesystem::remove(TheSetup().saved);
    double start = CpuSeconds();
    bool ok = config.SaveToXML(saved.c_str());
    state.SetIterationTime(CpuSeconds() - start);
    if (!ok) state.SkipWithError("SaveToXML failed");
  }
}
BENCHMARK(BM_SaveToXML)->UseManualTime()->Unit(benchmark::kMillisecond);

double Median(std::vector<double> v) {
  std::sort(v.begin(), v.end());
  return v[v.size() / 2];
}

}  // namespace

int main(int argc, char **argv) {
  benchmark::Initialize(&argc, argv);
  if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;
  benchmark::RunSpecifiedBenchmarks();
  std::vector<double> pugi, read;
  for (int i = 0; i < 7; ++i) {
    pugi.push_back(PugixmlOnce());
    read.push_back(ReadOnce());
  }
  const double p = Median(pugi), r = Median(read);
  std::printf("\nUIConfig of %d commands and %d references, %.2f MB\n", kCommands, kReferences,
              static_cast<double>(TheSetup().bytes) / 1048576.0);
  std::printf("pugixml parse %.1f ms, ReadFromXML %.1f ms (CPU, median of 7): ratio %.2f (target within 4)\n",
              p * 1e3, r * 1e3, r / p);
  std::filesystem::remove(TheSetup().path);
  std::filesystem::remove(TheSetup().saved);
  benchmark::Shutdown();
  return 0;
}
