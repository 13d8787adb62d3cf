#include "model/stable_list.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <stdexcept>
#include <string>

namespace {

// Counts how many of it are alive.
struct Counted {
  explicit Counted(int& alive) : alive_(&alive) { ++*alive_; }
  ~Counted() { --*alive_; }
  Counted(const Counted&) = delete;
  Counted& operator=(const Counted&) = delete;

 private:
  int* alive_;
};

struct Refusing {
  explicit Refusing(bool refuse) {
    if (refuse) throw std::runtime_error("refused");
  }
};

struct alignas(64) Wide {
  char byte = 'a';
};

TEST(StableList, IsEmptyAtFirst) { EXPECT_EQ(StableList<int>().Size(), 0U); }

TEST(StableList, KeepsTheOrderOfAddition) {
  StableList<std::size_t> list;
  for (std::size_t i = 0; i < 1000; ++i) EXPECT_EQ(list.Append(i * 3), i * 3);
  ASSERT_EQ(list.Size(), 1000U);
  for (std::size_t i = 0; i < 1000; ++i) ASSERT_EQ(list[i], i * 3);
}

TEST(StableList, NeverMovesAnElement) {
  StableList<std::string> list;
  std::vector<const std::string*> places;
  for (int i = 0; i < 1000; ++i) places.push_back(&list.Append(std::to_string(i)));
  for (std::size_t i = 0; i < 1000; ++i) ASSERT_EQ(places[i], &list[i]);
}

TEST(StableList, MayAppendACopyOfAnElementOfItsOwn) {
  StableList<std::string> list;
  list.Append("a text that is too long to lie within the string itself");
  for (int i = 0; i < 100; ++i) list.Append(list[list.Size() - 1]);
  EXPECT_EQ(list[100], list[0]);
}

TEST(StableList, DestroysEachElementOnce) {
  int alive = 0;
  {
    StableList<Counted> list;
    for (int i = 0; i < 100; ++i) list.Append(alive);
    EXPECT_EQ(alive, 100);
  }
  EXPECT_EQ(alive, 0);
}

TEST(StableList, StartsAnewAfterClear) {
  int alive = 0;
  StableList<Counted> list;
  for (int i = 0; i < 10; ++i) list.Append(alive);
  list.Clear();
  EXPECT_EQ(alive, 0);
  EXPECT_EQ(list.Size(), 0U);
  list.Append(alive);
  EXPECT_EQ(list.Size(), 1U);
}

TEST(StableList, StaysAsItWasWhenAnElementCannotBeMade) {
  StableList<Refusing> list;
  for (int i = 0; i < 4; ++i) list.Append(false);
  EXPECT_THROW(list.Append(true), std::runtime_error);
  EXPECT_EQ(list.Size(), 4U);
  list.Append(false);
  EXPECT_EQ(list.Size(), 5U);
}

TEST(StableList, AlignsItsElements) {
  StableList<Wide> list;
  for (int i = 0; i < 20; ++i) {
    EXPECT_EQ(reinterpret_cast<std::uintptr_t>(&list.Append()) % alignof(Wide), 0U);
  }
}

}  // namespace
