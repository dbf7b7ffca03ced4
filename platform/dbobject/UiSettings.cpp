#include "platform/dbobject/UiSettings.h"

#define TOLV_DEFINE_UI_SETTING(type, name, initial) type name = initial;
TOLV_UI_SETTINGS(TOLV_DEFINE_UI_SETTING)
#undef TOLV_DEFINE_UI_SETTING

namespace tolv {

void ResetUiSettings() {
#define TOLV_RESET_UI_SETTING(type, name, initial) name = initial;
  TOLV_UI_SETTINGS(TOLV_RESET_UI_SETTING)
#undef TOLV_RESET_UI_SETTING
}

}  // namespace tolv
