// Loads the data-layer module into the host program as the CAD host loads
// an add-on module: by file, looking up its two entry points.
#pragma once

#include <string>

#include "platform/acad/AcRx.h"

class ModuleLoader {
 public:
  ModuleLoader() = default;
  ~ModuleLoader();
  ModuleLoader(const ModuleLoader &) = delete;
  ModuleLoader &operator=(const ModuleLoader &) = delete;

  // False with a reason in error() when the file or an entry point is missing.
  bool Load(const std::string &path);
  // Gives true when the module has left the process, false when it is
  // still there (for instance because something else holds it).
  bool Unload();
  bool IsLoaded() const { return handle_ != nullptr; }

  int ApiVersion() const;
  AcRx::AppRetCode Send(AcRx::AppMsgCode msg, void *pkt = nullptr) const;
  const std::string &error() const { return error_; }

  // The module beside the running program: ../lib/libTolvDataBase.so.
  static std::string DefaultModulePath();

 private:
  using EntryPoint = AcRx::AppRetCode (*)(AcRx::AppMsgCode, void *);
  using ApiVersionFn = int (*)();
  void *handle_ = nullptr;
  std::string path_;
  EntryPoint entry_ = nullptr;
  ApiVersionFn version_ = nullptr;
  std::string error_;
};
