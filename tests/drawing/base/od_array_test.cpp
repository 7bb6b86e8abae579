#include "OdArray.h"

#include <gtest/gtest.h>

#include <functional>
#include <type_traits>

namespace {

static_assert(std::is_same_v<OdArray<int>, OdArray<int, OdClrMemAllocator<int>>>);
static_assert(std::is_same_v<OdArray<int>, OdArray<int, PlainAllocator<int>>>);

// Its copies fail once the allowance is used up.
struct Costly {
  inline static int allowance = 0;
  int value = 0;

  explicit Costly(int v = 0) : value(v) {}
  Costly(const Costly& other) : value(other.value) {
    if (--allowance < 0)
      throw std::bad_alloc();
  }
  Costly(Costly&&) noexcept = default;
  Costly& operator=(const Costly&) = default;
  Costly& operator=(Costly&&) noexcept = default;
  bool operator==(const Costly& other) const { return value == other.value; }
};

struct Huge {
  char bytes[std::size_t(1) << 33];
};

OdResult resultOf(const std::function<void()>& call) {
  try {
    call();
  } catch (const OdError& error) {
    return error.code();
  }
  return eOk;
}

TEST(OdArray, RefusesEveryAccessOutsideItsBounds) {
  OdArray<int> numbers{1, 2, 3};
  const OdArray<int>& constant = numbers;
  OdArray<int> none;
  const std::function<void()> calls[] = {
      [&] { numbers[3]; },
      [&] { constant[static_cast<OdArray<int>::size_type>(-1)]; },
      [&] { numbers.at(3); },
      [&] { constant.getAt(3); },
      [&] { numbers.setAt(3, 0); },
      [&] { numbers.insertAt(4, 0); },
      [&] { numbers.removeAt(3); },
      [&] { numbers.removeSubArray(1, 3); },
      [&] { numbers.removeSubArray(2, 1); },
      [&] { numbers.swap(0, 3); },
      [&] { none.first(); },
      [&] { none.last(); },
      [&] { none.removeLast(); },
      [&] { none.removeFirst(); },
  };
  for (std::size_t i = 0; i < std::size(calls); ++i)
    EXPECT_THROW(calls[i](), OdError_InvalidIndex) << "call " << i;
  EXPECT_EQ(numbers, (OdArray<int>{1, 2, 3}));
}

TEST(OdArray, EditsInOrder) {
  OdArray<int> numbers;
  EXPECT_EQ(numbers.append(5), 0U);
  EXPECT_EQ(numbers.append(7), 1U);
  numbers.insertAt(0, 4).insertAt(3, 8).insertAt(2, 6);
  EXPECT_EQ(numbers, (OdArray<int>{4, 5, 6, 7, 8}));
  numbers.append(numbers);
  EXPECT_EQ(numbers.size(), 10U);
  EXPECT_EQ(numbers[9], 8);
  numbers.removeSubArray(5, 9);
  EXPECT_TRUE(numbers.remove(6));
  EXPECT_FALSE(numbers.remove(6));
  EXPECT_FALSE(numbers.remove(4, 1));
  OdArray<int>::size_type index = 99;
  EXPECT_TRUE(numbers.find(7, index));
  EXPECT_EQ(index, 2U);
  EXPECT_FALSE(numbers.contains(7, 3));
  EXPECT_EQ(numbers.reverse(), (OdArray<int>{8, 7, 5, 4}));
  numbers.insertAt(0, numbers.last());
  numbers.push_back(numbers[1]);
  EXPECT_EQ(numbers, (OdArray<int>{4, 8, 7, 5, 4, 8}));
  numbers.resize(2);
  numbers.resize(4, 1);
  EXPECT_EQ(numbers.removeLast(), (OdArray<int>{4, 8, 1}));
}

TEST(OdArray, IsUnchangedWhenMemoryIsShort) {
  OdArray<Costly> held;
  Costly::allowance = 1000;
  held.reserve(4);
  for (int i = 0; i < 4; ++i)
    held.append(Costly(i));
  const OdArray<Costly> before = held;
  const Costly extra(9);
  const std::function<void()> calls[] = {
      [&] { held.append(extra); },     [&] { held.insertAt(1, extra); },      [&] { held.append(before); },
      [&] { held.resize(20, extra); }, [&] { OdArray<Costly> copy(before); },
  };
  for (std::size_t i = 0; i < std::size(calls); ++i) {
    for (int allowed : {0, 1, 2}) {
      OdArray<Costly> fresh;
      Costly::allowance = 1000;
      fresh = before;
      held.swap(fresh);
      Costly::allowance = i < 2 ? 0 : allowed;
      EXPECT_EQ(resultOf(calls[i]), eOutOfMemory) << "call " << i << ", " << allowed;
      EXPECT_EQ(held, before) << "call " << i << ", " << allowed;
    }
  }
  OdArray<Huge> huge;
  EXPECT_EQ(resultOf([&] { huge.reserve(0xFFFFFFFFU); }), eOutOfMemory);
}

} // namespace
