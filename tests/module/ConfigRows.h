// Every setting that LoadConfig reads, as a row: where it stands in the
// settings file, the kind of element it must be, what a sample value in
// the file gives, and what the setting gets when the key is missing.
#pragma once

#include <functional>
#include <ostream>
#include <string>
#include <vector>

enum class ConfigKind { kDouble, kInt, kBool, kIndex };

// How a setting's value is held; it bounds the sentinel values a test can
// plant in it.
enum class TargetRange { kBool, kTwoFlags, kByte, kShort, kUnsigned, kInt, kDouble };

struct ConfigRow {
  std::string id;            // a name for the test: the group and key
  std::wstring group;        // e.g. ADVANCE\SYSTEM\PRECISION
  std::wstring key;
  ConfigKind kind;
  // The value in the file for the "present" case: the element's text for
  // Double, Int and Bool; for Index the selected index among
  // `optionCount` generated options.
  std::string text;
  int index = 0;
  int optionCount = 0;
  double expected = 0;       // what the setting holds after reading it
  // What the setting holds after a read without the key (or with the key
  // of another kind) when it held `preset` before; identity means "kept".
  std::function<double(double preset)> absent;
  TargetRange range;
  std::function<double()> get;
  std::function<void(double)> set;
};

const std::vector<ConfigRow> &ConfigRows();

// Test reports name a row by its id.
inline void PrintTo(const ConfigRow &row, std::ostream *os) { *os << row.id; }

// The element for a row: as the row's kind, or deliberately of another kind.
std::string ConfigElement(const ConfigRow &row, bool wrongKind);
// Nested Directory elements for the group path around `inner`.
std::string ConfigNest(const std::wstring &group, const std::string &inner);
// The path of the dictionary that holds the group: the group path without
// its last name.
std::wstring ParentGroup(const std::wstring &group);
// A value of the row's range different from `avoid`.
double SentinelFor(const ConfigRow &row, double avoid);
