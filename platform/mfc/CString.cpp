#include "platform/mfc/CString.h"

#include <algorithm>
#include <cstdarg>
#include <cwchar>

#include "platform/windows/TextCodec.h"
#include "platform/windows/WideFormat.h"
#include "platform/windows/WinCrt.h"

namespace {

// White space as the home platform's character tests see it: the ASCII
// blanks and the Unicode space separators, among them the ideographic space
// of Chinese text and the no-break space.
constexpr const wchar_t *kBlanks =
    L" \t\r\n\v\f\x00A0\x1680\x2000\x2001\x2002\x2003\x2004\x2005\x2006\x2007"
    L"\x2008\x2009\x200A\x2028\x2029\x202F\x205F\x3000";

int Clamp(int v, int lo, int hi) { return v < lo ? lo : (v > hi ? hi : v); }

}  // namespace

CString::CString(const char *text) : s_(text ? tolv::FromGbk(text) : std::wstring()) {}

CString::CString(const char *text, int length)
    : s_(text && length > 0 ? tolv::FromGbk(std::string_view(text, static_cast<std::size_t>(length)))
                            : std::wstring()) {}

CString &CString::operator=(const char *text) {
  s_ = text ? tolv::FromGbk(text) : std::wstring();
  return *this;
}

int CString::Compare(const wchar_t *other) const {
  int r = std::wcscmp(s_.c_str(), other ? other : L"");
  return r < 0 ? -1 : (r > 0 ? 1 : 0);
}

int CString::CompareNoCase(const wchar_t *other) const { return _wcsicmp(s_.c_str(), other ? other : L""); }

CString &CString::MakeUpper() {
  for (auto &c : s_) c = tolv::FoldUpper(c);
  return *this;
}

CString &CString::MakeLower() {
  for (auto &c : s_) c = tolv::FoldLower(c);
  return *this;
}

CString &CString::MakeReverse() {
  std::reverse(s_.begin(), s_.end());
  return *this;
}

int CString::Find(wchar_t ch, int start) const {
  if (start < 0 || start >= GetLength()) return -1;
  auto p = s_.find(ch, static_cast<std::size_t>(start));
  return p == std::wstring::npos ? -1 : static_cast<int>(p);
}

int CString::Find(const wchar_t *sub, int start) const {
  if (!sub || start < 0 || start > GetLength()) return -1;
  // An empty text is found where the search starts, as wcsstr finds it.
  auto p = s_.find(sub, static_cast<std::size_t>(start));
  return p == std::wstring::npos ? -1 : static_cast<int>(p);
}

int CString::ReverseFind(wchar_t ch) const {
  auto p = s_.rfind(ch);
  return p == std::wstring::npos ? -1 : static_cast<int>(p);
}

int CString::ReverseFind(const wchar_t *sub) const {
  if (!sub || !*sub) return -1;
  auto p = s_.rfind(sub);
  return p == std::wstring::npos ? -1 : static_cast<int>(p);
}

int CString::FindOneOf(const wchar_t *chars) const {
  if (!chars) return -1;
  auto p = s_.find_first_of(chars);
  return p == std::wstring::npos ? -1 : static_cast<int>(p);
}

CString CString::Left(int count) const {
  count = Clamp(count, 0, GetLength());
  return CString(s_.substr(0, static_cast<std::size_t>(count)));
}

CString CString::Mid(int first) const { return Mid(first, GetLength()); }

CString CString::Mid(int first, int count) const {
  // MFC clamps both: a negative start counts as 0, a count past the end stops there.
  first = Clamp(first, 0, GetLength());
  count = Clamp(count, 0, GetLength() - first);
  return CString(s_.substr(static_cast<std::size_t>(first), static_cast<std::size_t>(count)));
}

CString CString::Right(int count) const {
  count = Clamp(count, 0, GetLength());
  return CString(s_.substr(s_.size() - static_cast<std::size_t>(count)));
}

CString CString::SpanIncluding(const wchar_t *chars) const {
  auto p = s_.find_first_not_of(chars ? chars : L"");
  return Left(p == std::wstring::npos ? GetLength() : static_cast<int>(p));
}

CString CString::SpanExcluding(const wchar_t *chars) const {
  auto p = s_.find_first_of(chars ? chars : L"");
  return Left(p == std::wstring::npos ? GetLength() : static_cast<int>(p));
}

int CString::Replace(wchar_t oldCh, wchar_t newCh) {
  int n = 0;
  if (oldCh == newCh) return 0;  // no change, so nothing counts as replaced
  for (auto &c : s_) {
    if (c == oldCh) {
      c = newCh;
      ++n;
    }
  }
  return n;
}

