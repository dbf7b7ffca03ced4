// A selection set: an ordered collection of entities of drawings, each
// held once. Sets are values: a copy is a working copy that can be
// filtered without touching the original.
#pragma once

#include <cstdint>
#include <unordered_set>
#include <vector>

#include "platform/acad/AcDbObjectId.h"
#include "platform/acad/AdsResbuf.h"
#include "platform/platform/KyAdsEnt.h"

class KyAdsRBList;

class KyAdsEntSet {
 public:
  // How a set came to be; kept for the caller, the members behave alike.
  enum Mode {
    kPicked = 0,   // chosen by the user
    kDrawing = 1,  // gathered from a drawing
    kWorking = 2,  // a working copy made by a program
  };

  explicit KyAdsEntSet(int mode = kPicked);
  KyAdsEntSet(const KyAdsEntSet &other) = default;
  KyAdsEntSet &operator=(const KyAdsEntSet &other) = default;
  KyAdsEntSet(KyAdsEntSet &&other) noexcept = default;
  KyAdsEntSet &operator=(KyAdsEntSet &&other) noexcept = default;
  ~KyAdsEntSet();

  int GetMode() const { return mode_; }

  // Adds an entity that is not a member yet; false for the null id or a
  // member.
  bool Add(AcDbObjectId id);
  // Adds the entities of a block (model space, ...) in their order,
  // erased ones left out; the number added.
  std::int32_t AddBlock(AcDbObjectId blockId);
  // Adds the members of another set that are not members yet.
  KyAdsEntSet &operator+=(const KyAdsEntSet &other);
  KyAdsEntSet &operator+=(AcDbObjectId id);
  bool Remove(AcDbObjectId id);
  void RemoveAll();
  bool Contains(AcDbObjectId id) const { return index_.count(id) != 0; }

  std::int32_t GetLength() const { return static_cast<std::int32_t>(members_.size()); }
  bool IsEmpty() const { return members_.empty(); }
  // The member at a 0-based index; the index is the caller's to check.
  const KyAdsEnt &operator[](std::int32_t index) const { return members_[static_cast<std::size_t>(index)]; }
  KyAdsEnt &operator[](std::int32_t index) { return members_[static_cast<std::size_t>(index)]; }

  // Keeps only the members that answer every buffer of the filter list:
  //   0 or RTDXF0  the entity's type name ("LINE", "TOLV_OPENING"), a
  //                wildcard pattern, without regard to case
  //   8            the layer name, a wildcard pattern, without regard to case
  //   6            the line type name, likewise
  //   62           the colour index (256 by layer, 0 by block)
  //   other codes  the entity's own value of that group code in a drawing
  //                file: texts by wildcard pattern, numbers equal, points
  //                equal within 1e-10
  // A member that cannot be opened, or that has no value of a code, is
  // dropped. A null list keeps every member. Answers the number left.
  std::int32_t Filter(const resbuf *filter);
  std::int32_t Filter(const KyAdsRBList &filter);

  // True when the set has members and every one of them answers the filter
  // list as Filter tests it; an empty list is answered by every member.
  bool IsMatch(KyAdsRBList &filter) const;
  bool IsMatch(const resbuf *filter) const;

 private:
  int mode_;
  std::vector<KyAdsEnt> members_;
  std::unordered_set<AcDbObjectId> index_;
};

// True when one entity answers every buffer of a filter list (see
// KyAdsEntSet::Filter). The entity must be open for read.
bool KyAdsEntityMatches(const AcDbEntity *entity, const resbuf *filter);
