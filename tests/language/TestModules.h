// Small modules with Chinese resources, written as PE files.
#pragma once

#include <filesystem>
#include <string>

#include "TolvDataBase.h"

namespace langtest {

// A dialog template: caption and (class, text, id) controls.
struct Control {
  const wchar_t *className;
  const wchar_t *text;
  unsigned id;
};
std::string Dialog(const std::wstring &caption, std::initializer_list<Control> controls, bool withFont = true);

// A module with dialog 101, menu 200, strings 17 and 18 (block 2), tool
// bar 300, in Chinese and English, and the entries of the dialog's combo
// box 4 (左, 中, 右 / Left, Centre, Right).
std::string SampleModule();

void WriteBytes(const std::filesystem::path &path, const std::string &bytes);

}  // namespace langtest
