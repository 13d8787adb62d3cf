#include "host/cad/dwg/file_header.h"

#include <string_view>

#include "host/cad/dwg/crc.h"
#include "host/cad/dwg/field_writer.h"

namespace dwg {
namespace {

constexpr std::size_t kVersionBytes = 11;

/// What a file says of the program that wrote it.
struct ProgramVersion {
  std::string_view name;
  unsigned maintenance;  ///< of the file's version
  unsigned number;       ///< of the program; 0 in old files
  unsigned auxiliary;    ///< number in the auxiliary region
};
constexpr ProgramVersion k14{"AC1014", 0, 0, 21};
constexpr ProgramVersion k2000Version{"AC1015", 6, 0x17, 23};

const ProgramVersion& ProgramOf(Version version) {
  return version == Version::k2000 ? k2000Version : k14;
}

void Append(std::string& bytes, std::uint64_t value, int size) {
  for (int i = 0; i < size; ++i) bytes += static_cast<char>(value >> 8 * i & 0xFF);
}

void AppendSentinel(std::string& bytes, const Sentinel& sentinel) {
  for (const std::uint8_t byte : sentinel) bytes += static_cast<char>(byte);
}

// A region of bits between sentinels, with its size before and its checksum behind it.
void WriteBits(FileWriter& file, RegionPlace& place, const Sentinel& sentinel,
               const BitWriter& bits) {
  std::string region;
  Append(region, bits.Bytes().size(), 4);
  region += bits.Bytes();
  Append(region, Crc(kCrcStart, region), 2);
  place.address = file.Position();
  file.Begin(sentinel);
  file.Bytes(region);
  file.End(sentinel);
  place.size = file.Position() - place.address;
}

void PutMoment(FileWriter& file, const Moment& moment) {
  file.Longs({moment.day, moment.milliseconds});
}

// An index, and the handle with its lowest byte last.
void PutIndexed(BitWriter& bits, unsigned index, Handle handle) {
  const auto size = static_cast<unsigned>(8 - std::countl_zero(handle) / 8);
  bits.Bits(size, 8);
  bits.Bits(index, 8);
  for (unsigned i = size; i > 0; --i) bits.Bits(handle >> 8 * (i - 1) & 0xFF, 8);
}

}  // namespace

std::string FileHeader(const FileLayout& layout) {
  const ProgramVersion& program = ProgramOf(layout.version);
  std::string bytes(program.name);
  bytes.resize(kVersionBytes);
  Append(bytes, program.maintenance, 1);
  Append(bytes, 1, 1);
  Append(bytes, layout.preview, 4);
  Append(bytes, program.number, 1);
  Append(bytes, program.number == 0 ? 0 : program.maintenance, 1);
  Append(bytes, kWindows1252, 2);
  Append(bytes, layout.RegionCount(), 4);
  for (std::size_t i = 0; i < layout.RegionCount(); ++i) {
    Append(bytes, i, 1);
    Append(bytes, layout.regions[i].address, 4);
    Append(bytes, layout.regions[i].size, 4);
  }
  Append(bytes, Crc(kCrcStart, bytes), 2);
  AppendSentinel(bytes, kFileHeaderEnd);
  return bytes;
}

void WriteAuxiliary(FileWriter& file, FileLayout& layout, const HeaderVariables& variables) {
  constexpr std::uint64_t kAll = 0xFFFFFFFF;
  const ProgramVersion& program = ProgramOf(layout.version);
  RegionPlace& place = layout.regions[kAuxiliary];
  place.address = file.Position();
  for (const unsigned byte : {0xFFU, 0x77U, 0x01U}) file.Byte(byte);
  file.Short(program.auxiliary);
  file.Short(program.maintenance);
  file.Longs({1, kAll});  // how often it was saved
  file.Short(1);
  file.Short(0);
  file.Long(0);
  for (int i = 0; i < 2; ++i) {
    file.Short(program.auxiliary);
    file.Short(program.maintenance);
  }
  for (const unsigned number : {5U, 0x893U, 5U, 0x893U, 0U, 1U}) file.Short(number);
  file.Longs({0, 0, 0, 0, 0});
  PutMoment(file, variables.saved);
  PutMoment(file, variables.saved);
  file.Longs({variables.nextHandle, 0});
  file.Short(0);
  file.Short(1);
  file.Longs({0, 0, 0, 1, 0, 0, 0, 0});
  place.size = file.Position() - place.address;
}

void WritePreview(FileWriter& file, FileLayout& layout) {
  layout.preview = file.Position();
  file.Begin(kPreviewBegin);
  file.Long(1);
  file.Byte(0);  // no picture
  file.End(kPreviewBegin);
}

void WriteVariables(FileWriter& file, FileLayout& layout, HeaderVariables& variables) {
  BitWriter bits;
  FieldWriter fields(bits, layout.version);
  Data(fields, variables);
  WriteBits(file, layout.regions[kVariables], kVariablesBegin, bits);
}

void WriteClasses(FileWriter& file, FileLayout& layout) {
  BitWriter bits;
  FieldWriter fields(bits, layout.version);
  const auto add = [&](unsigned number, const char* program, const char* className,
                       const char* name) {
    ClassRecord record{static_cast<std::uint16_t>(number), 0, program, className, name};
    Data(fields, record);
  };
  if (layout.version == Version::k2000) {
    constexpr const char* kProgram2000 = "ObjectDBX Classes";
    add(500, kProgram2000, "AcDbDictionaryWithDefault", "ACDBDICTIONARYWDFLT");
    add(501, kProgram2000, "AcDbPlaceHolder", "ACDBPLACEHOLDER");
    add(502, kProgram2000, "AcDbLayout", "LAYOUT");
  } else {
    // Some programs refuse a list without any class.
    add(500, "\"AutoCAD\"", "AcDbDictionaryVar", "DICTIONARYVAR");
  }
  WriteBits(file, layout.regions[kClasses], kClassesBegin, bits);
}

void WriteFreeSpace(FileWriter& file, FileLayout& layout, const Moment& saved,
                    std::uint64_t records, std::uint64_t firstRecord) {
  constexpr std::uint64_t kAll = 0xFFFFFFFF;
  RegionPlace& place = layout.regions[kFreeSpace];
  place.address = file.Position();
  file.Longs({0, records});
  PutMoment(file, saved);
  file.Long(firstRecord);
  file.Byte(4);
  file.Longs({0x32, 0, 0x64, 0, 0x200, 0, kAll, 0});
  place.size = file.Position() - place.address;
}

void WriteTemplate(FileWriter& file, FileLayout& layout) {
  constexpr unsigned kMetric = 1;
  RegionPlace& place = layout.regions[kTemplate];
  place.address = file.Position();
  file.Short(0);  // no description
  file.Short(kMetric);
  place.size = file.Position() - place.address;
}

void WriteSecondHeader(FileWriter& file, const FileLayout& layout,
                       const HeaderVariables& variables) {
  constexpr std::size_t kBehindData = 10;  // the checksum, and eight bytes that mean nothing
  const ProgramVersion& program = ProgramOf(layout.version);
  const std::uint64_t start = file.Position();
  BitWriter bits;
  FieldWriter fields(bits, layout.version);
  fields.Long(static_cast<std::uint32_t>(start));
  bits.Raw(std::string(program.name) + std::string(kVersionBytes - program.name.size(), '\0'));
  fields.Bytes({static_cast<std::uint8_t>(program.maintenance), 1});
  fields.Short(static_cast<std::uint16_t>(
      program.number == 0 ? 0 : program.number | program.maintenance << 8));
  fields.Short(kWindows1252);
  fields.Short(static_cast<std::uint16_t>(layout.RegionCount()));
  for (std::size_t i = 0; i < layout.RegionCount(); ++i) {
    const RegionPlace place = i == kTemplate ? RegionPlace{} : layout.regions[i];
    fields.Byte(static_cast<std::uint8_t>(i));
    fields.Long(static_cast<std::uint32_t>(place.address));
    fields.Long(static_cast<std::uint32_t>(place.size));
  }
  const FixedHandles& it = variables.handles;
  const Handle handles[] = {variables.nextHandle, it.blocks,     it.layers,          it.styles,
                            it.lineTypes,         it.views,      it.systems,         it.viewports,
                            it.programs,          it.dimensions, it.viewportHeaders, it.names,
                            it.multiLineStyles,   it.groups};
  fields.Short(static_cast<std::uint16_t>(std::size(handles)));
  for (unsigned i = 0; i < std::size(handles); ++i) PutIndexed(bits, i, handles[i]);
  std::string region;
  Append(region, 4 + bits.Bytes().size() + kBehindData, 4);
  region += bits.Bytes();
  Append(region, Crc(kCrcStart, region), 2);
  file.Begin(kSecondHeaderBegin);
  file.Bytes(region);
  file.Zeros(8);
  file.End(kSecondHeaderBegin);
}

}  // namespace dwg
