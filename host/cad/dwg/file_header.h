// The regions of a file that are not made of records.
#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "host/cad/dwg/file_writer.h"
#include "host/cad/dwg/header_records.h"
#include "host/cad/dwg/version.h"

namespace dwg {

struct RegionPlace {
  std::uint64_t address = 0;
  std::uint64_t size = 0;
};

/// What is where in a file.
struct FileLayout {
  Version version = Version::k2000;
  std::array<RegionPlace, kRegions> regions{};
  std::uint64_t preview = 0;
  /// The older version has no auxiliary region.
  std::size_t RegionCount() const { return version == Version::k2000 ? kRegions : kAuxiliary; }
};

/// The file header with its checksum and the sentinel behind it.
std::string FileHeader(const FileLayout& layout);

/// Each writes one region and keeps its place in the layout.
void WriteAuxiliary(FileWriter& file, FileLayout& layout, const HeaderVariables& variables);
void WritePreview(FileWriter& file, FileLayout& layout);
void WriteVariables(FileWriter& file, FileLayout& layout, HeaderVariables& variables);
void WriteClasses(FileWriter& file, FileLayout& layout);
void WriteFreeSpace(FileWriter& file, FileLayout& layout, const Moment& saved,
                    std::uint64_t records, std::uint64_t firstRecord);
void WriteTemplate(FileWriter& file, FileLayout& layout);
/// A copy of the header for files that are damaged.
void WriteSecondHeader(FileWriter& file, const FileLayout& layout,
                       const HeaderVariables& variables);

}  // namespace dwg
