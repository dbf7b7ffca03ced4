// printf-style formatting with the home platform's wide-format rules: in a
// wide format "%s" and "%c" take wide arguments, "%S" and "%C" narrow ones,
// and the "l" of "%ld" names a 32-bit value. Narrow text is code page 936.
#pragma once

#include <cstdarg>
#include <string>

namespace tolv {

std::wstring FormatWideV(const wchar_t *format, va_list args);
std::wstring FormatWide(const wchar_t *format, ...);

}  // namespace tolv
