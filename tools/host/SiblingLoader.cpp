#include "host/SiblingLoader.h"

#include <dlfcn.h>

SiblingLoader::~SiblingLoader() { Unload(); }

bool SiblingLoader::LoadBeside(const std::string &modulePath) {
  Unload();
  const size_t slash = modulePath.rfind('/');
  const std::string dir = slash == std::string::npos ? "." : modulePath.substr(0, slash);
  const std::string path = dir + "/libTolvSibling.so";
  handle_ = ::dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL);
  if (!handle_) {
    const char *why = ::dlerror();
    error_ = why ? why : "dlopen failed";
    return false;
  }
  line_ = reinterpret_cast<LineFn>(::dlsym(handle_, "TolvSiblingHostLine"));
  subcommand_ = reinterpret_cast<SubcommandFn>(::dlsym(handle_, "TolvSiblingSubcommand"));
  usage_ = reinterpret_cast<UsageFn>(::dlsym(handle_, "TolvSiblingUsage"));
  if (!line_ || !subcommand_ || !usage_) {
    error_ = path + " is not the host program's sibling module";
    Unload();
    return false;
  }
  return true;
}

void SiblingLoader::Unload() {
  if (handle_) ::dlclose(handle_);
  handle_ = nullptr;
  line_ = nullptr;
  subcommand_ = nullptr;
  usage_ = nullptr;
}

int SiblingLoader::ServeLine(const std::string &line) const { return line_ ? line_(line.c_str()) : -1; }

int SiblingLoader::RunSubcommand(const std::string &name, const std::vector<std::string> &args) const {
  if (!subcommand_) return -1;
  std::vector<const char *> argv;
  for (const std::string &a : args) argv.push_back(a.c_str());
  return subcommand_(name.c_str(), static_cast<int>(argv.size()), argv.data());
}

std::string SiblingLoader::LineUsage() const { return usage_ ? usage_("lines") : ""; }

std::string SiblingLoader::SubcommandUsage() const { return usage_ ? usage_("subcommands") : ""; }
