#include "host/cad/dwg/bit_reader.h"

namespace dwg {

const char* const BitReader::kTooShort = ToXlate("the record ends too early");
const char* const BitReader::kTooMany = ToXlate("the record counts more than it can hold");

void BitReader::Raw(std::string& bytes, std::size_t count) {
  NeedRoomFor(count, 8);
  bytes.resize(count);
  for (char& byte : bytes) byte = static_cast<char>(Bits(8));
}

}  // namespace dwg
