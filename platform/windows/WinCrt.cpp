#include "platform/windows/WinCrt.h"

#include <climits>
#include <cwchar>
#include <cwctype>
#include <unistd.h>

#include "platform/windows/PathMap.h"

namespace {

bool IsBlank(wchar_t c) {
  return c == L' ' || c == L'\t' || c == L'\n' || c == L'\r' || c == L'\v' || c == L'\f';
}

// Parses an optional sign and decimal digits, clamping on overflow as the
// runtime does.
long long ParseInteger(const wchar_t *text, long long lo, long long hi) {
  if (!text) return 0;
  while (IsBlank(*text)) ++text;
  bool negative = false;
  if (*text == L'+' || *text == L'-') negative = (*text++ == L'-');
  // Anything above 2^63 clamps either way, so digits stop counting there;
  // the test comes before the multiply so the value can never wrap.
  constexpr unsigned long long kLimit = static_cast<unsigned long long>(LLONG_MAX) + 1ULL;
  unsigned long long value = 0;
  bool overflow = false;
  for (; *text >= L'0' && *text <= L'9'; ++text) {
    if (overflow) continue;
    unsigned digit = static_cast<unsigned>(*text - L'0');
    if (value > (kLimit - digit) / 10) overflow = true;
    else value = value * 10 + digit;
  }
  if (negative) {
    if (overflow || value > static_cast<unsigned long long>(-(lo + 1)) + 1ULL) return lo;
    return -static_cast<long long>(value - 1) - 1;
  }
  if (overflow || value > static_cast<unsigned long long>(hi)) return hi;
  return static_cast<long long>(value);
}

}  // namespace

int _wtoi(const wchar_t *text) { return static_cast<int>(ParseInteger(text, INT_MIN, INT_MAX)); }

long long _wtoi64(const wchar_t *text) { return ParseInteger(text, LLONG_MIN, LLONG_MAX); }

double _wtof(const wchar_t *text) {
  if (!text) return 0.0;
  // wcstod skips leading blanks itself and gives 0 for garbage. The program
  // never changes LC_NUMERIC, so the decimal point is always '.'.
  return std::wcstod(text, nullptr);
}

int _wcsicmp(const wchar_t *a, const wchar_t *b) {
  for (;; ++a, ++b) {
    wchar_t ca = tolv::FoldLower(*a), cb = tolv::FoldLower(*b);
    if (ca != cb) return ca < cb ? -1 : 1;
    if (ca == 0) return 0;
  }
}

int _wcsnicmp(const wchar_t *a, const wchar_t *b, std::size_t count) {
  for (; count > 0; --count, ++a, ++b) {
    wchar_t ca = tolv::FoldLower(*a), cb = tolv::FoldLower(*b);
    if (ca != cb) return ca < cb ? -1 : 1;
    if (ca == 0) return 0;
  }
  return 0;
}

int _waccess(const wchar_t *path, int mode) {
  if (!path) return -1;
  int how = F_OK;
  if (mode & 2) how |= W_OK;
  if (mode & 4) how |= R_OK;
  return ::access(tolv::MapPath(path).c_str(), how) == 0 ? 0 : -1;
}

wchar_t *_wcsupr(wchar_t *text) {
  for (wchar_t *p = text; p && *p; ++p) *p = tolv::FoldUpper(*p);
  return text;
}

wchar_t *_wcslwr(wchar_t *text) {
  for (wchar_t *p = text; p && *p; ++p) *p = tolv::FoldLower(*p);
  return text;
}
