// The owning pointer of the utility module's handle classes.
//
// It owns at most one object and deletes it when it dies. Handing it on
// (copy construction or assignment from a non-const _auto_ptr, or from a
// temporary) moves the object over and leaves the source empty, so a handle
// returned by value can be kept, passed on and stored without ever being
// deleted twice.
#pragma once

#include <type_traits>

template <class T>
class _auto_ptr {
 public:
  using element_type = T;

  _auto_ptr() noexcept : p_(nullptr) {}
  explicit _auto_ptr(T *object) noexcept : p_(object) {}
  ~_auto_ptr() { delete p_; }

  // Passing on takes the object from the source.
  _auto_ptr(_auto_ptr &source) noexcept : p_(source.release()) {}
  _auto_ptr(_auto_ptr &&source) noexcept : p_(source.release()) {}
  template <class U, class = std::enable_if_t<std::is_convertible_v<U *, T *>>>
  _auto_ptr(_auto_ptr<U> &source) noexcept : p_(source.release()) {}
  template <class U, class = std::enable_if_t<std::is_convertible_v<U *, T *>>>
  _auto_ptr(_auto_ptr<U> &&source) noexcept : p_(source.release()) {}

  _auto_ptr &operator=(_auto_ptr &source) noexcept {
    reset(source.release());
    return *this;
  }
  _auto_ptr &operator=(_auto_ptr &&source) noexcept {
    reset(source.release());
    return *this;
  }
  template <class U, class = std::enable_if_t<std::is_convertible_v<U *, T *>>>
  _auto_ptr &operator=(_auto_ptr<U> &source) noexcept {
    reset(source.release());
    return *this;
  }
  template <class U, class = std::enable_if_t<std::is_convertible_v<U *, T *>>>
  _auto_ptr &operator=(_auto_ptr<U> &&source) noexcept {
    reset(source.release());
    return *this;
  }

  T *get() const noexcept { return p_; }
  T &operator*() const noexcept { return *p_; }
  T *operator->() const noexcept { return p_; }
  explicit operator bool() const noexcept { return p_ != nullptr; }

  // Gives the object up without deleting it; the pointer is empty after.
  T *release() noexcept {
    T *object = p_;
    p_ = nullptr;
    return object;
  }

  // Takes a new object, deleting the old one unless it is the same.
  void reset(T *object = nullptr) noexcept {
    if (object != p_) {
      T *old = p_;
      p_ = object;
      delete old;
    }
  }

 private:
  T *p_;
};
