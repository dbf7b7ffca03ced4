// The tolerances of the geometry library. Every comparison of lengths,
// angles, areas and volumes in the add-on goes through these, and the
// settings file may override each of them at start.
#pragma once

// The values the library starts with, before any settings are read.
namespace tolv::geometry_defaults {
constexpr double kFloatZero = 1.0e-10;   // a bare floating-point zero test
constexpr double kDistZero = 1.0e-4;     // drawing units (millimetres)
constexpr double kAngleZero = 1.0e-8;    // radians
constexpr double kAreaZero = 1.0e-6;     // square drawing units
constexpr double kVolumeZero = 1.0e-8;   // cubic drawing units
// Arcs are cut into chords of at most this angle: pi / 8, the settings'
// middle choice, in the ten-place form the settings table uses.
constexpr double kCircleMLinePreci = 0.3926990817;
}  // namespace tolv::geometry_defaults

extern double g_fZero;
extern double g_distZero;
extern double g_angleZero;
extern double g_areaZero;
extern double g_volumeZero;
extern double g_dCircleMLinePreci;

namespace tolv {
// Puts every tolerance back to the library's starting value.
void ResetGeometryTolerances();
}  // namespace tolv
