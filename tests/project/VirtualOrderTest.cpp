// The order of the virtual operations of the item tree and of the proxies:
// siblings built against the module call them by their place in the table.
// Read from pointers to virtual members, whose first word in the Itanium
// C++ ABI is one plus the operation's byte offset in the table.
#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>

#include "project/ProjectTestUtil.h"

#if defined(__GXX_ABI_VERSION)

namespace {

template <class Member>
std::uintptr_t Slot(Member member) {
  std::uintptr_t words[2];
  static_assert(sizeof(member) == sizeof(words));
  std::memcpy(words, &member, sizeof(words));
  EXPECT_EQ(words[0] % sizeof(void *), 1u) << "not a virtual member";
  return (words[0] - 1) / sizeof(void *);
}

}  // namespace

TEST(ProjectVirtualOrder, ProxyTableStartsWithBindDictThenTheArrow) {
  EXPECT_EQ(Slot(&KyDtProjectDictProxy::BindDict), 0u);
  EXPECT_EQ(Slot(&KyDtProjectDictProxy::operator->), 1u);
  // The overrides keep the places.
  EXPECT_EQ(Slot(&KyDtPrjFloor::BindDict), 0u);
  EXPECT_EQ(Slot(&KyDtProjectViews::BindDict), 0u);
  EXPECT_EQ(Slot(&KyDtProjectView::BindDict), 0u);
}

TEST(ProjectVirtualOrder, ItemTableFollowsTheDestructorInItsOrder) {
  // The destructor holds the first places (two in this ABI).
  const std::uintptr_t parent = Slot(&KyDtProjectItem::IsParentItem);
  EXPECT_EQ(parent, 2u);
  EXPECT_EQ(Slot(&KyDtProjectItem::GetTypeName), parent + 1);
  void (KyDtProjectItem::*write)(_auto_ptr<KyUtXMLDOMNode> &) = &KyDtProjectItem::operator>>;
  void (KyDtProjectItem::*read)(_auto_ptr<KyUtXMLDOMNode> &) = &KyDtProjectItem::operator<<;
  EXPECT_EQ(Slot(write), parent + 2);
  EXPECT_EQ(Slot(read), parent + 3);
  EXPECT_EQ(Slot(&KyDtProjectItem::IsSameWith), parent + 4);
}

#endif
