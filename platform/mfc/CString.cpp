#include "platform/mfc/CString.h"

#include <algorithm>
#include <cstdarg>
#include <cwchar>
#include <limits>
#include <new>
#include <stdexcept>

#include "platform/windows/TextCodec.h"
#include "platform/windows/WideFormat.h"
#include "platform/windows/WinCrt.h"

namespace tolv {

constinit CStringEmptyBuffer g_emptyCString = {{{0}, 0, 0}, {0}};

}  // namespace tolv

namespace {

using tolv::CStringData;

// White space as the home platform's character tests see it: the ASCII
// blanks and the Unicode space separators, among them the ideographic space
// of Chinese text and the no-break space.
constexpr const wchar_t *kBlanks =
    L" \t\r\n\v\f\x00A0\x1680\x2000\x2001\x2002\x2003\x2004\x2005\x2006\x2007"
    L"\x2008\x2009\x200A\x2028\x2029\x202F\x205F\x3000";

constexpr std::size_t kNotFound = std::wstring_view::npos;

int Clamp(int v, int lo, int hi) { return v < lo ? lo : (v > hi ? hi : v); }

// A length as the string keeps it; longer text than an int can count is
// refused as MFC refuses it, by running out of memory.
int CheckedLength(std::size_t n) {
  if (n >= static_cast<std::size_t>(std::numeric_limits<int>::max())) throw std::bad_alloc();
  return static_cast<int>(n);
}

// A buffer of one reference with room for `capacity` characters and the
// closing null, holding the empty text.
CStringData *Allocate(int capacity) {
  const std::size_t bytes = sizeof(CStringData) + (static_cast<std::size_t>(capacity) + 1) * sizeof(wchar_t);
  auto *data = new (::operator new(bytes)) CStringData{{1}, 0, capacity};
  data->chars()[0] = L'\0';
  return data;
}

// A buffer of one reference holding the text, with no room to spare.
CStringData *AllocateText(std::wstring_view text) {
  const int length = CheckedLength(text.size());
  CStringData *data = Allocate(length);
  std::wmemcpy(data->chars(), text.data(), text.size());
  data->length = length;
  data->chars()[length] = L'\0';
  return data;
}

int Index(std::size_t p) { return p == kNotFound ? -1 : static_cast<int>(p); }

}  // namespace

// ---- Buffers ----

void CString::Free(CStringData *data) { ::operator delete(data); }

wchar_t *CString::Own(int capacity) {
  CStringData *data = Data();
  if (!IsShared() && data->capacity >= capacity) return p_;
  const int keep = std::min(data->length, capacity);
  CStringData *own = Allocate(capacity);
  std::wmemcpy(own->chars(), p_, static_cast<std::size_t>(keep));
  own->length = keep;
  own->chars()[keep] = L'\0';
  Release();
  p_ = own->chars();
  return p_;
}

void CString::SetLength(int length) {
  Data()->length = length;
  p_[length] = L'\0';
}

void CString::Assign(std::wstring_view text) {
  if (text.empty()) {
    Empty();
    return;
  }
  const int length = CheckedLength(text.size());
  if (!IsShared() && Data()->capacity >= length) {
    // The text may be a part of this very buffer.
    std::wmemmove(p_, text.data(), text.size());
    SetLength(length);
    return;
  }
  CStringData *fresh = AllocateText(text);
  Release();
  p_ = fresh->chars();
}

CString &CString::Append(std::wstring_view text) {
  if (text.empty()) return *this;
  const int old = GetLength();
  const int length = CheckedLength(static_cast<std::size_t>(old) + text.size());
  if (IsShared() || Data()->capacity < length) {
    // Growing by half again keeps a string built piece by piece linear.
    const int grown = IsShared() ? length : static_cast<int>(std::min<long long>(
                                                 std::numeric_limits<int>::max() - 1, Data()->capacity * 3LL / 2));
    CStringData *fresh = Allocate(std::max(length, grown));
    std::wmemcpy(fresh->chars(), p_, static_cast<std::size_t>(old));
    // The text may lie in the old buffer, which is let go only now.
    std::wmemcpy(fresh->chars() + old, text.data(), text.size());
    fresh->length = length;
    fresh->chars()[length] = L'\0';
    Release();
    p_ = fresh->chars();
    return *this;
  }
  std::wmemmove(p_ + old, text.data(), text.size());
  SetLength(length);
  return *this;
}

CString CString::Concat(std::wstring_view a, std::wstring_view b) {
  CString out;
  const int length = CheckedLength(a.size() + b.size());
  if (length == 0) return out;
  CStringData *data = Allocate(length);
  std::wmemcpy(data->chars(), a.data(), a.size());
  std::wmemcpy(data->chars() + a.size(), b.data(), b.size());
  data->length = length;
  data->chars()[length] = L'\0';
  out.p_ = data->chars();
  return out;
}

// ---- Construction and assignment ----

