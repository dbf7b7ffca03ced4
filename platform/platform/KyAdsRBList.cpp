#include "platform/platform/KyAdsRBList.h"

#include <utility>

KyAdsRBList::KyAdsRBList(resbuf *chain) { Append(chain); }

KyAdsRBList::~KyAdsRBList() { RemoveAll(); }

KyAdsRBList::KyAdsRBList(const KyAdsRBList &other) { Append(tolv::CopyRbChain(other.head_)); }

KyAdsRBList &KyAdsRBList::operator=(const KyAdsRBList &other) {
  if (this != &other) {
    resbuf *copy = tolv::CopyRbChain(other.head_);
    RemoveAll();
    Append(copy);
  }
  return *this;
}

KyAdsRBList::KyAdsRBList(KyAdsRBList &&other) noexcept
    : head_(std::exchange(other.head_, nullptr)), tail_(std::exchange(other.tail_, nullptr)) {}

KyAdsRBList &KyAdsRBList::operator=(KyAdsRBList &&other) noexcept {
  if (this != &other) {
    RemoveAll();
    head_ = std::exchange(other.head_, nullptr);
    tail_ = std::exchange(other.tail_, nullptr);
  }
  return *this;
}

void KyAdsRBList::Append(resbuf *chain) {
  if (!chain) return;
  if (tail_) {
    tail_->rbnext = chain;
  } else {
    head_ = chain;
  }
  tail_ = chain;
  while (tail_->rbnext) tail_ = tail_->rbnext;
}

void KyAdsRBList::RemoveAll() {
  acutRelRb(head_);
  head_ = tail_ = nullptr;
}

resbuf *KyAdsRBList::Detach() {
  tail_ = nullptr;
  return std::exchange(head_, nullptr);
}

std::int32_t KyAdsRBList::GetLength() const {
  std::int32_t n = 0;
  for (const resbuf *rb = head_; rb; rb = rb->rbnext) ++n;
  return n;
}

int CodeToType(int code) {
  if (code >= RTNONE && code <= RTRESBUF) return code;
  switch (tolv::RbKindOfType(code)) {
    case tolv::RbValueKind::kReal:
      return RTREAL;
    case tolv::RbValueKind::kPoint:
      return RT3DPOINT;
    case tolv::RbValueKind::kShort:
      return RTSHORT;
    case tolv::RbValueKind::kLong:
      return RTLONG;
    case tolv::RbValueKind::kText:
      return RTSTR;
    case tolv::RbValueKind::kName:
      return RTENAME;
    default:
      return RTNONE;
  }
}
