// One test per setting that LoadConfig reads: the key present, the key of
// another kind, the key missing from its group, and the group missing.
#include <gtest/gtest.h>

#include "ConfigRows.h"
#include "ModuleHarness.h"
#include "dictionary/KyDtDictionary.h"
#include "module/ModuleGlobals.h"
#include "settings/SystemConfig.h"

namespace {

class SystemConfigRow : public ModuleHarness, public ::testing::WithParamInterface<ConfigRow> {
 protected:
  // Presets the setting, loads a settings file with that body and gives
  // the setting's value after the load.
  double LoadWith(double preset, const std::string &body) {
    const ConfigRow &row = GetParam();
    g_dictCfg.Reset();
    row.set(preset);
    WriteConfig(body);
    LoadConfig();
    return row.get();
  }
};

TEST_P(SystemConfigRow, PresentWrongKindMissingKeyAndMissingGroup) {
  const ConfigRow &row = GetParam();

  SCOPED_TRACE("key present");
  double preset = SentinelFor(row, row.expected);
  EXPECT_DOUBLE_EQ(LoadWith(preset, ConfigNest(row.group, ConfigElement(row, false))), row.expected);

  {
    SCOPED_TRACE("key of another kind reads as missing");
    preset = SentinelFor(row, row.absent(0.0));
    EXPECT_DOUBLE_EQ(LoadWith(preset, ConfigNest(row.group, ConfigElement(row, true))), row.absent(preset));
  }
  {
    SCOPED_TRACE("key missing from its group");
    preset = SentinelFor(row, row.absent(0.0));
    EXPECT_DOUBLE_EQ(LoadWith(preset, ConfigNest(row.group, "")), row.absent(preset));
  }
  {
    SCOPED_TRACE("group missing: nothing is assigned, not even a fixed default");
    preset = SentinelFor(row, row.absent(0.0));
    EXPECT_DOUBLE_EQ(LoadWith(preset, ConfigNest(ParentGroup(row.group), "")), preset);
  }
  EXPECT_TRUE(commandLine().empty());
}

INSTANTIATE_TEST_SUITE_P(EverySetting, SystemConfigRow, ::testing::ValuesIn(ConfigRows()),
                         [](const ::testing::TestParamInfo<ConfigRow> &info) { return info.param.id; });

}  // namespace