CString::CString(const wchar_t *text) : p_(EmptyChars()) {
  if (text != nullptr && *text != L'\0') Assign(std::wstring_view(text));
}

CString::CString(const wchar_t *text, int length) : p_(EmptyChars()) {
  if (text != nullptr && length > 0) Assign(std::wstring_view(text, static_cast<std::size_t>(length)));
}

CString::CString(const char *text) : p_(EmptyChars()) {
  if (text != nullptr && *text != '\0') Assign(tolv::FromGbk(text));
}

CString::CString(const char *text, int length) : p_(EmptyChars()) {
  if (text != nullptr && length > 0) Assign(tolv::FromGbk(std::string_view(text, static_cast<std::size_t>(length))));
}

CString::CString(wchar_t ch, int repeat) : p_(EmptyChars()) {
  if (repeat <= 0) return;
  CStringData *data = Allocate(repeat);
  std::wmemset(data->chars(), ch, static_cast<std::size_t>(repeat));
  data->length = repeat;
  data->chars()[repeat] = L'\0';
  p_ = data->chars();
}

CString::CString(std::wstring_view text) : p_(EmptyChars()) { Assign(text); }

CString &CString::operator=(const CString &other) noexcept {
  if (p_ != other.p_) {
    other.AddRef();
    Release();
    p_ = other.p_;
  }
  return *this;
}

CString &CString::operator=(CString &&other) noexcept {
  if (this != &other) {
    Release();
    p_ = other.p_;
    other.p_ = EmptyChars();
  }
  return *this;
}

CString &CString::operator=(const wchar_t *text) {
  Assign(text != nullptr ? std::wstring_view(text) : std::wstring_view());
  return *this;
}

CString &CString::operator=(const char *text) {
  if (text == nullptr || *text == '\0') {
    Empty();
  } else {
    Assign(tolv::FromGbk(text));
  }
  return *this;
}

CString &CString::operator=(wchar_t ch) {
  Assign(std::wstring_view(&ch, 1));
  return *this;
}

void CString::Empty() {
  Release();
  p_ = EmptyChars();
}

void CString::SetAt(int index, wchar_t ch) { Own(GetLength())[index] = ch; }

// ---- Comparison and search ----

int CString::Compare(const wchar_t *other) const {
  int r = std::wcscmp(p_, other ? other : L"");
  return r < 0 ? -1 : (r > 0 ? 1 : 0);
}

int CString::CompareNoCase(const wchar_t *other) const { return _wcsicmp(p_, other ? other : L""); }

int CString::Find(wchar_t ch, int start) const {
  if (start < 0 || start >= GetLength()) return -1;
  return Index(view().find(ch, static_cast<std::size_t>(start)));
}

int CString::Find(const wchar_t *sub, int start) const {
  if (!sub || start < 0 || start > GetLength()) return -1;
  // An empty text is found where the search starts, as wcsstr finds it.
  return Index(view().find(sub, static_cast<std::size_t>(start)));
}

int CString::ReverseFind(wchar_t ch) const { return Index(view().rfind(ch)); }

int CString::ReverseFind(const wchar_t *sub) const {
  if (!sub || !*sub) return -1;
  return Index(view().rfind(sub));
}

int CString::FindOneOf(const wchar_t *chars) const {
  if (!chars) return -1;
  return Index(view().find_first_of(chars));
}

// ---- Parts ----

CString CString::Left(int count) const {
  count = Clamp(count, 0, GetLength());
  if (count == GetLength()) return *this;
  return CString(view().substr(0, static_cast<std::size_t>(count)));
}

CString CString::Mid(int first) const { return Mid(first, GetLength()); }

CString CString::Mid(int first, int count) const {
  // MFC clamps both: a negative start counts as 0, a count past the end stops there.
  first = Clamp(first, 0, GetLength());
  count = Clamp(count, 0, GetLength() - first);
  if (first == 0 && count == GetLength()) return *this;
  return CString(view().substr(static_cast<std::size_t>(first), static_cast<std::size_t>(count)));
}

CString CString::Right(int count) const {
  count = Clamp(count, 0, GetLength());
  if (count == GetLength()) return *this;
  return CString(view().substr(static_cast<std::size_t>(GetLength() - count)));
}

CString CString::SpanIncluding(const wchar_t *chars) const {
  const std::size_t p = view().find_first_not_of(chars ? chars : L"");
  return Left(p == kNotFound ? GetLength() : static_cast<int>(p));
}

CString CString::SpanExcluding(const wchar_t *chars) const {
  const std::size_t p = view().find_first_of(chars ? chars : L"");
  return Left(p == kNotFound ? GetLength() : static_cast<int>(p));
}

// ---- Changes ----

CString &CString::MakeUpper() {
  if (IsEmpty()) return *this;
  wchar_t *chars = Own(GetLength());
  for (int i = 0; i < GetLength(); ++i) chars[i] = tolv::FoldUpper(chars[i]);
  return *this;
}

