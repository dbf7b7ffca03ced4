// A directory of a library: a node that owns an ordered list of child
// nodes (directories and items), with search by attribute.
//
// Searches walk the whole tree below the directory, depth first, each
// directory before its content, and move the list cursor of every
// directory on the way: searches on one tree must not nest. Results are
// pointers into the tree, owned by it. The directory on which a search
// starts is never tested itself, and no result array is cleared first.
//
// Reading, writing, copying and freeing run without recursion over nested
// plain directories, so a tree may be deeper than the call stack allows.
#pragma once

#include "containers/KyDynArray.h"
#include "containers/KyPDList.h"
#include "library/KyDtLibItem.h"
#include "library/KyDtLibItemBase.h"

class KyDtLibDirectory : public KyDtLibItemBase, public KyPDList<KyDtLibItemBase> {
 public:
  KyDtLibDirectory();
  // A value copy is of the node alone: it shares the attribute store, as
  // every node's does, but not the children, which have one owner only.
  // The copy starts empty; assignment keeps this directory's children.
  KyDtLibDirectory(const KyDtLibDirectory &other);
  KyDtLibDirectory &operator=(const KyDtLibDirectory &other);
  ~KyDtLibDirectory() override;

  CString GetXMLNodeName() const override;
  // The base read, then the children: an element named exactly
  // "Directory" becomes a directory, any other an item. Old children go.
  bool ReadFromNode(const _auto_ptr<KyUtXMLDOMNode> &node) override;
  // Replaces the element's children: the attributes, then one element per
  // child, named by its GetXMLNodeName, written by the child.
  bool SaveToNode(_auto_ptr<KyUtXMLDOMNode> &node) override;
  KyDtLibItemBase *Clone() override;
  // The base copy, then clones of `other`'s children; `other` must be a
  // directory (anything else leaves this one empty).
  void CopyFrom(KyDtLibItemBase *other) override;
  bool IsDirectory() const override;

  // Structure only: "Directory" elements with "name", "Item" elements with
  // "name" and "file". False when an element can't be made.
  virtual bool WriteChildNode(_auto_ptr<KyUtXMLDOMNode> &node);
  // Names, data files and the shape of the tree; no attributes at any level.
  virtual bool CopyDirectoryFrom(KyDtLibDirectory &other);
  // The first item of that name (case counts), depth first, looking only
  // into children whose node name is exactly "Directory". Never a directory.
  virtual KyDtLibItemBase *Find(const wchar_t *name);

  // ---- Search by attribute ----
  void Find(const wchar_t *name, const wchar_t *value, KyDynArrayBase<KyDtLibItemBase *> &result);
  void Find(const KyDtAttributeList &pairs, KyDynArrayBase<KyDtLibItemBase *> &result);
  KyDtLibItemBase *Find(const wchar_t *name, const wchar_t *value);
  KyDtLibItemBase *Find(const KyDtAttributeList &pairs);
  KyDtLibItem *FindItem(const wchar_t *name, const wchar_t *value);
  KyDtLibItem *FindItem(const KyDtAttributeList &pairs);
  KyDtLibDirectory *FindDirectory(const wchar_t *name, const wchar_t *value);
  KyDtLibDirectory *FindDirectory(const KyDtAttributeList &pairs);
  void FindItem(const wchar_t *name, const wchar_t *value, KyDynArrayBase<KyDtLibItem *> &result);
  void FindItem(const KyDtAttributeList &pairs, KyDynArrayBase<KyDtLibItem *> &result);
  void FindDirectory(const wchar_t *name, const wchar_t *value, KyDynArrayBase<KyDtLibDirectory *> &result);
  void FindDirectory(const KyDtAttributeList &pairs, KyDynArrayBase<KyDtLibDirectory *> &result);

  // The node's comparisons, by name (the list's would compare lengths).
  using KyDtLibItemBase::operator==;
  using KyDtLibItemBase::operator!=;
  using KyDtLibItemBase::operator<;
  using KyDtLibItemBase::operator>;
  // Two of this class compare by one reading, whichever side stands first.
  bool operator==(const KyDtLibDirectory &other) const { return KyDtLibItemBase::operator==(other); }
  bool operator!=(const KyDtLibDirectory &other) const { return KyDtLibItemBase::operator!=(other); }
  bool operator<(const KyDtLibDirectory &other) const { return KyDtLibItemBase::operator<(other); }
  bool operator>(const KyDtLibDirectory &other) const { return KyDtLibItemBase::operator>(other); }

 protected:
  // The children of the element into this (emptied) directory.
  void ReadChildrenFromNode(KyUtXMLDOMNode &node);
  // One element per child under the element.
  void SaveChildrenToNode(KyUtXMLDOMNode &node);
  void CopyChildrenFrom(KyDtLibDirectory &other);

 private:
  template <class Match>
  void Collect(const Match &match, KyDynArrayBase<KyDtLibItemBase *> &result);
};
