// KyDtProjectDirectoryItem: a folder of the project file's item tree. It
// owns its children through its list and frees them with it.
//
// Reading, writing, comparing and freeing walk the subtree without
// recursion, so a file nested however deep can't exhaust the stack.
#pragma once

#include "containers/KyPDList.h"
#include "project/KyDtProjectItem.h"

class KyDtProjectDirectoryItem : public KyDtProjectItem, public KyPDList<KyDtProjectItem> {
 public:
  KyDtProjectDirectoryItem(const wchar_t *name = nullptr) : KyDtProjectItem(name) {}
  // Copies share the children, by the owning list's own rule.
  KyDtProjectDirectoryItem(const KyDtProjectDirectoryItem &other) = default;
  ~KyDtProjectDirectoryItem() override;

  CString GetTypeName() const override;
  // Replaces the element's children by one element per child, named by its
  // type, in list order.
  void operator>>(_auto_ptr<KyUtXMLDOMNode> &node) override;
  // Frees the children, then makes one child per child element: by the
  // element's name "Directory", "File", "Floor", "TolvProject" or
  // "TolvDictionary", and a plain item ("Item") for any other name.
  void operator<<(_auto_ptr<KyUtXMLDOMNode> &node) override;
  // Same kind, names equal without regard to case, as many children, and
  // each pair of children the same in list order (pairs holding a null are
  // passed over).
  bool IsSameWith(const KyDtProjectItem *other) override;
  // Frees every child, the whole subtree below too.
  void Reset() override;

  // The first child whose name equals `name` case-sensitively, one level
  // deep, or null. Walks with the list's cursor, which stays on the hit.
  KyDtProjectItem *FindChildItem(const wchar_t *name);

  // Items compare as items, not as lists.
  using KyDtProjectItem::operator==;
  using KyDtProjectItem::operator!=;
  using KyDtProjectItem::operator<;
  using KyDtProjectItem::operator>;

 protected:
  // The directory's own part of the read and write, without the children.
  void ReadOwnAttributes(_auto_ptr<KyUtXMLDOMNode> &node);

 private:
  // Moves every child, and every child of a directory below, out of the
  // lists and deletes them one by one.
  void FreeChildren();
};

// A new item of the class whose type name is `elementName`; a plain item
// for a name none of them has.
KyDtProjectItem *NewProjectItemFor(const wchar_t *elementName);
