// KyDtDictionary: the inner node of a dictionary tree, a named item that
// owns an ordered list of child items, any of which may again be a
// dictionary.
//
// Values are addressed by path (`ADVANCE\SYSTEM\PRECISION`, see
// KyDtDictPath) rather than by walking nodes. Every lookup moves the list
// cursors of the dictionaries it passes, so lookups on one tree must not
// overlap, and a loop that walks a dictionary by its cursor must not look
// things up in that same dictionary.
//
// With the auto-sort flag on, the children are kept in the byte order of
// the code-page-936 forms of their names and looked up by binary search;
// with it off they keep their order of arrival and are looked up by the
// exact wide name.
#pragma once

#include <cstdint>

#include "containers/KyDList.h"
#include "containers/KyDynArrayBase.h"
#include "containers/KyPDList.h"
#include "dictionary/KyDtDictItem.h"
#include "platform/base/KyStringW.h"
#include "platform/mfc/CString.h"

class KyDtDictPath;
class KyDtDictReferenceItem;

class KyDtDictionary : public KyDtDictItem, public KyPDList<KyDtDictItem> {
 public:
  // Null gives empty; the comment is empty. Unsorted, no class name.
  explicit KyDtDictionary(const wchar_t *name = nullptr, const wchar_t *localName = nullptr);
  // Member-wise, like the item's: both dictionaries hold the same child
  // objects and the same attribute bag, so at most one may be destroyed.
  KyDtDictionary(const KyDtDictionary &other);
  KyDtDictionary &operator=(const KyDtDictionary &other);
  // Destroys the whole subtree, without recursion however deep it is.
  ~KyDtDictionary() override;

  int GetType() const override { return DT_DICT; }
  // Copies the class name, then pours each source child's value into this
  // dictionary's first child of the same name. Nothing is added or removed.
  void CopyData(const KyDtDictItem &source) override;
  void operator>>(_auto_ptr<KyUtXMLDOMNode> &node) override;
  void operator>>(CArchive &ar) override;
  // Reading replaces the children; the attribute bag keeps entries that
  // the source doesn't have.
  void operator<<(_auto_ptr<KyUtXMLDOMNode> &node) override;
  void operator<<(CArchive &ar) override;

  // Only stores the flag: the children are neither sorted nor reached. Turn
  // it on while the dictionary is empty.
  void SetAutoSort(int autoSort) { m_nAutoSort = autoSort; }
  int IsAutoSort() const { return m_nAutoSort; }
  // The class name is the element tag in XML instead of "Directory", and
  // the dictionary's type mark in the program.
  void SetClassName(const wchar_t *className) { m_strClassName = className; }
  const wchar_t *GetClassNameW() const { return m_strClassName; }
  bool IsClassOf(const wchar_t *className) const { return m_strClassName.Compare(className) == 0; }

  // The item at the path, or null. References are not followed. An empty
  // segment finds the first unnamed child.
  KyDtDictItem *FindItem(const CString &path);
  // The same on a parsed path, which is consumed.
  KyDtDictItem *FindItem(KyDtDictPath &path);
  // Depth first, each dictionary after its own matches; `found` is not
  // cleared and this dictionary itself is not tested.
  void FindItem(const wchar_t *key, const wchar_t *value, KyDList<KyDtDictItem *> &found);
  // The item at the path if it is a dictionary.
  KyDtDictionary *FindDict(const CString &path);
  // Walks the path and creates the dictionaries that are missing. Null for
  // an invalid path or when a name on the way is held by a value item; the
  // dictionaries created before that stay.
  KyDtDictionary *FindOrAddDict(const CString &path);
  KyDtDictionary *FindOrAddDict(KyDtDictPath &path);
  // The item at the path, created with the dictionaries on the way when
  // missing. An existing item is given whatever its kind; an unknown kind
  // gives null.
  KyDtDictItem *FindOrAddItem(const CString &path, DictDataType type);
  // True: the dictionary owns the item. False (a named item whose name is
  // already there): it doesn't, and the caller must delete it. The cursor
  // is left on the new item, or on the one of the same name.
  bool AppendItem(KyDtDictItem *item);
  // AppendItem on the dictionary at the path; false when there is none.
  bool AppendItem(const CString &path, KyDtDictItem *item);
  // Deletes every child of the path's last name, with its subtree. False
  // for an invalid path or when nothing went.
  bool FindAndDel(const CString &path);

