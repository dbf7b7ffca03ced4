#include "platform/acad/DxfText.h"

#include <charconv>
#include <cmath>
#include <cstdio>
#include <cstdlib>

#include "platform/windows/TextCodec.h"

namespace tolv {

std::string FormatDxfReal(double value) {
  if (!std::isfinite(value)) return "0.0";
  if (value == 0.0) return "0.0";  // also for -0.0
  char buffer[64];
  auto result = std::to_chars(buffer, buffer + sizeof buffer, value);
  std::string text(buffer, result.ptr);
  if (text.find_first_of(".eEn") == std::string::npos) text += ".0";
  return text;
}

std::string FormatDxfHandle(std::uint64_t handle) {
  char buffer[32];
  std::snprintf(buffer, sizeof buffer, "%llX", static_cast<unsigned long long>(handle));
  return buffer;
}

std::string EncodeDxfText(std::wstring_view text) {
  std::string out;
  out.reserve(text.size());
  for (wchar_t c : text) {
    auto u = static_cast<std::uint32_t>(c);
    if (u < 0x20) {
      out += '^';
      out += static_cast<char>(u + 0x40);
    } else if (u == '^') {
      out += "^ ";
    } else if (u < 0x7F) {
      out += static_cast<char>(u);
    } else if (std::string gbk = ToGbk(std::wstring_view(&c, 1)); gbk != "?") {
      out += gbk;
    } else if (u <= 0xFFFF) {
      char buffer[16];
      std::snprintf(buffer, sizeof buffer, "\\U+%04X", static_cast<unsigned>(u));
      out += buffer;
    } else {
      // Beyond the basic plane: as a pair of surrogates.
      std::uint32_t v = u - 0x10000;
      char buffer[32];
      std::snprintf(buffer, sizeof buffer, "\\U+%04X\\U+%04X", static_cast<unsigned>(0xD800 + (v >> 10)),
                    static_cast<unsigned>(0xDC00 + (v & 0x3FF)));
      out += buffer;
    }
  }
  return out;
}

namespace {

int Hex(wchar_t c) {
  if (c >= L'0' && c <= L'9') return c - L'0';
  if (c >= L'A' && c <= L'F') return c - L'A' + 10;
  if (c >= L'a' && c <= L'f') return c - L'a' + 10;
  return -1;
}

}  // namespace

std::wstring DecodeDxfEscapes(std::wstring_view text) {
  std::wstring out;
  out.reserve(text.size());
  for (std::size_t i = 0; i < text.size(); ++i) {
    wchar_t c = text[i];
    if (c == L'\\' && i + 6 < text.size() && (text[i + 1] == L'U' || text[i + 1] == L'u') && text[i + 2] == L'+') {
      int a = Hex(text[i + 3]), b = Hex(text[i + 4]), d = Hex(text[i + 5]), e = Hex(text[i + 6]);
      if (a >= 0 && b >= 0 && d >= 0 && e >= 0) {
        std::uint32_t u = static_cast<std::uint32_t>((a << 12) | (b << 8) | (d << 4) | e);
        if (tolv::IsHighSurrogate(u) && i + 13 < text.size() && text[i + 7] == L'\\' &&
            (text[i + 8] == L'U' || text[i + 8] == L'u') && text[i + 9] == L'+') {
          int f = Hex(text[i + 10]), g = Hex(text[i + 11]), h = Hex(text[i + 12]), k = Hex(text[i + 13]);
          std::uint32_t low = static_cast<std::uint32_t>((f << 12) | (g << 8) | (h << 4) | k);
          if (f >= 0 && g >= 0 && h >= 0 && k >= 0 && tolv::IsLowSurrogate(low)) {
            out += tolv::JoinSurrogates(u, low);
            i += 13;
            continue;
          }
        }
        out += static_cast<wchar_t>(u);
        i += 6;
        continue;
      }
    }
    if (c == L'^' && i + 1 < text.size()) {
      wchar_t n = text[i + 1];
      if (n == L' ') {
        out += L'^';
        ++i;
        continue;
      }
      if (n >= L'@' && n <= L'_') {
        out += static_cast<wchar_t>(n - 0x40);
        ++i;
        continue;
      }
    }
    out += c;
  }
  return out;
}

namespace {

std::string_view Trim(std::string_view text) {
  while (!text.empty() && (text.front() == ' ' || text.front() == '\t')) text.remove_prefix(1);
  while (!text.empty() && (text.back() == ' ' || text.back() == '\t' || text.back() == '\r')) text.remove_suffix(1);
  return text;
}

}  // namespace

bool ParseDxfInt(std::string_view text, std::int64_t &value) {
  text = Trim(text);
  if (!text.empty() && text.front() == '+') text.remove_prefix(1);
  if (text.empty()) return false;
  auto [end, ec] = std::from_chars(text.data(), text.data() + text.size(), value);
  return ec == std::errc() && end == text.data() + text.size();
}

bool ParseDxfReal(std::string_view text, double &value) {
  text = Trim(text);
  if (text.empty() || text.size() > 64) return false;
  std::string copy(text);
  char *end = nullptr;
  value = std::strtod(copy.c_str(), &end);
  if (end != copy.c_str() + copy.size()) return false;
  if (!std::isfinite(value)) value = 0.0;
  return true;
}

bool ParseDxfHandle(std::wstring_view text, std::uint64_t &handle) {
  while (!text.empty() && text.front() == L' ') text.remove_prefix(1);
  while (!text.empty() && (text.back() == L' ' || text.back() == L'\r')) text.remove_suffix(1);
  if (text.empty() || text.size() > 16) return false;
  std::uint64_t v = 0;
  for (wchar_t c : text) {
    int h = Hex(c);
    if (h < 0) return false;
    v = (v << 4) | static_cast<std::uint64_t>(h);
  }
  handle = v;
  return true;
}

}  // namespace tolv
