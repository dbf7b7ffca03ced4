// KyDtProjectItem: a named node of the project file's item tree, and
// KyDtProjectFile, a drawing of the project.
//
// Each class's type name is also its XML element name and the test of its
// kind (IsKindOf), so a floor is not of kind "File" although it derives
// from it. Items read themselves from an element with `item << node` and
// write themselves into one with `item >> node`.
#pragma once

#include "platform/mfc/CString.h"
#include "platform/utility/AutoPtr.h"

class KyUtXMLDOMNode;

class KyDtProjectItem {
 public:
  // A null name gives an empty name.
  KyDtProjectItem(const wchar_t *name = nullptr);

  // The six virtual operations, in this order, in every class.
  virtual ~KyDtProjectItem();
  // False in every class, a directory's too: it is no sign of children.
  virtual bool IsParentItem() const;
  virtual CString GetTypeName() const;
  // Sets "name" and "localname", each only when it isn't empty.
  virtual void operator>>(_auto_ptr<KyUtXMLDOMNode> &node);
  // Takes "localname" and "name" as the element gives them.
  virtual void operator<<(_auto_ptr<KyUtXMLDOMNode> &node);
  // Same kind and names equal without regard to case. The argument must
  // not be null.
  virtual bool IsSameWith(const KyDtProjectItem *other);

  // Exact, case-sensitive equality of the type names.
  bool IsKindOf(const wchar_t *typeName) const;
  // The local name, or the name when it is empty.
  CString GetDisplayName() const;

  // Names compared without regard to case; what the list's Sort uses.
  bool operator==(const KyDtProjectItem &other) const;
  bool operator!=(const KyDtProjectItem &other) const { return !(*this == other); }
  bool operator<(const KyDtProjectItem &other) const;
  bool operator>(const KyDtProjectItem &other) const;

  // For a file or floor, the drawing's file name with its extension.
  CString m_strName;
  // For display; may be empty.
  CString m_strLocalName;
};

// A drawing file of the project. It adds nothing to the item but its kind.
class KyDtProjectFile : public KyDtProjectItem {
 public:
  KyDtProjectFile(const wchar_t *name = nullptr) : KyDtProjectItem(name) {}
  CString GetTypeName() const override;
};
