// The wide C runtime functions of the home platform, with its behaviour:
// leading blanks are skipped and text that is not a number gives 0.
#pragma once

#include <cstddef>

int _wtoi(const wchar_t *text);
long long _wtoi64(const wchar_t *text);
double _wtof(const wchar_t *text);
// Ordinal compare after folding A-Z to lower case, as in the "C" locale.
int _wcsicmp(const wchar_t *a, const wchar_t *b);
int _wcsnicmp(const wchar_t *a, const wchar_t *b, std::size_t count);
// mode 0: exists, 2: writable, 4: readable, 6: both. 0 on success, -1 if not.
int _waccess(const wchar_t *path, int mode);

wchar_t *_wcsupr(wchar_t *text);
wchar_t *_wcslwr(wchar_t *text);

namespace tolv {
// The case folding used by every case-insensitive compare of the system.
inline wchar_t FoldLower(wchar_t c) { return (c >= L'A' && c <= L'Z') ? wchar_t(c + 32) : c; }
inline wchar_t FoldUpper(wchar_t c) { return (c >= L'a' && c <= L'z') ? wchar_t(c - 32) : c; }
}  // namespace tolv
