// KyBFindTree<T>: a search tree of the sibling modules. This module only
// carries its polymorphic shell, for the object ids of the host; none of its
// lookups is used here.
#pragma once

template <class T>
class KyBFindTree {
 public:
  KyBFindTree() = default;
  virtual ~KyBFindTree() {}
};