int CString::Replace(const wchar_t *oldText, const wchar_t *newText) {
  if (!oldText || !*oldText) return 0;
  std::wstring_view from(oldText);
  std::wstring_view to(newText ? newText : L"");
  std::wstring out;
  int n = 0;
  std::size_t pos = 0;
  for (;;) {
    std::size_t hit = s_.find(from, pos);
    if (hit == std::wstring::npos) break;
    out.append(s_, pos, hit - pos);
    out.append(to);
    pos = hit + from.size();
    ++n;
  }
  if (n) {
    out.append(s_, pos, std::wstring::npos);
    s_.swap(out);
  }
  return n;
}

int CString::Remove(wchar_t ch) {
  auto before = s_.size();
  s_.erase(std::remove(s_.begin(), s_.end(), ch), s_.end());
  return static_cast<int>(before - s_.size());
}

int CString::Insert(int index, wchar_t ch) {
  index = Clamp(index, 0, GetLength());
  s_.insert(s_.begin() + index, ch);
  return GetLength();
}

int CString::Insert(int index, const wchar_t *text) {
  index = Clamp(index, 0, GetLength());
  if (text) s_.insert(static_cast<std::size_t>(index), text);
  return GetLength();
}

int CString::Delete(int index, int count) {
  if (index < 0) index = 0;
  if (count > 0 && index < GetLength()) {
    count = std::min(count, GetLength() - index);
    s_.erase(static_cast<std::size_t>(index), static_cast<std::size_t>(count));
  }
  return GetLength();
}

CString &CString::Trim() { return TrimRight().TrimLeft(); }
CString &CString::Trim(wchar_t ch) { return TrimRight(ch).TrimLeft(ch); }
CString &CString::Trim(const wchar_t *chars) { return TrimRight(chars).TrimLeft(chars); }
CString &CString::TrimLeft() { return TrimLeft(kBlanks); }
CString &CString::TrimRight() { return TrimRight(kBlanks); }

CString &CString::TrimLeft(wchar_t ch) {
  wchar_t set[2] = {ch, 0};
  return TrimLeft(set);
}

CString &CString::TrimRight(wchar_t ch) {
  wchar_t set[2] = {ch, 0};
  return TrimRight(set);
}

CString &CString::TrimLeft(const wchar_t *chars) {
  auto p = s_.find_first_not_of(chars ? chars : L"");
  s_.erase(0, p == std::wstring::npos ? s_.size() : p);
  return *this;
}

CString &CString::TrimRight(const wchar_t *chars) {
  auto p = s_.find_last_not_of(chars ? chars : L"");
  s_.erase(p == std::wstring::npos ? 0 : p + 1);
  return *this;
}

void CString::Format(const wchar_t *format, ...) {
  va_list args;
  va_start(args, format);
  s_ = tolv::FormatWideV(format, args);
  va_end(args);
}

void CString::AppendFormat(const wchar_t *format, ...) {
  va_list args;
  va_start(args, format);
  s_ += tolv::FormatWideV(format, args);
  va_end(args);
}

wchar_t *CString::GetBuffer(int minLength) {
  // The extra room is nulls, so ReleaseBuffer(-1) finds the old end again.
  if (minLength > GetLength()) s_.resize(static_cast<std::size_t>(minLength));
  return s_.data();
}

wchar_t *CString::GetBufferSetLength(int length) {
  s_.resize(static_cast<std::size_t>(length > 0 ? length : 0));
  return s_.data();
}

void CString::ReleaseBuffer(int newLength) {
  if (newLength < 0) {
    auto p = s_.find(L'\0');
    if (p != std::wstring::npos) s_.resize(p);
  } else if (static_cast<std::size_t>(newLength) <= s_.size()) {
    s_.resize(static_cast<std::size_t>(newLength));
  }
}

void CStringArray::SetSize(int size) { a_.resize(static_cast<std::size_t>(size > 0 ? size : 0)); }

int CStringArray::Add(const CString &s) {
  a_.push_back(s);
  return GetSize() - 1;
}

int CStringArray::Append(const CStringArray &other) {
  int first = GetSize();
  a_.insert(a_.end(), other.a_.begin(), other.a_.end());
  return first;
}

void CStringArray::SetAtGrow(int i, const CString &s) {
  if (i >= GetSize()) SetSize(i + 1);
  a_[static_cast<std::size_t>(i)] = s;
}

void CStringArray::InsertAt(int i, const CString &s, int count) {
  if (i > GetSize()) SetSize(i);
  a_.insert(a_.begin() + i, static_cast<std::size_t>(count > 0 ? count : 0), s);
}

void CStringArray::RemoveAt(int i, int count) {
  if (count <= 0 || i < 0 || i >= GetSize()) return;
  count = std::min(count, GetSize() - i);
  a_.erase(a_.begin() + i, a_.begin() + i + count);
}
