#include "platform/windows/WideFormat.h"

#include <cstdio>
#include <cstdlib>
#include <cwchar>
#include <wchar.h>

namespace tolv {

namespace {

// Rewrites a home-platform wide format into the C library's dialect.
std::wstring TranslateFormat(const wchar_t *format) {
  std::wstring out;
  for (const wchar_t *p = format; *p; ++p) {
    out += *p;
    if (*p != L'%') continue;
    ++p;
    if (*p == L'%') {
      out += *p;
      continue;
    }
    // Flags, width and precision pass as they are.
    while (*p && std::wcschr(L"-+ #0", *p)) out += *p++;
    while (*p && ((*p >= L'0' && *p <= L'9') || *p == L'*' || *p == L'.')) out += *p++;
    // Length modifiers: "l" is 32 bits on the home platform; "I64" and "ll"
    // are 64; "h" on a string or character means narrow.
    bool narrow = false, wide = false, longLong = false;
    for (;;) {
      if (*p == L'I' && p[1] == L'6' && p[2] == L'4') {
        longLong = true;
        p += 3;
      } else if (*p == L'l' && p[1] == L'l') {
        longLong = true;
        p += 2;
      } else if (*p == L'l') {
        wide = true;
        ++p;
      } else if (*p == L'h') {
        narrow = true;
        ++p;
      } else {
        break;
      }
    }
    wchar_t conv = *p;
    if (!conv) break;
    switch (conv) {
      case L's':
      case L'c':
        out += narrow ? L"" : L"l";
        out += conv;
        break;
      case L'S':
      case L'C':
        out += wide ? L"l" : L"";
        out += static_cast<wchar_t>(conv + (L'a' - L'A'));
        break;
      case L'd':
      case L'i':
      case L'u':
      case L'x':
      case L'X':
      case L'o':
        if (longLong) out += L"ll";
        else if (narrow) out += L"h";
        out += conv;
        break;
      default:  // floating point and the rest: "l" means nothing there
        out += conv;
        break;
    }
  }
  return out;
}

}  // namespace

std::wstring FormatWideV(const wchar_t *format, va_list args) {
  if (!format) return {};
  std::wstring fmt = TranslateFormat(format);
  // A growing memory stream needs no guess of the length; an argument the
  // C library can't convert ends the text where it stands.
  wchar_t *data = nullptr;
  size_t size = 0;
  FILE *stream = open_wmemstream(&data, &size);
  if (!stream) return {};
  va_list copy;
  va_copy(copy, args);
  std::vfwprintf(stream, fmt.c_str(), copy);
  va_end(copy);
  std::fclose(stream);
  std::wstring out(data ? data : L"", size);
  std::free(data);
  return out;
}

std::wstring FormatWide(const wchar_t *format, ...) {
  va_list args;
  va_start(args, format);
  std::wstring s = FormatWideV(format, args);
  va_end(args);
  return s;
}

}  // namespace tolv
