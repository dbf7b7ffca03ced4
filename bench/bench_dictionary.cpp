// Reading and writing a language package of about 10 MB, as the add-on does
// at start-up: pugixml alone on the file, ReadFromXML, SaveToXML, and the
// archive Save and Read of the same tree. After the benchmark table a
// summary gives the ratio of ReadFromXML to pugixml (in one warm process,
// and at start-up in fresh processes) and the peak memory of each reading
// against the file size, measured in a child process each.
//
// The time of each operation is taken as the CPU time of the thread (so
// that other work on a shared machine doesn't count) and as wall time; the
// table shows the CPU time as its "manual time", the summary both. The
// destruction of what an operation built is never timed.
//
// "Wrapper walk" makes the calls of the XML wrapper that ReadFromXML makes,
// building nothing: the share of reading that lies in the wrapper.
//
// The package is written once to $TOLV_BENCH_DIR (default: the system's
// temporary folder) and reused while its size is right.
#include <benchmark/benchmark.h>
#include <malloc.h>
#include <sys/wait.h>
#include <time.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <cwchar>
#include <filesystem>
#include <memory>
#include <string>
#include <unordered_set>
#include <vector>

#include <pugixml.hpp>

#include "LanguagePackageGenerator.h"
#include "dictionary/KyDtDict.h"
#include "platform/acad/AcutPrintf.h"
#include "platform/utility/KyUtXMLDOM.h"

