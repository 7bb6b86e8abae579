#include "drawing/model/object_store.h"

#include "DbDatabase.h"
#include "DbDictionary.h"
#include "DbEntity.h"

#include <atomic>
#include <mutex>

namespace drawing {

namespace {

// Living drawings by serial number. Entries of drawings that are gone stay null: a serial is never used twice.
// Drawings may be made and dropped by several threads, each working on its own, so look-ups take no lock.
constexpr std::uint32_t kRegistryPage = 4096;
using RegistryPage = std::atomic<Store*>[kRegistryPage];

struct Registry {
  std::mutex lock;
  std::uint32_t next = 1;
  std::atomic<RegistryPage*> pages[kRegistryPage] = {};
};

Registry& registry() {
  static auto* const instance = new Registry; // never destroyed: static objects may hold drawings
  return *instance;
}

std::uint32_t registerStore(Store* store) {
  Registry& all = registry();
  const std::lock_guard guard(all.lock);
  const std::uint32_t serial = all.next++;
  std::atomic<RegistryPage*>& page = all.pages[serial / kRegistryPage];
  if (page.load() == nullptr)
    page.store(reinterpret_cast<RegistryPage*>(new std::atomic<Store*>[kRegistryPage]()));
  (*page.load())[serial % kRegistryPage].store(store);
  return serial;
}

void unregisterStore(std::uint32_t serial) {
  (*registry().pages[serial / kRegistryPage].load())[serial % kRegistryPage].store(nullptr);
}

} // namespace

std::uint32_t HandleMap::find(std::uint64_t handle) const {
  if (slots_.empty())
    return 0;
  const std::size_t mask = slots_.size() - 1;
  for (std::size_t i = hash(handle) & mask; slots_[i].handle != 0; i = (i + 1) & mask) {
    if (slots_[i].handle == handle)
      return slots_[i].number;
  }
  return 0;
}

void HandleMap::put(std::uint64_t handle, std::uint32_t number) {
  if ((used_ + 1) * 2 > slots_.size())
    grow(slots_.empty() ? 1024 : slots_.size() * 2);
  const std::size_t mask = slots_.size() - 1;
  std::size_t i = hash(handle) & mask;
  while (slots_[i].handle != 0 && slots_[i].handle != handle)
    i = (i + 1) & mask;
  used_ += slots_[i].handle == 0 ? 1 : 0;
  slots_[i] = {handle, number};
}

void HandleMap::remove(std::uint64_t handle) {
  // The slot stays taken so that searches run over it; number 0 reads as absent.
  if (find(handle) != 0)
    put(handle, 0);
}

void HandleMap::reserve(std::size_t count) {
  std::size_t slots = 1024;
  while (slots < count * 2)
    slots *= 2;
  if (slots > slots_.size())
    grow(slots);
}

void HandleMap::grow(std::size_t slots) {
  std::vector<Slot> old(slots);
  old.swap(slots_);
  used_ = 0;
  for (const Slot& slot : old) {
    if (slot.handle != 0)
      put(slot.handle, slot.number);
  }
}

Store::Store(OdDbDatabase* database) : database_(database) {
  pages_.push_back(std::make_unique<Stub[]>(kPageSize));
  serial_ = registerStore(this);
}

Store::~Store() {
  unregisterStore(serial_);
  for (std::uint32_t number = 1; number < count_; ++number) {
    OdDbObject* object = stub(number).object;
    if (object == nullptr)
      continue;
    object->id_.setNull(); // the remaining pointers now own a free object
    if (object->referenceCount() == 0)
      delete object;
  }
}

Store* Store::of(OdDbObjectId id) {
  const std::uint32_t serial = id.serial();
  if (serial >= kRegistryPage * kRegistryPage)
    return nullptr;
  RegistryPage* page = registry().pages[serial / kRegistryPage].load(std::memory_order_acquire);
  return page == nullptr ? nullptr : (*page)[serial % kRegistryPage].load(std::memory_order_acquire);
}

std::uint32_t Store::newNumber() {
  if ((count_ >> kPageBits) >= pages_.size())
    pages_.push_back(std::make_unique<Stub[]>(kPageSize));
  return count_++;
}

void Store::attachObject(OdDbObject* object, std::uint32_t number) {
  stub(number).object = object;
  object->id_ = OdDbObjectId(serial_, number);
}

OdDbObjectId Store::add(OdDbObject* object, OdDbHandle handle) {
  std::uint32_t number = handle.isNull() ? 0 : handles_.find(handle);
  if (number != 0 && stub(number).object != nullptr)
    number = 0, handle = 0; // taken
  if (handle.isNull() && deferring_)
    return addNameless(object);
  if (handle.isNull())
    handle = nextHandle_;
  if (number == 0) {
    number = newNumber();
    stub(number).handle = handle;
    handles_.put(handle, number);
  }
  raiseNextHandle(handle);
  attachObject(object, number);
  return object->id_;
}

OdDbObjectId Store::addNameless(OdDbObject* object) {
  attachObject(object, newNumber());
  return object->id_;
}

void Store::assignDeferredHandles() {
  deferring_ = false;
  for (std::uint32_t number = 1; number < count_; ++number) {
    Stub& waiting = stub(number);
    if (waiting.handle != 0 || waiting.object == nullptr || waiting.object->isKindOf(OdDbHeader::desc()))
      continue;
    waiting.handle = nextHandle_++;
    handles_.put(waiting.handle, number);
  }
}

OdDbObjectId Store::find(OdDbHandle handle) const {
  const std::uint32_t number = handle.isNull() ? 0 : handles_.find(handle);
  return number == 0 ? OdDbObjectId() : OdDbObjectId(serial_, number);
}

OdDbObjectId Store::expect(OdDbHandle handle) {
  if (handle.isNull())
    return {};
  if (OdDbObjectId known = find(handle); !known.isNull())
    return known;
  const std::uint32_t number = newNumber();
  stub(number).handle = handle;
  handles_.put(handle, number);
  raiseNextHandle(handle);
  return {serial_, number};
}

OdDbObjectId Store::assignHandle(OdDbObjectId id, OdDbHandle handle) {
  const std::uint32_t expected = handle.isNull() ? 0 : handles_.find(handle);
  if (handle.isNull() || stub(id.number()).handle != 0 || (expected != 0 && stub(expected).object != nullptr))
    return {};
  if (expected != 0)
    stub(expected).handle = 0;
  stub(id.number()).handle = handle;
  handles_.put(handle, id.number());
  raiseNextHandle(handle);
  return expected == 0 ? OdDbObjectId() : OdDbObjectId(serial_, expected);
}

void Store::replace(OdDbObjectId id, OdDbObject* object) {
  OdDbObject* old = stub(id.number()).object;
  attachObject(object, id.number());
  if (old == nullptr)
    return;
  old->id_.setNull();
  if (old->referenceCount() == 0)
    delete old;
}

void Store::supersede(OdDbObjectId id, OdDbObject* object) {
  OdDbObject* old = stub(id.number()).object;
  object->undoMark_ = old->undoMark_;
  const auto* oldEntity = dynamic_cast<const OdDbEntity*>(old);
  const auto* entity = dynamic_cast<const OdDbEntity*>(object);
  if (oldEntity != nullptr && entity != nullptr)
    entity->highlight(oldEntity->isHighlighted());
  attachObject(object, id.number());
  old->id_.setNull();
  if (old->referenceCount() == 0)
    superseded_.emplace_back(old);
}

void Store::raiseNextHandle(std::uint64_t handle) {
  if (handle >= nextHandle_ && handle != UINT64_MAX)
    nextHandle_ = handle + 1;
}

void Store::reserve(std::size_t objects) {
  handles_.reserve(objects);
  pages_.reserve((objects >> kPageBits) + 1);
}

void Store::copyNumbers(const Store& other) {
  while (count_ < other.count_)
    newNumber();
  for (std::uint32_t number = 1; number < count_; ++number)
    stub(number).handle = other.stub(number).handle;
  handles_ = other.handles_;
  nextHandle_ = other.nextHandle_;
}

} // namespace drawing
