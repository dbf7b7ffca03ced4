// tolv: the command-line program of the data layer. "tolv host" acts as the
// CAD host: it loads the module, sends it the host's messages and serves a
// command line against it. The subcommands for the data files come from the
// sibling module beside the data layer, which registers them.
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iostream>
#include <string>
#include <vector>

#include "host/HostOutput.h"
#include "host/HostSession.h"
#include "host/ModuleLoader.h"
#include "host/ScriptRunner.h"
#include "host/SiblingLoader.h"

namespace {

const char kUsage[] =
    "usage: tolv <command> [options]\n"
    "\n"
    "commands:\n"
    "  host    act as the CAD host for the TolvDataBase module\n"
    "  (the data files' commands follow below; each takes --help)\n"
    "\n"
    "tolv host [--module FILE] [--main-dir DIR] [--script FILE] [--cycles N]\n"
    "          [--drawing FILE] [--save-on-quit]\n"
    "\n"
    "  Loads the module with the host's messages in their order: kInitAppMsg\n"
    "  (the module registers its commands and reads config.xml and\n"
    "  HistoryData.xml), then opens a document (kLoadDwgMsg: the module\n"
    "  defines its Lisp functions in it). It then reads the command line, one\n"
    "  entry per line:\n"
    "\n"
    "    NAME          run the command NAME, e.g. KyPrj\n"
    "    (NAME)        invoke the Lisp function NAME and print its result,\n"
    "                  e.g. (_KyGetAutoBreak) or (_KySetDimAdjustMode)\n"
    "    SAVE          save the document's drawing under its name\n"
    "    SAVEAS FILE   save the drawing as FILE, the name it keeps from then on\n"
    "    QUIT, EXIT    end the input (so does the end of the input)\n"
    "    HELP          list the lines below\n"
    "    ; text        a comment\n"
    "\n"
    "  At the end it closes the document (kUnloadDwgMsg), stops the module\n"
    "  (kUnloadAppMsg: it saves config.xml and HistoryData.xml where it found\n"
    "  them) and unloads it.\n"
    "\n"
    "  The module's command-line output goes to standard output, with the\n"
    "  host's own report lines (\"host: ...\"); message boxes appear there as\n"
    "  lines marked \"[message box]\".\n"
    "\n"
    "  --module FILE   the module to load (default: ../lib/libTolvDataBase.so\n"
    "                  beside this program)\n"
    "  --main-dir DIR  the add-on's main directory, where the settings files\n"
    "                  are looked for (directly or in its \"Support\" folder,\n"
    "                  after the folders of TOLV_SUPPORT_PATH); sets\n"
    "                  TOLV_MAIN_DIR. Default: TOLV_MAIN_DIR, else the current\n"
    "                  folder.\n"
    "  --script FILE   read the command line from FILE (default: standard\n"
    "                  input; on a terminal with a prompt)\n"
    "  --cycles N      run the whole session N times in this one process:\n"
    "                  load, start, document, script, stop, unload (default 1).\n"
    "                  The script is read again for every cycle.\n"
    "  --drawing FILE  the document's drawing: read from FILE when it exists\n"
    "                  (a \".dwg\" name is read from its \".dxf\" sibling), else\n"
    "                  a new drawing to be saved there. Drawings are DXF files\n"
    "                  (release 2000). Default: a new drawing without a name.\n"
    "  --save-on-quit  save the drawing under its name before the document\n"
    "                  closes\n"
    "  --help          this text\n"
    "\n"
    "  Exit status: 0 when all went well, 1 when the module could not be\n"
    "  loaded or refused a message, 2 for a wrong command line, 3 when lines\n"
    "  of the input failed (unknown command or function, malformed form).\n";

struct HostOptions {
  std::string module = ModuleLoader::DefaultModulePath();
  std::string script;
  std::string drawing;
  bool saveOnQuit = false;
  int cycles = 1;
};

std::string FullUsage(const SiblingLoader &sibling);

// One session: load, start, serve the input, stop, unload. Gives the exit
// status of the session.
int RunSession(const HostOptions &options) {
  HostSession session;
  if (!session.Start(options.module)) return 1;
  if (!session.OpenDocument(options.drawing)) {
    session.Stop();
    return 1;
  }

  int lineErrors = 0;
  if (options.script.empty()) {
    const bool terminal = ::isatty(STDIN_FILENO);
    lineErrors = ScriptRunner(session, std::cin, terminal).Run();
  } else {
    std::ifstream in(options.script);
    if (!in) {
      HostLine("cannot read the script " + options.script);
      ++lineErrors;
    } else {
      lineErrors = ScriptRunner(session, in, false).Run();
    }
  }

  if (options.saveOnQuit && !session.SaveDrawing()) ++lineErrors;
  session.CloseDocument();
  session.Stop();
  if (session.failures()) return 1;
  return lineErrors ? 3 : 0;
}

int RunHost(const std::vector<std::string> &args) {
  HostOptions options;
  for (size_t i = 0; i < args.size(); ++i) {
    const std::string &a = args[i];
    const bool hasValue = i + 1 < args.size();
    if (a == "--module" && hasValue) {
      options.module = args[++i];
    } else if (a == "--main-dir" && hasValue) {
      ::setenv("TOLV_MAIN_DIR", args[++i].c_str(), 1);
    } else if (a == "--script" && hasValue) {
      options.script = args[++i];
    } else if (a == "--drawing" && hasValue) {
      options.drawing = args[++i];
    } else if (a == "--save-on-quit") {
      options.saveOnQuit = true;
    } else if (a == "--cycles" && hasValue) {
      options.cycles = std::atoi(args[++i].c_str());
      if (options.cycles < 1) {
        std::fprintf(stderr, "tolv host: --cycles needs a number of at least 1\n");
        return 2;
      }
    } else if (a == "--help" || a == "-h") {
      SiblingLoader sibling;
      sibling.LoadBeside(options.module);
      std::fputs(FullUsage(sibling).c_str(), stdout);
      return 0;
    } else {
      std::fprintf(stderr, "tolv host: unknown argument '%s'\n\n%s", a.c_str(), kUsage);
      return 2;
    }
  }

  InstallHostOutput();
  int status = 0;
  for (int cycle = 1; cycle <= options.cycles; ++cycle) {
    if (options.cycles > 1) HostLine("cycle " + std::to_string(cycle) + " of " + std::to_string(options.cycles));
    int s = RunSession(options);
    if (s > status) status = s;
    if (s == 1) break;
  }
  RemoveHostOutput();
  return status;
}

// The whole usage: the host's, then the lines and subcommands that the
// sibling module registered.
std::string FullUsage(const SiblingLoader &sibling) {
  std::string text = kUsage;
  if (!sibling.IsLoaded()) return text + "\n(no sibling module: " + sibling.error() + ")\n";
  std::string lines = sibling.LineUsage();
  if (!lines.empty()) text += "\nScript lines that call the module as a sibling module would:\n\n" + lines;
  std::string subcommands = sibling.SubcommandUsage();
  if (!subcommands.empty()) text += "\nCommands for the data files:\n\n" + subcommands;
  return text;
}

}  // namespace

int main(int argc, char **argv) {
  std::vector<std::string> args(argv + 1, argv + argc);
  if (args.empty()) {
    std::fputs(kUsage, stderr);
    return 2;
  }
  if (args[0] == "host") return RunHost({args.begin() + 1, args.end()});
  SiblingLoader sibling;
  sibling.LoadBeside(ModuleLoader::DefaultModulePath());
  if (args[0] == "--help" || args[0] == "-h" || args[0] == "help") {
    std::fputs(FullUsage(sibling).c_str(), stdout);
    return 0;
  }
  const int status = sibling.RunSubcommand(args[0], {args.begin() + 1, args.end()});
  if (status >= 0) return status;
  std::fprintf(stderr, "tolv: unknown command '%s' (tolv --help lists the commands)\n", args[0].c_str());
  return 2;
}
