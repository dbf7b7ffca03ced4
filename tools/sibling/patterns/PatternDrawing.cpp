#include "patterns/PatternDrawing.h"

#include <algorithm>
#include <cmath>
#include <cwchar>
#include <numbers>

#include "TolvDataBase.h"

namespace tolv::sibling::patterns {

namespace {

bool ReadNumber(const CString &text, double &value) {
  const wchar_t *begin = text.GetString();
  wchar_t *end = nullptr;
  value = std::wcstod(begin, &end);
  if (end == begin) return false;
  while (*end == L' ' || *end == L'\t') ++end;
  return *end == L'\0' && std::isfinite(value);
}

// Cuts the line p + t u to the square: false when it misses it.
bool ClipToSquare(double px, double py, double ux, double uy, double extent, double &t0, double &t1) {
  t0 = -HUGE_VAL;
  t1 = HUGE_VAL;
  const double p[2] = {px, py}, u[2] = {ux, uy};
  for (int axis = 0; axis < 2; ++axis) {
    if (std::fabs(u[axis]) < 1e-12) {
      if (p[axis] < -1e-9 || p[axis] > extent + 1e-9) return false;
      continue;
    }
    double a = (0 - p[axis]) / u[axis], b = (extent - p[axis]) / u[axis];
    if (a > b) std::swap(a, b);
    t0 = std::max(t0, a);
    t1 = std::min(t1, b);
  }
  return t1 > t0 + 1e-12;
}

}  // namespace

bool ReadFamily(const KyPatData &data, Family &family) {
  std::vector<double> values;
  for (const CString *p = data.GetFirst(); p; p = data.GetNext(p)) {
    double v = 0;
    if (!ReadNumber(*p, v)) return false;
    values.push_back(v);
  }
  if (values.size() < 5) return false;
  family.angle = values[0];
  family.x = values[1];
  family.y = values[2];
  family.dx = values[3];
  family.dy = values[4];
  family.dashes.assign(values.begin() + 5, values.end());
  return true;
}

std::vector<Family> ReadFamilies(const KyPat &pat, int *unreadable) {
  std::vector<Family> families;
  for (KyPatData *const *p = pat.m_lstData.GetFirst(); p; p = pat.m_lstData.GetNext(p)) {
    Family family;
    if (*p && ReadFamily(**p, family)) {
      families.push_back(family);
    } else if (unreadable) {
      ++*unreadable;
    }
  }
  return families;
}

Drawing Draw(const std::vector<Family> &families, double extent, std::size_t limit) {
  Drawing drawing;
  auto full = [&] {
    if (drawing.segments.size() + drawing.dots.size() < limit) return false;
    drawing.truncated = true;
    return true;
  };
  for (const Family &f : families) {
    const double a = f.angle * std::numbers::pi / 180.0;
    const double ux = std::cos(a), uy = std::sin(a);  // along the lines
    const double vx = -uy, vy = ux;                    // across them
    // Where the square lies across the family.
    double lo = HUGE_VAL, hi = -HUGE_VAL;
    for (double cx : {0.0, extent}) {
      for (double cy : {0.0, extent}) {
        double s = (cx - f.x) * vx + (cy - f.y) * vy;
        lo = std::min(lo, s);
        hi = std::max(hi, s);
      }
    }
    long long kFirst = 0, kLast = 0;
    if (std::fabs(f.dy) > 1e-12) {
      double k1 = lo / f.dy, k2 = hi / f.dy;
      if (k1 > k2) std::swap(k1, k2);
      if (k2 - k1 > static_cast<double>(limit)) {
        drawing.truncated = true;
        k2 = k1 + static_cast<double>(limit);
      }
      kFirst = static_cast<long long>(std::ceil(k1 - 1e-9));
      kLast = static_cast<long long>(std::floor(k2 + 1e-9));
    }
    double period = 0;
    for (double d : f.dashes) period += std::fabs(d);
    const bool solid = f.dashes.empty() || period < 1e-12;
    for (long long k = kFirst; k <= kLast; ++k) {
      if (full()) return drawing;
      // The k-th line of the family starts its dashes here.
      const double px = f.x + k * (f.dx * ux + f.dy * vx);
      const double py = f.y + k * (f.dx * uy + f.dy * vy);
      double t0, t1;
      if (!ClipToSquare(px, py, ux, uy, extent, t0, t1)) continue;
      if (solid) {
        drawing.segments.push_back({px + t0 * ux, py + t0 * uy, px + t1 * ux, py + t1 * uy});
        continue;
      }
      // A sequence too short to walk across the square is not drawn.
      if ((t1 - t0) / period > static_cast<double>(limit)) {
        drawing.truncated = true;
        continue;
      }
      // Walk the dash sequence from its last start before the square.
      double t = std::floor(t0 / period) * period;
      while (t <= t1 + 1e-9) {
        for (double d : f.dashes) {
          if (t > t1 + 1e-9) break;
          if (d > 0) {
            double s = std::max(t, t0), e = std::min(t + d, t1);
            if (e > s + 1e-9) {
              if (full()) return drawing;
              drawing.segments.push_back({px + s * ux, py + s * uy, px + e * ux, py + e * uy});
            }
          } else if (d == 0 && t >= t0 - 1e-9) {
            if (full()) return drawing;
            drawing.dots.push_back({px + t * ux, py + t * uy});
          }
          t += std::fabs(d);
        }
      }
    }
  }
  return drawing;
}

double NaturalExtent(const std::vector<Family> &families) {
  double longest = 0;
  for (const Family &f : families) {
    double period = 0;
    for (double d : f.dashes) period += std::fabs(d);
    longest = std::max({longest, std::fabs(f.dy), period});
  }
  return longest > 0 ? 10 * longest : 10;
}

}  // namespace tolv::sibling::patterns
