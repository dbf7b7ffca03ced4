// Drawing-wide defaults of the object module.
#pragma once

class KyDbSetting {
 public:
  // How new objects show themselves. The settings file selects it by the
  // index of an option, which is kept as it is found, so the underlying
  // type is that of the index and any number is a valid value.
  enum DisplayMode : unsigned int {
    kDisplayPlan = 0,    // plan symbols only
    kDisplayModel = 1,   // three-dimensional model only
    kDisplayBoth = 2,    // plan in plan views, model elsewhere
  };
};
