// A text attribute of a library node (a name and a value), and a list of
// them as callers pass them to a search or take them from a node.
#pragma once

#include "containers/KyList.h"
#include "platform/mfc/CString.h"

class KyDtAttribute {
 public:
  KyDtAttribute() = default;
  KyDtAttribute(const wchar_t *name, const wchar_t *value) : m_strName(name), m_strValue(value) {}
  virtual ~KyDtAttribute() = default;

  // Both fields compare case-sensitively, in code order.
  bool operator==(const KyDtAttribute &other) const;
  bool operator!=(const KyDtAttribute &other) const { return !(*this == other); }
  // By name, then by value.
  bool operator>(const KyDtAttribute &other) const;
  bool operator<(const KyDtAttribute &other) const { return other > *this; }

  CString m_strName;
  CString m_strValue;
};

// Values, not pointers: the list owns its copies.
class KyDtAttributeList : public KyDList<KyDtAttribute> {
 public:
  KyDtAttributeList() = default;
  // Appends one pair; a shorthand for building a search.
  void Add(const wchar_t *name, const wchar_t *value) { Append(KyDtAttribute(name, value)); }
};
