#include "host/cad/dwg/record_writer.h"

#include <array>

#include "host/cad/dwg/crc.h"

namespace dwg {
namespace {

// How many bytes follow, in words of 15 bits, the lowest first.
std::string_view SizeWords(std::array<char, 6>& words, std::size_t size) {
  std::size_t length = 0;
  for (;;) {
    const bool isMore = size > 0x7FFF;
    words[length++] = static_cast<char>(size & 0xFF);
    words[length++] = static_cast<char>((size >> 8 & 0x7F) | (isMore ? 0x80 : 0));
    size >>= 15;
    if (!isMore) return {words.data(), length};
  }
}

}  // namespace

void RecordWriter::Begin(unsigned type, Handle handle) {
  bits_.Clear();
  fields_.SetOwn(handle);
  fields_.Short(static_cast<std::uint16_t>(type));
  if (fields_.Is2000()) ReserveSize();
  fields_.Reference(Link::kOwn, handle);
  fields_.Short(0);  // nothing of other programs
}

void RecordWriter::ReserveSize() {
  sizeAt_ = bits_.Position();
  bits_.RawLong(0);
}

void RecordWriter::EndData() {
  bits_.OverwriteRawLong(sizeAt_, static_cast<std::uint32_t>(bits_.Position()));
}

void RecordWriter::End(Handle handle) {
  file_.FlushIfLarge();
  map_.push_back({handle, static_cast<std::uint32_t>(file_.Position())});
  std::array<char, 6> words{};
  const std::string_view size = SizeWords(words, bits_.Bytes().size());
  file_.Bytes(size);
  file_.Bytes(bits_.Bytes());
  file_.Short(Crc(Crc(kCrcStart, size), bits_.Bytes()));
}

}  // namespace dwg
