// Enumerations of the host's drawing database.
#pragma once

namespace AcDb {

enum OpenMode : int { kForRead = 0, kForWrite = 1, kForNotify = 2 };

// Line weights in hundredths of a millimetre, and the three special values.
enum LineWeight : int {
  kLnWt000 = 0,
  kLnWt005 = 5,
  kLnWt009 = 9,
  kLnWt013 = 13,
  kLnWt015 = 15,
  kLnWt018 = 18,
  kLnWt020 = 20,
  kLnWt025 = 25,
  kLnWt030 = 30,
  kLnWt035 = 35,
  kLnWt040 = 40,
  kLnWt050 = 50,
  kLnWt053 = 53,
  kLnWt060 = 60,
  kLnWt070 = 70,
  kLnWt080 = 80,
  kLnWt090 = 90,
  kLnWt100 = 100,
  kLnWt106 = 106,
  kLnWt120 = 120,
  kLnWt140 = 140,
  kLnWt158 = 158,
  kLnWt200 = 200,
  kLnWt211 = 211,
  kLnWtByLayer = -1,
  kLnWtByBlock = -2,
  kLnWtByLwDefault = -3,
};

// Drawing units of $INSUNITS.
enum UnitsValue : int {
  kUnitsUndefined = 0,
  kUnitsInches = 1,
  kUnitsFeet = 2,
  kUnitsMillimeters = 4,
  kUnitsCentimeters = 5,
  kUnitsMeters = 6,
};

}  // namespace AcDb
