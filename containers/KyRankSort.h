// The sort of the array containers: a stable rank sort. It is quadratic in
// comparisons but moves each element about once and needs no recursion, which
// suits element types that are expensive to copy and arrays that stay small.
#pragma once

#include <cstdint>
#include <utility>

namespace kycontainers {

// Sorts a[0..n) so that element i ends behind element j exactly when
// mustFollow(i, j) was true for the original indices i < j. mustFollow must
// describe a strict weak order, or the ranks are no permutation.
template <class T, class MustFollow>
void RankSort(T *a, std::int32_t n, MustFollow mustFollow) {
  if (n < 2) return;
  std::int32_t *rank = new std::int32_t[n];
  for (std::int32_t i = 0; i < n; ++i) rank[i] = i;
  // Each inverted pair moves the first element one place right and the second
  // one place left; equal elements never count, so the sort is stable.
  for (std::int32_t i = 0; i < n; ++i) {
    for (std::int32_t j = i + 1; j < n; ++j) {
      if (mustFollow(i, j)) {
        ++rank[i];
        --rank[j];
      }
    }
  }
  // rank[i] is now the final index of element i: walk each cycle once.
  for (std::int32_t i = 0; i < n; ++i) {
    if (rank[i] == i) continue;
    T carried = a[i];
    std::int32_t k = rank[i];
    while (k != i) {
      std::swap(carried, a[k]);
      std::int32_t m = k;
      k = rank[k];
      rank[m] = m;
    }
    a[i] = carried;
    rank[i] = i;
  }
  delete[] rank;
}

}  // namespace kycontainers
