// The sibling module of the host program: host script lines and `tolv`
// subcommands that use the data layer as the add-on's other modules do,
// through its exported classes and functions. It is its own shared library,
// linked against the module, so the host program itself never links the
// module and can still load and unload it by file.
//
// Each subsystem registers its lines and subcommands with static objects in
// a file of its own:
//
//   static const tolv::sibling::HostLine kLine("LAYER", "LAYER KEY  ...", &LayerLine);
//   static const tolv::sibling::Subcommand kCmd("layer", "tolv layer ...", &LayerCommand);
#pragma once

#include <string>
#include <vector>

class AcDbDatabase;

namespace tolv::sibling {

// A host script line. `args` are the words after the line's first word, as
// typed (UTF-8). The handler prints what it got through acutPrintf, as a
// sibling module would, and returns false when the line failed.
using HostLineFn = bool (*)(const std::vector<std::string> &args);

// `tolv NAME ARGS...`: `args` are the words after NAME. Prints to standard
// output and errors to standard error; returns the exit status.
using SubcommandFn = int (*)(const std::vector<std::string> &args);

struct HostLine {
  // `word` is matched case-insensitively against a line's first word;
  // `usage` is one line or more for the host's HELP.
  HostLine(const char *word, const char *usage, HostLineFn fn);
};

struct Subcommand {
  // `usage` is the summary `tolv --help` shows for the subcommand.
  Subcommand(const char *name, const char *usage, SubcommandFn fn);
};

// The drawing that the host's document shows: where host lines act.
AcDbDatabase *WorkingDatabase();

// Splits a host line's argument at commas ("1200,900,600").
std::vector<std::string> SplitList(const std::string &text, char separator = ',');

}  // namespace tolv::sibling

// What the host program looks up in the library.
extern "C" {
// Serves one script line: -1 when no registered word starts it, else 0 for
// success and 1 for a failed line.
int TolvSiblingHostLine(const char *line);
// Runs `tolv NAME ...`: -1 when no subcommand has that name, else its exit
// status.
int TolvSiblingSubcommand(const char *name, int argc, const char *const *argv);
// The usage of every registered host line ("lines") or subcommand
// ("subcommands"), one after another in name order.
const char *TolvSiblingUsage(const char *what);
}