CString &CString::MakeLower() {
  if (IsEmpty()) return *this;
  wchar_t *chars = Own(GetLength());
  for (int i = 0; i < GetLength(); ++i) chars[i] = tolv::FoldLower(chars[i]);
  return *this;
}

CString &CString::MakeReverse() {
  if (GetLength() < 2) return *this;
  wchar_t *chars = Own(GetLength());
  std::reverse(chars, chars + GetLength());
  return *this;
}

int CString::Replace(wchar_t oldCh, wchar_t newCh) {
  if (oldCh == newCh) return 0;  // no change, so nothing counts as replaced
  const int n = static_cast<int>(std::count(p_, p_ + GetLength(), oldCh));
  if (n == 0) return 0;
  wchar_t *chars = Own(GetLength());
  std::replace(chars, chars + GetLength(), oldCh, newCh);
  return n;
}

int CString::Replace(const wchar_t *oldText, const wchar_t *newText) {
  if (!oldText || !*oldText) return 0;
  const std::wstring_view text = view();
  const std::wstring_view from(oldText);
  const std::wstring_view to(newText ? newText : L"");
  std::wstring out;
  int n = 0;
  std::size_t pos = 0;
  for (;;) {
    const std::size_t hit = text.find(from, pos);
    if (hit == kNotFound) break;
    out.append(text.substr(pos, hit - pos));
    out.append(to);
    pos = hit + from.size();
    ++n;
  }
  if (n) {
    out.append(text.substr(pos));
    Assign(out);
  }
  return n;
}

int CString::Remove(wchar_t ch) {
  const int n = static_cast<int>(std::count(p_, p_ + GetLength(), ch));
  if (n == 0) return 0;
  wchar_t *chars = Own(GetLength());
  std::remove(chars, chars + GetLength(), ch);
  SetLength(GetLength() - n);
  return n;
}

int CString::Insert(int index, wchar_t ch) { return InsertText(index, std::wstring_view(&ch, 1)); }

int CString::Insert(int index, const wchar_t *text) {
  return InsertText(index, text ? std::wstring_view(text) : std::wstring_view());
}

int CString::InsertText(int index, std::wstring_view text) {
  index = Clamp(index, 0, GetLength());
  if (!text.empty()) {
    // Built apart: the text may be this string's own.
    std::wstring joined(view());
    joined.insert(static_cast<std::size_t>(index), text);
    Assign(joined);
  }
  return GetLength();
}

int CString::Delete(int index, int count) {
  if (index < 0) index = 0;
  const int length = GetLength();
  if (count > 0 && index < length) {
    count = std::min(count, length - index);
    wchar_t *chars = Own(length);
    std::wmemmove(chars + index, chars + index + count, static_cast<std::size_t>(length - index - count));
    SetLength(length - count);
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
  const std::size_t p = view().find_first_not_of(chars ? chars : L"");
  if (p == 0) return *this;
  if (p == kNotFound) {
    Empty();
  } else {
    Assign(view().substr(p));
  }
  return *this;
}

CString &CString::TrimRight(const wchar_t *chars) {
  const std::size_t p = view().find_last_not_of(chars ? chars : L"");
  if (p == kNotFound) {
    Empty();
  } else if (static_cast<int>(p) + 1 < GetLength()) {
    Assign(view().substr(0, p + 1));
  }
  return *this;
}

void CString::Format(const wchar_t *format, ...) {
  va_list args;
  va_start(args, format);
  const std::wstring text = tolv::FormatWideV(format, args);
  va_end(args);
  Assign(text);
}

void CString::AppendFormat(const wchar_t *format, ...) {
  va_list args;
  va_start(args, format);
  const std::wstring text = tolv::FormatWideV(format, args);
  va_end(args);
  Append(text);
}

// ---- Buffers lent out ----

wchar_t *CString::GetBuffer(int minLength) {
  const int length = GetLength();
  const int room = std::max(minLength, length);
  wchar_t *chars = Own(room);
  // The room past the text is nulls, so ReleaseBuffer(-1) finds the old
  // end again.
  std::wmemset(chars + length, L'\0', static_cast<std::size_t>(room - length) + 1);
  return chars;
}

wchar_t *CString::GetBufferSetLength(int length) {
  length = std::max(length, 0);
  const int old = GetLength();
  wchar_t *chars = Own(length);
  if (length > old) std::wmemset(chars + old, L'\0', static_cast<std::size_t>(length - old));
  SetLength(length);
  return chars;
}

void CString::ReleaseBuffer(int newLength) {
  if (p_ == EmptyChars()) return;  // no buffer was lent
  wchar_t *chars = Own(GetLength());
  const int capacity = Data()->capacity;
  if (newLength < 0) {
    newLength = static_cast<int>(::wcsnlen(chars, static_cast<std::size_t>(capacity)));
  } else if (newLength > capacity) {
    return;
  }
  SetLength(newLength);
}

// ---- CStringArray ----
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
