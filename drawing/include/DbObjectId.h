// Object ids and handles.
//
// An id is one word: the serial number of its drawing and the number of the object in it. Serial numbers are never
// used twice, so an id of a drawing that is gone is recognised and does not open; it never becomes another object.
// Ids of one drawing compare in the order in which their objects came into it.
#pragma once

#include "OdArray.h"
#include "OdDb.h"
#include "OdError.h"
#include "SmartPtr.h"

#include <cstdint>
#include <functional>
#include <string>

class OdDbObject;
class OdDbDatabase;
using OdDbObjectPtr = OdSmartPtr<OdDbObject>;

// The name of an object in its drawing's files: a positive number, written in hexadecimal.
class OdDbHandle {
public:
  constexpr OdDbHandle(std::uint64_t value = 0) : value_(value) {}
  constexpr operator std::uint64_t() const { return value_; }
  constexpr bool isNull() const { return value_ == 0; }
  MVDRAWING_API std::string ascii() const; // upper-case hexadecimal, "0" for none

private:
  std::uint64_t value_;
};

class MVDRAWING_API OdDbObjectId {
public:
  static const OdDbObjectId kNull;

  constexpr OdDbObjectId() = default;
  constexpr OdDbObjectId(std::uint32_t serial, std::uint32_t number)
      : value_((static_cast<std::uint64_t>(serial) << 32) | number) {}

  bool isNull() const { return value_ == 0; }
  // Not null and of a living drawing; erased objects included.
  bool isValid() const;
  bool isErased() const; // also true when nothing stands behind the id
  void setNull() { value_ = 0; }

  OdDbDatabase* database() const; // null when the drawing is gone
  OdDbHandle getHandle() const;   // 0 when there is none
  OdRxClass* objectClass() const; // null when nothing stands behind the id

  // Null, and never an exception, for the null id, for nothing behind the id, for an erased object (unless
  // openErased), and for opening an entity on a locked layer for write.
  OdDbObjectPtr safeOpenObject(OdDb::OpenMode mode = OdDb::kForRead, bool openErased = false) const;
  // The same, with the reason. The pointer is null unless the answer is eOk.
  OdResult openObject(OdDbObjectPtr& object, OdDb::OpenMode mode = OdDb::kForRead, bool openErased = false) const;

  std::uint32_t serial() const { return static_cast<std::uint32_t>(value_ >> 32); }
  std::uint32_t number() const { return static_cast<std::uint32_t>(value_); }

  friend constexpr bool operator==(OdDbObjectId a, OdDbObjectId b) { return a.value_ == b.value_; }
  friend constexpr bool operator!=(OdDbObjectId a, OdDbObjectId b) { return a.value_ != b.value_; }
  friend constexpr bool operator<(OdDbObjectId a, OdDbObjectId b) { return a.value_ < b.value_; }
  explicit operator bool() const { return !isNull(); }

private:
  friend struct std::hash<OdDbObjectId>;
  std::uint64_t value_ = 0;
};

template <>
struct std::hash<OdDbObjectId> {
  std::size_t operator()(OdDbObjectId id) const noexcept {
    return static_cast<std::size_t>(id.value_ * 0x9E3779B97F4A7C15ull);
  }
};

using OdDbObjectIdArray = OdArray<OdDbObjectId, OdClrMemAllocator<OdDbObjectId>>;
