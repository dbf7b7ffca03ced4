#include "platform/dbobject/DbObjectSettings.h"

#define TOLV_DEFINE_SETTING(type, name, initial) type name = initial;
TOLV_DBOBJECT_SETTINGS(TOLV_DEFINE_SETTING)
#undef TOLV_DEFINE_SETTING

namespace tolv {

void ResetDbObjectSettings() {
#define TOLV_RESET_SETTING(type, name, initial) name = initial;
  TOLV_DBOBJECT_SETTINGS(TOLV_RESET_SETTING)
#undef TOLV_RESET_SETTING
}

}  // namespace tolv
