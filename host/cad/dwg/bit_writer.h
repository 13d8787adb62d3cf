// Bits one after the other, the highest of a byte first.
#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>
#include <vector>

namespace dwg {

/// A number as it is stored with its highest byte first.
inline std::uint64_t BigEndian(std::uint64_t value) {
  static_assert(std::endian::native == std::endian::little);
  return __builtin_bswap64(value);
}

class BitWriter {
 public:
  static constexpr unsigned kMostBits = 56;  // of one call

  /// Starts anew.
  void Clear() { position_ = 0; }
  std::size_t Position() const { return position_; }
  /// The bytes so far, the last filled up with zeros. Valid until the next call.
  std::string_view Bytes() const {
    return {reinterpret_cast<const char*>(bytes_.data()), (position_ + 7) / 8};
  }

  /// The lowest `count` bits (1 to 56) of a value that has none above them.
  void Bits(std::uint64_t value, unsigned count) {
    const std::size_t at = position_ / 8;
    if (at + kSlack > bytes_.size()) bytes_.resize(2 * bytes_.size());
    Store(at, position_ % 8, value, count);
    position_ += count;
  }
  void RawShort(std::uint16_t value) { Bits(__builtin_bswap16(value), 16); }
  void RawLong(std::uint32_t value) { Bits(__builtin_bswap32(value), 32); }
  void RawDouble(double value) {
    const std::uint64_t bits = BigEndian(std::bit_cast<std::uint64_t>(value));
    Bits(bits >> 32, 32);
    Bits(bits & 0xFFFFFFFF, 32);
  }
  void Raw(std::string_view bytes) {
    for (const char byte : bytes) Bits(static_cast<unsigned char>(byte), 8);
  }

  /// Puts a raw long over the 32 bits at a position that were written before.
  void OverwriteRawLong(std::size_t position, std::uint32_t value);

 private:
  static constexpr std::size_t kSlack = 16;

  // Leaves what stands before the bits as it is, and zeros behind them.
  void Store(std::size_t at, std::size_t used, std::uint64_t value, unsigned count) {
    const std::uint64_t before = bytes_[at] & (0xFF00U >> used);
    const std::uint64_t word = BigEndian(before << 56 | value << (64 - used - count));
    std::memcpy(bytes_.data() + at, &word, sizeof word);
  }

  std::vector<std::uint8_t> bytes_ = std::vector<std::uint8_t>(256);
  std::size_t position_ = 0;
};

}  // namespace dwg
