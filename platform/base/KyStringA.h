// The narrow string of the add-on's base library: text in code page 936
// (GBK), the add-on's home code page. A wide character the code page can't
// hold becomes '?'. Sorted dictionaries order names by this form.
#pragma once

#include <string>

#include "platform/mfc/CString.h"

class KyStringA {
 public:
  KyStringA() = default;
  KyStringA(const char *text) : s_(text ? text : "") {}
  KyStringA(const wchar_t *text);
  KyStringA(const CString &text) : KyStringA(text.GetString()) {}

  int GetLength() const { return static_cast<int>(s_.size()); }
  bool IsEmpty() const { return s_.empty(); }
  const char *GetString() const { return s_.c_str(); }
  operator const char *() const { return s_.c_str(); }
  char operator[](int index) const { return s_[static_cast<std::size_t>(index)]; }
  // Back to wide text.
  CString ToWide() const;

  friend bool operator==(const KyStringA &a, const KyStringA &b) { return a.s_ == b.s_; }

 private:
  std::string s_;
};
