// How UI items die. An owning list deletes an item as a plain KyDtUIItem;
// the item is then destroyed by its own class, and a directory's children
// are detached into a keep of their own instead of being freed, so that
// pointers into the old tree stay valid. DestroyTree frees a whole subtree
// at once, without recursion.
#pragma once

#include <cstdint>

class KyDtUIItem;

namespace tolv::uiconfig {

// Moves a directory's children to the keep of detached items; nothing for
// another item.
void DetachChildren(KyDtUIItem *item);
// Runs the destructor of the item's own class and frees its memory. The
// item must have no children left.
void DestroyItem(KyDtUIItem *item);
// Frees the item and everything below it.
void DestroyTree(KyDtUIItem *item);
// Frees the children of a directory and everything below them; the
// directory stays, empty.
void DestroyChildren(KyDtUIItem *directory);
// Frees the keep; gives how many items went.
std::int32_t FreeDetached();

}  // namespace tolv::uiconfig
