// `tolv project`: the floor table, files and floor check of a project file,
// or the tree of a project database, for the people who keep them.
#include <iostream>

#include "SiblingRegistry.h"
#include "TolvDataBase.h"
#include "platform/acad/AcutPrintf.h"
#include "platform/windows/PathMap.h"
#include "project/ProjectReport.h"

namespace {

using tolv::project_tool::SystemPathOf;
using tolv::project_tool::WhyUnreadable;

const char *kUsage =
    "usage: tolv project [--check] FILE\n"
    "       tolv project --db [--check] FILE\n"
    "\n"
    "With a project file (root TolvProject): the floor table (number, height, base\n"
    "point, extent, drawing), the floor files and the drawing-set files with their\n"
    "full paths, those missing on disk marked, and the floor check with its message.\n"
    "With --db and a project database (root TolvDictionary): its regions, floors and\n"
    "sub-floors, views, drawings and files, references resolved to names and those\n"
    "pointing nowhere marked.\n"
    "\n"
    "  --check   exit 1 when the floors don't connect (with --db: when a reference\n"
    "            points nowhere)\n"
    "  --help    this text\n"
    "\n"
    "Exit status: 0 done, 1 the check found a problem, 2 bad usage or unreadable file.\n";

int ProjectCommand(const std::vector<std::string> &args) {
  bool check = false, database = false;
  std::vector<std::string> files;
  for (const std::string &arg : args) {
    if (arg == "--help" || arg == "-h") {
      std::cout << kUsage;
      return 0;
    }
    if (arg == "--check") {
      check = true;
    } else if (arg == "--db") {
      database = true;
    } else if (arg.size() > 1 && arg[0] == '-') {
      std::cerr << "tolv project: unknown option " << arg << "\n" << kUsage;
      return 2;
    } else {
      files.push_back(arg);
    }
  }
  if (files.size() != 1) {
    std::cerr << "tolv project: give one file\n" << kUsage;
    return 2;
  }
  const std::string &file = files[0];
  const std::wstring path = SystemPathOf(file);
  // The database's reader reports references it can't resolve on the
  // command line; the report shows them itself.
  tolv::CommandLineSink old = tolv::SetCommandLineSink([](const std::wstring &) {});
  int status = 0;
  if (database) {
    KyDtProjectDb db;
    if (!db.ReadFromXML(path.c_str())) {
      tolv::SetCommandLineSink(old);
      std::cerr << "tolv project: " << file << ": " << WhyUnreadable(file, L"TolvDictionary") << "\n";
      return 2;
    }
    int dangling = tolv::project_tool::ReportProjectDb(db, std::cout);
    status = check && dangling > 0 ? 1 : 0;
  } else {
    KyDtProject project;
    if (!project.ReadFromXML(path.c_str())) {
      tolv::SetCommandLineSink(old);
      std::cerr << "tolv project: " << file << ": " << WhyUnreadable(file, L"TolvProject") << "\n";
      return 2;
    }
    std::wstring message;
    bool connected = tolv::project_tool::ReportProject(project, std::cout, message);
    if (!connected) std::cerr << "tolv project: " << file << ": the floors don't connect\n";
    status = check && !connected ? 1 : 0;
  }
  tolv::SetCommandLineSink(old);
  return status;
}

const tolv::sibling::Subcommand kProject(
    "project", "  project [--db] [--check] FILE\n"
    "                 a project file's floors and files, or a project database's tree\n",
    &ProjectCommand);

}  // namespace
