// A settings dictionary and a drawing for the standards tests: the body of
// the system settings is written to a scratch main folder (with the bundled
// line-type file beside it) and read into the module's settings.
#pragma once

#include <gtest/gtest.h>

#include <string>

#include "platform/acad/AcDbDatabase.h"
#include "support/TestSupport.h"

class StandardsTest : public ::testing::Test {
 protected:
  StandardsTest();
  ~StandardsTest() override;

  // Replaces the settings by the dictionary root around `body` (UTF-8).
  void LoadConfig(const std::string &body);
  // Reads the bundled settings file of the support folder.
  void LoadBundledConfig();

  tolvtest::ScratchDir dir_{"standards"};
  AcDbDatabase db_;
};

// The layer names of the drawing, and a record's look, for assertions.
std::wstring LayerNameOf(AcDbObjectId id);
int LayerColorOf(AcDbObjectId id);
std::wstring LayerLinetypeOf(AcDbObjectId id);
int LayerLineWeightOf(AcDbObjectId id);
