#include "dictionary/KyDtDictPath.h"

#include <string_view>

#include "dictionary/KyDtDictionary.h"

KyDtDictPath::KyDtDictPath(const CString &path) {
  const std::wstring_view text = path.view();
  std::size_t start = 0;
  for (;;) {
    const std::size_t end = text.find(L'\\', start);
    const CString name(text.substr(start, end == std::wstring_view::npos ? std::wstring_view::npos : end - start));
    if (end == std::wstring_view::npos) {
      Append(new KyDtDictItem(name));
      return;
    }
    Append(new KyDtDictionary(name));
    start = end + 1;
  }
}

bool KyDtDictPath::IsValid() {
  if (GetLength() == 0) return false;
  for (KyDtDictItem *const *slot = GetFirst(); slot != nullptr; slot = GetNext(slot)) {
    if (*slot == nullptr || (*slot)->m_strName.IsEmpty()) return false;
  }
  return true;
}
