// Reading INI files as the Windows profile functions do. Files may be UTF-16LE
// with a byte-order mark, UTF-8 (with or without one), or code page 936.
#pragma once

#include <cstdint>

using DWORD = std::uint32_t;

// Copies the value of `key` in `section` into `buffer` (at most size - 1
// characters and a terminator) and gives the number of characters copied.
// A missing file, section or key gives `defaultValue`. A null key lists the
// section's keys, a null section all sections, each ended by a null
// character, with one more at the end. Names compare without case.
DWORD GetPrivateProfileStringW(const wchar_t *section, const wchar_t *key,
                               const wchar_t *defaultValue, wchar_t *buffer, DWORD size,
                               const wchar_t *fileName);

// The value as a number, or `defaultValue` when absent.
unsigned GetPrivateProfileIntW(const wchar_t *section, const wchar_t *key, int defaultValue,
                               const wchar_t *fileName);
