// Text items: KyDtDictStringItem, and KyDtDictReferenceItem, whose text is
// the path of another item of the same tree.
#pragma once

#include "dictionary/KyDtDictItem.h"

class KyDtDictStringItem : public KyDtDictItem {
 public:
  KyDtDictStringItem() = default;
  KyDtDictStringItem(const KyDtDictStringItem &) = default;
  KyDtDictStringItem &operator=(const KyDtDictStringItem &) = default;

  ~KyDtDictStringItem() override = default;
  int GetType() const override { return DT_STRING; }
  void CopyData(const KyDtDictItem &source) override;
  void operator>>(_auto_ptr<KyUtXMLDOMNode> &node) override;
  void operator>>(CArchive &ar) override;
  void operator<<(_auto_ptr<KyUtXMLDOMNode> &node) override;
  void operator<<(CArchive &ar) override;

  CString m_value;
};

// The inherited text is the target's path from the dictionary on which
// references are resolved (KyDtDictionary::TranslateRef). The resolved
// pointer is not owned and is in neither stored form.
class KyDtDictReferenceItem : public KyDtDictStringItem {
 public:
  KyDtDictReferenceItem() = default;
  KyDtDictReferenceItem(const KyDtDictReferenceItem &) = default;
  KyDtDictReferenceItem &operator=(const KyDtDictReferenceItem &) = default;

  ~KyDtDictReferenceItem() override = default;
  int GetType() const override { return DT_REFERENCE; }
  // The path and the resolved pointer as it stands, which may then point
  // into the source's tree.
  void CopyData(const KyDtDictItem &source) override;
  // The stored forms are those of a string item.

  KyDtDictItem *GetItemRef() const { return m_pItemRef; }
  void SetItemRef(KyDtDictItem *item) { m_pItemRef = item; }
  // Follows a chain of references to the first item that is no reference.
  // The caller makes sure no link is null and the chain has no cycle.
  KyDtDictItem *GetTrueItemRef() const;
  // The attribute "hard"; the dictionary itself gives it no meaning.
  void SetHardReference(bool hard);
  bool IsHardReference() const;

  // Null until resolved.
  KyDtDictItem *m_pItemRef = nullptr;
};
