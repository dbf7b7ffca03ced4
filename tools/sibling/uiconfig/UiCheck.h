// `tolv ui`: what the people who keep "UIConfig.xml" need to know about it.
// The file is read by the module's own reader, so the findings are those
// of a real start; line numbers come from a scan of the file's start tags.
#pragma once

#include <ostream>
#include <string>
#include <vector>

namespace tolv::sibling::ui {

// `tolv ui FILE [--tree SECTION]`: 0 clean, 1 a reference that doesn't
// bind, 2 bad usage or an unreadable file.
int UiCommand(const std::vector<std::string> &args, std::ostream &out, std::ostream &err);

// The line (from 1) of each start tag of a well-formed document, in
// document order.
std::vector<int> StartTagLines(const std::string &bytes);

}  // namespace tolv::sibling::ui
