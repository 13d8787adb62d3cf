#include "formats/cad/cad_options.h"

#include <strings.h>

#include <algorithm>
#include <array>

#include "services/file_name.h"
#include "services/ini_file.h"

namespace cad {
namespace {

constexpr const char* kSection = "ExportDXF-DWG";
constexpr const char* kVersionKey = "Version";
constexpr const char* kExplodeKey = "ExplodeBlocks";
constexpr const char* kHiddenKey = "ExportNotVisibEnts";

constexpr std::array<VersionRow, 4> kVersions = {
    {{1801, TCAD_DWG_2000}, {1802, TCAD_DWG_R14}, {1803, TCAD_DXF_2000}, {1804, TCAD_DXF_R12}}};
constexpr int kDwgVersions = 2;

}  // namespace

std::span<const VersionRow> VersionTable() { return kVersions; }
bool IsDwgVersion(int position) { return position < kDwgVersions; }

// A version that is not in the list is the default.
ExportOptions ReadExportOptions() {
  const CIniFile settings;
  ExportOptions options;
  const std::int32_t value = settings.ReadLong(kSection, kVersionKey, TCAD_DWG_2000);
  const auto* const found =
      std::find_if(kVersions.begin(), kVersions.end(),
                   [&](const VersionRow& row) { return row.version == value; });
  if (found != kVersions.end()) options.version = static_cast<int>(found - kVersions.begin());
  options.explodesBlocks = settings.ReadBool(kSection, kExplodeKey, false);
  options.withHidden = settings.ReadBool(kSection, kHiddenKey, false);
  return options;
}

void WriteExportOptions(const ExportOptions& options) {
  CIniFile settings;
  settings.WriteLong(kSection, kVersionKey,
                     kVersions[static_cast<std::size_t>(options.version)].version);
  settings.WriteBool(kSection, kExplodeKey, options.explodesBlocks);
  settings.WriteBool(kSection, kHiddenKey, options.withHidden);
}

tdk::WString ExportPath(const tdk::WString& path, int version) {
  return EliminaEstensioneFile(path) + (IsDwgVersion(version) ? ".dwg" : ".dxf");
}

bool EndsWith(const tdk::WString& path, std::string_view extension) {
  const std::string& text = path.ToUtf8();
  return text.size() >= extension.size() &&
         strncasecmp(text.data() + text.size() - extension.size(), extension.data(),
                     extension.size()) == 0;
}

}  // namespace cad
