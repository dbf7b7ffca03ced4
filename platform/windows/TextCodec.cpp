#include "platform/windows/TextCodec.h"

#include <iconv.h>

#include <cstddef>
#include <cstdint>
#include <memory>
#include <mutex>
#include <vector>

namespace tolv {

namespace {

constexpr wchar_t kReplacement = 0xFFFD;

// The two GBK tables, built once from the C library's converter.
struct GbkTables {
  // Double-byte code (lead 0x81..0xFE, trail 0x40..0xFE) to wide; 0 = none.
  std::vector<char16_t> decode = std::vector<char16_t>(126 * 191, 0);
  // BMP character to double-byte code (lead << 8 | trail); 0 = none.
  std::vector<std::uint16_t> encode = std::vector<std::uint16_t>(0x10000, 0);
};

const GbkTables &Tables() {
  static std::once_flag once;
  static std::unique_ptr<GbkTables> tables;
  std::call_once(once, [] {
    tables = std::make_unique<GbkTables>();
    iconv_t cd = iconv_open("UTF-16LE", "GBK");
    if (cd == reinterpret_cast<iconv_t>(-1)) return;
    for (int lead = 0x81; lead <= 0xFE; ++lead) {
      for (int trail = 0x40; trail <= 0xFE; ++trail) {
        if (trail == 0x7F) continue;
        char in[2] = {static_cast<char>(lead), static_cast<char>(trail)};
        unsigned char out[8];
        char *inp = in;
        char *outp = reinterpret_cast<char *>(out);
        size_t inleft = 2, outleft = sizeof out;
        iconv(cd, nullptr, nullptr, nullptr, nullptr);
        if (iconv(cd, &inp, &inleft, &outp, &outleft) == static_cast<size_t>(-1)) continue;
        if (sizeof out - outleft != 2) continue;
        char16_t unit = static_cast<char16_t>(out[0] | (out[1] << 8));
        tables->decode[(lead - 0x81) * 191 + (trail - 0x40)] = unit;
        if (tables->encode[unit] == 0)
          tables->encode[unit] = static_cast<std::uint16_t>((lead << 8) | trail);
      }
    }
    iconv_close(cd);
  });
  return *tables;
}

bool IsAscii(std::string_view bytes) {
  for (char c : bytes)
    if (static_cast<unsigned char>(c) >= 0x80) return false;
  return true;
}

bool IsAscii(std::wstring_view text) {
  for (wchar_t c : text)
    if (static_cast<std::uint32_t>(c) >= 0x80) return false;
  return true;
}

}  // namespace

namespace {

// Decodes into `out`, at most `room` characters; gives how many it wrote,
// or -1 when they wouldn't fit. Broken sequences give U+FFFD for their
// first byte and decoding goes on at the next one.
std::ptrdiff_t DecodeUtf8(std::string_view bytes, wchar_t *out, std::size_t room) {
  const auto *p = reinterpret_cast<const unsigned char *>(bytes.data());
  const auto *end = p + bytes.size();
  wchar_t *o = out;
  wchar_t *const oend = out + room;
  while (p < end) {
    // Runs of ASCII, the bulk of most text.
    while (p < end && *p < 0x80) {
      if (o == oend) return -1;
      *o++ = static_cast<wchar_t>(*p++);
    }
    if (p == end) break;
    if (o == oend) return -1;
    unsigned char c = *p;
    int extra = (c >= 0xF0 && c <= 0xF4) ? 3 : (c >= 0xE0) ? 2 : (c >= 0xC2 && c <= 0xDF) ? 1 : -1;
    if (c >= 0xF5) extra = -1;
    if (extra < 0 || end - p <= extra) {
      *o++ = kReplacement;
      ++p;
      continue;
    }
    std::uint32_t cp = c & (0x3F >> extra);
    bool ok = true;
    for (int i = 1; i <= extra; ++i) {
      if ((p[i] & 0xC0) != 0x80) {
        ok = false;
        break;
      }
      cp = (cp << 6) | (p[i] & 0x3F);
    }
    // Overlong forms, surrogates and values above U+10FFFF are invalid.
    static const std::uint32_t kMin[4] = {0, 0x80, 0x800, 0x10000};
    if (!ok || cp < kMin[extra] || cp > 0x10FFFF || (cp >= 0xD800 && cp <= 0xDFFF)) {
      *o++ = kReplacement;
      ++p;
      continue;
    }
    *o++ = static_cast<wchar_t>(cp);
    p += extra + 1;
  }
  return o - out;
}

std::uint32_t Utf8Scalar(wchar_t c) {
  auto cp = static_cast<std::uint32_t>(c);
  return (cp > 0x10FFFF || (cp >= 0xD800 && cp <= 0xDFFF)) ? static_cast<std::uint32_t>(kReplacement) : cp;
}

std::size_t Utf8Length(std::uint32_t cp) { return cp < 0x80 ? 1 : cp < 0x800 ? 2 : cp < 0x10000 ? 3 : 4; }

}  // namespace

std::wstring FromUtf8(std::string_view bytes) {
  // Well-formed text has one character per byte that doesn't continue a
  // sequence: sized to that, the result is built in place with no slack.
  // Broken text may need more; it is then decoded again with room for one
  // character per byte.
  std::size_t leads = 0;
  for (char c : bytes) leads += (static_cast<unsigned char>(c) & 0xC0) != 0x80;
  std::wstring out(leads, L'\0');
  std::ptrdiff_t n = DecodeUtf8(bytes, out.data(), out.size());
  if (n < 0) {
    out.assign(bytes.size(), L'\0');
    n = DecodeUtf8(bytes, out.data(), out.size());
  }
  out.resize(static_cast<std::size_t>(n));
  return out;
}

std::string ToUtf8(std::wstring_view text) {
  std::size_t length = 0;
  for (wchar_t c : text) length += Utf8Length(Utf8Scalar(c));
  std::string out(length, '\0');
  char *o = out.data();
  const wchar_t *p = text.data();
  const wchar_t *end = p + text.size();
  while (p < end) {
    while (p < end && static_cast<std::uint32_t>(*p) < 0x80) *o++ = static_cast<char>(*p++);
    if (p == end) break;
    const std::uint32_t cp = Utf8Scalar(*p++);
    if (cp < 0x800) {
      *o++ = static_cast<char>(0xC0 | (cp >> 6));
      *o++ = static_cast<char>(0x80 | (cp & 0x3F));
    } else if (cp < 0x10000) {
      *o++ = static_cast<char>(0xE0 | (cp >> 12));
      *o++ = static_cast<char>(0x80 | ((cp >> 6) & 0x3F));
      *o++ = static_cast<char>(0x80 | (cp & 0x3F));
    } else {
      *o++ = static_cast<char>(0xF0 | (cp >> 18));
      *o++ = static_cast<char>(0x80 | ((cp >> 12) & 0x3F));
      *o++ = static_cast<char>(0x80 | ((cp >> 6) & 0x3F));
      *o++ = static_cast<char>(0x80 | (cp & 0x3F));
    }
  }
  return out;
}

std::wstring FromUtf16(std::u16string_view units) {
  // Each pair of surrogates makes one character; everything else one each.
  std::size_t length = units.size();
  for (std::size_t i = 0; i + 1 < units.size(); ++i) {
    if (IsHighSurrogate(units[i]) && IsLowSurrogate(units[i + 1])) {
      --length;
      ++i;
    }
  }
  std::wstring out(length, L'\0');
  wchar_t *o = out.data();
  const std::size_t n = units.size();
  for (std::size_t i = 0; i < n; ++i) {
    const char16_t u = units[i];
    if (IsHighSurrogate(u) && i + 1 < n && IsLowSurrogate(units[i + 1])) {
      *o++ = JoinSurrogates(u, units[i + 1]);
      ++i;
    } else {
      *o++ = static_cast<wchar_t>(u);
    }
  }
  return out;
}

std::u16string ToUtf16(std::wstring_view text) {
  std::size_t length = text.size();
  for (wchar_t c : text) {
    auto cp = static_cast<std::uint32_t>(c);
    if (cp >= 0x10000 && cp <= 0x10FFFF) ++length;
  }
  std::u16string out(length, u'\0');
  char16_t *o = out.data();
  for (wchar_t c : text) {
    auto cp = static_cast<std::uint32_t>(c);
    if (cp >= 0x10000 && cp <= 0x10FFFF) {
      cp -= 0x10000;
      *o++ = static_cast<char16_t>(0xD800 + (cp >> 10));
      *o++ = static_cast<char16_t>(0xDC00 + (cp & 0x3FF));
    } else if (cp > 0x10FFFF) {
      *o++ = static_cast<char16_t>(kReplacement);
    } else {
      *o++ = static_cast<char16_t>(cp);
    }
  }
  return out;
}

std::string ToGbk(std::wstring_view text) {
  if (IsAscii(text)) return std::string(text.begin(), text.end());
  const GbkTables &t = Tables();
  std::string out;
  out.reserve(text.size() * 2);
  for (wchar_t c : text) {
    auto cp = static_cast<std::uint32_t>(c);
    if (cp < 0x80) {
      out += static_cast<char>(cp);
    } else if (cp == 0x20AC) {
      out += static_cast<char>(0x80);  // code page 936 keeps the euro sign here
    } else if (cp < 0x10000 && t.encode[cp] != 0) {
      out += static_cast<char>(t.encode[cp] >> 8);
      out += static_cast<char>(t.encode[cp] & 0xFF);
    } else {
      out += '?';
    }
  }
  return out;
}

namespace {

// Appends the 936 bytes of one character to buf; gives how many (1 or 2).
int GbkBytes(wchar_t c, unsigned char buf[2]) {
  auto cp = static_cast<std::uint32_t>(c);
  if (cp < 0x80) {
    buf[0] = static_cast<unsigned char>(cp);
    return 1;
  }
  if (cp == 0x20AC) {
    buf[0] = 0x80;
    return 1;
  }
  const GbkTables &t = Tables();
  if (cp < 0x10000 && t.encode[cp] != 0) {
    buf[0] = static_cast<unsigned char>(t.encode[cp] >> 8);
    buf[1] = static_cast<unsigned char>(t.encode[cp] & 0xFF);
    return 2;
  }
  buf[0] = '?';
  return 1;
}

}  // namespace

int CompareGbk(std::wstring_view a, std::wstring_view b) {
  size_t i = 0, j = 0;
  unsigned char ba[2], bb[2];
  int na = 0, nb = 0, pa = 0, pb = 0;  // pending bytes of the current characters
  for (;;) {
    if (pa == na) {
      // strcmp stops at the first null, as the narrow form would end there.
      if (i == a.size() || a[i] == 0) na = 0;
      else na = GbkBytes(a[i++], ba);
      pa = 0;
    }
    if (pb == nb) {
      if (j == b.size() || b[j] == 0) nb = 0;
      else nb = GbkBytes(b[j++], bb);
      pb = 0;
    }
    if (na == 0 || nb == 0) return (na == 0 ? 0 : 1) - (nb == 0 ? 0 : 1);
    if (ba[pa] != bb[pb]) return ba[pa] < bb[pb] ? -1 : 1;
    ++pa;
    ++pb;
  }
}

std::wstring FromGbk(std::string_view bytes) {
  if (IsAscii(bytes)) return std::wstring(bytes.begin(), bytes.end());
  const GbkTables &t = Tables();
  std::wstring out;
  out.reserve(bytes.size());
  for (size_t i = 0; i < bytes.size(); ++i) {
    auto b = static_cast<unsigned char>(bytes[i]);
    if (b < 0x80) {
      out += static_cast<wchar_t>(b);
    } else if (b == 0x80) {
      out += static_cast<wchar_t>(0x20AC);
    } else if (b <= 0xFE && i + 1 < bytes.size()) {
      auto trail = static_cast<unsigned char>(bytes[i + 1]);
      char16_t unit = 0;
      if (trail >= 0x40 && trail <= 0xFE && trail != 0x7F) unit = t.decode[(b - 0x81) * 191 + (trail - 0x40)];
      if (unit != 0) {
        out += static_cast<wchar_t>(unit);
        ++i;
      } else {
        out += L'?';
      }
    } else {
      out += L'?';
    }
  }
  return out;
}

}  // namespace tolv
