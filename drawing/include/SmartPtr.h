// Counted pointers. A pointer may be null; dereferencing null throws OdError(eNullObjectPtr).
#pragma once

#include "drawing/export.h"

#include <cstddef>
#include <type_traits>
#include <utility>

class OdRxObject;
class OdRxClass;

// Tag of a constructor: the smart pointer takes over a reference that the caller owns.
enum TakeReference { kTakeReference };

namespace drawing {
// Throw OdError(eNullObjectPtr) and OdError_NotThatKindOfClass.
[[noreturn]] MVDRAWING_API void throwNullPointer();
[[noreturn]] MVDRAWING_API void throwWrongClass(const OdRxObject* object, const OdRxClass* wanted);
} // namespace drawing

// Pointer to a counted object (OdRxObject), which lives as long as a pointer refers to it or its drawing owns it.
template <class T>
class OdSmartPtr {
public:
  OdSmartPtr() = default;
  // From null; from a raw pointer, adding a reference or (kTakeReference) taking over one of the caller.
  OdSmartPtr(std::nullptr_t) {}
  OdSmartPtr(T* object) : object_(object) { addReference(); }
  OdSmartPtr(T* object, TakeReference) : object_(object) {}
  OdSmartPtr(const OdSmartPtr& other) : object_(other.object_) { addReference(); }
  OdSmartPtr(OdSmartPtr&& other) noexcept : object_(std::exchange(other.object_, nullptr)) {}
  // From a pointer to another class: unless T is a base of it, the conversion is checked and throws
  // OdError_NotThatKindOfClass for an object of another class. Null converts to null.
  template <class U, class = std::enable_if_t<!std::is_same_v<U, T>>>
  OdSmartPtr(const OdSmartPtr<U>& other) : object_(convert(other.get())) {
    addReference();
  }
  ~OdSmartPtr() { dropReference(); }

  OdSmartPtr& operator=(const OdSmartPtr& other) {
    OdSmartPtr copy(other);
    std::swap(object_, copy.object_);
    return *this;
  }
  OdSmartPtr& operator=(OdSmartPtr&& other) noexcept {
    if (this != &other) {
      dropReference();
      object_ = std::exchange(other.object_, nullptr);
    }
    return *this;
  }

  // The object; get and the conversion to a raw pointer return null for null, -> and * throw OdError(eNullObjectPtr).
  T* get() const { return object_; }
  bool isNull() const { return object_ == nullptr; }
  T* operator->() const { return checked(); }
  T& operator*() const { return *checked(); }
  operator T*() const { return object_; }
  explicit operator bool() const { return object_ != nullptr; }

  // Makes the pointer null.
  void release() {
    dropReference();
    object_ = nullptr;
  }
  // Makes the pointer null and gives its reference to the caller.
  T* detach() { return std::exchange(object_, nullptr); }

private:
  template <class U>
  static T* convert(U* object) {
    if constexpr (std::is_base_of_v<T, U>) {
      return object;
    } else {
      if (object != nullptr && !object->isKindOf(T::desc()))
        drawing::throwWrongClass(object, T::desc());
      return static_cast<T*>(object);
    }
  }
  T* checked() const {
    if (object_ == nullptr)
      drawing::throwNullPointer();
    return object_;
  }
  void addReference() const {
    if (object_ != nullptr)
      object_->addRef();
  }
  void dropReference() const {
    if (object_ != nullptr)
      object_->release();
  }

  T* object_ = nullptr;
};
