// Text conversions between the wide form of the system and byte forms:
// UTF-8 (files, the disk), UTF-16 (archives, INI files) and code page 936
// (GBK, the add-on's home narrow code page).
#pragma once

#include <string>
#include <string_view>

namespace tolv {

// Invalid UTF-8 becomes U+FFFD; characters outside the BMP are kept whole.
std::wstring FromUtf8(std::string_view bytes);
std::string ToUtf8(std::wstring_view text);

// UTF-16 code units, as the archive and INI forms hold them; surrogate pairs
// join into one wide character and lone surrogates are kept as they stand.
std::wstring FromUtf16(std::u16string_view units);
std::u16string ToUtf16(std::wstring_view text);

// The pieces of that decoding, for readers that decode in place.
constexpr bool IsHighSurrogate(char32_t u) { return u >= 0xD800 && u <= 0xDBFF; }
constexpr bool IsLowSurrogate(char32_t u) { return u >= 0xDC00 && u <= 0xDFFF; }
constexpr wchar_t JoinSurrogates(char32_t high, char32_t low) {
  return static_cast<wchar_t>(0x10000 + ((high - 0xD800) << 10) + (low - 0xDC00));
}

// Code page 936. A character the code page can't hold becomes '?'; a byte
// sequence that isn't GBK becomes U+003F too. ASCII passes through without
// touching the tables.
std::string ToGbk(std::wstring_view text);
std::wstring FromGbk(std::string_view bytes);

// Compares the code-page-936 forms of two texts byte by byte, as strcmp
// would compare them after ToGbk, without building them: <0, 0 or >0.
int CompareGbk(std::wstring_view a, std::wstring_view b);

// The code pages of the Windows conversion functions that the system uses.
constexpr unsigned kCodePageAnsi = 0;   // CP_ACP, which is 936 here
constexpr unsigned kCodePageGbk = 936;
constexpr unsigned kCodePageUtf8 = 65001;

}  // namespace tolv
