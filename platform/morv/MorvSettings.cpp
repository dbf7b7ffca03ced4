#include "platform/morv/MorvSettings.h"

unsigned char g_nSaveMorvVer = tolv::morv_defaults::kSaveMorvVer;

namespace tolv {

void ResetMorvSettings() { g_nSaveMorvVer = morv_defaults::kSaveMorvVer; }

}  // namespace tolv
