// A stand-in for libFuzzer's driver where it isn't available: replays the
// files named on the command line, or the seeds and every file of a folder
// (--replay-dir=DIR: saved crash inputs; a missing folder has none), or runs
// a fixed number of deterministic mutations (flips, cuts, repeats,
// insertions of 0xFF runs) of the target's seeds. The same seed of the
// random generator gives the same runs.
#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <random>
#include <string>
#include <vector>

#include "FuzzSeeds.h"
#include "platform/windows/AtomicFile.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size);

namespace {

void Run(const std::string &input) {
  LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t *>(input.data()), input.size());
}

std::string Mutate(std::string s, std::mt19937 &rng) {
  auto pick = [&](std::size_t n) { return n ? static_cast<std::size_t>(rng() % n) : 0; };
  int steps = 1 + static_cast<int>(rng() % 4);
  for (int i = 0; i < steps; ++i) {
    switch (rng() % 6) {
      case 0:  // flip a byte
        if (!s.empty()) s[pick(s.size())] ^= static_cast<char>(1 + rng() % 255);
        break;
      case 1:  // cut the tail
        s.resize(pick(s.size() + 1));
        break;
      case 2:  // a run of 0xFF, the marker of long lengths
        s.insert(pick(s.size() + 1), std::string(1 + rng() % 12, '\xFF'));
        break;
      case 3:  // repeat a slice
        if (!s.empty()) {
          std::size_t from = pick(s.size());
          std::size_t len = 1 + pick(std::min<std::size_t>(64, s.size() - from));
          s.insert(pick(s.size() + 1), s.substr(from, len));
        }
        break;
      case 4:  // delete a slice
        if (!s.empty()) {
          std::size_t from = pick(s.size());
          s.erase(from, 1 + pick(16));
        }
        break;
      default:  // a random byte
        s.insert(pick(s.size() + 1), 1, static_cast<char>(rng()));
        break;
    }
  }
  return s;
}

}  // namespace

int main(int argc, char **argv) {
  long runs = 1000;
  std::vector<std::string> files;
  const char *replayDir = nullptr;
  for (int i = 1; i < argc; ++i) {
    if (std::strncmp(argv[i], "--runs=", 7) == 0)
      runs = std::strtol(argv[i] + 7, nullptr, 10);
    else if (std::strncmp(argv[i], "--replay-dir=", 13) == 0)
      replayDir = argv[i] + 13;
    else
      files.push_back(argv[i]);
  }
  if (replayDir) {
    std::vector<std::string> seeds = FuzzTargetSeeds();
    for (const auto &s : seeds) Run(s);
    std::error_code ec;
    std::vector<std::string> saved;
    for (const auto &entry : std::filesystem::directory_iterator(replayDir, ec))
      if (entry.is_regular_file() && entry.path().filename().string()[0] != '.') saved.push_back(entry.path());
    std::sort(saved.begin(), saved.end());
    for (const auto &f : saved) {
      std::string bytes;
      if (!tolv::ReadWholeFile(f, bytes)) {
        std::fprintf(stderr, "cannot read %s\n", f.c_str());
        return 2;
      }
      Run(bytes);
    }
    std::printf("replayed %zu seeds and %zu saved inputs of %s\n", seeds.size(), saved.size(), replayDir);
    return 0;
  }
  if (!files.empty()) {
    for (const auto &f : files) {
      std::string bytes;
      if (!tolv::ReadWholeFile(f, bytes)) {
        std::fprintf(stderr, "cannot read %s\n", f.c_str());
        return 2;
      }
      Run(bytes);
    }
    std::printf("replayed %zu inputs\n", files.size());
    return 0;
  }
  std::vector<std::string> seeds = FuzzTargetSeeds();
  if (seeds.empty() || seeds[0].empty()) {
    std::fprintf(stderr, "no seeds\n");
    return 2;
  }
  std::mt19937 rng(20261120);
  for (const auto &s : seeds) Run(s);
  for (long i = 0; i < runs; ++i) Run(Mutate(seeds[static_cast<std::size_t>(i) % seeds.size()], rng));
  std::printf("%ld mutated inputs over %zu seeds: no failure\n", runs, seeds.size());
  return 0;
}
