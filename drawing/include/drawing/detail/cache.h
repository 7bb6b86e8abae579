// A value that an object derives from its state to be faster. It belongs to the object: neither copied nor undone.
#pragma once

#include <memory>

namespace drawing {

// A derived value; assigning to the object drops it, as its state changes.
template <class T>
class Derived {
public:
  Derived() = default;
  Derived(const Derived&) {}
  Derived& operator=(const Derived& other) {
    if (this != &other)
      drop();
    return *this;
  }
  // The value: null before make and after drop. make replaces it by a new one.
  T* get() const { return value_.get(); }
  T& make() { return *(value_ = std::make_shared<T>()); }
  void drop() { value_.reset(); }

private:
  std::shared_ptr<T> value_; // shared, so that T may be incomplete where the class is declared
};

} // namespace drawing
