// A support folder with "Set.ini" and a language package, and the
// language state put back after each test.
#pragma once

#include <gtest/gtest.h>

#include <string>

#include "TolvDataBase.h"
#include "platform/acad/AcutPrintf.h"
#include "platform/mfc/AfxMessage.h"
#include "platform/utility/SupportFiles.h"
#include "platform/windows/PathMap.h"
#include "platform/windows/TextCodec.h"
#include "support/TestSupport.h"

namespace langtest {

// Writes text as UTF-8.
void WriteText(const std::filesystem::path &path, const std::wstring &text);

// A package in the dictionary XML form; `modules` is the XML of the module
// dictionaries.
std::wstring Package(const std::wstring &modules);

// Forgets the loaded package and the switch.
void ResetLanguageState();

class LanguageTest : public ::testing::Test {
 protected:
  LanguageTest();
  ~LanguageTest() override;

  // Writes "Set.ini" with the language and the package, then starts.
  void Start(const std::wstring &language, const std::wstring &modulesXml);
  // Makes a module's table current (as KyUtPushResource does for a module).
  KyDtDictionary *Current(const wchar_t *moduleKey);

  tolvtest::ScratchDir dir_;
  std::wstring printed_;
  tolv::CommandLineSink oldSink_;
};

}  // namespace langtest
