// A result-buffer list that owns its chain: the filter lists of selection
// sets are built with it, one buffer (or chain) at a time.
#pragma once

#include <cstdint>

#include "platform/acad/AdsResbuf.h"

class KyAdsRBList {
 public:
  KyAdsRBList() = default;
  // Takes the chain over.
  explicit KyAdsRBList(resbuf *chain);
  ~KyAdsRBList();
  // Copies are deep: each list frees its own chain.
  KyAdsRBList(const KyAdsRBList &other);
  KyAdsRBList &operator=(const KyAdsRBList &other);
  KyAdsRBList(KyAdsRBList &&other) noexcept;
  KyAdsRBList &operator=(KyAdsRBList &&other) noexcept;

  // Takes a buffer or a whole chain over and puts it at the end. A null
  // adds nothing, so the result of a failed acutBuildList may be passed on.
  void Append(resbuf *chain);
  // Frees the chain.
  void RemoveAll();

  // The first buffer; null for an empty list. The list still owns it.
  resbuf *GetHead() const { return head_; }
  operator resbuf *() const { return head_; }
  // Hands the chain to the caller, who frees it with acutRelRb.
  resbuf *Detach();
  std::int32_t GetLength() const;
  bool IsEmpty() const { return head_ == nullptr; }

 private:
  resbuf *head_ = nullptr;
  resbuf *tail_ = nullptr;
};

// The result-buffer type (RTSTR, RTREAL, RTSHORT, RTLONG, RT3DPOINT,
// RTENAME, ...) in which a value of this group code travels; a code that is
// a type already answers itself, and a code of no known range RTNONE.
int CodeToType(int code);
