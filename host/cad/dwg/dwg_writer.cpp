#include "host/cad/dwg/dwg_writer.h"

#include <algorithm>
#include <cerrno>
#include <ctime>

#include "host/cad/dwg/file_header.h"
#include "host/cad/dwg/write_tables.h"

namespace dwg {
namespace {

constexpr std::size_t kGap = 0x200;                // between the classes and the records
constexpr std::uint64_t kMostBytes = 0xFFFF'0000;  // addresses have 32 bits

// Local time, as other programs have it.
Moment Now() {
  constexpr std::uint32_t kDayOf1970 = 2'440'588;
  constexpr std::int64_t kSecondsOfDay = 86'400;
  const std::time_t now = std::time(nullptr);
  std::tm local{};
  if (localtime_r(&now, &local) == nullptr) return {kDayOf1970, 0};
  const std::int64_t seconds = std::int64_t{now} + local.tm_gmtoff;
  return {kDayOf1970 + static_cast<std::uint32_t>(seconds / kSecondsOfDay),
          static_cast<std::uint32_t>(seconds % kSecondsOfDay * 1000)};
}

// Tells one state of a drawing from others.
std::string IdentityOf(const Moment& saved, std::uint64_t records) {
  std::string identity = "{00000000-0000-0000-0000-000000000000}";
  std::uint64_t number = 0xCBF2'9CE4'8422'2325;
  for (const std::uint64_t part :
       {std::uint64_t{saved.day}, std::uint64_t{saved.milliseconds}, records}) {
    number = (number ^ part) * 0x100'0000'01B3;
  }
  for (char& c : identity) {
    if (c != '0') continue;
    c = "0123456789ABCDEF"[number >> 60];
    number = number * 0x5851'F42D'4C95'7F2D + 0x1405'7B7E'F767'814F;
  }
  return identity;
}

HeaderVariables VariablesOf(const FilePlan& plan) {
  HeaderVariables variables;
  variables.nextHandle = plan.NextHandle();
  const cad_writer::Extent& extent = plan.DrawingExtent();
  variables.least = {kNoExtent, kNoExtent, kNoExtent};
  variables.greatest = {-kNoExtent, -kNoExtent, -kNoExtent};
  if (!extent.IsEmpty()) {
    variables.least = extent.Min();
    variables.greatest = extent.Max();
  }
  variables.saved = Now();
  variables.identity = IdentityOf(variables.saved, plan.MostRecords());
  variables.handles = HandlesFor(plan.FileVersion());
  return variables;
}

void WriteObjectMap(FileWriter& file, FileLayout& layout, std::vector<MapEntry>& map) {
  std::sort(map.begin(), map.end(),
            [](const MapEntry& a, const MapEntry& b) { return a.handle < b.handle; });
  std::string bytes;
  AppendObjectMap(bytes, map);
  layout.regions[kObjectMap] = {file.Position(), bytes.size()};
  file.Bytes(bytes);
}

// The header comes last: it says where everything lies.
void WriteFile(FileWriter& file, FileLayout& layout, const FilePlan& plan) {
  layout.version = plan.FileVersion();
  HeaderVariables variables = VariablesOf(plan);
  file.Zeros(FileHeader(layout).size());
  if (layout.version == Version::k2000) WriteAuxiliary(file, layout, variables);
  WritePreview(file, layout);
  WriteVariables(file, layout, variables);
  WriteClasses(file, layout);
  file.Zeros(kGap);
  const std::uint64_t firstRecord = file.Position();
  RecordWriter records(file, layout.version);
  records.Map().reserve(static_cast<std::size_t>(plan.MostRecords()));
  WriteTables(records, plan);
  WriteDrawing(records, plan);
  WriteObjectMap(file, layout, records.Map());
  WriteFreeSpace(file, layout, variables.saved, records.Map().size(), firstRecord);
  WriteSecondHeader(file, layout, variables);
  WriteTemplate(file, layout);
}

}  // namespace
}  // namespace dwg

CadWritten WriteDwgCounting(const CadSave& how, const CTcadEng& engine) {
  using namespace dwg;
  platform::OutputFile output;
  const std::string path = how.path.ToUtf8();
  if (!output.Open(path)) return {};
  const FilePlan plan(how, engine);
  FileWriter file(output);
  FileLayout layout;
  WriteFile(file, layout, plan);
  if (file.Position() > kMostBytes) {
    platform::ReportFileTrouble(platform::FileTrouble::Action::kWrite, path, EFBIG);
    return {};
  }
  output.Overwrite(0, FileHeader(layout));
  return {output.Commit(), plan.LeftOut(), plan.Straightened(), plan.Hidden()};
}
