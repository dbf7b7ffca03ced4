// The lines a hatch pattern draws over a square: each data line of a
// pattern is a family of parallel lines (angle, origin, offset along and
// across the line, dashes), repeated across the square and cut to it.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

class KyPat;
class KyPatData;

namespace tolv::sibling::patterns {

// One data line as numbers. Dashes: above 0 a dash, below 0 a gap, 0 a dot;
// none means a solid line.
struct Family {
  double angle = 0;  // degrees
  double x = 0, y = 0;
  double dx = 0, dy = 0;  // along the line and across it
  std::vector<double> dashes;
};

// False when the line has fewer than five fields or a field is not a
// finite number.
bool ReadFamily(const KyPatData &data, Family &family);
// The families of every data line that reads; the count of those that
// don't goes to `unreadable`.
std::vector<Family> ReadFamilies(const KyPat &pat, int *unreadable = nullptr);

struct Segment {
  double x1, y1, x2, y2;
};
struct Dot {
  double x, y;
};

struct Drawing {
  std::vector<Segment> segments;
  std::vector<Dot> dots;
  bool truncated = false;  // the limit of pieces was reached
};

// The pieces the families draw inside [0, extent] x [0, extent], at most
// `limit` of them in all.
Drawing Draw(const std::vector<Family> &families, double extent, std::size_t limit = 200000);

// A square that shows a few repeats of the pattern: ten times its longest
// spacing or dash sequence.
double NaturalExtent(const std::vector<Family> &families);

}  // namespace tolv::sibling::patterns
