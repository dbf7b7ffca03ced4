// Line-type definition files in the host's text form:
//
//   ;; a comment
//   *NAME,description
//   A,12,-6,0,-6
//
// Positive lengths are dashes, negative ones gaps, 0 a dot. Elements in
// square brackets (text and shapes of complex line types) are passed over;
// a pattern keeps at most 12 elements.
#pragma once

#include <string>
#include <vector>

namespace tolv {

struct LinetypeDefinition {
  std::wstring name;
  std::wstring description;
  std::vector<double> dashes;
  double patternLength = 0.0;  // the sum of the lengths without sign
};

// All definitions of the text, in order.
std::vector<LinetypeDefinition> ParseLinetypeText(const std::wstring &text);
// The definition of that name (without regard to case) in the file at a
// system path; false when the file can't be read or has none.
bool FindLinetypeDefinition(const std::wstring &path, const std::wstring &name, LinetypeDefinition &def);

}  // namespace tolv
