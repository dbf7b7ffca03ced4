// Hatch pattern files: reading, scaling and writing a generated file of
// 5,000 patterns (about 5 MB), and the cost of the whole read against
// reading the same file's lines alone with std::getline.
//
// Times are the CPU time of the thread. After the benchmarks a summary
// gives the median ratio of the two reads over alternating rounds, so that
// the machine's load weighs on both alike.
#include <benchmark/benchmark.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <random>
#include <string>
#include <vector>

#include "TolvDataBase.h"
#include "platform/mfc/AfxMessage.h"
#include "platform/windows/AtomicFile.h"
#include "platform/windows/TextCodec.h"

namespace fs = std::filesystem;

namespace {

constexpr int kPatterns = 5000;
constexpr int kLinesEach = 15;

double ThreadSeconds() {
  timespec t{};
  clock_gettime(CLOCK_THREAD_CPUTIME_ID, &t);
  return static_cast<double>(t.tv_sec) + static_cast<double>(t.tv_nsec) * 1e-9;
}

std::string Number(std::mt19937 &rng, int digits) {
  std::uniform_real_distribution<double> d(-50, 50);
  char buffer[32];
  std::snprintf(buffer, sizeof buffer, "%.*f", digits, d(rng));
  return buffer;
}

struct TheFile {
  fs::path dir;
  std::string in, out;
  std::wstring wideIn, wideOut;
  std::size_t bytes = 0;

  TheFile() {
    dir = fs::temp_directory_path() / ("tolv-bench-patterns-" + std::to_string(::getpid()));
    fs::create_directories(dir);
    in = (dir / "generated.pat").string();
    out = (dir / "written.pat").string();
    wideIn = tolv::FromUtf8(in);
    wideOut = tolv::FromUtf8(out);
    std::mt19937 rng(15);
    std::string text = ";; generated hatch patterns for the benchmark\n";
    for (int p = 0; p < kPatterns; ++p) {
      char head[96];
      std::snprintf(head, sizeof head, "*PAT%05d, generated pattern %d of %d, %d line families\n", p, p, kPatterns,
                    kLinesEach);
      text += head;
      for (int l = 0; l < kLinesEach; ++l) {
        std::string line = std::to_string((l * 15) % 180);
        for (int f = 0; f < 8; ++f) line += "," + Number(rng, 3 + f % 4);
        text += line + "\n";
      }
      if (p % 100 == 0) text += "; a comment between patterns\n";
    }
    bytes = text.size();
    tolv::WriteFileAtomically(in, text);
  }
  ~TheFile() {
    std::error_code ec;
    fs::remove_all(dir, ec);
  }
};

TheFile &File() {
  static TheFile file;
  return file;
}

void ReadPats(KyPats &pats) {
  CStdioFile file(File().wideIn.c_str(), CFile::modeRead | CFile::typeText);
  pats << file;
}

std::size_t GetlineLines() {
  std::ifstream in(File().in, std::ios::binary);
  std::string line;
  std::size_t n = 0;
  while (std::getline(in, line)) n += line.size();
  return n;
}

void BM_GetlineLines(benchmark::State &state) {
  for (auto _ : state) {
    double t0 = ThreadSeconds();
    benchmark::DoNotOptimize(GetlineLines());
    state.SetIterationTime(ThreadSeconds() - t0);
  }
  state.SetBytesProcessed(static_cast<int64_t>(state.iterations() * File().bytes));
}

void BM_ReadPatternFile(benchmark::State &state) {
  for (auto _ : state) {
    auto *pats = new KyPats;
    double t0 = ThreadSeconds();
    ReadPats(*pats);
    state.SetIterationTime(ThreadSeconds() - t0);
    delete pats;
  }
  state.SetBytesProcessed(static_cast<int64_t>(state.iterations() * File().bytes));
}

void BM_ScalePatterns(benchmark::State &state) {
  KyPats pats;
  ReadPats(pats);
  // Doubling and halving by turns keeps the numbers as they were.
  bool up = true;
  for (auto _ : state) {
    const double factor = up ? 2.0 : 0.5;
    up = !up;
    double t0 = ThreadSeconds();
    for (std::int32_t i = 0; i < pats.GetLength(); ++i) pats.GetPData(i).Scale(factor);
    state.SetIterationTime(ThreadSeconds() - t0);
  }
  state.counters["patterns"] = kPatterns;
}

void BM_WritePatternFile(benchmark::State &state) {
  KyPats pats;
  ReadPats(pats);
  for (auto _ : state) {
    double t0 = ThreadSeconds();
    CStdioFile file(File().wideOut.c_str(), CFile::modeCreate | CFile::modeWrite | CFile::typeBinary);
    pats >> file;
    file.Close();
    state.SetIterationTime(ThreadSeconds() - t0);
  }
  state.SetBytesProcessed(static_cast<int64_t>(state.iterations() * File().bytes));
}

void BM_ReadScaleWrite(benchmark::State &state) {
  for (auto _ : state) {
    auto *pats = new KyPats;
    double t0 = ThreadSeconds();
    ReadPats(*pats);
    for (std::int32_t i = 0; i < pats->GetLength(); ++i) pats->GetPData(i).Scale(25.4);
    CStdioFile file(File().wideOut.c_str(), CFile::modeCreate | CFile::modeWrite | CFile::typeBinary);
    *pats >> file;
    file.Close();
    state.SetIterationTime(ThreadSeconds() - t0);
    delete pats;
  }
  state.SetBytesProcessed(static_cast<int64_t>(state.iterations() * File().bytes));
}

BENCHMARK(BM_GetlineLines)->UseManualTime()->Unit(benchmark::kMillisecond)->MinTime(1.0);
BENCHMARK(BM_ReadPatternFile)->UseManualTime()->Unit(benchmark::kMillisecond)->MinTime(1.0);
BENCHMARK(BM_ScalePatterns)->UseManualTime()->Unit(benchmark::kMillisecond)->MinTime(1.0);
BENCHMARK(BM_WritePatternFile)->UseManualTime()->Unit(benchmark::kMillisecond)->MinTime(1.0);
BENCHMARK(BM_ReadScaleWrite)->UseManualTime()->Unit(benchmark::kMillisecond)->MinTime(1.0);

double Median(std::vector<double> v) {
  std::sort(v.begin(), v.end());
  return v[v.size() / 2];
}

}  // namespace

int main(int argc, char **argv) {
  // Scaled lines that grow too long would each raise a message box.
  tolv::SetMessageBoxSink([](const std::wstring &, unsigned) { return IDOK; });
  benchmark::Initialize(&argc, argv);
  if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;
  benchmark::RunSpecifiedBenchmarks();

  std::vector<double> getline, read, ratio;
  for (int round = 0; round < 11; ++round) {
    double t0 = ThreadSeconds();
    benchmark::DoNotOptimize(GetlineLines());
    double g = ThreadSeconds() - t0;
    auto *pats = new KyPats;
    t0 = ThreadSeconds();
    ReadPats(*pats);
    double r = ThreadSeconds() - t0;
    delete pats;
    getline.push_back(g);
    read.push_back(r);
    ratio.push_back(r / g);
  }
  std::printf("\nPattern file of %d patterns, %.1f MB:\n", kPatterns, static_cast<double>(File().bytes) / 1e6);
  std::printf("  std::getline lines alone   %8.1f ms (median of %zu)\n", Median(getline) * 1e3, getline.size());
  std::printf("  KyPats read                %8.1f ms\n", Median(read) * 1e3);
  std::printf("  ratio read / getline       %8.2f (median of the paired rounds)\n", Median(ratio));
  benchmark::Shutdown();
  return 0;
}
