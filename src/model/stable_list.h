// Lists whose elements never move.
#pragma once

#include <bit>
#include <cstddef>
#include <memory>
#include <new>
#include <utility>
#include <vector>

/// A list that only grows at its end. Appending and addressing by index take constant time, and an
/// element stays where it is, so the host may hand out pointers. Elements lie in blocks of 4, 8,
/// 16, … of them: small lists stay small, and the unused end of a large block costs address space
/// but no memory.
template <class T>
class StableList {
 public:
  StableList() = default;
  ~StableList() { Clear(); }
  StableList(const StableList&) = delete;
  StableList& operator=(const StableList&) = delete;

  std::size_t Size() const { return size_; }

  T& operator[](std::size_t index) const {
    const Place place = PlaceOf(index);
    return blocks_[place.block][place.offset];
  }

  template <class... Arguments>
  T& Append(Arguments&&... arguments) {
    const Place place = PlaceOf(size_);
    if (place.block == blocks_.size()) AddBlock();
    void* const where = blocks_[place.block] + place.offset;
    T* added = nullptr;
    if constexpr (sizeof...(Arguments) == 0) {
      // Without parentheses, which would fill with zeros first what the members then fill.
      added = ::new (where) T;
    } else {
      added = ::new (where) T(std::forward<Arguments>(arguments)...);
    }
    ++size_;
    return *added;
  }

  void Clear() {
    while (size_ > 0) {
      std::destroy_at(&(*this)[size_ - 1]);
      --size_;
    }
    for (T* block : blocks_) ::operator delete(block, std::align_val_t(alignof(T)));
    blocks_.clear();
  }

 private:
  static constexpr std::size_t kFirstBlock = 4;

  struct Place {
    std::size_t block;
    std::size_t offset;
  };

  // Block k begins at index kFirstBlock * (2^k - 1).
  static Place PlaceOf(std::size_t index) {
    const std::size_t rank = index / kFirstBlock + 1;
    return {static_cast<std::size_t>(std::bit_width(rank) - 1),
            index - kFirstBlock * (std::bit_floor(rank) - 1)};
  }

  void AddBlock() {
    blocks_.reserve(blocks_.size() + 1);
    const std::size_t bytes = sizeof(T) * (kFirstBlock << blocks_.size());
    blocks_.push_back(static_cast<T*>(::operator new(bytes, std::align_val_t(alignof(T)))));
  }

  std::vector<T*> blocks_;
  std::size_t size_ = 0;
};
