// What `tolv project` and the PROJECT host lines show of a project file and
// of a project database, as text for people.
#pragma once

#include <ostream>
#include <string>

class KyDtProject;
class KyDtProjectDb;

namespace tolv::project_tool {

// Why a project or database file couldn't be read, for an error line:
// missing, not well-formed XML, or another root element than `root`.
std::string WhyUnreadable(const std::string &posixPath, const wchar_t *root);

// The floor table, the floor files and the drawing-set files (each marked
// when missing on disk) and the floor check. Gives whether the floors
// connect; `checkMessage` gets the check's message, empty when they do.
bool ReportProject(KyDtProject &project, std::ostream &out, std::wstring &checkMessage);

// The tree of a project database, references resolved to names; gives the
// number of references that point nowhere.
int ReportProjectDb(KyDtProjectDb &db, std::ostream &out);

// The system's form of a path typed on the command line, made absolute.
std::wstring SystemPathOf(const std::string &typed);

}  // namespace tolv::project_tool
