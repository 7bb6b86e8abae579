// Arrays of the drawing SDK: contiguous, copied by value, every access checked.
//
// An index outside the array throws OdError_InvalidIndex. Growing without memory, and beyond 2^32 - 1 elements, throws
// OdError(eOutOfMemory) and leaves the array unchanged. Pointers and references to elements are valid until the array
// grows or shrinks.
#pragma once

#include "OdError.h"

#include <algorithm>
#include <cstdint>
#include <initializer_list>
#include <limits>
#include <new>
#include <stdexcept>
#include <type_traits>
#include <utility>
#include <vector>

// Names of allocators. They are one type, so that all arrays of an element type are one type.
template <class T>
struct OdObjectsAllocator {};
template <class T>
using OdClrMemAllocator = OdObjectsAllocator<T>;
template <class T>
using PlainAllocator = OdObjectsAllocator<T>;

// An array.
template <class T, class Alloc = OdObjectsAllocator<T>>
class OdArray {
  static_assert(!std::is_same_v<T, bool>, "elements are handed out by reference: use a char for a flag");

public:
  using size_type = std::uint32_t;
  using value_type = T;
  using Iterator = T*;
  using iterator = T*;
  using const_iterator = const T*;

  OdArray() = default;
  // With these elements.
  OdArray(std::initializer_list<T> values) {
    grow([&] { items_.assign(values); });
  }
  OdArray(const OdArray& other) {
    grow([&] { items_ = other.items_; });
  }
  OdArray(OdArray&&) noexcept = default;
  OdArray& operator=(const OdArray& other) {
    OdArray copy(other);
    items_.swap(copy.items_);
    return *this;
  }
  OdArray& operator=(OdArray&&) noexcept = default;
  ~OdArray() = default;

  // Number of elements.
  size_type size() const { return static_cast<size_type>(items_.size()); }
  size_type length() const { return size(); }
  size_type logicalLength() const { return size(); }
  bool isEmpty() const { return items_.empty(); }
  bool empty() const { return items_.empty(); }

  // Appends an element, which may be one of this array; returns its index.
  size_type append(const T& value) {
    push_back(value);
    return size() - 1;
  }
  // Appends all elements of another array, which may be this one.
  OdArray& append(const OdArray& other) {
    const size_type oldSize = size();
    const size_type added = other.size();
    reserveFor(added);
    try {
      for (size_type i = 0; i < added; ++i)
        grow([&] { items_.push_back(other.items_[i]); });
    } catch (...) {
      items_.erase(items_.begin() + oldSize, items_.end());
      throw;
    }
    return *this;
  }
  void push_back(const T& value) {
    checkCount(1);
    grow([&] { items_.push_back(value); });
  }

  // Elements by index, and the first and the last one.
  T& operator[](size_type index) { return items_[checked(index)]; }
  const T& operator[](size_type index) const { return items_[checked(index)]; }
  T& at(size_type index) { return items_[checked(index)]; }
  const T& at(size_type index) const { return items_[checked(index)]; }
  const T& getAt(size_type index) const { return items_[checked(index)]; }
  OdArray& setAt(size_type index, const T& value) {
    grow([&] { items_[checked(index)] = value; });
    return *this;
  }
  T& first() { return items_[checked(0)]; }
  const T& first() const { return items_[checked(0)]; }
  T& last() { return items_[checked(size() - 1)]; }
  const T& last() const { return items_[checked(size() - 1)]; }

  // Inserts an element, which may be one of this array, before that index; size() appends.
  OdArray& insertAt(size_type index, const T& value) {
    if (index > size())
      throw OdError_InvalidIndex();
    checkCount(1);
    grow([&] {
      T copy(value); // made first: value may be an element of this array, and a failing copy changes nothing
      items_.insert(items_.begin() + index, std::move(copy));
    });
    return *this;
  }
  // Remove an element, the first, the last.
  OdArray& removeAt(size_type index) {
    items_.erase(items_.begin() + static_cast<std::ptrdiff_t>(checked(index)));
    return *this;
  }
  OdArray& removeFirst() { return removeAt(0); }
  OdArray& removeLast() { return removeAt(size() - 1); }
  // Removes the elements from one index to another, both included; throws unless from <= to.
  OdArray& removeSubArray(size_type from, size_type to) {
    checked(to);
    if (from > to)
      throw OdError_InvalidIndex();
    items_.erase(items_.begin() + from, items_.begin() + to + 1);
    return *this;
  }
  // Removes the first equal element from `start` on; false if there is none.
  bool remove(const T& value, size_type start = 0) {
    size_type index = 0;
    if (!find(value, index, start))
      return false;
    removeAt(index);
    return true;
  }

  // Whether there is an equal element from `start` on; find sets the index of the first one and leaves it unchanged
  // otherwise.
  bool contains(const T& value, size_type start = 0) const {
    size_type index = 0;
    return find(value, index, start);
  }
  bool find(const T& value, size_type& index, size_type start = 0) const {
    for (size_type i = start; i < size(); ++i) {
      if (items_[i] == value) {
        index = i;
        return true;
      }
    }
    return false;
  }

  // Number of elements and capacity: new elements are default values or copies of `value`; the array never shrinks by
  // reserve or setPhysicalLength.
  void clear() { items_.clear(); }
  void reserve(size_type count) {
    grow([&] { items_.reserve(count); });
  }
  void resize(size_type count) {
    grow([&] { items_.resize(count); });
  }
  void resize(size_type count, const T& value) {
    grow([&] { items_.resize(count, value); });
  }
  OdArray& setLogicalLength(size_type count) {
    resize(count);
    return *this;
  }
  OdArray& setPhysicalLength(size_type count) {
    reserve(count);
    return *this;
  }
  size_type physicalLength() const { return static_cast<size_type>(items_.capacity()); }

  // Reverse the order; swap two elements; swap two arrays.
  OdArray& reverse() {
    std::reverse(items_.begin(), items_.end());
    return *this;
  }
  OdArray& swap(size_type one, size_type other) {
    using std::swap;
    swap(items_[checked(one)], items_[checked(other)]);
    return *this;
  }
  void swap(OdArray& other) noexcept { items_.swap(other.items_); }

  // Iteration, and the elements as a buffer.
  T* begin() { return items_.data(); }
  T* end() { return items_.data() + items_.size(); }
  const T* begin() const { return items_.data(); }
  const T* end() const { return items_.data() + items_.size(); }
  T* asArrayPtr() { return items_.data(); }
  const T* asArrayPtr() const { return items_.data(); }
  const T* getPtr() const { return items_.data(); }

  // Whether the elements are equal, in order.
  bool operator==(const OdArray& other) const { return items_ == other.items_; }

private:
  std::size_t checked(size_type index) const {
    if (index >= items_.size())
      throw OdError_InvalidIndex();
    return index;
  }
  void checkCount(size_type added) const {
    if (added > std::numeric_limits<size_type>::max() - size())
      throw OdError(eOutOfMemory);
  }
  // Doubles at least, so that repeated appending stays linear.
  void reserveFor(size_type added) {
    checkCount(added);
    const std::size_t needed = items_.size() + added;
    if (needed > items_.capacity())
      grow([&] { items_.reserve(std::max(needed, std::min(2 * items_.capacity(), items_.max_size()))); });
  }
  template <class Change>
  static void grow(Change&& change) {
    try {
      change();
    } catch (const std::bad_alloc&) {
      throw OdError(eOutOfMemory);
    } catch (const std::length_error&) {
      throw OdError(eOutOfMemory);
    }
  }

  std::vector<T> items_;
};
