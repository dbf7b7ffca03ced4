// Pictures of hatch patterns as SVG: one pattern over a square, or a sheet
// of every pattern of a file with its name.
#pragma once

#include <string>
#include <vector>

#include "patterns/PatternDrawing.h"

namespace tolv::sibling::patterns {

// The pattern over the square [0, extent]^2 in pattern units (the SVG's
// viewBox, y up), shown `size` pixels wide. The square's frame is a <rect>;
// every dash or solid line is one <line>, every dot a <circle>.
std::string PatternSvg(const std::string &name, const std::vector<Family> &families, double extent, int size,
                       bool *truncated = nullptr);

struct SheetEntry {
  std::string name;
  std::vector<Family> families;
};

// Tiles of `size` pixels in rows, each pattern over its natural square,
// with its name beneath.
std::string SheetSvg(const std::string &title, const std::vector<SheetEntry> &entries, int size);

// Text made safe for XML character data and attributes.
std::string XmlEscape(const std::string &text);

}  // namespace tolv::sibling::patterns
