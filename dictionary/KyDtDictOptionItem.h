// KyDtDictOptionItem: a choice among texts. The option texts are the item's
// own KyList<CString>; the value is the index of the selected one.
#pragma once

#include <cstdint>

#include "containers/KyList.h"
#include "dictionary/KyDtDictItem.h"

class KyDtDictOptionItem : public KyDtDictItem, public KyList<CString> {
 public:
  KyDtDictOptionItem() = default;
  KyDtDictOptionItem(const KyDtDictOptionItem &) = default;
  KyDtDictOptionItem &operator=(const KyDtDictOptionItem &) = default;

  ~KyDtDictOptionItem() override = default;
  int GetType() const override { return DT_OPTION; }
  // Selects by text: the source's selected text is looked up in this
  // item's own list, which is never replaced.
  void CopyData(const KyDtDictItem &source) override;
  // XML: the element's text is the selected option and "options" all of
  // them joined by blanks. Reading splits at semicolons when there are any,
  // else at blanks, so a file with "A B;C D" is written back as "A B C D".
  void operator>>(_auto_ptr<KyUtXMLDOMNode> &node) override;
  void operator>>(CArchive &ar) override;
  void operator<<(_auto_ptr<KyUtXMLDOMNode> &node) override;
  void operator<<(CArchive &ar) override;

  // The option at the selected index; empty text when the index is outside
  // the list.
  CString GetSelString() const;

  // An item is compared and copied as an item, not as a list.
  using KyDtDictItem::operator==;
  using KyDtDictItem::operator!=;
  using KyDtDictItem::operator>;
  using KyDtDictItem::operator<;
  using KyDtDictItem::DeepCopy;
  using KyList<CString>::DeepCopy;
  // Given another Option, DeepCopy is the item's, which takes the options
  // with the rest.
  void DeepCopy(const KyDtDictOptionItem &source) { KyDtDictItem::DeepCopy(source); }

  // -1 when none is selected.
  std::int32_t m_nCurSel = 0;
};