namespace {

constexpr std::size_t kPackageBytes = 10 * 1024 * 1024;
using Clock = std::chrono::steady_clock;

struct Files {
  std::filesystem::path folder;
  std::string package;  // the XML package
  std::string saved;    // SaveToXML target
  std::string archive;  // Save and Read
  std::uintmax_t packageBytes = 0;
};

Files &TheFiles() {
  static Files files;
  return files;
}

std::wstring Wide(const std::string &path) { return std::wstring(path.begin(), path.end()); }

void PreparePackage() {
  Files &files = TheFiles();
  const char *dir = std::getenv("TOLV_BENCH_DIR");
  files.folder = dir != nullptr ? std::filesystem::path(dir) : std::filesystem::temp_directory_path() / "tolv_bench";
  std::filesystem::create_directories(files.folder);
  files.package = (files.folder / "TolvLanguage.xml").string();
  files.saved = (files.folder / "TolvLanguage.saved.xml").string();
  files.archive = (files.folder / "TolvLanguage.dat").string();
  std::error_code ec;
  const auto size = std::filesystem::file_size(files.package, ec);
  if (ec || size < kPackageBytes * 9 / 10 || size > kPackageBytes * 11 / 10) {
    tolvbench::LanguagePackageGenerator generator;
    if (!generator.WriteFile(files.package, kPackageBytes)) {
      std::fprintf(stderr, "cannot write %s\n", files.package.c_str());
      std::exit(1);
    }
  }
  files.packageBytes = std::filesystem::file_size(files.package);
}

// The parse flags of the XML wrapper, so that both sides do the same work.
constexpr unsigned kParseFlags = pugi::parse_default | pugi::parse_declaration | pugi::parse_comments |
                                 pugi::parse_pi | pugi::parse_doctype | pugi::parse_ws_pcdata_single |
                                 pugi::parse_fragment;

double ThreadCpuSeconds() {
  timespec now{};
  ::clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
  return static_cast<double>(now.tv_sec) + static_cast<double>(now.tv_nsec) * 1e-9;
}

// CPU and wall seconds of each timed run of one operation.
struct Timings {
  std::vector<double> cpu;
  std::vector<double> wall;
};
Timings g_pugixml, g_walk, g_read, g_save, g_archiveSave, g_archiveRead;

// Times one run of `work`, records it, and gives the table its CPU time.
template <class Work>
bool TimeRun(benchmark::State &state, Timings &timings, Work work) {
  const double cpu0 = ThreadCpuSeconds();
  const auto wall0 = Clock::now();
  const bool ok = work();
  const double cpu = ThreadCpuSeconds() - cpu0;
  const double wall = std::chrono::duration<double>(Clock::now() - wall0).count();
  timings.cpu.push_back(cpu);
  timings.wall.push_back(wall);
  state.SetIterationTime(cpu);
  return ok;
}

double Median(std::vector<double> values) {
  if (values.empty()) return 0;
  std::sort(values.begin(), values.end());
  return values[values.size() / 2];
}

// The calls ReadFromXML makes of the wrapper, on every element.
std::int64_t WalkWithWrapper(KyUtXMLDOMNode &element) {
  std::int64_t touched = 0;
  struct Frame {
    KyUtXMLDOMNodeArray children;
    int index = 0;
    int count = 0;
  };
  auto visit = [&touched](KyUtXMLDOMNode &node) {
    const int attributes = node.GetAttributeNum();
    for (int i = 0; i < attributes; ++i) {
      const wchar_t *name = node.GetAttributeName(i);
      touched += std::wcslen(node.GetAttributeValue(name));
    }
  };
  visit(element);
  std::vector<std::unique_ptr<Frame>> frames;
  frames.push_back(std::make_unique<Frame>());
  frames.back()->children = element.GetChildrenNodes();
  frames.back()->count = frames.back()->children->GetCount();
  while (!frames.empty()) {
    Frame &frame = *frames.back();
    if (frame.index >= frame.count) {
      frames.pop_back();
      continue;
    }
    _auto_ptr<KyUtXMLDOMNode> child = frame.children->GetItem(frame.index++);
    const wchar_t *tag = child->GetNodeName();
    visit(*child);
    if (std::wcscmp(tag, L"Directory") == 0) {
      auto next = std::make_unique<Frame>();
      next->children = child->GetChildrenNodes();
      next->count = next->children->GetCount();
      frames.push_back(std::move(next));
    } else {
      touched += std::wcslen(child->GetNodeValue());
    }
  }
  return touched;
}

void BM_PugixmlParse(benchmark::State &state) {
  for (auto _ : state) {
    auto doc = std::make_unique<pugi::xml_document>();
    const bool ok = TimeRun(state, g_pugixml, [&doc] {
      return static_cast<bool>(doc->load_file(TheFiles().package.c_str(), kParseFlags));
    });
    if (!ok) state.SkipWithError("pugixml failed");
  }
  state.SetBytesProcessed(static_cast<int64_t>(state.iterations() * TheFiles().packageBytes));
}

void BM_WrapperWalk(benchmark::State &state) {
  const std::wstring path = Wide(TheFiles().package);
  for (auto _ : state) {
    auto file = std::make_unique<KyUtXMLDOMFile>();
    const bool ok = TimeRun(state, g_walk, [&file, &path] {
      if (!file->Open(path.c_str())) return false;
      _auto_ptr<KyUtXMLDOMNode> root = file->GetRoot();
      benchmark::DoNotOptimize(WalkWithWrapper(*root));
      return true;
    });
    if (!ok) state.SkipWithError("wrapper failed");
  }
  state.SetBytesProcessed(static_cast<int64_t>(state.iterations() * TheFiles().packageBytes));
}

void BM_ReadFromXML(benchmark::State &state) {
  const std::wstring path = Wide(TheFiles().package);
  for (auto _ : state) {
    auto dict = std::make_unique<KyDtDictionary>();
    if (!TimeRun(state, g_read, [&dict, &path] { return dict->ReadFromXML(path.c_str()); })) {
      state.SkipWithError("ReadFromXML failed");
    }
  }
  state.SetBytesProcessed(static_cast<int64_t>(state.iterations() * TheFiles().packageBytes));
}

// One tree read from the package, shared by the writing benchmarks.
KyDtDictionary &PackageTree() {
  static std::unique_ptr<KyDtDictionary> tree;
  if (!tree) {
    tree = std::make_unique<KyDtDictionary>();
    tree->ReadFromXML(Wide(TheFiles().package).c_str());
  }
  return *tree;
}

void BM_SaveToXML(benchmark::State &state) {
  KyDtDictionary &tree = PackageTree();
  const std::wstring path = Wide(TheFiles().saved);
  for (auto _ : state) {
    std::filesystem::remove(TheFiles().saved);
    if (!TimeRun(state, g_save, [&tree, &path] { return tree.SaveToXML(path.c_str()); })) {
      state.SkipWithError("SaveToXML failed");
    }
  }
}

void BM_ArchiveSave(benchmark::State &state) {
  KyDtDictionary &tree = PackageTree();
  const std::wstring path = Wide(TheFiles().archive);
  for (auto _ : state) {
    if (!TimeRun(state, g_archiveSave, [&tree, &path] { return tree.Save(path.c_str()); })) {
      state.SkipWithError("Save failed");
    }
  }
}

void BM_ArchiveRead(benchmark::State &state) {
  const std::wstring path = Wide(TheFiles().archive);
  if (!PackageTree().Save(path.c_str())) state.SkipWithError("Save failed");
  for (auto _ : state) {
    auto dict = std::make_unique<KyDtDictionary>();
    if (!TimeRun(state, g_archiveRead, [&dict, &path] { return dict->Read(path.c_str()); })) {
      state.SkipWithError("Read failed");
    }
  }
}

BENCHMARK(BM_PugixmlParse)->UseManualTime()->Unit(benchmark::kMillisecond)->MinTime(2.0);
BENCHMARK(BM_WrapperWalk)->UseManualTime()->Unit(benchmark::kMillisecond)->MinTime(2.0);
BENCHMARK(BM_ReadFromXML)->UseManualTime()->Unit(benchmark::kMillisecond)->MinTime(2.0);
BENCHMARK(BM_SaveToXML)->UseManualTime()->Unit(benchmark::kMillisecond)->MinTime(2.0);
BENCHMARK(BM_ArchiveSave)->UseManualTime()->Unit(benchmark::kMillisecond)->MinTime(2.0);
BENCHMARK(BM_ArchiveRead)->UseManualTime()->Unit(benchmark::kMillisecond)->MinTime(2.0);

// ---- Peak memory ----

long StatusKb(const char *key) {
  FILE *file = std::fopen("/proc/self/status", "r");
  if (file == nullptr) return -1;
  char line[256];
  long value = -1;
  const std::size_t keyLength = std::strlen(key);
  while (std::fgets(line, sizeof line, file) != nullptr) {
    if (std::strncmp(line, key, keyLength) == 0) {
      value = std::atol(line + keyLength);
      break;
    }
  }
  std::fclose(file);
  return value;
}

struct PeakMemory {
  long baselineKb = -1;
  long peakKb = -1;
  bool ok = false;
};

void ResetPeak() {
  ::malloc_trim(0);
  if (FILE *clear = std::fopen("/proc/self/clear_refs", "w")) {
    std::fputs("5", clear);
    std::fclose(clear);
  }
}

// Runs `prepare` and then `work` in a child process and gives how far the
// resident set grew during `work` above where it stood before it: the peak
// is reset to the current size first (clear_refs 5), so only what the work
// itself touched counts.
template <class Prepare, class Work>
PeakMemory MeasurePeak(Prepare prepare, Work work) {
  int channel[2];
  if (::pipe(channel) != 0) return {};
  const pid_t child = ::fork();
  if (child == 0) {
    ::close(channel[0]);
    prepare();
    ResetPeak();
    PeakMemory result;
    result.baselineKb = StatusKb("VmRSS:");
    result.ok = work();
    result.peakKb = StatusKb("VmHWM:");
    if (::write(channel[1], &result, sizeof result) != static_cast<ssize_t>(sizeof result)) ::_exit(1);
    ::_exit(0);
  }
  ::close(channel[1]);
  PeakMemory result;
  if (::read(channel[0], &result, sizeof result) != static_cast<ssize_t>(sizeof result)) result = {};
  ::close(channel[0]);
  int status = 0;
  ::waitpid(child, &status, 0);
  return result;
}

void PrintPeak(const char *what, const PeakMemory &peak, double fileMb) {
  const double grownMb = (peak.peakKb - peak.baselineKb) / 1024.0;
  std::printf("  %-34s %8.1f MB  = %5.2f x file%s\n", what, grownMb, grownMb / fileMb, peak.ok ? "" : "  (FAILED)");
}

// The figures of one way of setting the two readers side by side.
struct PairedRatio {
  double pugixmlMs = 0;
  double readMs = 0;
  double ratio = 0;
  int rounds = 0;
};

// ---- The ratio at start-up ----

// The add-on reads its package once, into a fresh process: every page the
// reading touches is new to it. Run after run in one process, each of the
// two readers finds the heap in another state (what the other freed, what
// the allocator gave back), which sways both figures. Here every run is
// made in a new child process, pugixml and ReadFromXML in turns, and the
// median of the per-round ratios is given.
template <class Work>
double CpuSecondsInChild(Work work) {
  int channel[2];
  if (::pipe(channel) != 0) return -1;
  const pid_t child = ::fork();
  if (child == 0) {
    ::close(channel[0]);
    const double t0 = ThreadCpuSeconds();
    const bool ok = work();
    const double seconds = ok ? ThreadCpuSeconds() - t0 : -1;
    if (::write(channel[1], &seconds, sizeof seconds) != static_cast<ssize_t>(sizeof seconds)) ::_exit(1);
    ::_exit(0);
  }
  ::close(channel[1]);
  double seconds = -1;
  if (::read(channel[0], &seconds, sizeof seconds) != static_cast<ssize_t>(sizeof seconds)) seconds = -1;
  ::close(channel[0]);
  int status = 0;
  ::waitpid(child, &status, 0);
  return seconds;
}

PairedRatio MeasureColdRatio(int rounds) {
  std::vector<double> pugixml, read, ratio;
  for (int i = 0; i < rounds; ++i) {
    const double p = CpuSecondsInChild([] {
      auto *doc = new pugi::xml_document;  // left to the child's exit, as nothing is timed after
      return static_cast<bool>(doc->load_file(TheFiles().package.c_str(), kParseFlags));
    });
    const double r = CpuSecondsInChild([] {
      auto *dict = new KyDtDictionary;
      return dict->ReadFromXML(Wide(TheFiles().package).c_str());
    });
    if (p <= 0 || r <= 0) continue;
    pugixml.push_back(p);
    read.push_back(r);
    ratio.push_back(r / p);
  }
  return {Median(pugixml) * 1e3, Median(read) * 1e3, Median(ratio), static_cast<int>(ratio.size())};
}

// ---- Where the tree's bytes go ----

// The heap chunk glibc gives for a request of n bytes: an 8-byte header,
// 16-byte granules, 32 bytes at least.
std::size_t Chunk(std::size_t n) { return std::max<std::size_t>(32, (n + 8 + 15) & ~std::size_t{15}); }

// The heap a string's buffer takes, counted once however many strings
// share it; the empty text has no buffer.
std::size_t TextHeap(const CString &text, std::unordered_set<const wchar_t *> &seen) {
  if (text.IsEmpty() || !seen.insert(text.GetString()).second) return 0;
  return Chunk(sizeof(tolv::CStringData) + (static_cast<std::size_t>(text.GetLength()) + 1) * sizeof(wchar_t));
}

struct TreeBytes {
  std::int64_t items = 0;
  std::int64_t attributes = 0;
  std::size_t objects = 0;      // the item objects themselves
  std::size_t fieldText = 0;    // name, local name, comment
  std::size_t valueText = 0;    // the values of string items
  std::size_t bags = 0;         // the map objects
  std::size_t bagNodes = 0;     // one tree node per attribute
  std::size_t keyText = 0;      // the attribute keys' text
  std::size_t bagValueText = 0; // the attribute values' text
  std::size_t Sum() const { return objects + fieldText + valueText + bags + bagNodes + keyText + bagValueText; }
};

TreeBytes CountTreeBytes(KyDtDictionary &root) {
  // A map node: the tree links (colour, parent, left, right) and the pair.
  constexpr std::size_t kNodeBytes = 4 * sizeof(void *) + sizeof(std::pair<const CString, CString>);
  TreeBytes bytes;
  std::unordered_set<const wchar_t *> seen;
  std::vector<KyDtDictionary *> pending{&root};
  while (!pending.empty()) {
    KyDtDictionary *dict = pending.back();
    pending.pop_back();
    for (KyDtDictItem *const *slot = dict->GetFirst(); slot != nullptr; slot = dict->GetNext(slot)) {
      KyDtDictItem *item = *slot;
      ++bytes.items;
      bytes.objects += Chunk(::malloc_usable_size(dynamic_cast<void *>(item)));
      bytes.fieldText += TextHeap(item->m_strName, seen) + TextHeap(item->m_strLocalName, seen) + TextHeap(item->m_strComment, seen);
      if (auto *text = dynamic_cast<KyDtDictStringItem *>(item)) bytes.valueText += TextHeap(text->m_value, seen);
      bytes.bags += Chunk(sizeof(KyDtAttributeMap));
      for (const auto &[key, value] : *item->m_pAttributes) {
        ++bytes.attributes;
        bytes.bagNodes += Chunk(kNodeBytes);
        bytes.keyText += TextHeap(key, seen);
        bytes.bagValueText += TextHeap(value, seen);
      }
      if (item->IsDict()) pending.push_back(static_cast<KyDtDictionary *>(item));
    }
  }
  return bytes;
}

// Heap in use by the process, as the allocator counts it.
std::size_t HeapInUse() { return ::mallinfo2().uordblks; }

// Reads the package in this process, keeps the tree, and prints the heap
// it holds against the bytes accounted for by kind, per item.
void PrintTreeBreakdown(double fileBytes) {
  ::malloc_trim(0);
  const std::size_t before = HeapInUse();
  auto dict = std::make_unique<KyDtDictionary>();
  dict->ReadFromXML(Wide(TheFiles().package).c_str());
  ::malloc_trim(0);
  const std::size_t measured = HeapInUse() - before;
  const TreeBytes b = CountTreeBytes(*dict);
  const double n = static_cast<double>(b.items);
  std::printf("Heap held by the tree after ReadFromXML: %.1f MB = %.2f x file, %.0f bytes per item "
              "(%lld items, %.2f attributes each)\n",
              measured / 1048576.0, measured / fileBytes, measured / n, static_cast<long long>(b.items),
              static_cast<double>(b.attributes) / n);
  auto line = [n](const char *what, std::size_t bytes) {
    std::printf("  %-44s %7.0f bytes per item\n", what, static_cast<double>(bytes) / n);
  };
  line("item objects", b.objects);
  line("name / local name / comment text", b.fieldText);
  line("string values' text", b.valueText);
  line("attribute maps (the map objects)", b.bags);
  line("attribute map nodes", b.bagNodes);
  line("attribute keys' text", b.keyText);
  line("attribute values' text", b.bagValueText);
  line("child lists and the rest (measured - above)", measured > b.Sum() ? measured - b.Sum() : 0);
}

}  // namespace

