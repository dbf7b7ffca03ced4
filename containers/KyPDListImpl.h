// KyPDList<T>: the owning doubly linked list of pointers, in which the object
// trees of the system keep their children. A slot may be null and still
// counts in the length; the sentinel holds null.
//
// Ownership: the list deletes a pointee when its slot is deleted (DelCur,
// Del, DelHead, DelTail, FindDel, FindDataDel, a shrinking SetLength), on
// Reset and in its destructor. Release* deletes the pointee and keeps a null
// slot; TakeOff* hands the pointee to the caller and removes the slot.
// Every inserting operation takes ownership; SetCurData overwrites without
// deleting.
//
// Copying does not clone: a copy (constructor or operator=) shares the
// pointees, and both lists will delete them. Nothing here clones a pointee.
//
// operator== is equal only for lists of null slots; see KyOwnedListOps.
#pragma once

#include <cstdint>

#include "containers/KyDList.h"
#include "containers/KyOwnedListOps.h"

template <class T>
class KyPDList : public KyDList<T *> {
  using Base = KyDList<T *>;
  using Ops = KyOwnedListOps<KyPDList<T>, T>;

 public:
  explicit KyPDList(std::int32_t n = 0) : Base(n) { this->m_pHead->data = nullptr; }
  KyPDList(KyPDList const &other) : Base(other) { this->m_pHead->data = nullptr; }
  KyPDList(KyDynArrayBase<T *> const &other) : Base(other) { this->m_pHead->data = nullptr; }
  KyPDList &operator=(KyPDList const &other) {
    this->DeepCopy(other);
    return *this;
  }
  KyPDList &operator=(KyDynArrayBase<T *> const &other) {
    this->DeepCopy(other);
    return *this;
  }
  ~KyPDList() override {
    if (this->m_pHead) ReleaseAll();
  }

  // Grows with null slots, cursor kept; a smaller n does nothing.
  void ReAllocate(std::int32_t n) override { Ops::ReAllocate(*this, n); }
  void Reset() override {
    ReleaseAll();
    Base::Reset();
  }
  // Deletes the pointee (if any) and removes the slot.
  void DelCur() override {
    T *p = this->GetCurPos()->data;
    if (p) delete p;
    Base::DelCur();
  }
  // Sorts the pointers by a callback on the pointer references. The moved
  // slot is cleared before its old node goes, so no pointee is lost.
  void Sort(int (*compare)(T *const &, T *const &)) override {
    this->BackwardInsertionSort([compare](T *const &e, T *const &x) { return compare(e, x) > 0; },
                                [this] { this->SetCurData(nullptr); });
  }
  // The null-compacting sort: stable on the filled slots, nulls at the tail.
  void Sort(bool ascending) override { Ops::SortBool(*this, ascending); }
  bool Move(std::int32_t i, std::int32_t j) override { return Ops::Move(*this, i, j); }
  // Sorts by a callback on the pointees; the list must hold no null slot.
  virtual void Sort(int (*compare)(T const &, T const &)) {
    this->BackwardInsertionSort([compare](T *const &e, T *const &x) { return compare(*e, *x) > 0; },
                                [this] { this->SetCurData(nullptr); });
  }

  // ---- Access through the pointer; unchecked. ----

  T &GetCurPData() { return *this->GetCurData(); }
  T &GetPData(std::int32_t i) const { return *this->GetAt(i); }
  // Through operator[]: moves the cursor and grows the list if needed.
  T &operator()(std::int32_t i) { return *(*this)[i]; }
  bool IsCurEmpty() const { return Ops::IsCurEmpty(*this); }
  bool IsEmptyData(std::int32_t i) const { return Ops::IsEmptyData(*this, i); }
  std::int32_t GetDataNum() const { return Ops::GetDataNum(*this); }

  // ---- Ownership. ----

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

  // ---- Search through the pointees; null slots never match. ----

  std::int32_t FindData(T const &x, std::int32_t start = 0, std::int32_t end = -1) const {
    return Ops::FindData(*this, x, start, end);
  }
  std::int32_t FindData(T const &x, KyQuene<std::int32_t> &out, std::int32_t start = 0,
                        std::int32_t end = -1) const {
    return Ops::FindData(*this, x, out, start, end);
  }
  bool FindDataTo(T const &x, std::int32_t start = 0, std::int32_t end = -1) {
    return Ops::FindDataTo(*this, x, start, end);
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
  bool operator==(KyPDList const &other) const { return Ops::Equal(*this, other); }
  bool operator!=(KyPDList const &other) const { return !Ops::Equal(*this, other); }
};
