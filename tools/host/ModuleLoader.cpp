#include "host/ModuleLoader.h"

#include <dlfcn.h>
#include <unistd.h>

#include <climits>

ModuleLoader::~ModuleLoader() { Unload(); }

bool ModuleLoader::Load(const std::string &path) {
  Unload();
  path_ = path;
  handle_ = ::dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL);
  if (!handle_) {
    const char *why = ::dlerror();
    error_ = why ? why : "dlopen failed";
    return false;
  }
  entry_ = reinterpret_cast<EntryPoint>(::dlsym(handle_, "acrxEntryPoint"));
  version_ = reinterpret_cast<ApiVersionFn>(::dlsym(handle_, "acrxGetApiVersion"));
  if (!entry_ || !version_) {
    error_ = "the module lacks acrxEntryPoint or acrxGetApiVersion";
    Unload();
    return false;
  }
  return true;
}

bool ModuleLoader::Unload() {
  if (!handle_) return true;
  ::dlclose(handle_);
  handle_ = nullptr;
  entry_ = nullptr;
  version_ = nullptr;
  // Asking without loading tells whether the file is still in the process.
  void *still = ::dlopen(path_.c_str(), RTLD_NOW | RTLD_NOLOAD);
  if (!still) return true;
  ::dlclose(still);
  return false;
}

int ModuleLoader::ApiVersion() const { return version_ ? version_() : -1; }

AcRx::AppRetCode ModuleLoader::Send(AcRx::AppMsgCode msg, void *pkt) const {
  return entry_ ? entry_(msg, pkt) : AcRx::kRetError;
}

std::string ModuleLoader::DefaultModulePath() {
  char buf[PATH_MAX];
  ssize_t n = ::readlink("/proc/self/exe", buf, sizeof buf - 1);
  if (n <= 0) return "libTolvDataBase.so";
  std::string exe(buf, static_cast<size_t>(n));
  std::string dir = exe.substr(0, exe.rfind('/'));
  return dir + "/../lib/libTolvDataBase.so";
}
