#include "platform/base/KyStringW.h"

#include <cwctype>

bool KyStringW::Range(int &from, int &to) const {
  int last = GetLength() - 1;
  if (from < 0) from = 0;
  if (to < 0 || to > last) to = last;
  return from <= to;
}

int KyStringW::Replace(const wchar_t *oldText, const wchar_t *newText, int from, int to) {
  if (!oldText || !*oldText || !Range(from, to)) return 0;
  std::wstring_view what(oldText);
  std::wstring_view with(newText ? newText : L"");
  std::wstring out(s_, 0, static_cast<std::size_t>(from));
  std::size_t pos = static_cast<std::size_t>(from);
  std::size_t end = static_cast<std::size_t>(to) + 1;
  int count = 0;
  while (pos < end) {
    if (pos + what.size() <= end && s_.compare(pos, what.size(), what) == 0) {
      out.append(with);
      pos += what.size();
      ++count;
    } else {
      out += s_[pos++];
    }
  }
  out.append(s_, end, std::wstring::npos);
  s_.swap(out);
  return count;
}

int KyStringW::Find(const wchar_t *text, int from, int to) const {
  if (!text || !*text || !Range(from, to)) return -1;
  std::wstring_view what(text);
  std::size_t hit = s_.find(what, static_cast<std::size_t>(from));
  if (hit == std::wstring::npos || hit + what.size() > static_cast<std::size_t>(to) + 1) return -1;
  return static_cast<int>(hit);
}

KyStringW KyStringW::Mid(int from, int to) const {
  if (!Range(from, to)) return KyStringW();
  return KyStringW(s_.substr(static_cast<std::size_t>(from), static_cast<std::size_t>(to - from + 1)));
}

bool KyStringW::IsIntNumber() const {
  std::size_t i = 0;
  if (i < s_.size() && (s_[i] == L'+' || s_[i] == L'-')) ++i;
  if (i == s_.size()) return false;
  for (; i < s_.size(); ++i)
    if (!std::iswdigit(static_cast<wint_t>(s_[i]))) return false;
  return true;
}
