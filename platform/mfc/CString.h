// The wide string of the system: the subset of MFC's CStringW that the
// add-on uses, with its semantics (ordinal compares, 0-based indices, -1 for
// "not found", conversions from narrow text in code page 936).
//
// As MFC's, the object is one pointer to the characters, and copies share
// one reference-counted buffer until one of them changes: a tree of
// settings copies names and values freely, and the shared text is held
// once. A buffer that is shared is never written; every change first makes
// the string's buffer its own.
#pragma once

#include <atomic>
#include <compare>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace tolv {

// The header in front of the characters of every string buffer.
struct CStringData {
  std::atomic<std::int32_t> refs;
  std::int32_t length;
  std::int32_t capacity;  // characters, not counting the closing null
  wchar_t *chars() { return reinterpret_cast<wchar_t *>(this + 1); }
};

// The one buffer of every empty string; it is never freed or written.
struct CStringEmptyBuffer {
  CStringData header;
  wchar_t nul[1];
};
extern CStringEmptyBuffer g_emptyCString;

}  // namespace tolv

class CString {
 public:
  CString() noexcept : p_(EmptyChars()) {}
  CString(const wchar_t *text);
  CString(const wchar_t *text, int length);
  // Narrow text is taken as code page 936.
  CString(const char *text);
  CString(const char *text, int length);
  explicit CString(wchar_t ch, int repeat = 1);
  CString(const std::wstring &text) : CString(std::wstring_view(text)) {}
  CString(std::wstring_view text);
  CString(const CString &other) noexcept : p_(other.p_) { AddRef(); }
  CString(CString &&other) noexcept : p_(other.p_) { other.p_ = EmptyChars(); }
  ~CString() { Release(); }
  CString &operator=(const CString &other) noexcept;
  CString &operator=(CString &&other) noexcept;
  CString &operator=(const wchar_t *text);
  CString &operator=(const char *text);
  CString &operator=(wchar_t ch);

  int GetLength() const { return Data()->length; }
  bool IsEmpty() const { return Data()->length == 0; }
  void Empty();
  wchar_t GetAt(int index) const { return p_[index]; }
  void SetAt(int index, wchar_t ch);
  wchar_t operator[](int index) const { return GetAt(index); }
  const wchar_t *GetString() const { return p_; }
  operator const wchar_t *() const { return p_; }

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

  // The string `id` of the current resource module's string table; false
  // (and the text unchanged) when it has none.
  bool LoadString(unsigned int id);

  // printf-style with the home platform's wide rules ("%s" is wide).
  void Format(const wchar_t *format, ...);
  void AppendFormat(const wchar_t *format, ...);

  // A writable buffer of at least minLength characters, the buffer of this
  // string alone; ReleaseBuffer takes the new length (or, with -1, the
  // length up to the first null).
  wchar_t *GetBuffer(int minLength = 0);
  wchar_t *GetBufferSetLength(int length);
  void ReleaseBuffer(int newLength = -1);

  CString &operator+=(const CString &other) { return Append(other.view()); }
  CString &operator+=(const wchar_t *text) { return text ? Append(std::wstring_view(text)) : *this; }
  CString &operator+=(wchar_t ch) { return Append(std::wstring_view(&ch, 1)); }
  CString &operator+=(const char *text) { return *this += CString(text); }

  friend CString operator+(const CString &a, const CString &b) { return Concat(a.view(), b.view()); }
  friend CString operator+(const CString &a, const wchar_t *b) { return Concat(a.view(), b ? b : L""); }
  friend CString operator+(const wchar_t *a, const CString &b) { return Concat(a ? a : L"", b.view()); }
  friend CString operator+(const CString &a, wchar_t b) { return Concat(a.view(), std::wstring_view(&b, 1)); }
  friend CString operator+(wchar_t a, const CString &b) { return Concat(std::wstring_view(&a, 1), b.view()); }

  friend bool operator==(const CString &a, const CString &b) { return a.p_ == b.p_ || a.view() == b.view(); }
  friend bool operator==(const CString &a, const wchar_t *b) { return a.Compare(b) == 0; }
  friend std::strong_ordering operator<=>(const CString &a, const CString &b) { return a.view() <=> b.view(); }
  friend std::strong_ordering operator<=>(const CString &a, const wchar_t *b) {
    return a.Compare(b) <=> 0;
  }

  // The text, for the platform code: a view valid until the string changes,
  // or a copy.
  std::wstring_view view() const { return std::wstring_view(p_, static_cast<std::size_t>(GetLength())); }
  std::wstring str() const { return std::wstring(view()); }

 private:
  static wchar_t *EmptyChars() { return tolv::g_emptyCString.nul; }
  tolv::CStringData *Data() const { return reinterpret_cast<tolv::CStringData *>(p_) - 1; }
  bool IsShared() const { return p_ == EmptyChars() || Data()->refs.load(std::memory_order_acquire) > 1; }
  void AddRef() const {
    if (p_ != EmptyChars()) Data()->refs.fetch_add(1, std::memory_order_relaxed);
  }
  void Release() {
    if (p_ != EmptyChars() && Data()->refs.fetch_sub(1, std::memory_order_acq_rel) == 1) Free(Data());
  }
  static void Free(tolv::CStringData *data);
  // Makes the buffer this string's own, with room for `capacity`
  // characters at least; the text is kept up to the new room.
  wchar_t *Own(int capacity);
  // Replaces the text; `text` may lie in this string's own buffer.
  void Assign(std::wstring_view text);
  CString &Append(std::wstring_view text);
  int InsertText(int index, std::wstring_view text);
  // Sets the length of an owned buffer and closes the text with a null.
  void SetLength(int length);
  static CString Concat(std::wstring_view a, std::wstring_view b);

  wchar_t *p_;
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
