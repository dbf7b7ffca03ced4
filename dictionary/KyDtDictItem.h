// KyDtDictItem: one named, typed value of a dictionary tree, with a free
// bag of text attributes.
//
// The header fields and the value fields of the derived kinds are public:
// the dictionary classes and their users read and assign them directly.
//
// The stream operators are read from the item's side: `item >> target`
// writes the item into an XML element or an archive, `item << source` fills
// the item from one.
#pragma once

#include <cstdint>
#include <map>

#include "containers/KyDList.h"
#include "platform/mfc/CString.h"
#include "platform/utility/AutoPtr.h"

class CArchive;
class KyUtXMLDOMNode;

// Ordered by the ordinal compare of the wide keys, as CString::Compare.
using KyDtAttributeMap = std::map<CString, CString>;

class KyDtDictItem {
 public:
  // The kind numbers are stored in archive files; they never change.
  enum DictDataType : int {
    DT_NONE = -1,
    DT_DICT = 0,
    DT_BOOL = 1,
    DT_CHAR = 2,
    DT_LONG = 3,
    DT_DOUBLE = 4,
    DT_STRING = 5,
    DT_OPTION = 6,
    DT_REFERENCE = 7,
  };

  // Null arguments give empty strings.
  explicit KyDtDictItem(const wchar_t *name = nullptr, const wchar_t *localName = nullptr,
                        const wchar_t *comment = nullptr);
  // Member-wise: the copy shares the source's attribute bag, so at most one
  // of the two may be destroyed. DeepCopy or Clone make independent items.
  KyDtDictItem(const KyDtDictItem &other);
  // Takes the source's bag pointer; the bag this item had is let go of,
  // not freed.
  KyDtDictItem &operator=(const KyDtDictItem &other);

  // The seven virtual operations, in this order, in every kind.
  virtual ~KyDtDictItem();
  virtual int GetType() const;
  // Carries the value of `source` into this item, never its identity; does
  // nothing when the kinds differ.
  virtual void CopyData(const KyDtDictItem &source);
  virtual void operator>>(_auto_ptr<KyUtXMLDOMNode> &node);
  virtual void operator>>(CArchive &ar);
  virtual void operator<<(_auto_ptr<KyUtXMLDOMNode> &node);
  // Reads the form behind the kind number, which the caller has taken.
  virtual void operator<<(CArchive &ar);

  // Attributes. An absent key reads as empty text, false or 0.
  void SetAttributeValue(const wchar_t *key, const wchar_t *value);
  CString GetAttributeValue(const wchar_t *key) const;
  void SetAttributeBoolValue(const wchar_t *key, bool value);
  // Only the exact text "TRUE" is true.
  bool GetAttributeBoolValue(const wchar_t *key) const;
  void SetAttributeIntValue(const wchar_t *key, int value);
  int GetAttributeIntValue(const wchar_t *key) const;
  // Kept with six significant digits ("%g").
  void SetAttributeDoubleValue(const wchar_t *key, double value);
  double GetAttributeDoubleValue(const wchar_t *key) const;
  bool IsMatchAttribute(const wchar_t *key, const wchar_t *value) const;
  // Appends every key and its value in key order; the lists aren't cleared.
  void GetAllAttribute(KyDList<CString> &keys, KyDList<CString> &values);

  bool IsDict() const { return GetType() == DT_DICT; }
  // An item is valid when it has a name.
  bool IsValid() { return !m_strName.IsEmpty(); }

  // Names only, case-sensitive on the wide text.
  bool operator==(const KyDtDictItem &other) const { return m_strName.Compare(other.m_strName) == 0; }
  bool operator!=(const KyDtDictItem &other) const { return !(*this == other); }
  // Byte order of the code-page-936 forms of the names: the order of a
  // sorted dictionary. Two names with the same narrow form are neither
  // greater nor smaller, and yet not ==.
  bool operator>(const KyDtDictItem &other) const;
  bool operator<(const KyDtDictItem &other) const { return other > *this; }

  // 0 when the archive forms of both items are byte for byte the same; the
  // resolved target of a reference and the sort flag don't take part.
  int CompareWith(const KyDtDictItem &other) const;
  // Replaces the content by that of `source` through the archive form. The
  // caller makes sure the kinds agree. Attributes this item has and the
  // source lacks survive.
  void DeepCopy(const KyDtDictItem &source);
  // A new item of the same kind and content, owned by the caller; null for
  // an unknown kind. A cloned dictionary starts unsorted.
  KyDtDictItem *Clone() const;

  CString m_strName;
  CString m_strLocalName;
  CString m_strComment;
  // Allocated by the constructor, freed by the destructor, never null.
  KyDtAttributeMap *m_pAttributes;

 protected:
  // The header parts of the forms, for the kinds' own operators.
  void WriteHeader(_auto_ptr<KyUtXMLDOMNode> &node);
  void WriteHeader(CArchive &ar);
  void ReadHeader(_auto_ptr<KyUtXMLDOMNode> &node);
  void ReadHeader(CArchive &ar);

 private:
  // The header field that the bag key stands for, or null.
  const CString *HeaderField(const CString &key) const;
};

// A new default item of the kind -1 to 7; null for any other number.
KyDtDictItem *CreateDictItem(int type);
