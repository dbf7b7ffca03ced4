// KyDtUIItem: one node of the user-interface tree (a command, a switch, a
// menu entry, a tool box...). The whole interface of the add-on is a tree of
// these, read from "UIConfig.xml" by KyDtUIConfig.
//
// Every item carries a name (which doubles as its bitmap id), a local name,
// a title, a comment and a data text (the element's text: the command of a
// command definition, the target's name of a reference). The GetTrue...
// operations look through a reference to what it stands for, with the
// reference's own title, comment and name taking precedence.
//
// The destructor is not virtual: an owning list frees an item as a plain
// KyDtUIItem. Deleting through such a pointer destroys the item itself but
// lets a directory's children go free of it: they stay valid, detached, until
// KyDtUIFreeDetachedItems (the module calls it when it is unloaded), so no
// pointer a caller kept into the old tree dangles before then.
#pragma once

#include <cstdint>
#include <new>

#include "platform/mfc/CString.h"
#include "platform/utility/AutoPtr.h"

class KyUtXMLDOMNode;

class KyDtUIItem {
 public:
  KyDtUIItem() = default;
  // Member-wise, the reference count included.
  KyDtUIItem(const KyDtUIItem &other) = default;
  KyDtUIItem &operator=(const KyDtUIItem &other) = default;
  ~KyDtUIItem() = default;

  // `delete` on any item pointer: destroys the item by its own class and
  // detaches (does not free) a directory's children; see above.
  static void operator delete(KyDtUIItem *item, std::destroying_delete_t);

  static KyDtUIItem *NewItem();
  static const wchar_t *GetXMLNodeName() { return L"UIItem"; }

  virtual bool IsDirectory() const { return false; }
  virtual bool IsReference() const { return false; }
  virtual const wchar_t *GetClassName() const { return GetXMLNodeName(); }
  // Writes the item into an element that exists; reads it from one.
  virtual void operator>>(_auto_ptr<KyUtXMLDOMNode> &node);
  virtual void operator<<(_auto_ptr<KyUtXMLDOMNode> &node);

  // Exact comparison with GetClassName: no inheritance test.
  bool IsKindOf(const wchar_t *className) const;

  void AddRef() { ++m_nRefCount; }
  void DecreaseRef() { --m_nRefCount; }
  bool IsReferenced() const { return m_nRefCount > 0; }
  std::int32_t GetRefCount() const { return m_nRefCount; }

  // By name (CString::Compare).
  bool operator>(const KyDtUIItem &other) const { return m_strName.Compare(other.m_strName) > 0; }
  bool operator<(const KyDtUIItem &other) const { return m_strName.Compare(other.m_strName) < 0; }
  bool operator==(const KyDtUIItem &other) const { return m_strName.Compare(other.m_strName) == 0; }
  bool operator!=(const KyDtUIItem &other) const { return m_strName.Compare(other.m_strName) != 0; }

  const CString &GetName() const { return m_strName; }
  void SetName(const wchar_t *name) { m_strName = name; }
  // The local name, or the class name while it is empty.
  CString GetLocalName() const;
  void SetLocalName(const wchar_t *localName) { m_strLocalName = localName; }
  const CString &GetTitle() const { return m_strTitle; }
  void SetTitle(const wchar_t *title) { m_strTitle = title; }
  const CString &GetComment() const { return m_strComment; }
  void SetComment(const wchar_t *comment) { m_strComment = comment; }
  const CString &GetData() const { return m_strData; }
  void SetData(const wchar_t *data) { m_strData = data; }

  // A reference: the item it stands for (null when unbound); else this.
  KyDtUIItem *GetTrueItem();
  const KyDtUIItem *GetTrueItem() const;
  // These call through an unbound reference's null target: test
  // GetReferencedItem first where one may be met.
  CString GetTrueData() const;
  CString GetTrueCommand() const { return GetTrueData(); }
  CString GetTrueTitle() const;
  CString GetTrueComment() const;
  CString GetTrueBitmapID() const;

 protected:
  // The reader and writer of the fields every element has.
  void ReadItemFields(_auto_ptr<KyUtXMLDOMNode> &node);
  void WriteItemFields(_auto_ptr<KyUtXMLDOMNode> &node) const;

  std::int32_t m_nRefCount = 0;
  CString m_strName;
  CString m_strLocalName;
  CString m_strTitle;
  CString m_strComment;
  CString m_strData;
};

// Frees, with everything below them, the items that lists let go of when
// they deleted a directory. Only safe when no caller still holds a pointer
// into a tree that was reset or deleted; gives how many items went.
std::int32_t KyDtUIFreeDetachedItems();
