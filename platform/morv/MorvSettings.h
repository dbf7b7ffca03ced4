// The other-format object module's setting that the data layer fills: the
// format version its objects are saved in.
#pragma once

namespace tolv::morv_defaults {
// Version 7 is what the settings give when they name no version.
constexpr unsigned char kSaveMorvVer = 7;
}  // namespace tolv::morv_defaults

extern unsigned char g_nSaveMorvVer;

namespace tolv {
// Puts the save version back to the module's starting value.
void ResetMorvSettings();
}  // namespace tolv
