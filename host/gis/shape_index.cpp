#include "host/gis/shape_index.h"

#include <array>
#include <utility>

namespace shape {
namespace {

constexpr std::uint64_t kHeaderSize = 100;
constexpr std::uint64_t kRecordHeader = 8;
constexpr std::size_t kEntry = 8;
constexpr std::uint32_t kFileCode = 9994;
constexpr std::uint64_t kLeastContent = 4;  // of a null shape
constexpr std::uint64_t kWord = 2;

std::uint32_t BigEndian(const char* bytes) {
  std::uint32_t value = 0;
  for (int i = 0; i < 4; ++i) value = value << 8 | static_cast<unsigned char>(bytes[i]);
  return value;
}

void PutBigEndian(std::uint32_t value, char* bytes) {
  for (int i = 0; i < 4; ++i) bytes[i] = static_cast<char>(value >> (24 - 8 * i));
}

std::uint32_t LittleEndian(const char* bytes) {
  std::uint32_t value = 0;
  for (int i = 3; i >= 0; --i) value = value << 8 | static_cast<unsigned char>(bytes[i]);
  return value;
}

// Offset and length of a record's content, as an index has them: in words.
struct Entry {
  std::uint32_t offset;
  std::uint32_t length;
  bool operator==(const Entry&) const = default;
};

Entry EntryAt(std::string_view shx, std::size_t i) {
  const char* const bytes = shx.data() + kHeaderSize + i * kEntry;
  return {BigEndian(bytes), BigEndian(bytes + 4)};
}

void AddEntry(std::string& shx, const Entry& entry) {
  std::array<char, kEntry> bytes;
  PutBigEndian(entry.offset, bytes.data());
  PutBigEndian(entry.length, bytes.data() + 4);
  shx.append(bytes.data(), bytes.size());
}

// The header's own length is put right: the library believes it.
std::string WithLength(std::string shx) {
  PutBigEndian(static_cast<std::uint32_t>(shx.size() / kWord), shx.data() + 24);
  return shx;
}

std::string HeaderBytes(Stream& shp) {
  std::string bytes(kHeaderSize, '\0');
  shp.place = 0;
  bytes.resize(shp.Read(bytes.data(), bytes.size()));
  return bytes;
}

// The record at a place in the file; nothing where none can be.
std::optional<Entry> RecordAt(Stream& shp, std::uint64_t place) {
  std::array<char, kRecordHeader> bytes;
  shp.place = place;
  if (shp.Read(bytes.data(), bytes.size()) != bytes.size()) return std::nullopt;
  const std::uint32_t length = BigEndian(bytes.data() + 4);
  const std::uint64_t content = length * kWord;
  if (content < kLeastContent || content > shp.Size() - place - kRecordHeader) return std::nullopt;
  return Entry{static_cast<std::uint32_t>(place / kWord), length};
}

// One record after the other. What follows after the end that the file says itself need not be any.
ShapeIndex WalkRecords(Stream& shp, const ShapeHeader& header, std::string start) {
  ShapeIndex index{std::move(start), true, 0};
  std::uint64_t place = kHeaderSize;
  while (place < shp.Size()) {
    const std::optional<Entry> record = RecordAt(shp, place);
    if (!record) break;
    AddEntry(index.shx, *record);
    place += kRecordHeader + record->length * kWord;
  }
  if (place < header.length) index.badAt = place;
  index.shx = WithLength(std::move(index.shx));
  return index;
}

bool LeadsToRecords(Stream& shp, std::string_view shx) {
  const std::size_t count = (shx.size() - kHeaderSize) / kEntry;
  for (std::size_t i = 0; i < count; ++i) {
    const Entry entry = EntryAt(shx, i);
    if (entry.offset * kWord < kHeaderSize) return false;
    if (RecordAt(shp, entry.offset * kWord) != entry) return false;
  }
  return true;
}

}  // namespace

std::optional<ShapeHeader> ReadHeader(Stream& shp) {
  const std::string bytes = HeaderBytes(shp);
  if (bytes.size() < kHeaderSize || BigEndian(bytes.data()) != kFileCode) return std::nullopt;
  return ShapeHeader{BigEndian(bytes.data() + 24) * kWord,
                     static_cast<int>(LittleEndian(bytes.data() + 32))};
}

ShapeIndex IndexOf(Stream& shp, const ShapeHeader& header, std::string_view given) {
  const std::string start = HeaderBytes(shp);
  const bool isIndex = given.size() >= kHeaderSize && BigEndian(given.data()) == kFileCode;
  if (!isIndex) return WalkRecords(shp, header, start);
  given = given.substr(0, given.size() - (given.size() - kHeaderSize) % kEntry);
  ShapeIndex walked = WalkRecords(shp, header, start);
  if (walked.shx.substr(kHeaderSize) == given.substr(kHeaderSize)) {
    return {std::move(walked.shx), false, 0};  // they agree, whatever length the file says
  }
  const bool isShort = walked.badAt == 0 && given.size() < walked.shx.size();
  if (isShort || !LeadsToRecords(shp, given)) return walked;
  return {WithLength(std::string(given)), false, 0};
}

}  // namespace shape
