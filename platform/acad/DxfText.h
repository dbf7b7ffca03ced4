// The text form of drawing-file values: how numbers, handles and texts are
// spelled in ASCII DXF, and back.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace tolv {

// The shortest decimal that reads back as the same double, always with a
// decimal point or exponent ("1.0", "0.1", "1e+20"); 0.0 for NaN and infinity.
std::string FormatDxfReal(double value);
std::string FormatDxfHandle(std::uint64_t handle);
// Text in the drawing code page ANSI_936 (code page 936, as drawings of
// the add-on's home are written): characters that code page lacks become
// \U+XXXX, control characters ^@ to ^_, and a caret "^ ".
std::string EncodeDxfText(std::wstring_view text);
// The reverse of EncodeDxfText for text already decoded from the file's
// bytes (\U+XXXX and the caret forms).
std::wstring DecodeDxfEscapes(std::wstring_view text);

// Strict number readers for group values: surrounding blanks allowed,
// nothing else. False for anything that is no number.
bool ParseDxfInt(std::string_view text, std::int64_t &value);
bool ParseDxfReal(std::string_view text, double &value);
bool ParseDxfHandle(std::wstring_view text, std::uint64_t &handle);

}  // namespace tolv
