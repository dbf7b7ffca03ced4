// Fills the local names of a package from another language's resources of
// the same modules: the translation that a module already carries (a
// dialog's English template beside its Chinese one) becomes the package's.
#pragma once

#include <ostream>
#include <string>

class KyDtDictionary;

namespace tolv::lang {

struct FillCount {
  int dialogs = 0, controls = 0, menuItems = 0, strings = 0;
};

// `modulePath` is the module's path in the system's form; its table is the
// package's dictionary of its key. Dialog controls are paired by position
// where both templates have the same controls, else by id; menus where
// both have the same shape.
FillCount FillFromResources(KyDtDictionary &package, const std::wstring &modulePath, unsigned short language);

}  // namespace tolv::lang