  // The XML form, root element "TolvDictionary".
  bool ReadFromXML(const wchar_t *path);
  // True once the tree is in the document, whether or not the file could
  // be written at the end.
  bool SaveToXML(const wchar_t *path);
  // The archive form. False only when the file can't be opened; a short
  // file throws CArchiveException (end of file) with what was read kept.
  bool Save(const wchar_t *path);
  bool Read(const wchar_t *path);

  // Typed reads. True when the item exists and has the kind the type reads
  // (int and long: Long, unsigned int: the selected index of an Option,
  // CString: String or Reference); otherwise false and `value` untouched.
  bool GetValue(const CString &path, bool &value);
  bool GetValue(const CString &path, char &value);
  bool GetValue(const CString &path, long &value);
  bool GetValue(const CString &path, int &value);
  bool GetValue(const CString &path, unsigned int &value);
  bool GetValue(const CString &path, double &value);
  bool GetValue(const CString &path, CString &value);
  // Arrays: `values` is reset, then filled with the children of the
  // dictionary at the path that have the element's kind, in list order.
  // False (and empty) when there is no dictionary there.
  bool GetValue(const CString &path, KyDynArrayBase<KyStringW> &values);
  bool GetValue(const CString &path, KyDynArrayBase<CString> &values);
  bool GetValue(const CString &path, KyDynArrayBase<double> &values);
  bool GetValue(const CString &path, KyDynArrayBase<long> &values);
  bool GetValue(const CString &path, KyDynArrayBase<int> &values);
  bool GetValue(const CString &path, KyDynArrayBase<char> &values);
  bool GetValue(const CString &path, KyDynArrayBase<bool> &values);

  // Typed writes through FindOrAddItem. False for an invalid path, a path
  // through a value item, or an item of another kind standing there.
  bool SetValue(const CString &path, bool value);
  bool SetValue(const CString &path, char value);
  bool SetValue(const CString &path, long value);
  bool SetValue(const CString &path, int value);
  // Selects an option of the Option item; false when the index is outside
  // its list, as always on a new one.
  bool SetValue(const CString &path, unsigned int index);
  bool SetValue(const CString &path, double value);
  bool SetValue(const CString &path, const CString &value);
  // Literal text is text, not a bool.
  bool SetValue(const CString &path, const wchar_t *value) { return SetValue(path, CString(value)); }
  // Arrays: the dictionary at the path gets one unnamed item per element,
  // replacing all its children.
  bool SetValue(const CString &path, const KyDynArrayBase<KyStringW> &values);
  bool SetValue(const CString &path, const KyDynArrayBase<CString> &values);
  bool SetValue(const CString &path, const KyDynArrayBase<double> &values);
  bool SetValue(const CString &path, const KyDynArrayBase<long> &values);
  bool SetValue(const CString &path, const KyDynArrayBase<int> &values);
  bool SetValue(const CString &path, const KyDynArrayBase<char> &values);
  bool SetValue(const CString &path, const KyDynArrayBase<bool> &values);
  // A reference item holding the target's path; it is not resolved here.
  bool SetRef(const CString &path, const CString &target);
  bool SetRef(const CString &path, const KyDynArrayBase<KyStringW> &targets);
  bool SetRef(const CString &path, const KyDynArrayBase<CString> &targets);

  // Resolves every reference below this dictionary, with paths taken from
  // here. Unresolvable ones are reported on the command line.
  void TranslateRef();
  void TranslateRef(KyDtDictReferenceItem *reference);
  // Deletes the references below this dictionary whose text is `target`;
  // gives how many went. Their targets stay.
  std::int32_t FindAndDelRef(const CString &target);

  // A dictionary compares and copies as an item, not as a list.
  using KyDtDictItem::operator==;
  using KyDtDictItem::operator!=;
  using KyDtDictItem::operator>;
  using KyDtDictItem::operator<;
  using KyDtDictItem::DeepCopy;
  using KyPDList<KyDtDictItem>::DeepCopy;
  // A dictionary is both an item and a list; given another dictionary,
  // DeepCopy is the item's, which copies the whole subtree.
  void DeepCopy(const KyDtDictionary &source) { KyDtDictItem::DeepCopy(source); }

 protected:
  // 0 off, nonzero on.
  std::int32_t m_nAutoSort = 0;
  CString m_strClassName;

 private:
  // The readers and writers of the stored forms, which handle nested
  // dictionaries without recursion.
  friend struct KyDtDictStreams;
};
