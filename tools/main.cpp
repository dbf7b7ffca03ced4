// tolv: the command-line program of the data layer. "tolv host" acts as the
// CAD host: it loads the module, sends it the host's messages and reports.
#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

#include "host/ModuleLoader.h"

namespace {

const char kUsage[] =
    "usage: tolv host [--module FILE] [--main-dir DIR]\n"
    "\n"
    "  host          act as the CAD host: load the TolvDataBase module, send it\n"
    "                the start message, open a document, close it, and send the\n"
    "                stop message, reporting each step.\n"
    "  --module FILE the module to load (default: the one installed beside tolv)\n"
    "  --main-dir DIR the add-on's main directory, where its settings files live\n"
    "                (sets TOLV_MAIN_DIR for the module)\n"
    "  --help        this text\n";

int RunHost(const std::vector<std::string> &args) {
  std::string module = ModuleLoader::DefaultModulePath();
  for (size_t i = 0; i < args.size(); ++i) {
    if (args[i] == "--module" && i + 1 < args.size()) {
      module = args[++i];
    } else if (args[i] == "--main-dir" && i + 1 < args.size()) {
      ::setenv("TOLV_MAIN_DIR", args[++i].c_str(), 1);
    } else if (args[i] == "--help") {
      std::fputs(kUsage, stdout);
      return 0;
    } else {
      std::fprintf(stderr, "tolv host: unknown argument '%s'\n%s", args[i].c_str(), kUsage);
      return 2;
    }
  }
  ModuleLoader loader;
  if (!loader.Load(module)) {
    std::fprintf(stderr, "tolv host: cannot load %s: %s\n", module.c_str(), loader.error().c_str());
    return 1;
  }
  std::printf("host: loaded %s (api version %d)\n", module.c_str(), loader.ApiVersion());
  struct Step {
    AcRx::AppMsgCode msg;
    const char *name;
  };
  const Step steps[] = {{AcRx::kInitAppMsg, "kInitAppMsg"},
                        {AcRx::kLoadDwgMsg, "kLoadDwgMsg"},
                        {AcRx::kUnloadDwgMsg, "kUnloadDwgMsg"},
                        {AcRx::kUnloadAppMsg, "kUnloadAppMsg"}};
  int failures = 0;
  for (const Step &s : steps) {
    AcRx::AppRetCode rc = loader.Send(s.msg);
    std::printf("host: %s -> %d\n", s.name, static_cast<int>(rc));
    if (rc != AcRx::kRetOK) ++failures;
  }
  loader.Unload();
  std::printf("host: module unloaded%s\n", failures ? " after failures" : "");
  return failures ? 1 : 0;
}

}  // namespace

int main(int argc, char **argv) {
  std::vector<std::string> args(argv + 1, argv + argc);
  if (args.empty() || args[0] == "--help" || args[0] == "-h") {
    std::fputs(kUsage, args.empty() ? stderr : stdout);
    return args.empty() ? 2 : 0;
  }
  if (args[0] == "host") return RunHost({args.begin() + 1, args.end()});
  std::fprintf(stderr, "tolv: unknown command '%s'\n%s", args[0].c_str(), kUsage);
  return 2;
}
