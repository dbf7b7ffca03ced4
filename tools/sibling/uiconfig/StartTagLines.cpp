#include <string>
#include <vector>

#include "UiCheck.h"

namespace tolv::sibling::ui {
namespace {

bool IsNameStart(unsigned char c) { return c == '_' || c == ':' || c >= 0x80 || ((c | 0x20) >= 'a' && (c | 0x20) <= 'z'); }

}  // namespace

std::vector<int> StartTagLines(const std::string &bytes) {
  std::vector<int> lines;
  int line = 1;
  const std::size_t n = bytes.size();
  std::size_t i = 0;
  // Moves to just past `end`, counting lines on the way.
  auto skipPast = [&](const char *end) {
    std::size_t found = bytes.find(end, i);
    std::size_t stop = found == std::string::npos ? n : found + std::char_traits<char>::length(end);
    for (; i < stop; ++i) line += bytes[i] == '\n';
  };
  while (i < n) {
    if (bytes[i] != '<') {
      line += bytes[i++] == '\n';
      continue;
    }
    if (bytes.compare(i, 4, "<!--") == 0) {
      skipPast("-->");
    } else if (bytes.compare(i, 9, "<![CDATA[") == 0) {
      skipPast("]]>");
    } else if (bytes.compare(i, 2, "<?") == 0) {
      skipPast("?>");
    } else if (i + 1 < n && IsNameStart(static_cast<unsigned char>(bytes[i + 1]))) {
      lines.push_back(line);
      // To the end of the tag; quoted values may hold '>'.
      char quote = 0;
      for (++i; i < n; ++i) {
        line += bytes[i] == '\n';
        if (quote) {
          if (bytes[i] == quote) quote = 0;
        } else if (bytes[i] == '"' || bytes[i] == '\'') {
          quote = bytes[i];
        } else if (bytes[i] == '>') {
          ++i;
          break;
        }
      }
    } else {
      // An end tag or a declaration.
      skipPast(">");
    }
  }
  return lines;
}

}  // namespace tolv::sibling::ui
