// What an object works out from its state to answer faster. It belongs to the object: neither copied nor undone.
#pragma once

#include <memory>

namespace drawing {

template <class T>
class Derived {
public:
  Derived() = default;
  Derived(const Derived&) {}
  Derived& operator=(const Derived&) {
    drop(); // the state changes with the assignment
    return *this;
  }
  T* get() const { return value_.get(); } // null until made, and after drop
  T& make() { return *(value_ = std::make_shared<T>()); }
  void drop() { value_.reset(); }

private:
  std::shared_ptr<T> value_; // shared, so that T need not be known to those who only hold one
};

} // namespace drawing
