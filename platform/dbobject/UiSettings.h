// The settings of the user interface that the object module's editors and
// pickers read, filled at start from the "COMMON_DICT" dictionary of the UI
// configuration. Each holds the value in the table from load until then,
// and keeps it when the dictionary doesn't name it.
#pragma once

#define TOLV_UI_SETTINGS(X)                                                              \
  /* in-place editing: colours as Windows colour values (0x00BBGGRR), height in px */ \
  X(int, g_nColorInPlaceGround, 0x00FFFFFF)                                              \
  X(int, g_nColorInPlaceText, 0x00000000)                                                \
  X(int, g_nDynEditFontHeight, 16)                                                       \
  /* dynamic input: on (1) or off (0), and how many dimensions it shows at most */    \
  X(int, g_bDynInput, 1)                                                                 \
  X(int, g_iMaxDynDimNum, 4)                                                             \
  /* the scale pan: diameter in px, colour index, steps in degrees, 0 or 1 flags */   \
  X(double, g_dDiameter, 120.0)                                                          \
  X(int, g_nColor, 3)                                                                    \
  X(double, g_dScaleUnitAngle, 5.0)                                                      \
  X(double, g_dTextUnitAngle, 30.0)                                                      \
  X(int, g_bDrawScaleLine, 1)                                                            \
  X(int, g_bScaleTextSnap, 1)                                                            \
  /* whether the hot keys of the command definitions are in force */                  \
  X(bool, g_bEnableHotKey, true)

#define TOLV_DECLARE_UI_SETTING(type, name, initial) extern type name;
TOLV_UI_SETTINGS(TOLV_DECLARE_UI_SETTING)
#undef TOLV_DECLARE_UI_SETTING

namespace tolv {
// Puts every UI setting back to its value at load.
void ResetUiSettings();
}  // namespace tolv
