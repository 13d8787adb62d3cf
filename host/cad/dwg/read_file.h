// A whole file in memory, and where its regions lie.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "host/cad/dwg/bit_reader.h"
#include "host/cad/dwg/damage.h"
#include "host/cad/dwg/header_records.h"
#include "host/cad/dwg/object_map.h"
#include "host/cad/dwg/version.h"

namespace dwg {

class File {
 public:
  /// Reads the file and looks at its header. Throws Failure: it cannot be opened, is no DWG file,
  /// is of a version that is not read, or its regions lie beyond its end.
  explicit File(const tdk::WString& path);

  Version FileVersion() const { return version_; }
  /// As the header numbers it.
  unsigned CodePage() const { return codePage_; }
  std::size_t Size() const { return size_; }
  std::string_view Bytes() const { return {reinterpret_cast<const char*>(bytes_.data()), size_}; }
  /// From a byte up to another; both within the file.
  BitReader Bits(std::size_t begin, std::size_t end) const {
    return {bytes_.data(), begin * 8, end * 8};
  }

  /// Throw Failure.
  std::vector<ClassRecord> ReadClasses();
  /// By ascending handles, each once.
  std::vector<MapEntry> ReadMap();

  /// How many checksums did not fit so far, those of records apart.
  std::uint64_t WrongChecksums() const { return wrongChecksums_; }
  /// How many records of the map have the handle of another.
  std::uint64_t SameHandles() const { return sameHandles_; }

 private:
  void Load(const tdk::WString& path);
  void FindVersion();
  void ReadHeader();
  std::uint64_t Number(std::size_t at, std::size_t size) const;
  std::string_view RegionBytes(Region region) const;

  struct Place {
    std::uint64_t address = 0;
    std::uint64_t size = 0;
  };
  std::vector<std::uint8_t> bytes_;  // with some zeros behind
  std::size_t size_ = 0;
  Version version_ = Version::k2000;
  unsigned codePage_ = 0;
  std::array<Place, kRegions> regions_{};
  std::uint64_t wrongChecksums_ = 0;
  std::uint64_t sameHandles_ = 0;
};

/// What is wrong at a byte of the file.
Failure FailureAt(std::uint64_t byte, const tdk::WString& reason);

}  // namespace dwg
