// KyPXList<T>: the owning form of KyXList, with the interface of KyPDList
// (except FindDataTo). Ownership and copying are as told in KyPDListImpl.h.
#pragma once

#include <cstdint>

#include "containers/KyOwnedListOps.h"
#include "containers/KyXList.h"

template <class T>
class KyPXList : public KyXList<T *> {
  using Base = KyXList<T *>;
  using Ops = KyOwnedListOps<KyPXList<T>, T>;

 public:
  // Built empty, then grown with null slots.
  explicit KyPXList(std::int32_t length = 0, std::int32_t groupSize = 25, std::int32_t allocUnit = 100)
      : Base(0, groupSize, allocUnit) {
    this->m_pHead->data = nullptr;
    ReAllocate(length);
  }
  KyPXList(KyPXList const &other) : Base(other) { this->m_pHead->data = nullptr; }
  KyPXList &operator=(KyPXList const &other) {
    Base::operator=(other);
    return *this;
  }
  KyPXList &operator=(KyDynArrayBase<T *> const &other) {
    this->DeepCopy(other);
    return *this;
  }
  ~KyPXList() override {
    if (this->m_pHead) ReleaseAll();
  }

  void ReAllocate(std::int32_t n) override { Ops::ReAllocate(*this, n); }
  // Deletes all pointees, removes all slots and empties the index table.
  void Reset() override {
    ReleaseAll();
    Base::Reset();
  }
  void DelCur() override {
    T *p = this->GetCurPos()->data;
    if (p) delete p;
    Base::DelCur();
  }
  void Sort(int (*compare)(T *const &, T *const &)) override {
    this->BackwardInsertionSort([compare](T *const &e, T *const &x) { return compare(e, x) > 0; },
                                [this] { this->SetCurData(nullptr); });
  }
  void Sort(bool ascending) override { Ops::SortBool(*this, ascending); }
  bool Move(std::int32_t i, std::int32_t j) override { return Ops::Move(*this, i, j); }
  virtual void Sort(int (*compare)(T const &, T const &)) {
    this->BackwardInsertionSort([compare](T *const &e, T *const &x) { return compare(*e, *x) > 0; },
                                [this] { this->SetCurData(nullptr); });
  }

  // Does nothing: one pointer in every slot would be deleted many times.
  void SetAll(T const *) {}

  T &GetCurPData() { return *this->GetCurData(); }
  T &GetPData(std::int32_t i) const { return *this->GetAt(i); }
  T &operator()(std::int32_t i) { return *(*this)[i]; }
  bool IsCurEmpty() const { return Ops::IsCurEmpty(*this); }
  bool IsEmptyData(std::int32_t i) const { return Ops::IsEmptyData(*this, i); }
  std::int32_t GetDataNum() const { return Ops::GetDataNum(*this); }

  void ReleaseCur() { Ops::ReleaseCur(*this); }
  void Release(std::int32_t i) {
    this->MoveTo(i);
    ReleaseCur();
  }
  void ReleaseAll() { Ops::ReleaseAll(*this); }
  T *TakeOffCur() { return Ops::TakeOffCur(*this); }
  T *TakeOff(std::int32_t i) {
    this->MoveTo(i);
    return TakeOffCur();
  }
  T *TakeOffHead() {
    this->MoveToFirst();
    return TakeOffCur();
  }
  T *TakeOffTail() {
    this->MoveToLast();
    return TakeOffCur();
  }
  std::int32_t PlaceIn(T *p) { return Ops::PlaceIn(*this, p); }
  bool SortInto(T *p, bool allowEqual) { return Ops::SortInto(*this, p, allowEqual); }
  std::int32_t FindDataOrAppend(T const &x) { return Ops::FindDataOrAppend(*this, x); }
  void FindDataOrInsertHead(T const &x) { Ops::FindDataOrInsertHead(*this, x); }
  std::int32_t FindDel(T *p) { return Ops::FindDel(*this, p); }

  std::int32_t FindData(T const &x, std::int32_t start = 0, std::int32_t end = -1) const {
    return Ops::FindData(*this, x, start, end);
  }
  std::int32_t FindData(T const &x, KyQuene<std::int32_t> &out, std::int32_t start = 0,
                        std::int32_t end = -1) const {
    return Ops::FindData(*this, x, out, start, end);
  }
  std::int32_t FindDataDel(T const &x) { return Ops::FindDataDel(*this, x); }
  std::int32_t BFindData(T const &x, std::int32_t start = 0, std::int32_t end = -1) const {
    return Ops::BFindData(*this, x, start, end);
  }
  bool BFindDataTo(T const &x, std::int32_t start = 0, std::int32_t end = -1) {
    return Ops::BFindDataTo(*this, x, start, end);
  }

  bool operator==(KyDynArrayBase<T *> const &other) const { return Ops::Equal(*this, other); }
  bool operator!=(KyDynArrayBase<T *> const &other) const { return !Ops::Equal(*this, other); }
  // Two lists of this kind compare here, so the comparison has one best
  // reading whichever side stands first.
  bool operator==(KyPXList const &other) const { return Ops::Equal(*this, other); }
  bool operator!=(KyPXList const &other) const { return !Ops::Equal(*this, other); }
};
