// Library searches walk the whole tree each time. Over a generated drawing
// library of 20,000 items in 500 directories with 5 attributes each:
// ReadFromXML, all-matches Find(name, value), FindItem of a first match,
// Find with a list of three pairs, SaveToXML, and the memory one item takes
// in the tree (heap bytes per item, as a counter of the reading benchmark).
//
// The library file is written once to $TOLV_BENCH_DIR (default: the
// system's temporary folder).
#include <benchmark/benchmark.h>
#include <malloc.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <memory>
#include <string>

#include "library/KyDtLibrary.h"
#include "platform/windows/TextCodec.h"

namespace {

constexpr int kDirectories = 500;
constexpr int kItemsPerDirectory = 40;  // 20,000 items

std::filesystem::path Folder() {
  const char *env = std::getenv("TOLV_BENCH_DIR");
  return env && *env ? std::filesystem::path(env) : std::filesystem::temp_directory_path();
}

// 500 directories under 25 groups of 20; each item with width, height,
// type, desc and desc_en. Types cycle through 10 values; the item named
// "LAST" is the only one of its type, at the very end.
const std::wstring &LibraryFile() {
  static const std::wstring path = [] {
    const std::filesystem::path file = Folder() / "tolv-bench-library.DML";
    std::string xml = "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n<TolvDwgLib name=\"bench\" nextfile=\"20001\">\n";
    int n = 0;
    for (int g = 0; g < kDirectories / 20; ++g) {
      xml += "<Directory name=\"G" + std::to_string(g) + "\">\n";
      for (int d = 0; d < 20; ++d) {
        xml += "<Directory name=\"D" + std::to_string(g * 20 + d) + "\" kind=\"dir\">\n";
        for (int i = 0; i < kItemsPerDirectory; ++i, ++n) {
          const bool last = g == kDirectories / 20 - 1 && d == 19 && i == kItemsPerDirectory - 1;
          const std::string name = last ? "LAST" : "B" + std::to_string(n);
          xml += "<Item name=\"" + name + "\" file=\"" + name + ".DWG\" width=\"" + std::to_string(600 + (n % 13) * 100) +
                 "\" height=\"" + std::to_string(1500 + (n % 7) * 100) + "\" type=\"" +
                 (last ? std::string("unique") : "type" + std::to_string(n % 10)) +
                 "\" desc=\"\xe9\x97\xa8 " + std::to_string(n) + "\" desc_en=\"door " + std::to_string(n) + "\"/>\n";
        }
        xml += "</Directory>\n";
      }
      xml += "</Directory>\n";
    }
    xml += "</TolvDwgLib>\n";
    std::FILE *f = std::fopen(file.c_str(), "wb");
    if (f) {
      std::fwrite(xml.data(), 1, xml.size(), f);
      std::fclose(f);
    }
    return tolv::FromUtf8(file.string());
  }();
  return path;
}

std::size_t HeapInUse() { return mallinfo2().uordblks; }

KyDtDwgLib &Loaded() {
  static KyDtDwgLib *lib = [] {
    auto *made = new KyDtDwgLib;
    made->SetFileName(LibraryFile().c_str());
    made->ReadFromXML();
    return made;
  }();
  return *lib;
}

void BM_ReadFromXML(benchmark::State &state) {
  const std::wstring &file = LibraryFile();
  double bytesPerItem = 0;
  for (auto _ : state) {
    state.PauseTiming();
    const std::size_t before = HeapInUse();
    auto lib = std::make_unique<KyDtDwgLib>();
    lib->SetFileName(file.c_str());
    state.ResumeTiming();
    if (!lib->ReadFromXML()) state.SkipWithError("the library can't be read");
    state.PauseTiming();
    bytesPerItem = static_cast<double>(HeapInUse() - before) / (kDirectories * kItemsPerDirectory);
    lib.reset();
    state.ResumeTiming();
  }
  state.counters["bytes_per_item"] = bytesPerItem;
}

void BM_FindAllMatches(benchmark::State &state) {
  KyDtDwgLib &lib = Loaded();
  std::int64_t found = 0;
  for (auto _ : state) {
    KyDynArray<KyDtLibItemBase *> result;
    lib.Find(L"type", L"type3", result);
    found = result.GetLength();
  }
  state.counters["matches"] = static_cast<double>(found);
}

void BM_FindItemFirstMatch(benchmark::State &state) {
  KyDtDwgLib &lib = Loaded();
  for (auto _ : state) benchmark::DoNotOptimize(lib.FindItem(L"type", L"type0"));
}

void BM_FindItemOnlyMatchAtTheEnd(benchmark::State &state) {
  KyDtDwgLib &lib = Loaded();
  for (auto _ : state) benchmark::DoNotOptimize(lib.FindItem(L"type", L"unique"));
}

void BM_FindListOfThreePairs(benchmark::State &state) {
  KyDtDwgLib &lib = Loaded();
  KyDtAttributeList pairs;
  pairs.Add(L"type", L"type4");
  pairs.Add(L"width", L"1000");
  pairs.Add(L"height", L"*");
  std::int64_t found = 0;
  for (auto _ : state) {
    KyDynArray<KyDtLibItemBase *> result;
    lib.Find(pairs, result);
    found = result.GetLength();
  }
  state.counters["matches"] = static_cast<double>(found);
}

void BM_SaveToXML(benchmark::State &state) {
  KyDtDwgLib &lib = Loaded();
  const std::filesystem::path copy = Folder() / "tolv-bench-library-saved.DML";
  std::filesystem::copy_file(tolv::ToUtf8(LibraryFile()), copy, std::filesystem::copy_options::overwrite_existing);
  lib.SetFileName(tolv::FromUtf8(copy.string()).c_str());
  for (auto _ : state) {
    if (!lib.SaveToXML()) state.SkipWithError("the library can't be saved");
  }
  lib.SetFileName(LibraryFile().c_str());
}

BENCHMARK(BM_ReadFromXML)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_FindAllMatches)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_FindItemFirstMatch)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_FindItemOnlyMatchAtTheEnd)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_FindListOfThreePairs)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_SaveToXML)->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
