#include "host/cad/dwg/bit_writer.h"

namespace dwg {

void BitWriter::OverwriteRawLong(std::size_t position, std::uint32_t value) {
  constexpr std::uint64_t kAll = 0xFFFFFFFF;
  std::uint64_t word = 0;
  std::memcpy(&word, bytes_.data() + position / 8, sizeof word);
  const std::size_t shift = 32 - position % 8;
  const std::uint64_t bits = __builtin_bswap32(value);
  word = BigEndian((BigEndian(word) & ~(kAll << shift)) | bits << shift);
  std::memcpy(bytes_.data() + position / 8, &word, sizeof word);
}

}  // namespace dwg
