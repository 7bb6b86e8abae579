// Object ids and handles.
//
// An id is one word: the serial number of its drawing and the number of the object in it. Serial numbers are never
// reused, so an id of a closed drawing is recognised and does not open; it never refers to another object. Ids of one
// drawing compare in the order in which their objects were added.
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

// Handle of an object: a positive number that identifies it in the files of its drawing; 0 is the null handle.
class OdDbHandle {
public:
  // Conversion from and to the number.
  constexpr OdDbHandle(std::uint64_t value = 0) : value_(value) {}
  constexpr operator std::uint64_t() const { return value_; }
  constexpr bool isNull() const { return value_ == 0; }
  MVDRAWING_API std::string ascii() const; // upper-case hexadecimal without leading zeros

private:
  std::uint64_t value_;
};

// Id of an object. It stays valid while its drawing is open, whatever happens to the object. Nothing here throws.
class MVDRAWING_API OdDbObjectId {
public:
  static const OdDbObjectId kNull; // the null id

  constexpr OdDbObjectId() = default;
  // From serial() and number(); for the SDK.
  constexpr OdDbObjectId(std::uint32_t serial, std::uint32_t number)
      : value_((static_cast<std::uint64_t>(serial) << 32) | number) {}

  // isValid: not null and of an open drawing, erased objects included. isErased is also true for an id without an
  // object.
  bool isNull() const { return value_ == 0; }
  bool isValid() const;
  bool isErased() const;
  void setNull() { value_ = 0; }

  // Drawing (null if it is closed), handle (0 if there is none) and class (null for an id without an object); the
  // object need not be open and may be erased.
  OdDbDatabase* database() const;
  OdDbHandle getHandle() const;
  OdRxClass* objectClass() const;

  // Opens the object; null for the null id, a closed drawing, an id without an object, an erased object (unless
  // openErased), and for an entity on a locked layer that is opened for write. Objects may be opened any number of
  // times.
  OdDbObjectPtr safeOpenObject(OdDb::OpenMode mode = OdDb::kForRead, bool openErased = false) const;
  // The same with the reason: eNullObjectId, eDatabaseGone, eObjectDoesNotOpen, eWasErased, eOnLockedLayer. The pointer
  // is null unless the result is eOk.
  OdResult openObject(OdDbObjectPtr& object, OdDb::OpenMode mode = OdDb::kForRead, bool openErased = false) const;

  // Parts of the id, and comparison; the null id is less than all others.
  std::uint32_t serial() const { return static_cast<std::uint32_t>(value_ >> 32); }
  std::uint32_t number() const { return static_cast<std::uint32_t>(value_); }

  friend constexpr bool operator==(OdDbObjectId a, OdDbObjectId b) { return a.value_ == b.value_; }
  friend constexpr bool operator!=(OdDbObjectId a, OdDbObjectId b) { return a.value_ != b.value_; }
  friend constexpr bool operator<(OdDbObjectId a, OdDbObjectId b) { return a.value_ < b.value_; }
  explicit operator bool() const { return !isNull(); } // whether the id is not null

private:
  friend struct std::hash<OdDbObjectId>;
  std::uint64_t value_ = 0;
};

namespace std {

// Hash of an id, for unordered containers.
template <>
struct hash<OdDbObjectId> {
  std::size_t operator()(OdDbObjectId id) const noexcept {
    return static_cast<std::size_t>(id.value_ * 0x9E3779B97F4A7C15ull);
  }
};

} // namespace std

using OdDbObjectIdArray = OdArray<OdDbObjectId, OdClrMemAllocator<OdDbObjectId>>;
