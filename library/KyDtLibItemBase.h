// The base of every library node: a name and a free set of text
// attributes, kept in a map ordered by key (case-sensitive, code order).
//
// A value copy (copy constructor, operator=) shares the attribute store
// with its source: changing an attribute through one shows in the other.
// Independent copies are made with Clone or CopyFrom.
#pragma once

#include <map>
#include <memory>

#include "library/KyDtAttribute.h"
#include "platform/mfc/CString.h"
#include "platform/utility/KyUtXMLDOM.h"

// Keys in the order of CString::Compare. Lookups by a plain text make no
// CString on the way: a search tests every node of a tree.
struct KyDtLibKeyLess {
  using is_transparent = void;
  bool operator()(const CString &a, const CString &b) const { return a.Compare(b) < 0; }
  bool operator()(const CString &a, const wchar_t *b) const { return a.Compare(b) < 0; }
  bool operator()(const wchar_t *a, const CString &b) const { return b.Compare(a) > 0; }
};
using KyDtLibAttributeMap = std::map<CString, CString, KyDtLibKeyLess>;

class KyDtLibItemBase {
 public:
  KyDtLibItemBase();
  KyDtLibItemBase(const KyDtLibItemBase &other) = default;
  KyDtLibItemBase &operator=(const KyDtLibItemBase &other) = default;

  virtual ~KyDtLibItemBase();
  virtual CString GetXMLNodeName() const;
  // Adds the element's attributes to the store (nothing is removed) and
  // takes the name from "name".
  virtual bool ReadFromNode(const _auto_ptr<KyUtXMLDOMNode> &node);
  // Every attribute in key order, then "name" with the name field.
  virtual bool SaveToNode(_auto_ptr<KyUtXMLDOMNode> &node);
  // A new object of this class holding an independent copy.
  virtual KyDtLibItemBase *Clone();
  // Takes the name and a copy of every attribute; the old ones go.
  virtual void CopyFrom(KyDtLibItemBase *other);
  virtual bool IsDirectory() const;

  const CString &GetName() const { return m_strName; }
  void SetName(const wchar_t *name) { m_strName = name; }

  bool HasAttribute(const wchar_t *name) const;
  // Empty text, 0, 0.0 or false for an absent key.
  CString GetAttributeValue(const wchar_t *name) const;
  void GetAttributeValue(const wchar_t *name, int &value) const;
  void GetAttributeValue(const wchar_t *name, double &value) const;
  // True only for exactly "TRUE".
  void GetAttributeValue(const wchar_t *name, bool &value) const;
  // Adds or replaces.
  void SetAttributeValue(const wchar_t *name, const wchar_t *value);
  void SetAttributeValue(const wchar_t *name, int value);
  // By "%g": six significant digits.
  void SetAttributeValue(const wchar_t *name, double value);
  void SetAttributeValue(const wchar_t *name, bool value);
  // Appends every pair in key order; the list is not cleared first.
  void GetAllAttribute(KyDtAttributeList &list) const;

  // The node has the attribute and its value is `value` (case counts), or
  // `value` is exactly "*", which any value matches.
  bool IsMatch(const wchar_t *name, const wchar_t *value) const;
  // Every pair of the list matches; an empty list matches everything.
  bool IsMatch(const KyDtAttributeList &list) const;

  // By name, case-sensitively.
  bool operator==(const KyDtLibItemBase &other) const { return m_strName.Compare(other.m_strName) == 0; }
  bool operator!=(const KyDtLibItemBase &other) const { return !(*this == other); }
  bool operator>(const KyDtLibItemBase &other) const { return m_strName.Compare(other.m_strName) > 0; }
  bool operator<(const KyDtLibItemBase &other) const { return other > *this; }

  // The store itself, shared by value copies.
  const KyDtLibAttributeMap &GetAttributeMap() const { return *m_pAttributes; }

 protected:
  // The non-virtual halves of reading and writing, so the tree walks can
  // run them on nested nodes without recursion.
  void ReadBaseFromNode(KyUtXMLDOMNode &node);
  void SaveBaseToNode(KyUtXMLDOMNode &node) const;
  void CopyBaseFrom(const KyDtLibItemBase &other);

  CString m_strName;
  std::shared_ptr<KyDtLibAttributeMap> m_pAttributes;
};
