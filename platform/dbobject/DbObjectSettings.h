// The settings of the object module that the data layer fills from the
// settings files at start, and that every drawing command of the add-on
// reads as plain numbers and flags.
//
// The table below is the one list of them: type, name and the value each
// holds from load until the settings are read. A setting keeps that value
// when the settings file does not name it.
#pragma once

#include "platform/dbobject/KyDbSetting.h"

#define TOLV_DBOBJECT_SETTINGS(X)                                                  \
  /* precision of the object module's own tests, in drawing units (mm) */         \
  X(double, g_dLinearDistPrec, 1.0e-3)                                             \
  X(double, g_dWallDistZero, 0.5)                                                  \
  X(double, g_dPipeDistZero, 0.5)                                                  \
  /* modelling steps */                                                            \
  X(int, g_bModelSwitch, 0)                                                        \
  X(double, g_dWallStep, 50.0)                                                     \
  X(double, g_dWinStep, 50.0)                                                      \
  /* saving */                                                                     \
  X(int, g_bSaveProxyGraph, 1)                                                     \
  X(int, g_nSaveType, 0)                                                           \
  /* entity behaviour */                                                           \
  X(bool, g_bUserRelateModify, true)                                               \
  X(unsigned int, g_nRelateMoveMode, 0u)                                           \
  X(unsigned short, g_nBaseCurveColor, static_cast<unsigned short>(1))             \
  X(bool, g_bAutoBreak, true)                                                      \
  X(bool, g_bAutoMerge, true)                                                      \
  X(bool, g_bUseLayerStd, true)                                                    \
  /* automatic line-type scale */                                                  \
  X(bool, g_bAutoLTScale, false)                                                   \
  X(double, g_nLtMScale, 1.0)                                                      \
  X(double, g_nLtPScale, 1.0)                                                      \
  /* text */                                                                       \
  X(unsigned int, g_nTextExplodeType, 0u)                                          \
  X(bool, g_bUseQuickTextSize, true)                                               \
  X(bool, g_bQuickCircleText, true)                                                \
  /* axis labels */                                                                \
  X(unsigned short, g_nHidedAxisLabelColor, static_cast<unsigned short>(8))        \
  /* window lines */                                                               \
  X(unsigned int, g_nWinLineType, 0u)                                              \
  X(double, g_dThreeWinLineScale, 0.5)                                             \
  /* dimensions */                                                                 \
  X(unsigned int, g_nLinearDimType, 0u)                                            \
  X(unsigned int, g_nArcDimType, 0u)                                               \
  X(unsigned int, g_nDimAdjust, 0u)                                                \
  /* cuts */                                                                       \
  X(bool, g_bSingleLine, true)                                                     \
  /* commands */                                                                   \
  X(double, g_dMinWallLen, 300.0)                                                  \
  X(double, g_dAxisextend, 1000.0)                                                 \
  X(bool, g_bAutoBreakWall, true)                                                  \
  X(bool, g_bOpeningDimXRef, false)                                                \
  /* project manager */                                                            \
  X(bool, g_bLoadProject, false)                                                   \
  X(bool, g_bFloorDefShow, true)                                                   \
  X(double, g_dFloorLineLen, 2000.0)                                               \
  /* defaults of new objects, common */                                            \
  X(double, g_dAxisLabelDiameter, 800.0)                                           \
  X(unsigned char, g_nInitCircleTextOldStyle, static_cast<unsigned char>(0))       \
  X(double, g_dInitCircleTextHeightFactor, 0.6)                                    \
  X(double, g_dInitText2BaseFactor, 0.2)                                           \
  X(double, g_dInitEleTriangleSize, 3.0)                                           \
  X(double, g_dInitEleDoteSize, 1.0)                                               \
  X(unsigned char, g_nInitSymbElevPrecision, static_cast<unsigned char>(3))        \
  X(unsigned char, g_nInitSymbCoordPrecision, static_cast<unsigned char>(3))       \
  X(KyDbSetting::DisplayMode, g_nInitDisplayMode, KyDbSetting::kDisplayPlan)       \
  X(double, g_dInitPlotScale, 100.0)                                               \
  X(double, g_dInitDetailScale, 20.0)                                              \
  X(double, g_dInitFloorHeight, 3000.0)                                            \
  X(unsigned char, g_nInitDrawUnit, static_cast<unsigned char>(0))                 \
  X(int, g_bInitDynamicDim, 0)                                                     \
  X(bool, g_bUcsAsLayoutAngle, false)                                              \
  X(bool, g_bInitByVPScale, false)                                                 \
  X(bool, g_bInitByVPAngle, false)                                                 \
  /* defaults of new objects, building parts */                                    \
  X(int, g_bInitSolidFill, 0)                                                      \
  X(int, g_bInitBoldLine, 0)                                                       \
  X(int, g_bInitShowBaseCurve, 0)                                                  \
  X(unsigned char, g_nInitSpaceDispMode, static_cast<unsigned char>(1))            \
  X(unsigned char, g_nInitSpaceAreaPrecision, static_cast<unsigned char>(2))       \
  X(int, g_bInitStairSingleSect, 0)                                                \
  /* history: the version last chosen for the export to the other format */      \
  X(int, g_nExportMorvVer, 7)

#define TOLV_DECLARE_SETTING(type, name, initial) extern type name;
TOLV_DBOBJECT_SETTINGS(TOLV_DECLARE_SETTING)
#undef TOLV_DECLARE_SETTING

namespace tolv {
// Puts every setting of the table back to its value at load.
void ResetDbObjectSettings();
}  // namespace tolv
