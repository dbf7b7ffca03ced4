// Object ids and handles of the host's drawing database.
//
// An id names one object of one database for the whole process: ids are
// never reused, so an id of a database that is gone is still distinct and
// simply no longer opens. A handle is the object's number inside its
// database, the one that drawing files store.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>

class AcDbDatabase;

class AcDbHandle {
 public:
  AcDbHandle() = default;
  explicit AcDbHandle(std::uint64_t value) : value_(value) {}
  bool isNull() const { return value_ == 0; }
  std::uint64_t value() const { return value_; }
  // Upper-case hexadecimal, as drawing files write it.
  void getIntoAsciiBuffer(wchar_t *buffer, std::size_t size) const;
  friend bool operator==(AcDbHandle a, AcDbHandle b) { return a.value_ == b.value_; }
  friend bool operator!=(AcDbHandle a, AcDbHandle b) { return a.value_ != b.value_; }

 private:
  std::uint64_t value_ = 0;
};

class AcDbObjectId {
 public:
  AcDbObjectId() = default;
  static const AcDbObjectId kNull;

  bool isNull() const { return serial_ == 0; }
  void setNull() { serial_ = 0; }
  // True while the object it names exists (erased or not).
  bool isValid() const;
  bool isErased() const;
  // The database of the object, null for a null or stale id.
  AcDbDatabase *database() const;
  AcDbHandle handle() const;
  // The id as a number, for tables and messages; 0 for the null id.
  std::uint64_t asOldId() const { return serial_; }
  AcDbObjectId &setFromOldId(std::uint64_t oldId) {
    serial_ = oldId;
    return *this;
  }

  friend bool operator==(AcDbObjectId a, AcDbObjectId b) { return a.serial_ == b.serial_; }
  friend bool operator!=(AcDbObjectId a, AcDbObjectId b) { return a.serial_ != b.serial_; }
  friend bool operator<(AcDbObjectId a, AcDbObjectId b) { return a.serial_ < b.serial_; }
  friend bool operator>(AcDbObjectId a, AcDbObjectId b) { return a.serial_ > b.serial_; }
  friend bool operator<=(AcDbObjectId a, AcDbObjectId b) { return a.serial_ <= b.serial_; }
  friend bool operator>=(AcDbObjectId a, AcDbObjectId b) { return a.serial_ >= b.serial_; }

 private:
  std::uint64_t serial_ = 0;
};

template <>
struct std::hash<AcDbObjectId> {
  std::size_t operator()(AcDbObjectId id) const noexcept { return std::hash<std::uint64_t>()(id.asOldId()); }
};
