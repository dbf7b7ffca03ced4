// The wide string of the add-on's base library. Its ranges are inclusive
// [from, to] pairs, where a `to` of -1 means the end of the text.
#pragma once

#include <string>

#include "platform/mfc/CString.h"

class KyStringW {
 public:
  KyStringW() = default;
  KyStringW(const wchar_t *text) : s_(text ? text : L"") {}
  KyStringW(const CString &text) : s_(text.view()) {}
  KyStringW(const std::wstring &text) : s_(text) {}

  int GetLength() const { return static_cast<int>(s_.size()); }
  bool IsEmpty() const { return s_.empty(); }
  const wchar_t *GetString() const { return s_.c_str(); }
  operator const wchar_t *() const { return s_.c_str(); }
  operator CString() const { return CString(s_); }
  wchar_t operator[](int index) const { return s_[static_cast<std::size_t>(index)]; }

  // Replaces every occurrence of oldText inside [from, to]; gives the count.
  int Replace(const wchar_t *oldText, const wchar_t *newText, int from = 0, int to = -1);
  // The index of the first occurrence of text inside [from, to], or -1.
  int Find(const wchar_t *text, int from = 0, int to = -1) const;
  // The characters from index `from` up to and including `to`.
  KyStringW Mid(int from, int to) const;
  // True for an optional leading sign followed by one or more decimal digits.
  bool IsIntNumber() const;

  friend bool operator==(const KyStringW &a, const KyStringW &b) { return a.s_ == b.s_; }
  friend bool operator!=(const KyStringW &a, const KyStringW &b) { return a.s_ != b.s_; }
  friend bool operator<(const KyStringW &a, const KyStringW &b) { return a.s_ < b.s_; }
  friend bool operator>(const KyStringW &a, const KyStringW &b) { return a.s_ > b.s_; }

 private:
  // Clamps [from, to] to the text; false when the range is empty.
  bool Range(int &from, int &to) const;
  std::wstring s_;
};
