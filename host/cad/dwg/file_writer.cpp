#include "host/cad/dwg/file_writer.h"

namespace dwg {

void FileWriter::Short(unsigned value) {
  Byte(value & 0xFF);
  Byte(value >> 8 & 0xFF);
}

void FileWriter::Long(std::uint64_t value) {
  Short(static_cast<unsigned>(value & 0xFFFF));
  Short(static_cast<unsigned>(value >> 16 & 0xFFFF));
}

void FileWriter::Begin(const Sentinel& sentinel) {
  for (const std::uint8_t byte : sentinel) Byte(byte);
}

void FileWriter::End(const Sentinel& sentinel) {
  for (const std::uint8_t byte : sentinel) Byte(~static_cast<unsigned>(byte) & 0xFF);
}

void FileWriter::FlushIfLarge() {
  const std::size_t size = bytes_.size();
  file_.FlushIfLarge();
  if (bytes_.empty()) flushed_ += size;
}

}  // namespace dwg
