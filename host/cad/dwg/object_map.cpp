#include "host/cad/dwg/object_map.h"

#include "host/cad/dwg/crc.h"
#include "host/cad/dwg/damage.h"

namespace dwg {
namespace {

constexpr std::size_t kMostPairBytes = 2030;  // of a section
constexpr std::size_t kSizeBytes = 2;
const char* const kTooShort = ToXlate("the map of the records ends too early");
const char* const kTooLarge = ToXlate("the map of the records has a number that is too large");

void AppendBigShort(std::string& bytes, std::size_t value) {
  bytes += static_cast<char>(value >> 8 & 0xFF);
  bytes += static_cast<char>(value & 0xFF);
}

void AppendSection(std::string& bytes, std::string_view pairs) {
  const std::size_t start = bytes.size();
  AppendBigShort(bytes, kSizeBytes + pairs.size());
  bytes += pairs;
  AppendBigShort(bytes, Crc(kCrcStart, std::string_view(bytes).substr(start)));
}

std::size_t BigShortAt(std::string_view bytes, std::size_t at) {
  if (bytes.size() < at + 2) throw Damage{kTooShort};
  return static_cast<std::size_t>(static_cast<unsigned char>(bytes[at])) << 8 |
         static_cast<unsigned char>(bytes[at + 1]);
}

unsigned TakeByte(std::string_view& bytes) {
  if (bytes.empty()) throw Damage{kTooShort};
  const auto byte = static_cast<unsigned char>(bytes.front());
  bytes.remove_prefix(1);
  return byte;
}

void ReadPairs(std::string_view pairs, std::vector<MapEntry>& entries) {
  MapEntry entry;
  std::int64_t address = 0;
  while (!pairs.empty()) {
    entry.handle += TakeModular(pairs);
    address += TakeSignedModular(pairs);
    if (address < 0 || address > 0xFFFFFFFF) throw Damage{kTooLarge};
    entry.address = static_cast<std::uint32_t>(address);
    entries.push_back(entry);
  }
}

}  // namespace

// Both numbers of a pair are counted from the pair before, and from 0 in each section.
void AppendObjectMap(std::string& bytes, const std::vector<MapEntry>& entries) {
  std::string pairs;
  MapEntry last;
  for (const MapEntry& entry : entries) {
    const std::size_t before = pairs.size();
    AppendModular(pairs, entry.handle - last.handle);
    AppendSignedModular(pairs, static_cast<std::int64_t>(entry.address) - last.address);
    if (pairs.size() > kMostPairBytes) {
      AppendSection(bytes, std::string_view(pairs).substr(0, before));
      pairs.clear();
      AppendModular(pairs, entry.handle);
      AppendSignedModular(pairs, entry.address);
    }
    last = entry;
  }
  if (!pairs.empty()) AppendSection(bytes, pairs);
  AppendSection(bytes, "");
}

std::vector<MapEntry> ReadObjectMap(std::string_view bytes, bool& hasWrongChecksum) {
  std::vector<MapEntry> entries;
  for (;;) {
    const std::size_t size = BigShortAt(bytes, 0);
    if (size < kSizeBytes) throw Damage{kTooShort};
    const std::size_t crc = BigShortAt(bytes, size);
    hasWrongChecksum = hasWrongChecksum || crc != Crc(kCrcStart, bytes.substr(0, size));
    if (size == kSizeBytes) return entries;
    ReadPairs(bytes.substr(kSizeBytes, size - kSizeBytes), entries);
    bytes.remove_prefix(size + 2);
  }
}

void AppendModular(std::string& bytes, std::uint64_t value) {
  for (; value >= 0x80; value >>= 7) bytes += static_cast<char>(value % 0x80 | 0x80);
  bytes += static_cast<char>(value);
}

void AppendSignedModular(std::string& bytes, std::int64_t value) {
  auto left = static_cast<std::uint64_t>(value < 0 ? -value : value);
  for (; left >= 0x40; left >>= 7) bytes += static_cast<char>(left % 0x80 | 0x80);
  bytes += static_cast<char>(left | (value < 0 ? 0x40 : 0));
}

std::uint64_t TakeModular(std::string_view& bytes) {
  std::uint64_t value = 0;
  for (unsigned shift = 0; shift < 64; shift += 7) {
    const unsigned byte = TakeByte(bytes);
    value |= static_cast<std::uint64_t>(byte & 0x7F) << shift;
    if ((byte & 0x80) == 0) return value;
  }
  throw Damage{kTooLarge};
}

std::int64_t TakeSignedModular(std::string_view& bytes) {
  std::int64_t value = 0;
  for (unsigned shift = 0; shift < 56; shift += 7) {
    const unsigned byte = TakeByte(bytes);
    if ((byte & 0x80) == 0) {
      value |= static_cast<std::int64_t>(byte & 0x3F) << shift;
      return (byte & 0x40) != 0 ? -value : value;
    }
    value |= static_cast<std::int64_t>(byte & 0x7F) << shift;
  }
  throw Damage{kTooLarge};
}

}  // namespace dwg
