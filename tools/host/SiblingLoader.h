// Loads the host program's sibling module (libTolvSibling.so), which serves
// the script lines and subcommands that call the data layer's interface.
#pragma once

#include <string>
#include <vector>

class SiblingLoader {
 public:
  SiblingLoader() = default;
  ~SiblingLoader();
  SiblingLoader(const SiblingLoader &) = delete;
  SiblingLoader &operator=(const SiblingLoader &) = delete;

  // Loads the sibling that lies beside the module file `modulePath`. The
  // sibling links the module by name, so it must be the one from the same
  // folder or it would bring a second copy of the module along. False, with
  // the reason in error(), when there is none or it can't be loaded.
  bool LoadBeside(const std::string &modulePath);
  void Unload();
  bool IsLoaded() const { return handle_ != nullptr; }

  // -1 when no registered line starts with the line's first word; else 0
  // or 1 as the line succeeded or failed.
  int ServeLine(const std::string &line) const;
  // -1 when no subcommand has that name; else its exit status.
  int RunSubcommand(const std::string &name, const std::vector<std::string> &args) const;
  // The usage texts of the registered lines or subcommands.
  std::string LineUsage() const;
  std::string SubcommandUsage() const;

  const std::string &error() const { return error_; }

 private:
  using LineFn = int (*)(const char *);
  using SubcommandFn = int (*)(const char *, int, const char *const *);
  using UsageFn = const char *(*)(const char *);
  void *handle_ = nullptr;
  LineFn line_ = nullptr;
  SubcommandFn subcommand_ = nullptr;
  UsageFn usage_ = nullptr;
  std::string error_;
};
