#include "platform/dbobject/LinetypeFile.h"

#include <cmath>
#include <cstdlib>

#include "platform/windows/AtomicFile.h"
#include "platform/windows/PathMap.h"
#include "platform/windows/TextCodec.h"
#include "platform/windows/WinCrt.h"

namespace tolv {

namespace {

constexpr std::size_t kMaxDashes = 12;
constexpr std::size_t kMaxFileBytes = 4u * 1024u * 1024u;

std::wstring Trim(const std::wstring &s) {
  std::size_t a = s.find_first_not_of(L" \t\r");
  if (a == std::wstring::npos) return std::wstring();
  std::size_t b = s.find_last_not_of(L" \t\r");
  return s.substr(a, b - a + 1);
}

bool SameName(const std::wstring &a, const std::wstring &b) {
  if (a.size() != b.size()) return false;
  for (std::size_t i = 0; i < a.size(); ++i) {
    if (FoldLower(a[i]) != FoldLower(b[i])) return false;
  }
  return true;
}

void ParsePattern(const std::wstring &line, LinetypeDefinition &def) {
  // After the alignment letter and its comma.
  std::size_t i = line.find(L',');
  if (i == std::wstring::npos) return;
  ++i;
  while (i < line.size()) {
    if (line[i] == L'[') {
      std::size_t close = line.find(L']', i);
      i = close == std::wstring::npos ? line.size() : close + 1;
      std::size_t comma = line.find(L',', i);
      i = comma == std::wstring::npos ? line.size() : comma + 1;
      continue;
    }
    std::size_t comma = line.find(L',', i);
    std::wstring piece = Trim(line.substr(i, comma == std::wstring::npos ? std::wstring::npos : comma - i));
    i = comma == std::wstring::npos ? line.size() : comma + 1;
    if (piece.empty()) continue;
    wchar_t *end = nullptr;
    double value = std::wcstod(piece.c_str(), &end);
    if (end == piece.c_str() || !std::isfinite(value)) continue;
    if (def.dashes.size() < kMaxDashes) {
      def.dashes.push_back(value);
      def.patternLength += std::fabs(value);
    }
  }
}

}  // namespace

std::vector<LinetypeDefinition> ParseLinetypeText(const std::wstring &text) {
  std::vector<LinetypeDefinition> defs;
  std::size_t start = 0;
  bool expectPattern = false;
  while (start <= text.size()) {
    std::size_t end = text.find(L'\n', start);
    if (end == std::wstring::npos) end = text.size();
    std::wstring line = Trim(text.substr(start, end - start));
    start = end + 1;
    if (line.empty() || line[0] == L';') continue;
    if (line[0] == L'*') {
      LinetypeDefinition def;
      std::size_t comma = line.find(L',');
      def.name = Trim(line.substr(1, comma == std::wstring::npos ? std::wstring::npos : comma - 1));
      if (comma != std::wstring::npos) def.description = Trim(line.substr(comma + 1));
      if (def.name.empty()) {
        expectPattern = false;
        continue;
      }
      defs.push_back(std::move(def));
      expectPattern = true;
    } else if (expectPattern && (line[0] == L'A' || line[0] == L'a')) {
      ParsePattern(line, defs.back());
      expectPattern = false;
    }
  }
  return defs;
}

bool FindLinetypeDefinition(const std::wstring &path, const std::wstring &name, LinetypeDefinition &def) {
  std::string bytes;
  if (!ReadWholeFile(MapPath(path), bytes) || bytes.size() > kMaxFileBytes) return false;
  std::wstring text = FromUtf8(bytes);
  // Files of the home platform are often in its code page, not UTF-8.
  if (text.find(L'\xFFFD') != std::wstring::npos) text = FromGbk(bytes);
  for (LinetypeDefinition &d : ParseLinetypeText(text)) {
    if (SameName(d.name, name)) {
      def = std::move(d);
      return true;
    }
  }
  return false;
}

}  // namespace tolv
