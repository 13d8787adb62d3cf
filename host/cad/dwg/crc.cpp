#include "host/cad/dwg/crc.h"

#include <array>

namespace dwg {
namespace {

using Table = std::array<std::uint16_t, 256>;

// [0]: what a byte does to the checksum; [i]: the same with i more zero bytes behind it. So several
// bytes are looked up at once.
constexpr std::array<Table, 4> MakeTables() {
  std::array<Table, 4> tables{};
  for (unsigned byte = 0; byte < 256; ++byte) {
    unsigned crc = byte;
    for (int bit = 0; bit < 8; ++bit) crc = (crc & 1) != 0 ? (crc >> 1) ^ 0xA001U : crc >> 1;
    tables[0][byte] = static_cast<std::uint16_t>(crc);
  }
  for (unsigned i = 1; i < 4; ++i) {
    for (unsigned byte = 0; byte < 256; ++byte) {
      const unsigned crc = tables[i - 1][byte];
      tables[i][byte] = static_cast<std::uint16_t>((crc >> 8) ^ tables[0][crc & 0xFF]);
    }
  }
  return tables;
}
constexpr std::array<Table, 4> kTables = MakeTables();

}  // namespace

std::uint16_t Crc(std::uint16_t start, std::string_view bytes) {
  unsigned crc = start;
  const auto* at = reinterpret_cast<const unsigned char*>(bytes.data());
  const unsigned char* const end = at + bytes.size();
  for (; end - at >= 4; at += 4) {
    crc = static_cast<unsigned>(kTables[3][(crc ^ at[0]) & 0xFF] ^ kTables[2][(crc >> 8) ^ at[1]] ^
                                kTables[1][at[2]] ^ kTables[0][at[3]]);
  }
  for (; at != end; ++at) crc = (crc >> 8) ^ kTables[0][(crc ^ *at) & 0xFF];
  return static_cast<std::uint16_t>(crc);
}

}  // namespace dwg
