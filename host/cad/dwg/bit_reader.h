// Bits out of a file, the highest of a byte first.
#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>

#include "host/cad/dwg/bit_writer.h"
#include "host/cad/dwg/damage.h"

namespace dwg {

class BitReader {
 public:
  /// How many bytes behind the last one have to be readable.
  static constexpr std::size_t kSlack = 8;

  BitReader() = default;
  /// The bits from `begin` up to `end` of bytes that are not owned.
  BitReader(const std::uint8_t* bytes, std::size_t begin, std::size_t end)
      : bytes_(bytes), position_(begin), end_(end) {}

  std::size_t Position() const { return position_; }
  std::size_t BitsLeft() const { return end_ - position_; }

  /// The next `count` bits (1 to 56). Throws Damage at the end, as all that follow.
  std::uint64_t Bits(unsigned count) {
    Need(count);
    std::uint64_t word = 0;
    std::memcpy(&word, bytes_ + position_ / 8, sizeof word);
    word = BigEndian(word) << position_ % 8 >> (64 - count);
    position_ += count;
    return word;
  }
  std::uint16_t RawShort() { return __builtin_bswap16(static_cast<std::uint16_t>(Bits(16))); }
  std::uint32_t RawLong() { return __builtin_bswap32(static_cast<std::uint32_t>(Bits(32))); }
  double RawDouble() {
    const std::uint64_t high = Bits(32);
    return std::bit_cast<double>(BigEndian(high << 32 | Bits(32)));
  }
  void Raw(std::string& bytes, std::size_t count);
  void Skip(std::size_t bits) {
    Need(bits);
    position_ += bits;
  }
  /// What lies between here and a position, and behind that; it lies between here and the end.
  BitReader UpTo(std::size_t position) const { return {bytes_, position_, position}; }
  BitReader From(std::size_t position) const { return {bytes_, position, end_}; }
  /// Refuses a number of things that there is no room for.
  void NeedRoomFor(std::uint64_t count, std::size_t leastBitsOfEach) const {
    if (count > BitsLeft() / leastBitsOfEach) throw Damage{kTooMany};
  }

 private:
  static const char* const kTooShort;
  static const char* const kTooMany;

  void Need(std::size_t bits) const {
    if (bits > BitsLeft()) throw Damage{kTooShort};
  }

  const std::uint8_t* bytes_ = nullptr;
  std::size_t position_ = 0;
  std::size_t end_ = 0;
};

}  // namespace dwg
