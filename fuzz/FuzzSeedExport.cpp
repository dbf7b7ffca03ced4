// In the libFuzzer build, hands the target's built-in seeds to the corpus:
// with TOLV_FUZZ_WRITE_SEEDS=DIR set, the target writes each seed to
// DIR/builtin-N and exits before fuzzing.
#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

#include "FuzzSeeds.h"

extern "C" int LLVMFuzzerInitialize(int *argc, char ***argv) {
  const char *dir = std::getenv("TOLV_FUZZ_WRITE_SEEDS");
  if (!dir || !*dir) return 0;
  std::vector<std::string> seeds = FuzzTargetSeeds();
  for (std::size_t i = 0; i < seeds.size(); ++i) {
    std::string path = std::string(dir) + "/builtin-" + std::to_string(i);
    std::FILE *f = std::fopen(path.c_str(), "wb");
    if (!f || std::fwrite(seeds[i].data(), 1, seeds[i].size(), f) != seeds[i].size()) {
      std::fprintf(stderr, "cannot write %s\n", path.c_str());
      if (f) std::fclose(f);
      std::exit(2);
    }
    std::fclose(f);
  }
  std::printf("wrote %zu seeds to %s\n", seeds.size(), dir);
  std::exit(0);
}
