// `tolv lang`: the language package and the modules it is made from, for
// the people who prepare translations.
#pragma once

#include <ostream>
#include <string>
#include <vector>

namespace tolv::lang {

// `args` are the words after "lang". Exit status 0 for success, 1 when
// what was asked for is not there, 2 for bad usage or unreadable input.
int Run(const std::vector<std::string> &args, std::ostream &out, std::ostream &err);

}  // namespace tolv::lang
