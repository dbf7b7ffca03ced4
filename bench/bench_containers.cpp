// Costs of positioning in the containers against their size. Each benchmark
// reports per_element, the time of one positioned read, and the list runs
// also steps_per_read, the nodes that one read visits. A flat per_element
// across 1k, 10k and 100k is linear in total; one growing with the size
// means a loop has gone quadratic.
//
// - KyDynArray GetAt: one addition per read.
// - KyList ascending index loop: operator[] moves the cursor from where it
//   stands, so reading 0, 1, 2, ... walks the list once.
// - KyXList MoveTo at random indices: a jump through the index table and at
//   most one group of steps, whatever the length.
// The two reference runs show what the index table and the cursor save:
// random MoveTo on a plain KyDList, and GetAt with the cursor left out, which
// walks from the sentinel on each read (only at the smaller sizes).
#include <benchmark/benchmark.h>

#include <cstdint>
#include <random>
#include <vector>

#include "containers/KyDynArray.h"
#include "containers/KyList.h"
#include "containers/KyPDList.h"

namespace {

// Counts the single cursor steps, so that each run can also report how many
// nodes one positioning visits: a count that does not depend on caches.
template <class L>
class StepCounting : public L {
 public:
  using L::L;
  void MoveToNext() override {
    ++steps;
    L::MoveToNext();
  }
  void MoveToPre() override {
    ++steps;
    L::MoveToPre();
  }
  std::int64_t steps = 0;
};

void StepsPerRead(benchmark::State &state, std::int64_t steps, std::int64_t reads) {
  state.counters["steps_per_read"] = static_cast<double>(steps) / static_cast<double>(reads);
}

void PerElement(benchmark::State &state, std::int64_t readsPerIteration) {
  state.counters["per_element"] = benchmark::Counter(static_cast<double>(readsPerIteration),
                                                     benchmark::Counter::kIsIterationInvariantRate |
                                                         benchmark::Counter::kInvert);
  state.SetItemsProcessed(state.iterations() * readsPerIteration);
}

std::vector<std::int32_t> RandomIndices(std::int32_t n, std::size_t count) {
  std::mt19937 rng(12345);
  std::vector<std::int32_t> out(count);
  for (auto &i : out) i = static_cast<std::int32_t>(rng() % static_cast<unsigned>(n));
  return out;
}

void BM_DynArrayGetAtAscending(benchmark::State &state) {
  auto n = static_cast<std::int32_t>(state.range(0));
  KyDynArray<int> array(n);
  for (std::int32_t i = 0; i < n; ++i) array.Append(i);
  KyDynArrayBase<int> const &root = array;
  for (auto _ : state) {
    long sum = 0;
    for (std::int32_t i = 0; i < n; ++i) sum += root.GetAt(i);
    benchmark::DoNotOptimize(sum);
  }
  PerElement(state, n);
}

void BM_ListIndexAscending(benchmark::State &state) {
  auto n = static_cast<std::int32_t>(state.range(0));
  KyList<int> list;
  for (std::int32_t i = 0; i < n; ++i) list.Append(i);
  for (auto _ : state) {
    long sum = 0;
    for (std::int32_t i = 0; i < n; ++i) sum += list[i];
    benchmark::DoNotOptimize(sum);
  }
  PerElement(state, n);
  StepCounting<KyList<int>> counted;
  for (std::int32_t i = 0; i < n; ++i) counted.Append(i);
  counted.steps = 0;
  for (std::int32_t i = 0; i < n; ++i) benchmark::DoNotOptimize(counted[i]);
  StepsPerRead(state, counted.steps, n);
}

void BM_ListGetAtAscendingCursorOut(benchmark::State &state) {
  auto n = static_cast<std::int32_t>(state.range(0));
  KyList<int> list;
  for (std::int32_t i = 0; i < n; ++i) list.Append(i);
  list.MoveTo(-1);
  for (auto _ : state) {
    long sum = 0;
    for (std::int32_t i = 0; i < n; ++i) sum += list.GetAt(i);
    benchmark::DoNotOptimize(sum);
  }
  PerElement(state, n);
}

void BM_XListMoveToRandom(benchmark::State &state) {
  auto n = static_cast<std::int32_t>(state.range(0));
  std::vector<int> pool(static_cast<std::size_t>(n));
  KyXList<int *> list;
  for (std::int32_t i = 0; i < n; ++i) list.Append(&pool[static_cast<std::size_t>(i)]);
  std::vector<std::int32_t> targets = RandomIndices(n, 4096);
  for (auto _ : state) {
    for (std::int32_t i : targets) {
      list.MoveTo(i);
      benchmark::DoNotOptimize(list.GetCurData());
    }
  }
  PerElement(state, static_cast<std::int64_t>(targets.size()));
  StepCounting<KyXList<int *>> counted;
  for (std::int32_t i = 0; i < n; ++i) counted.Append(&pool[static_cast<std::size_t>(i)]);
  counted.steps = 0;
  for (std::int32_t i : targets) counted.MoveTo(i);
  StepsPerRead(state, counted.steps, static_cast<std::int64_t>(targets.size()));
}

void BM_DListMoveToRandom(benchmark::State &state) {
  auto n = static_cast<std::int32_t>(state.range(0));
  std::vector<int> pool(static_cast<std::size_t>(n));
  KyDList<int *> list;
  for (std::int32_t i = 0; i < n; ++i) list.Append(&pool[static_cast<std::size_t>(i)]);
  std::vector<std::int32_t> targets = RandomIndices(n, 1024);
  for (auto _ : state) {
    for (std::int32_t i : targets) {
      list.MoveTo(i);
      benchmark::DoNotOptimize(list.GetCurData());
    }
  }
  PerElement(state, static_cast<std::int64_t>(targets.size()));
  StepCounting<KyDList<int *>> counted;
  for (std::int32_t i = 0; i < n; ++i) counted.Append(&pool[static_cast<std::size_t>(i)]);
  counted.steps = 0;
  for (std::int32_t i : targets) counted.MoveTo(i);
  StepsPerRead(state, counted.steps, static_cast<std::int64_t>(targets.size()));
}

}  // namespace

BENCHMARK(BM_DynArrayGetAtAscending)->Arg(1000)->Arg(10000)->Arg(100000);
BENCHMARK(BM_ListIndexAscending)->Arg(1000)->Arg(10000)->Arg(100000);
BENCHMARK(BM_XListMoveToRandom)->Arg(1000)->Arg(10000)->Arg(100000);
BENCHMARK(BM_DListMoveToRandom)->Arg(1000)->Arg(10000);
BENCHMARK(BM_ListGetAtAscendingCursorOut)->Arg(1000)->Arg(10000);

BENCHMARK_MAIN();
