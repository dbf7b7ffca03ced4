#include "platform/windows/WideFormat.h"

#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <cwchar>
#include <string>
#include <wchar.h>

#include "platform/windows/TextCodec.h"

namespace tolv {

namespace {

// The size an integer conversion reads, after the home platform's length
// modifiers: "l" and "I32" are 32 bits there; "ll", "I64", "j" are 64; "I",
// "z" and "t" are the pointer size.
enum class IntSize { kInt, kShort, kChar, kLongLong, kPointer };

// Each conversion is printed by the C library on its own, with an argument
// taken from the list in the home platform's way. Narrow text is converted
// from code page 936 here, since the C library would read it in the
// locale's encoding and give up on the first byte above 0x7F.
class Formatter {
 public:
  explicit Formatter(FILE *out) : out_(out) {}

  template <typename T>
  void Put(const std::wstring &directive, T value) {
    if (stars_ == 0) std::fwprintf(out_, directive.c_str(), value);
    else if (stars_ == 1) std::fwprintf(out_, directive.c_str(), star_[0], value);
    else std::fwprintf(out_, directive.c_str(), star_[0], star_[1], value);
  }

  // Reads one conversion starting after its '%' and prints it; gives the
  // position after it.
  const wchar_t *Convert(const wchar_t *p, va_list &args) {
    std::wstring directive = L"%";
    stars_ = 0;
    while (*p && std::wcschr(L"-+ #0", *p)) directive += *p++;
    if (*p == L'*') {
      star_[stars_++] = va_arg(args, int);
      directive += *p++;
    } else {
      while (*p >= L'0' && *p <= L'9') directive += *p++;
    }
    if (*p == L'.') {
      directive += *p++;
      if (*p == L'*') {
        star_[stars_++] = va_arg(args, int);
        directive += *p++;
      } else {
        while (*p >= L'0' && *p <= L'9') directive += *p++;
      }
    }

    IntSize size = IntSize::kInt;
    bool narrow = false, wide = false;
    for (bool more = true; more;) {
      if (p[0] == L'I' && p[1] == L'6' && p[2] == L'4') {
        size = IntSize::kLongLong;
        p += 3;
      } else if (p[0] == L'I' && p[1] == L'3' && p[2] == L'2') {
        size = IntSize::kInt;
        p += 3;
      } else if (p[0] == L'l' && p[1] == L'l') {
        size = IntSize::kLongLong;
        p += 2;
      } else if (p[0] == L'h' && p[1] == L'h') {
        size = IntSize::kChar;
        narrow = true;
        p += 2;
      } else {
        switch (*p) {
          case L'l':
          case L'w':
            wide = true;  // "l" on an integer changes nothing: 32 bits
            ++p;
            break;
          case L'h':
            size = IntSize::kShort;
            narrow = true;
            ++p;
            break;
          case L'j':
          case L'q':
            size = IntSize::kLongLong;
            ++p;
            break;
          case L'I':
          case L'z':
          case L't':
            size = IntSize::kPointer;
            ++p;
            break;
          case L'L':  // long double is double on the home platform
            ++p;
            break;
          default:
            more = false;
        }
      }
    }

    wchar_t conv = *p;
    if (!conv) return p;
    ++p;
    switch (conv) {
      case L'd':
      case L'i':
      case L'u':
      case L'x':
      case L'X':
      case L'o':
        PutInteger(directive, conv, size, args);
        break;
      case L'e':
      case L'E':
      case L'f':
      case L'F':
      case L'g':
      case L'G':
      case L'a':
      case L'A':
        Put(directive + conv, va_arg(args, double));
        break;
      case L's':
      case L'S': {
        bool isNarrow = conv == L's' ? narrow : !wide;
        std::wstring text;
        if (isNarrow) {
          const char *s = va_arg(args, const char *);
          text = s ? FromGbk(s) : std::wstring(L"(null)");
        } else {
          const wchar_t *s = va_arg(args, const wchar_t *);
          text = s ? s : L"(null)";
        }
        Put(directive + L"ls", text.c_str());
        break;
      }
      case L'c':
      case L'C': {
        bool isNarrow = conv == L'c' ? narrow : !wide;
        wint_t ch;
        if (isNarrow) {
          char byte = static_cast<char>(va_arg(args, int));
          std::wstring w = FromGbk(std::string_view(&byte, 1));
          ch = static_cast<wint_t>(w.empty() ? L'?' : w[0]);
        } else {
          ch = static_cast<wint_t>(va_arg(args, int));
        }
        Put(directive + L"lc", ch);
        break;
      }
      case L'p':
        Put(directive + L'p', va_arg(args, void *));
        break;
      case L'n':
        // Writing through an argument is disabled on the home platform.
        (void)va_arg(args, void *);
        break;
      case L'%':
        std::fputwc(L'%', out_);
        break;
      default:  // not a conversion: the text stands as written
        std::fputws(directive.c_str(), out_);
        std::fputwc(conv, out_);
        break;
    }
    return p;
  }

 private:
  void PutInteger(const std::wstring &directive, wchar_t conv, IntSize size, va_list &args) {
    bool isSigned = conv == L'd' || conv == L'i';
    switch (size) {
      case IntSize::kLongLong:
      case IntSize::kPointer:
        if (isSigned) Put(directive + L"ll" + conv, va_arg(args, long long));
        else Put(directive + L"ll" + conv, va_arg(args, unsigned long long));
        break;
      case IntSize::kShort:
        Put(directive + L"h" + conv, va_arg(args, int));
        break;
      case IntSize::kChar:
        Put(directive + L"hh" + conv, va_arg(args, int));
        break;
      case IntSize::kInt:
        if (isSigned) Put(directive + conv, va_arg(args, int));
        else Put(directive + conv, va_arg(args, unsigned));
        break;
    }
  }

  FILE *out_;
  int star_[2] = {0, 0};
  int stars_ = 0;
};

}  // namespace

std::wstring FormatWideV(const wchar_t *format, va_list args) {
  if (!format) return {};
  // A growing memory stream needs no guess of the length.
  wchar_t *data = nullptr;
  size_t size = 0;
  FILE *stream = open_wmemstream(&data, &size);
  if (!stream) return {};
  va_list copy;
  va_copy(copy, args);
  Formatter formatter(stream);
  const wchar_t *p = format;
  while (*p) {
    const wchar_t *percent = std::wcschr(p, L'%');
    const wchar_t *end = percent ? percent : p + std::wcslen(p);
    if (end > p) {
      std::wstring literal(p, end);
      std::fputws(literal.c_str(), stream);
    }
    if (!percent) break;
    p = formatter.Convert(percent + 1, copy);
  }
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
