// KyDtUIDirectory: a UI item that owns an ordered list of child items (a
// section, a menu, a tool box, a switch with its states).
//
// The child operations work through the list's cursor, so they are not
// reentrant on one directory. Every walk of the tree below a directory is
// done with an explicit stack, never by recursion, because a document may
// nest directories deeper than the call stack allows.
#pragma once

#include <cstdint>

#include "containers/KyDynArrayBase.h"
#include "uiconfig/KyDtUIItem.h"
#include "uiconfig/KyDtUIItemList.h"

class KyDtUIDirectory : public KyDtUIItem, public KyPDList<KyDtUIItem> {
 public:
  KyDtUIDirectory() = default;
  // Member-wise: the children are shared as pointers, as the list copies.
  KyDtUIDirectory(const KyDtUIDirectory &other) = default;
  KyDtUIDirectory &operator=(const KyDtUIDirectory &other) = default;
  ~KyDtUIDirectory() override = default;

  static KyDtUIItem *NewItem();
  static const wchar_t *GetXMLNodeName() { return L"Directory"; }

  bool IsDirectory() const override { return true; }
  const wchar_t *GetClassName() const override { return GetXMLNodeName(); }
  // The whole subtree, without recursion.
  void operator>>(_auto_ptr<KyUtXMLDOMNode> &node) override;
  void operator<<(_auto_ptr<KyUtXMLDOMNode> &node) override;

  bool CanMultiOpen() const { return m_bMultiOpen; }
  void CanMultiOpen(bool multiOpen) { m_bMultiOpen = multiOpen; }
  bool IsOpened() const { return m_bOpened; }
  void IsOpened(bool opened) { m_bOpened = opened; }
  bool IsUseScrollBar() const { return m_bUseScrollBar; }
  void IsUseScrollBar(bool useScrollBar) { m_bUseScrollBar = useScrollBar; }
  std::int32_t GetDefaultWidth() const { return m_nDefaultWidth; }
  void SetDefaultWidth(int width) { m_nDefaultWidth = width; }

  // Appends, then, while a document is being read, registers a named item
  // in the reading config's map, or binds an unnamed reference to the item
  // of its target's name read before it (printing a message when there is
  // none). Gives the new index. It takes the list's place, so every append
  // to a directory goes through here.
  std::int32_t Append(KyDtUIItem *const &item) override;
  // The first direct child of that exact name, or null.
  KyDtUIItem *GetUIItem(const wchar_t *name);
  // Every descendant in preorder; references are added, not followed.
  void GetAllSubItem(KyDynArrayBase<KyDtUIItem *> &items);
  // The number of descendants; a reference counts as one.
  std::int32_t GetChildNum();
  // The first command definition, depth first, whose command equals the
  // value ignoring case; only plain "Directory" children are entered.
  KyDtUIItem *FindItemByValue(const wchar_t *value);
  // The item of that number in a post-order numbering (children before
  // their directory). A switch definition counts as one item, and a
  // reference to a directory is entered.
  KyDtUIItem *GetItemFromDFSId(unsigned int id);
  // Resets the children; while a document is being read, first takes every
  // name below out of the reading config's map.
  void SafeReset();

 protected:
  friend struct KyDtUITreeStreams;
  // The attributes a class writes behind its children, and reads back.
  // The streams call them for every directory of the tree.
  virtual void ReadTailFields(_auto_ptr<KyUtXMLDOMNode> &node);
  virtual void WriteTailFields(_auto_ptr<KyUtXMLDOMNode> &node);

  bool m_bMultiOpen = false;
  bool m_bOpened = false;
  bool m_bUseScrollBar = false;
  std::int32_t m_nDefaultWidth = 0;
};
