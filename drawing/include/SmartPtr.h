// Counted pointers. Null is a value; following it throws OdError(eNullObjectPtr) instead of crashing.
#pragma once

#include "OdPlatform.h"

#include <cstddef>
#include <type_traits>
#include <utility>

class OdRxObject;
class OdRxClass;

enum OdRxObjMod { kOdRxObjAttach }; // take over the reference that the raw pointer already holds

namespace drawing {
[[noreturn]] MVDRAWING_API void throwNullPointer();
[[noreturn]] MVDRAWING_API void throwWrongClass(const OdRxObject* object, const OdRxClass* wanted);
} // namespace drawing

template <class T>
class OdSmartPtr {
public:
  OdSmartPtr() = default;
  OdSmartPtr(std::nullptr_t) {}
  OdSmartPtr(T* object) : object_(object) { hold(); }
  OdSmartPtr(T* object, OdRxObjMod) : object_(object) {}
  OdSmartPtr(const OdSmartPtr& other) : object_(other.object_) { hold(); }
  OdSmartPtr(OdSmartPtr&& other) noexcept : object_(std::exchange(other.object_, nullptr)) {}
  // From a pointer to another class: checked when it is not a base of T, and then throws OdError_NotThatKindOfClass.
  template <class U, class = std::enable_if_t<!std::is_same_v<U, T>>>
  OdSmartPtr(const OdSmartPtr<U>& other) : object_(convert(other.get())) {
    hold();
  }
  ~OdSmartPtr() { letGo(); }

  OdSmartPtr& operator=(const OdSmartPtr& other) {
    OdSmartPtr copy(other);
    std::swap(object_, copy.object_);
    return *this;
  }
  OdSmartPtr& operator=(OdSmartPtr&& other) noexcept {
    if (this != &other) {
      letGo();
      object_ = std::exchange(other.object_, nullptr);
    }
    return *this;
  }

  T* get() const { return object_; }
  bool isNull() const { return object_ == nullptr; }
  T* operator->() const { return checked(); }
  T& operator*() const { return *checked(); }
  operator T*() const { return object_; }
  explicit operator bool() const { return object_ != nullptr; }

  void release() {
    letGo();
    object_ = nullptr;
  }
  // Gives the reference to the caller.
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
  void hold() const {
    if (object_ != nullptr)
      object_->addRef();
  }
  void letGo() const {
    if (object_ != nullptr)
      object_->release();
  }

  T* object_ = nullptr;
};
