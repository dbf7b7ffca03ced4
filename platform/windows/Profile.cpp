#include "platform/windows/Profile.h"

#include <string>
#include <vector>

#include "platform/windows/AtomicFile.h"
#include "platform/windows/PathMap.h"
#include "platform/windows/TextCodec.h"
#include "platform/windows/WinCrt.h"

namespace {

struct Entry {
  std::wstring key, value;
};
struct Section {
  std::wstring name;
  std::vector<Entry> entries;
};

bool IsUtf8(const std::string &bytes) {
  std::wstring w = tolv::FromUtf8(bytes);
  return w.find(static_cast<wchar_t>(0xFFFD)) == std::wstring::npos;
}

std::wstring DecodeText(const std::string &bytes) {
  if (bytes.size() >= 2 && static_cast<unsigned char>(bytes[0]) == 0xFF &&
      static_cast<unsigned char>(bytes[1]) == 0xFE) {
    std::u16string units;
    for (size_t i = 2; i + 1 < bytes.size(); i += 2)
      units += static_cast<char16_t>(static_cast<unsigned char>(bytes[i]) |
                                     (static_cast<unsigned char>(bytes[i + 1]) << 8));
    return tolv::FromUtf16(units);
  }
  if (bytes.size() >= 3 && bytes.compare(0, 3, "\xEF\xBB\xBF") == 0) return tolv::FromUtf8(bytes.substr(3));
  return IsUtf8(bytes) ? tolv::FromUtf8(bytes) : tolv::FromGbk(bytes);
}

std::wstring Trim(const std::wstring &s) {
  size_t b = s.find_first_not_of(L" \t\r\n");
  if (b == std::wstring::npos) return {};
  size_t e = s.find_last_not_of(L" \t\r\n");
  return s.substr(b, e - b + 1);
}

std::vector<Section> Parse(const std::wstring &text) {
  std::vector<Section> sections;
  size_t pos = 0;
  while (pos <= text.size()) {
    size_t nl = text.find(L'\n', pos);
    if (nl == std::wstring::npos) nl = text.size();
    std::wstring line = Trim(text.substr(pos, nl - pos));
    pos = nl + 1;
    if (line.empty() || line[0] == L';') continue;
    if (line[0] == L'[') {
      size_t close = line.find(L']');
      sections.push_back({Trim(line.substr(1, close == std::wstring::npos ? std::wstring::npos : close - 1)), {}});
      continue;
    }
    if (sections.empty()) continue;
    size_t eq = line.find(L'=');
    if (eq == std::wstring::npos) {
      sections.back().entries.push_back({line, L""});
      continue;
    }
    std::wstring value = Trim(line.substr(eq + 1));
    if (value.size() >= 2 && ((value.front() == L'"' && value.back() == L'"') ||
                              (value.front() == L'\'' && value.back() == L'\'')))
      value = value.substr(1, value.size() - 2);
    sections.back().entries.push_back({Trim(line.substr(0, eq)), value});
  }
  return sections;
}

// Copies one text with truncation as the profile functions do.
DWORD CopyOut(const std::wstring &text, wchar_t *buffer, DWORD size) {
  if (!buffer || size == 0) return 0;
  size_t n = text.size() < size - 1 ? text.size() : size - 1;
  text.copy(buffer, n);
  buffer[n] = 0;
  return static_cast<DWORD>(n);
}

// Copies a list of names, each ended by a null, with a final null.
DWORD CopyList(const std::vector<std::wstring> &names, wchar_t *buffer, DWORD size) {
  if (!buffer || size == 0) return 0;
  if (size == 1) {
    buffer[0] = 0;
    return 0;
  }
  std::wstring all;
  for (const auto &n : names) {
    all += n;
    all += L'\0';
  }
  if (all.size() + 1 <= size) {
    all.copy(buffer, all.size());
    buffer[all.size()] = 0;
    return static_cast<DWORD>(all.size());
  }
  // Truncated: the text fills size - 2 characters and two nulls end it.
  all.copy(buffer, size - 2);
  buffer[size - 2] = 0;
  buffer[size - 1] = 0;
  return size - 2;
}

}  // namespace

DWORD GetPrivateProfileStringW(const wchar_t *section, const wchar_t *key,
                               const wchar_t *defaultValue, wchar_t *buffer, DWORD size,
                               const wchar_t *fileName) {
  // Only trailing blanks are cut from the default; leading ones stay.
  std::wstring def = defaultValue ? defaultValue : L"";
  def.erase(def.find_last_not_of(L' ') + 1);
  std::string bytes;
  if (!fileName || !tolv::ReadWholeFile(tolv::MapPath(fileName), bytes)) {
    if (!section || !key) return CopyList({}, buffer, size);
    return CopyOut(def, buffer, size);
  }
  std::vector<Section> sections = Parse(DecodeText(bytes));
  if (!section) {
    std::vector<std::wstring> names;
    for (const auto &s : sections) names.push_back(s.name);
    return CopyList(names, buffer, size);
  }
  std::vector<std::wstring> keys;
  for (const auto &s : sections) {
    if (_wcsicmp(s.name.c_str(), section) != 0) continue;
    for (const auto &e : s.entries) {
      if (!key) {
        keys.push_back(e.key);
      } else if (_wcsicmp(e.key.c_str(), key) == 0) {
        return CopyOut(e.value, buffer, size);
      }
    }
  }
  if (!key) return CopyList(keys, buffer, size);
  return CopyOut(def, buffer, size);
}

unsigned GetPrivateProfileIntW(const wchar_t *section, const wchar_t *key, int defaultValue,
                               const wchar_t *fileName) {
  wchar_t buf[64];
  DWORD n = GetPrivateProfileStringW(section, key, L"", buf, 64, fileName);
  if (n == 0) return static_cast<unsigned>(defaultValue);
  return static_cast<unsigned>(_wtoi(buf));
}
