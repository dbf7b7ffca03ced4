// Fills a dictionary with the children that a stored form yields, with the
// result that AppendItem of each in turn would give, but in time linear in
// the number of children (n log n when sorted).
//
// AppendItem looks for a namesake by a linear walk of the list (unsorted)
// or a binary search that steps along the list (sorted), so reading a
// section of n items one AppendItem at a time costs n squared steps; the
// language package has sections of thousands. The collector keeps a hash of
// the names instead, and for a sorted dictionary orders all children once
// at the end: a stable sort on the narrow names, in which the first of each
// run of namesakes stays, is the order that sorted insertion builds.
#pragma once

#include <cstdint>
#include <vector>

class KyDtDictionary;
class KyDtDictItem;

class KyDtDictChildCollector {
 public:
  // `dict` must be empty; the collector is its only writer until Finish.
  explicit KyDtDictChildCollector(KyDtDictionary &dict);
  KyDtDictChildCollector(const KyDtDictChildCollector &) = delete;
  KyDtDictChildCollector &operator=(const KyDtDictChildCollector &) = delete;
  // Deletes the items still held if Finish was never reached.
  ~KyDtDictChildCollector();

  // Takes the item: it becomes a child, or is deleted when a child of the
  // same name (as AppendItem sees names) came first. A dictionary takes the
  // auto-sort flag of its parent.
  void Add(KyDtDictItem *item);
  // Makes room for about this many children up front, so the name table
  // isn't rebuilt as it fills. A count read from a file is only a hint: the
  // room taken is bounded, and more children still fit.
  void Reserve(std::int32_t expected);
  // Puts the held children in place and leaves the list cursor where the
  // last AppendItem would have left it. Safe to call more than once.
  void Finish();

 private:
  struct Slot {
    KyDtDictItem *item;
    std::int32_t index;
    // The name's hash, so that probing and growing seldom read a name.
    std::uint32_t hash;
  };
  void AddUnsorted(KyDtDictItem *item);
  // Appends to the list, deleting the item if the list can't take it.
  void AppendOwned(KyDtDictItem *item);
  void FinishSorted();
  // The slot of the name in the hash table: the one holding it, or the
  // empty one where it belongs.
  Slot &Probe(const KyDtDictItem &item, std::uint32_t hash);
  void GrowTable(std::size_t size);

  KyDtDictionary &dict_;
  bool sorted_;
  // Sorted: every child in order of arrival, placed by Finish.
  std::vector<KyDtDictItem *> pending_;
  // Unsorted: open addressing over the named children already appended.
  std::vector<Slot> table_;
  std::int32_t named_ = 0;
  std::int32_t appended_ = 0;
  // The item on which the last AppendItem would have left the cursor, and
  // its index when known.
  KyDtDictItem *last_ = nullptr;
  std::int32_t lastIndex_ = -1;
};
