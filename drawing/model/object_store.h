// Where a drawing's objects are: numbers, handles and the objects themselves.
#pragma once

#include "DbObject.h"

#include <memory>
#include <vector>

namespace drawing {

// Handle to object number; open addressing, never shrinks. Handles are not 0.
class HandleMap {
public:
  std::uint32_t find(std::uint64_t handle) const; // 0 when absent
  void put(std::uint64_t handle, std::uint32_t number);
  void remove(std::uint64_t handle);
  void reserve(std::size_t count);

private:
  struct Slot {
    std::uint64_t handle = 0;
    std::uint32_t number = 0;
  };
  void grow(std::size_t slots);
  static std::size_t hash(std::uint64_t handle) { return (handle * 0x9E3779B97F4A7C15ull) >> 20; }

  std::vector<Slot> slots_;
  std::size_t used_ = 0;
};

class Store {
public:
  explicit Store(OdDbDatabase* database);
  ~Store();
  Store(const Store&) = delete;
  Store& operator=(const Store&) = delete;

  // The store of a living drawing, or null.
  static Store* of(OdDbObjectId id);

  OdDbDatabase* database() const { return database_; }
  std::uint32_t serial() const { return serial_; }

  OdDbObject* object(OdDbObjectId id) const { return stub(id.number()).object; }
  OdDbHandle handle(OdDbObjectId id) const { return stub(id.number()).handle; }
  bool contains(std::uint32_t number) const { return number != 0 && number < count_; }
  std::uint32_t count() const { return count_; } // numbers run from 1 to count - 1

  // Makes the object resident; the store owns it from now on. A handle that is 0 or taken is replaced by a new one.
  OdDbObjectId add(OdDbObject* object, OdDbHandle handle);
  // A resident object without handle.
  OdDbObjectId addNameless(OdDbObject* object);
  OdDbObjectId find(OdDbHandle handle) const;
  // The id that has or will have that handle: files refer to objects before they bring them.
  OdDbObjectId expect(OdDbHandle handle);
  // Gives an object that waits for a handle this one, when it is free. Returns the id that was expected to have it,
  // which now has no object; null when there is none.
  OdDbObjectId assignHandle(OdDbObjectId id, OdDbHandle handle);
  // Puts another object behind an id (an object that is read late, or cannot stand as it was).
  void replace(OdDbObjectId id, OdDbObject* object);
  // The same while the present object may still be in use: it becomes free, and lives as long as the pointers to it, or
  // as the drawing without any. Undo goes on with the new one.
  void supersede(OdDbObjectId id, OdDbObject* object);

  // While a file is read, objects without a handle of their own wait for one: the file may still use any number.
  void deferHandles() { deferring_ = true; }
  void assignDeferredHandles();

  OdDbHandle nextHandle() const { return nextHandle_; }
  void raiseNextHandle(std::uint64_t handle);
  void reserve(std::size_t objects);
  // Gives a new store the numbers of another one with their handles, and the next free handle, but no objects.
  void copyNumbers(const Store& other);

private:
  struct Stub {
    OdDbObject* object = nullptr;
    std::uint64_t handle = 0;
  };
  static constexpr std::uint32_t kPageBits = 12;
  static constexpr std::uint32_t kPageSize = 1u << kPageBits;

  Stub& stub(std::uint32_t number) const { return pages_[number >> kPageBits][number & (kPageSize - 1)]; }
  std::uint32_t newNumber();
  void attachObject(OdDbObject* object, std::uint32_t number);

  OdDbDatabase* database_;
  std::uint32_t serial_;
  std::uint32_t count_ = 1;
  std::uint64_t nextHandle_ = 1;
  std::vector<std::unique_ptr<Stub[]>> pages_;
  HandleMap handles_;
  std::vector<OdSmartPtr<OdDbObject>> superseded_;
  bool deferring_ = false;
};

// The object behind an id, erased or not, without opening it; null when there is none.
inline OdDbObject* lookup(OdDbObjectId id) {
  Store* store = Store::of(id);
  return store != nullptr && store->contains(id.number()) ? store->object(id) : nullptr;
}

inline bool isAlive(const OdDbObject* object) {
  return object != nullptr && !object->isErased();
}
inline bool isAlive(OdDbObjectId id) {
  return isAlive(lookup(id));
}

// The same as a class, null when it is another kind. T must be what isKindOf says.
template <class T>
T* getIf(OdDbObjectId id) {
  OdDbObject* object = lookup(id);
  return object != nullptr && object->isKindOf(T::desc()) ? static_cast<T*>(object) : nullptr;
}

// Allows changing a resident object that is not open for write: parts that follow their owner, and the SDK's own
// repairs. Locked layers do not hinder it. Undo knows what changed.
class WriteScope {
public:
  explicit WriteScope(OdDbObject& object) : object_(object), before_(object.writable_) { object.writable_ = true; }
  ~WriteScope() { object_.writable_ = before_; }
  WriteScope(const WriteScope&) = delete;
  WriteScope& operator=(const WriteScope&) = delete;

private:
  OdDbObject& object_;
  bool before_;
};

// Objects that a carried list owns: those it names as its own and that name `holder` as their owner, or none.
void listOwned(const GroupList& groups, OdDbObjectId listOwner, std::vector<OdDbObjectId>& ids);

} // namespace drawing
