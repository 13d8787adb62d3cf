#include "host/cad/dwg/read_file.h"

#include <algorithm>

#include "host/cad/dwg/crc.h"
#include "host/cad/dwg/field_reader.h"
#include "platform/input_file.h"
#include "platform/numbers.h"

namespace dwg {
namespace {

constexpr std::size_t kVersionBytes = 6;
constexpr std::size_t kCodePageAt = 0x13;
constexpr std::size_t kRegionCountAt = 0x15;
constexpr std::size_t kRegionsAt = 0x19;
constexpr std::size_t kRegionBytes = 9;
constexpr std::size_t kMostRegions = 100;
constexpr std::size_t kSentinelBytes = 16;
constexpr std::uint64_t kMostBytes = 0xFFFF'FFFF;

struct KnownVersion {
  std::string_view mark;
  Version version;
};
constexpr KnownVersion kRead[] = {
    {"AC1012", Version::kR13}, {"AC1014", Version::kR14}, {"AC1015", Version::k2000}};

/// What else there is, with its usual name.
struct OtherVersion {
  std::string_view mark;
  const char* name;
};
constexpr OtherVersion kOthers[] = {{"AC1032", "2018"}, {"AC1027", "2013"}, {"AC1024", "2010"},
                                    {"AC1021", "2007"}, {"AC1018", "2004"}, {"AC1009", "R12"},
                                    {"AC1006", "R10"},  {"AC1004", "R9"},   {"AC1003", "R2.6"},
                                    {"AC1002", "R2.5"}, {"AC1001", "R2.2"}, {"AC2.10", "R2.1"},
                                    {"AC1.50", "R2.0"}, {"AC1.40", "R1.4"}, {"AC1.2\0", "R1.2"}};

tdk::WString InWords(std::uint64_t number) {
  std::string text;
  platform::AppendWhole(text, static_cast<std::int64_t>(number));
  return tdk::WString(text);
}

tdk::WString RefusalOf(std::string_view mark, const tdk::WString& name) {
  return Fill(Xlate("the file is of version {1} ({2}), and only R13, R14 and 2000 are read: save "
                    "the drawing as version 2000, or as DXF"),
              {name, tdk::WString(std::string(mark))});
}

bool IsByHandle(const MapEntry& a, const MapEntry& b) { return a.handle < b.handle; }

}  // namespace

Failure FailureAt(std::uint64_t byte, const tdk::WString& reason) {
  return {Fill(Xlate("byte {1}: {2}"), {InWords(byte), reason})};
}

File::File(const tdk::WString& path) {
  Load(path);
  FindVersion();
  ReadHeader();
}

void File::Load(const tdk::WString& path) {
  constexpr std::size_t kBlock = 1024 * 1024;
  platform::InputFile file;
  if (!file.Open(path.ToUtf8())) throw Failure{Xlate("cannot be opened")};
  if (file.Size() > kMostBytes) throw Failure{Xlate("the file is too large")};
  bytes_.resize(static_cast<std::size_t>(file.Size()) + BitReader::kSlack);
  for (;;) {
    if (bytes_.size() - size_ <= BitReader::kSlack) bytes_.resize(bytes_.size() + kBlock);
    const std::size_t read = file.Read(reinterpret_cast<char*>(bytes_.data()) + size_,
                                       bytes_.size() - size_ - BitReader::kSlack);
    if (read == 0) break;
    size_ += read;
    if (size_ > kMostBytes) throw Failure{Xlate("the file is too large")};
  }
  std::fill(bytes_.begin() + static_cast<std::ptrdiff_t>(size_), bytes_.end(), std::uint8_t{0});
}

void File::FindVersion() {
  const std::string_view mark = Bytes().substr(0, kVersionBytes);
  for (const KnownVersion& known : kRead) {
    if (mark != known.mark) continue;
    version_ = known.version;
    return;
  }
  for (const OtherVersion& other : kOthers) {
    if (mark.starts_with(other.mark)) throw Failure{RefusalOf(other.mark, other.name)};
  }
  const bool isLater =
      mark.size() == kVersionBytes && mark.starts_with("AC10") &&
      std::all_of(mark.begin() + 4, mark.end(), [](char c) { return c >= '0' && c <= '9'; });
  if (isLater) throw Failure{RefusalOf(mark, "?")};
  throw Failure{Xlate("this is no DWG file")};
}

std::uint64_t File::Number(std::size_t at, std::size_t size) const {
  if (at + size > size_) throw FailureAt(size_, Xlate("the file ends within its header"));
  std::uint64_t number = 0;
  for (std::size_t i = size; i > 0; --i) number = number << 8 | bytes_[at + i - 1];
  return number;
}

void File::ReadHeader() {
  codePage_ = static_cast<unsigned>(Number(kCodePageAt, 2));
  const auto count = static_cast<std::size_t>(Number(kRegionCountAt, 4));
  if (count > kMostRegions) throw FailureAt(kRegionCountAt, Xlate("too many regions"));
  const std::size_t crcAt = kRegionsAt + count * kRegionBytes;
  for (std::size_t at = kRegionsAt; at < crcAt; at += kRegionBytes) {
    const auto number = static_cast<std::size_t>(Number(at, 1));
    const Place place{Number(at + 1, 4), Number(at + 5, 4)};
    if (place.address + place.size > size_) {
      throw FailureAt(at, Xlate("a region lies behind the end of the file"));
    }
    if (number < regions_.size()) regions_[number] = place;
  }
  if (Number(crcAt, 2) != Crc(kCrcStart, Bytes().substr(0, crcAt))) ++wrongChecksums_;
}

std::string_view File::RegionBytes(Region region) const {
  return Bytes().substr(static_cast<std::size_t>(regions_[region].address),
                        static_cast<std::size_t>(regions_[region].size));
}

std::vector<ClassRecord> File::ReadClasses() {
  constexpr std::size_t kLeastBits = 40;  // of a class; what is left is none
  std::vector<ClassRecord> classes;
  if (regions_[kClasses].size == 0) return classes;
  const auto start = static_cast<std::size_t>(regions_[kClasses].address) + kSentinelBytes;
  const auto size = static_cast<std::size_t>(Number(start, 4));
  if (start + 4 + size + 2 > size_) {
    throw FailureAt(start, Xlate("the list of classes ends too early"));
  }
  const std::size_t end = start + 4 + size;
  if (Number(end, 2) != Crc(kCrcStart, Bytes().substr(start, 4 + size))) ++wrongChecksums_;
  FieldReader fields(Bits(start + 4, end), version_);
  try {
    while (fields.BitsLeft() >= kLeastBits) Data(fields, classes.emplace_back());
  } catch (const Damage& damage) {
    throw FailureAt(start, Xlate(damage.reason));
  }
  return classes;
}

std::vector<MapEntry> File::ReadMap() {
  std::vector<MapEntry> map;
  bool hasWrongChecksum = false;
  try {
    map = ReadObjectMap(RegionBytes(kObjectMap), hasWrongChecksum);
  } catch (const Damage& damage) {
    throw FailureAt(regions_[kObjectMap].address, Xlate(damage.reason));
  }
  if (hasWrongChecksum) ++wrongChecksums_;
  if (!std::is_sorted(map.begin(), map.end(), IsByHandle)) {
    std::stable_sort(map.begin(), map.end(), IsByHandle);
  }
  const auto isSame = [](const MapEntry& a, const MapEntry& b) { return a.handle == b.handle; };
  const auto end = std::unique(map.begin(), map.end(), isSame);
  sameHandles_ = static_cast<std::uint64_t>(map.end() - end);
  map.erase(end, map.end());
  return map;
}

}  // namespace dwg
