// A host around the module for the tests that link it directly: a scratch
// support folder, captured command-line output and message boxes, the
// module's settings back at their starting values, and the host's messages
// sent the way the host sends them.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "platform/acad/AcEdLisp.h"
#include "platform/acad/AcRx.h"
#include "support/TestSupport.h"

class ModuleHarness : public ::testing::Test {
 protected:
  ModuleHarness();
  ~ModuleHarness() override;

  // Writes a settings file of the support folder: the dictionary root with
  // `body` inside it.
  void WriteConfig(const std::string &body);
  void WriteHistory(const std::string &body);
  void WriteSupportFile(const std::string &name, const std::string &bytes);
  bool SupportFileExists(const std::string &name) const;
  std::string ReadSupportFile(const std::string &name) const;

  // Messages as the host sends them, with this harness's application id.
  AcRx::AppRetCode Send(AcRx::AppMsgCode msg);
  void Start() { ASSERT_EQ(Send(AcRx::kInitAppMsg), AcRx::kRetOK); }
  void Stop() { ASSERT_EQ(Send(AcRx::kUnloadAppMsg), AcRx::kRetOK); }
  // Opens a document and lets the module define its functions in it.
  int OpenDocument();
  // Invokes a Lisp function of the current document through the module's
  // kInvkSubrMsg; fails the test when the function isn't defined.
  tolv::LispResult Invoke(const std::wstring &name);
  // The integer a Lisp function handed back.
  int InvokeInt(const std::wstring &name);

  void *appId() const { return appId_; }
  // Everything printed on the command line, and every message box, so far.
  const std::wstring &commandLine() const { return commandLine_; }
  const std::vector<std::wstring> &messageBoxes() const { return messageBoxes_; }

  tolvtest::ScratchDir support_{"module"};

 private:
  void *appId_ = nullptr;
  std::vector<int> documents_;
  std::wstring commandLine_;
  std::vector<std::wstring> messageBoxes_;
};

// The dictionary root around a body, as the settings files hold it.
std::string DictionaryFile(const std::string &body);
