// KyDtProjectDict: a named dictionary of project settings inside the
// project file. Its element is "TolvDictionary" and its children are the
// dictionary's own XML form.
#pragma once

#include "dictionary/KyDtDictionary.h"
#include "project/KyDtProjectItem.h"

class KyDtProjectDict : public KyDtProjectItem {
 public:
  KyDtProjectDict(const wchar_t *name = nullptr) : KyDtProjectItem(name) {}
  // An independent copy of the dictionary: the member-wise copy of a
  // dictionary would share its children with the source.
  KyDtProjectDict(const KyDtProjectDict &other);
  KyDtProjectDict &operator=(const KyDtProjectDict &other);
  ~KyDtProjectDict() override;

  CString GetTypeName() const override;
  void operator>>(_auto_ptr<KyUtXMLDOMNode> &node) override;
  void operator<<(_auto_ptr<KyUtXMLDOMNode> &node) override;
  // Same kind and dictionaries that compare equal (CompareWith gives 0);
  // the item names don't count.
  bool IsSameWith(const KyDtProjectItem *other) override;

  KyDtDictionary &GetDict() { return m_dict; }

  KyDtDictionary m_dict;
};
