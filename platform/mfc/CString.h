// The wide string of the system: the subset of MFC's CStringW that the
// add-on uses, with its semantics (ordinal compares, 0-based indices, -1 for
// "not found", conversions from narrow text in code page 936).
#pragma once

#include <compare>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

class CString {
 public:
  CString() = default;
  CString(const wchar_t *text) : s_(text ? text : L"") {}
  CString(const wchar_t *text, int length) : s_(text ? std::wstring(text, length > 0 ? length : 0) : std::wstring()) {}
  // Narrow text is taken as code page 936.
  CString(const char *text);
  CString(const char *text, int length);
  explicit CString(wchar_t ch, int repeat = 1) : s_(repeat > 0 ? repeat : 0, ch) {}
  CString(const std::wstring &text) : s_(text) {}
  CString(std::wstring &&text) : s_(std::move(text)) {}
  CString(std::wstring_view text) : s_(text) {}
  CString(const CString &) = default;
  CString(CString &&) noexcept = default;
  CString &operator=(const CString &) = default;
  CString &operator=(CString &&) noexcept = default;
  CString &operator=(const wchar_t *text) {
    s_ = text ? text : L"";
    return *this;
  }
  CString &operator=(const char *text);
  CString &operator=(wchar_t ch) {
    s_.assign(1, ch);
    return *this;
  }

  int GetLength() const { return static_cast<int>(s_.size()); }
  bool IsEmpty() const { return s_.empty(); }
  void Empty() { s_.clear(); }
  wchar_t GetAt(int index) const { return s_[static_cast<std::size_t>(index)]; }
  void SetAt(int index, wchar_t ch) { s_[static_cast<std::size_t>(index)] = ch; }
  wchar_t operator[](int index) const { return GetAt(index); }
  const wchar_t *GetString() const { return s_.c_str(); }
  operator const wchar_t *() const { return s_.c_str(); }

  // Ordinal compare of the wide characters: <0, 0 or >0.
  int Compare(const wchar_t *other) const;
  // The same after folding A-Z to lower case.
  int CompareNoCase(const wchar_t *other) const;

  CString &MakeUpper();
  CString &MakeLower();
  CString &MakeReverse();

  int Find(wchar_t ch, int start = 0) const;
  int Find(const wchar_t *sub, int start = 0) const;
  int ReverseFind(wchar_t ch) const;
  int ReverseFind(const wchar_t *sub) const;
  int FindOneOf(const wchar_t *chars) const;

  CString Left(int count) const;
  CString Mid(int first) const;
  CString Mid(int first, int count) const;
  CString Right(int count) const;
  CString SpanIncluding(const wchar_t *chars) const;
  CString SpanExcluding(const wchar_t *chars) const;

  // Number of replacements or removals made.
  int Replace(wchar_t oldCh, wchar_t newCh);
  int Replace(const wchar_t *oldText, const wchar_t *newText);
  int Remove(wchar_t ch);
  // The new length.
  int Insert(int index, wchar_t ch);
  int Insert(int index, const wchar_t *text);
  int Delete(int index, int count = 1);

  CString &Trim();
  CString &Trim(wchar_t ch);
  CString &Trim(const wchar_t *chars);
  CString &TrimLeft();
  CString &TrimLeft(wchar_t ch);
  CString &TrimLeft(const wchar_t *chars);
  CString &TrimRight();
  CString &TrimRight(wchar_t ch);
  CString &TrimRight(const wchar_t *chars);

  // printf-style with the home platform's wide rules ("%s" is wide).
  void Format(const wchar_t *format, ...);
  void AppendFormat(const wchar_t *format, ...);

  // A writable buffer of at least minLength characters; ReleaseBuffer takes
  // the new length (or, with -1, the length up to the first null).
  wchar_t *GetBuffer(int minLength = 0);
  wchar_t *GetBufferSetLength(int length);
  void ReleaseBuffer(int newLength = -1);

  CString &operator+=(const CString &other) {
    s_ += other.s_;
    return *this;
  }
  CString &operator+=(const wchar_t *text) {
    if (text) s_ += text;
    return *this;
  }
  CString &operator+=(wchar_t ch) {
    s_ += ch;
    return *this;
  }
  CString &operator+=(const char *text) { return *this += CString(text); }

  friend CString operator+(const CString &a, const CString &b) { return CString(a.s_ + b.s_); }
  friend CString operator+(const CString &a, const wchar_t *b) { return CString(a.s_ + (b ? b : L"")); }
  friend CString operator+(const wchar_t *a, const CString &b) { return CString((a ? a : L"") + b.s_); }
  friend CString operator+(const CString &a, wchar_t b) { return CString(a.s_ + b); }
  friend CString operator+(wchar_t a, const CString &b) { return CString(a + b.s_); }

  friend bool operator==(const CString &a, const CString &b) { return a.s_ == b.s_; }
  friend bool operator==(const CString &a, const wchar_t *b) { return a.Compare(b) == 0; }
  friend std::strong_ordering operator<=>(const CString &a, const CString &b) { return a.s_ <=> b.s_; }
  friend std::strong_ordering operator<=>(const CString &a, const wchar_t *b) {
    return a.Compare(b) <=> 0;
  }

  // Access to the underlying text for the platform code.
  const std::wstring &str() const { return s_; }
  std::wstring &str() { return s_; }

 private:
  std::wstring s_;
};

// MFC's array of strings.
class CStringArray {
 public:
  int GetSize() const { return static_cast<int>(a_.size()); }
  int GetCount() const { return GetSize(); }
  int GetUpperBound() const { return GetSize() - 1; }
  bool IsEmpty() const { return a_.empty(); }
  void SetSize(int size);
  int Add(const CString &s);
  int Append(const CStringArray &other);
  void Copy(const CStringArray &other) { a_ = other.a_; }
  const CString &GetAt(int i) const { return a_[static_cast<std::size_t>(i)]; }
  void SetAt(int i, const CString &s) { a_[static_cast<std::size_t>(i)] = s; }
  // Grows the array when i is past the end, as MFC's SetAtGrow does.
  void SetAtGrow(int i, const CString &s);
  CString &ElementAt(int i) { return a_[static_cast<std::size_t>(i)]; }
  CString &operator[](int i) { return a_[static_cast<std::size_t>(i)]; }
  const CString &operator[](int i) const { return a_[static_cast<std::size_t>(i)]; }
  void InsertAt(int i, const CString &s, int count = 1);
  void RemoveAt(int i, int count = 1);
  void RemoveAll() { a_.clear(); }

 private:
  std::vector<CString> a_;
};
