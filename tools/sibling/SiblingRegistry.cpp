#include "SiblingRegistry.h"

#include <cctype>
#include <map>
#include <sstream>

#include "platform/acad/AcDbHostApplicationServices.h"

namespace tolv::sibling {
namespace {

std::string Upper(std::string text) {
  for (char &c : text) c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
  return text;
}

template <class Fn>
struct Entry {
  std::string usage;
  Fn fn = nullptr;
};

// Built on first use: the registering objects of other files may run first.
std::map<std::string, Entry<HostLineFn>> &Lines() {
  static std::map<std::string, Entry<HostLineFn>> lines;
  return lines;
}

std::map<std::string, Entry<SubcommandFn>> &Subcommands() {
  static std::map<std::string, Entry<SubcommandFn>> subcommands;
  return subcommands;
}

template <class Map>
std::string UsageOf(const Map &map) {
  std::string all;
  for (const auto &[name, entry] : map) {
    all += entry.usage;
    if (!all.empty() && all.back() != '\n') all += '\n';
  }
  return all;
}

}  // namespace

HostLine::HostLine(const char *word, const char *usage, HostLineFn fn) {
  Lines()[Upper(word)] = {usage, fn};
}

Subcommand::Subcommand(const char *name, const char *usage, SubcommandFn fn) {
  Subcommands()[name] = {usage, fn};
}

AcDbDatabase *WorkingDatabase() { return acdbHostApplicationServices()->workingDatabase(); }

std::vector<std::string> SplitList(const std::string &text, char separator) {
  std::vector<std::string> parts;
  std::string part;
  std::istringstream in(text);
  while (std::getline(in, part, separator)) parts.push_back(part);
  return parts;
}

}  // namespace tolv::sibling

using namespace tolv::sibling;

extern "C" int TolvSiblingHostLine(const char *line) {
  std::istringstream in(line ? line : "");
  std::string word;
  if (!(in >> word)) return -1;
  auto it = Lines().find(Upper(word));
  if (it == Lines().end()) return -1;
  std::vector<std::string> args;
  for (std::string arg; in >> arg;) args.push_back(arg);
  return it->second.fn(args) ? 0 : 1;
}

extern "C" int TolvSiblingSubcommand(const char *name, int argc, const char *const *argv) {
  auto it = Subcommands().find(name ? name : "");
  if (it == Subcommands().end()) return -1;
  std::vector<std::string> args(argv, argv + argc);
  return it->second.fn(args);
}

extern "C" const char *TolvSiblingUsage(const char *what) {
  static std::string text;
  text = std::string(what ? what : "") == "lines" ? UsageOf(Lines()) : UsageOf(Subcommands());
  return text.c_str();
}
