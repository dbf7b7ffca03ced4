// The language switch on the path of every text the add-on shows: the
// start-up with a 10 MB package against pugixml's parse of the same file,
// code-string lookups that hit and miss in a section of 5,000 entries, the
// translation of a dialog of 50 controls, and the export over Debian's wine
// modules when the tests have fetched them (build/wine-cache).
#include <benchmark/benchmark.h>

#include <pugixml.hpp>

#include <filesystem>
#include <string>

#include "LanguagePackageGenerator.h"
#include "TolvDataBase.h"
#include "platform/utility/SupportFiles.h"
#include "platform/windows/PathMap.h"

namespace {

namespace fs = std::filesystem;

constexpr std::size_t kPackageBytes = 10u << 20;

fs::path Folder() {
  const char *dir = std::getenv("TOLV_BENCH_DIR");
  fs::path folder = (dir ? fs::path(dir) : fs::temp_directory_path() / "tolv_bench") / "language";
  fs::create_directories(folder);
  return folder;
}

const fs::path &Package() {
  static const fs::path package = [] {
    fs::path path = Folder() / "TolvLanguage.xml";
    std::error_code ec;
    const auto size = fs::file_size(path, ec);
    if (ec || size < kPackageBytes * 9 / 10 || size > kPackageBytes * 11 / 10)
      tolvbench::LanguagePackageGenerator().WriteFile(path.string(), kPackageBytes);
    std::ofstream(Folder() / "Set.ini") << "[system]\nlanguage=Eng\n";
    return path;
  }();
  return package;
}

void ForgetLanguage() {
  KyDtLanguageSwitch::ForgetIndexes();
  g_pTolvLangSwitch = nullptr;
  g_pCurModuleLang = nullptr;
  ThisModuleLanguageTable() = nullptr;
}

void BM_InitLanguage(benchmark::State &state) {
  Package();
  tolv::SetMainDirectory(tolv::ToSystemPath(Folder().string()) + L"\\");
  for (auto _ : state) {
    ForgetLanguage();
    InitLanguage();
    if (!g_pTolvLangSwitch) state.SkipWithError("the package did not load");
  }
  state.counters["MB/s"] = benchmark::Counter(static_cast<double>(fs::file_size(Package())) / 1e6,
                                              benchmark::Counter::kIsIterationInvariantRate);
  ForgetLanguage();
  g_curDictLang.Reset();
}

void BM_PugixmlParse(benchmark::State &state) {
  for (auto _ : state) {
    pugi::xml_document document;
    benchmark::DoNotOptimize(document.load_file(Package().c_str()));
  }
  state.counters["MB/s"] = benchmark::Counter(static_cast<double>(fs::file_size(Package())) / 1e6,
                                              benchmark::Counter::kIsIterationInvariantRate);
}

// A module table whose CODESTRING holds `count` entries.
KyDtDictionary &CodeTable(int count) {
  static KyDtDictionary module(L"TOLVBENCH", L"TOLVBENCH");
  static bool built = false;
  if (!built) {
    auto *codes = new KyDtDictionary(L"CODESTRING", L"CODESTRING");
    module.AppendItem(codes);
    for (int i = 0; i < count; ++i) {
      auto *item = new KyDtDictStringItem;
      item->m_strName.Format(L"\n提示信息第%d条", i);
      item->m_strLocalName.Format(L"\nMessage %d", i);
      codes->AppendItem(item);
    }
    built = true;
  }
  return module;
}

void TranslateCodes(benchmark::State &state, bool hit) {
  KyDtDictionary &module = CodeTable(5000);
  g_pCurModuleLang = &module;
  std::vector<CString> keys;
  for (int i = 0; i < 5000; i += 50) {
    CString key;
    key.Format(hit ? L"\n提示信息第%d条" : L"\n没有的信息第%d条", i);
    keys.push_back(key);
  }
  std::size_t next = 0;
  for (auto _ : state) {
    benchmark::DoNotOptimize(TheLanguageSwitch().TranslateCode(keys[next]));
    next = (next + 1) % keys.size();
  }
  g_pCurModuleLang = nullptr;
}
void BM_TranslateCodeHit(benchmark::State &state) { TranslateCodes(state, true); }
void BM_TranslateCodeMiss(benchmark::State &state) { TranslateCodes(state, false); }

void BM_TranslateDialog50(benchmark::State &state) {
  KyDtDictionary module(L"TOLVBENCH", L"TOLVBENCH");
  KyDtDictionary *dialog = module.FindOrAddDict(L"DIALOG\\101");
  dialog->m_strLocalName = L"Settings";
  tolv::DialogTemplate d;
  d.title = L"设置";
  for (int i = 0; i < 50; ++i) {
    tolv::DialogItemTemplate item;
    item.id = static_cast<std::uint32_t>(1000 + i);
    item.windowClass.id = i % 5 == 0 ? 0x80 : 0x82;
    wchar_t text[32];
    std::swprintf(text, 32, L"控件文字%d", i);
    item.title.text = text;
    d.items.push_back(item);
    auto *entry = new KyDtDictStringItem;
    entry->m_strName = text;
    entry->m_strLocalName.Format(L"Control text %d", i);
    dialog->AppendItem(entry);
  }
  g_pCurModuleLang = &module;
  for (auto _ : state) {
    state.PauseTiming();
    CDialog window;
    window.AttachDialog(tolv::CreateDialogFromTemplate(d, nullptr), 101);
    state.ResumeTiming();
    TheLanguageSwitch().TranslateDialog(&window);
    state.PauseTiming();
    window.DestroyWindow();
    state.ResumeTiming();
  }
  g_pCurModuleLang = nullptr;
}

void BM_ExportWineCorpus(benchmark::State &state) {
  const fs::path dir = fs::path(TOLV_BINARY_DIR) / "wine-cache/root/usr/lib/x86_64-linux-gnu/wine/x86_64-windows";
  if (!fs::exists(dir / "notepad.exe")) {
    state.SkipWithError("the wine modules are not fetched: run tests_language first");
    return;
  }
  std::vector<std::wstring> modules;
  for (const auto &entry : fs::directory_iterator(dir)) modules.push_back(tolv::ToSystemPath(entry.path().string()));
  double resources = 0;
  for (auto _ : state) {
    KyDtDictionary package;
    LanguageToolContext context;
    context.package = &package;
    for (const auto &path : modules) ExportModule(context, path.c_str());
    state.PauseTiming();
    resources = 0;
    for (const auto &path : modules) {
      tolv::PeImage image;
      std::string error;
      if (image.Load(tolv::MapPath(path), error)) resources += static_cast<double>(image.Resources().size());
    }
    state.ResumeTiming();
  }
  state.counters["modules/s"] = benchmark::Counter(static_cast<double>(modules.size()), benchmark::Counter::kIsIterationInvariantRate);
  state.counters["resources/s"] = benchmark::Counter(resources, benchmark::Counter::kIsIterationInvariantRate);
  state.counters["modules"] = static_cast<double>(modules.size());
}

}  // namespace

BENCHMARK(BM_InitLanguage)->Unit(benchmark::kMillisecond)->MinTime(2.0);
BENCHMARK(BM_PugixmlParse)->Unit(benchmark::kMillisecond)->MinTime(2.0);
BENCHMARK(BM_TranslateCodeHit);
BENCHMARK(BM_TranslateCodeMiss);
BENCHMARK(BM_TranslateDialog50)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_ExportWineCorpus)->Unit(benchmark::kSecond)->Iterations(1);

BENCHMARK_MAIN();
