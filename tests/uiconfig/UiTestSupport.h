// Shared by the UI configuration tests: the element classes registered, the
// command line captured, and documents written to a scratch folder.
#pragma once

#include <gtest/gtest.h>

#include <string>

#include "support/TestSupport.h"
#include "uiconfig/KyDtUI.h"

class UiTest : public ::testing::Test {
 protected:
  UiTest();
  ~UiTest() override;

  // Writes a file of the scratch folder and gives its path as the system
  // takes it.
  std::wstring WriteFile(const std::string &name, const std::string &bytes);
  std::string ReadFile(const std::string &name) const;
  // A document: the root element around `body`.
  static std::string Document(const std::string &body);
  // Reads the document of `body` into `config`; fails the test on false.
  void Read(KyDtUIConfig &config, const std::string &body);

  const std::wstring &commandLine() const { return commandLine_; }
  void ClearCommandLine() { commandLine_.clear(); }

  tolvtest::ScratchDir dir_{"uiconfig"};

 private:
  std::wstring commandLine_;
};

// The message a reference to a name not read before it prints.
std::wstring UnboundMessage(const std::wstring &name);