int main(int argc, char **argv) {
  PreparePackage();
  // Unresolved references would be printed; the package has none.
  tolv::SetCommandLineSink([](const std::wstring &) {});
  const double fileMb = static_cast<double>(TheFiles().packageBytes) / (1024.0 * 1024.0);

  // Memory first, in fresh children, before the benchmarks fill the heap.
  auto nothing = [] {};
  const PeakMemory pugixmlPeak = MeasurePeak(nothing, [] {
    pugi::xml_document doc;
    return static_cast<bool>(doc.load_file(TheFiles().package.c_str(), kParseFlags));
  });
  const PeakMemory readPeak = MeasurePeak(nothing, [] {
    KyDtDictionary dict;
    return dict.ReadFromXML(Wide(TheFiles().package).c_str());
  });
  const PeakMemory treePeak = MeasurePeak(nothing, [] {
    // What the tree keeps once the document is gone: the peak is reset
    // after the read, and the tree is left alive as the child exits.
    auto *dict = new KyDtDictionary;
    const bool ok = dict->ReadFromXML(Wide(TheFiles().package).c_str());
    ResetPeak();
    return ok;
  });
  const PeakMemory archivePeak = MeasurePeak(
      [] {
        KyDtDictionary dict;
        dict.ReadFromXML(Wide(TheFiles().package).c_str());
        dict.Save(Wide(TheFiles().archive).c_str());
      },
      [] {
        KyDtDictionary back;
        return back.Read(Wide(TheFiles().archive).c_str());
      });

  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
  benchmark::Shutdown();

  KyDtDictionary counted;
  counted.ReadFromXML(Wide(TheFiles().package).c_str());
  std::int32_t items = 0;
  std::vector<KyDtDictionary *> pending{&counted};
  while (!pending.empty()) {
    KyDtDictionary *dict = pending.back();
    pending.pop_back();
    for (KyDtDictItem *const *slot = dict->GetFirst(); slot != nullptr; slot = dict->GetNext(slot)) {
      ++items;
      if ((*slot)->IsDict()) pending.push_back(static_cast<KyDtDictionary *>(*slot));
    }
  }

  const double pugixmlCpu = Median(g_pugixml.cpu);
  const double readCpu = Median(g_read.cpu);
  const double pugixmlWall = Median(g_pugixml.wall);
  const double readWall = Median(g_read.wall);
  std::printf("\nLanguage package %s: %.2f MB, %d items\n", TheFiles().package.c_str(), fileMb, items);
  std::printf("Median times                           CPU ms     wall ms\n");
  auto row = [](const char *what, const Timings &t) {
    std::printf("  %-34s %9.1f %11.1f\n", what, Median(t.cpu) * 1e3, Median(t.wall) * 1e3);
  };
  row("pugixml load_file alone", g_pugixml);
  row("XML wrapper walk (Open + calls)", g_walk);
  row("KyDtDictionary::ReadFromXML", g_read);
  row("KyDtDictionary::SaveToXML", g_save);
  row("KyDtDictionary::Save (archive)", g_archiveSave);
  row("KyDtDictionary::Read (archive)", g_archiveRead);
  std::printf("  ratio ReadFromXML / pugixml        %9.2f %11.2f   (target: at most 3)\n",
              pugixmlCpu > 0 ? readCpu / pugixmlCpu : 0, pugixmlWall > 0 ? readWall / pugixmlWall : 0);
  const PairedRatio cold = MeasureColdRatio(11);
  std::printf("  start-up, fresh process each (%d): pugixml %.1f ms, ReadFromXML %.1f ms, median ratio %.2f\n",
              cold.rounds, cold.pugixmlMs, cold.readMs, cold.ratio);
  std::printf("Peak memory above the start, against the file size (target for ReadFromXML: under 4)\n");
  PrintPeak("pugixml load_file alone", pugixmlPeak, fileMb);
  PrintPeak("ReadFromXML", readPeak, fileMb);
  PrintPeak("tree kept after ReadFromXML", treePeak, fileMb);
  PrintPeak("archive Read", archivePeak, fileMb);
  PrintTreeBreakdown(static_cast<double>(TheFiles().packageBytes));
  return 0;
}
