#include "platform/windows/CodePage.h"

#include <cstring>
#include <cwchar>
#include <string>

#include "platform/windows/TextCodec.h"

namespace {

UINT g_ansiCodePage = 936;

bool Decode(UINT codePage, std::string_view bytes, std::wstring &out) {
  if (codePage == CP_ACP) codePage = g_ansiCodePage;
  switch (codePage) {
    case 936: out = tolv::FromGbk(bytes); return true;
    case CP_UTF8: out = tolv::FromUtf8(bytes); return true;
    case 1252:
    case 28591:
      out.clear();
      for (unsigned char c : bytes) out.push_back(static_cast<wchar_t>(c));
      return true;
    default: return false;
  }
}

bool Encode(UINT codePage, std::wstring_view text, std::string &out) {
  if (codePage == CP_ACP) codePage = g_ansiCodePage;
  switch (codePage) {
    case 936: out = tolv::ToGbk(text); return true;
    case CP_UTF8: out = tolv::ToUtf8(text); return true;
    case 1252:
    case 28591:
      out.clear();
      for (wchar_t c : text) out.push_back(c < 0x100 ? static_cast<char>(c) : '?');
      return true;
    default: return false;
  }
}

}  // namespace

UINT GetACP() { return g_ansiCodePage; }

int MultiByteToWideChar(UINT codePage, DWORD, const char *text, int length, wchar_t *wide,
                        int wideCount) {
  if (!text || length == 0 || length < -1 || wideCount < 0) return 0;
  std::size_t n = length == -1 ? std::strlen(text) + 1 : static_cast<std::size_t>(length);
  std::wstring out;
  if (!Decode(codePage, std::string_view(text, n), out)) return 0;
  if (wideCount == 0) return static_cast<int>(out.size());
  if (!wide || out.size() > static_cast<std::size_t>(wideCount)) return 0;
  std::wmemcpy(wide, out.data(), out.size());
  return static_cast<int>(out.size());
}

int WideCharToMultiByte(UINT codePage, DWORD, const wchar_t *wide, int length, char *text, int count,
                        const char *, BOOL *usedDefault) {
  if (usedDefault) *usedDefault = FALSE;
  if (!wide || length == 0 || length < -1 || count < 0) return 0;
  std::size_t n = length == -1 ? std::wcslen(wide) + 1 : static_cast<std::size_t>(length);
  std::string out;
  if (!Encode(codePage, std::wstring_view(wide, n), out)) return 0;
  if (count == 0) return static_cast<int>(out.size());
  if (!text || out.size() > static_cast<std::size_t>(count)) return 0;
  std::memcpy(text, out.data(), out.size());
  return static_cast<int>(out.size());
}

namespace tolv {
void SetAnsiCodePage(UINT codePage) { g_ansiCodePage = codePage ? codePage : 936; }
}  // namespace tolv
