#include "platform/geometry/GeTolerance.h"

double g_fZero = tolv::geometry_defaults::kFloatZero;
double g_distZero = tolv::geometry_defaults::kDistZero;
double g_angleZero = tolv::geometry_defaults::kAngleZero;
double g_areaZero = tolv::geometry_defaults::kAreaZero;
double g_volumeZero = tolv::geometry_defaults::kVolumeZero;
double g_dCircleMLinePreci = tolv::geometry_defaults::kCircleMLinePreci;

namespace tolv {

void ResetGeometryTolerances() {
  g_fZero = geometry_defaults::kFloatZero;
  g_distZero = geometry_defaults::kDistZero;
  g_angleZero = geometry_defaults::kAngleZero;
  g_areaZero = geometry_defaults::kAreaZero;
  g_volumeZero = geometry_defaults::kVolumeZero;
  g_dCircleMLinePreci = geometry_defaults::kCircleMLinePreci;
}

}  // namespace tolv
