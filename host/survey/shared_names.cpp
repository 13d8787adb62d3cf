#include "host/survey/shared_names.h"

#include <algorithm>
#include <bit>
#include <cstring>

namespace survey {

namespace {

constexpr int kBitsOfKey = 64;
constexpr std::size_t kSlotsPerName = 16;
constexpr std::size_t kLeastSlots = 64;

std::uint64_t Word(const char* at, std::size_t size) {
  std::uint64_t word = 0;
  std::memcpy(&word, at, size);
  return word;
}

std::uint64_t Mixed(std::uint64_t key, std::uint64_t word) {
  constexpr std::uint64_t kFactor = 0x9E3779B97F4A7C15;
  key = (key ^ word) * kFactor;
  return key ^ (key >> 32);
}

}  // namespace

SharedNames::SharedNames(std::size_t count) {
  const std::size_t slots = std::bit_ceil(std::max(count * kSlotsPerName, kLeastSlots));
  shift_ = kBitsOfKey - std::countr_zero(slots);
  counters_.resize(slots / 4);
}

std::uint64_t SharedNames::KeyOf(std::string_view name) {
  std::uint64_t key = name.size();
  while (name.size() > sizeof key) {
    key = Mixed(key, Word(name.data(), sizeof key));
    name.remove_prefix(sizeof key);
  }
  key = Mixed(key, Word(name.data(), name.size()));
  return Mixed(key, 0);
}

}  // namespace survey
