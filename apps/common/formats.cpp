#include "formats.h"

#include <array>
#include <filesystem>

#include "failure.h"
#include "platform/paths.h"
#include "services/translate.h"

std::span<const FormatRow> FormatTable() {
  using enum Exchanged;
  constexpr Carried kTotalStation{};
  constexpr Carried kObservations{.gps = true};
  constexpr Carried kAll{true, true, true};
  constexpr Carried kDrawing{true, true, true, true, true, true};
  constexpr Carried kShape{.gps = true,
                           .known = true,
                           .controls = true,
                           .design = false,
                           .drawing = false,
                           .themes = true};
  constexpr Carried kLandXml{.gps = true, .known = true, .controls = false, .design = true};
  static constexpr std::array<FormatRow, 9> kTable = {{
      {"jb2", "JB2", kNow, kNow, "FImportJB2File", "FExportJB2File", kTotalStation},
      {"jb3", "JB3", kNow, kNow, "FImportJB3File", "FExportJB3File", kAll},
      {"txt", "TXT", kNow, kNow, "FImportTXTFile", "FExportTXTFile", kAll, true},
      {"csv", "CSV", kNow, kNow, "FImportCSVFile", "FExportCSVFile", kAll, true},
      {"dxf", "DXF", kNow, kNow, "FImportDXFDWGFile", "FExportDXFDWGFile", kDrawing},
      {"dwg", "DWG", kNow, kNow, "FImportDXFDWGFile", "FExportDXFDWGFile", kDrawing},
      {"shp", "Shape", kNow, kNow, "FImportEntFromFileShape", "FExportEntInFileShape", kShape,
       /*isPointList=*/false, /*messageIsFailure=*/true},
      {"xml", "LandXML", kNow, kNow, nullptr, "FExportLandXMLFile", kLandXml},
      {"dat", "DAT", kNever, kNow, nullptr, "FExportDATFile", kObservations, false, true},
  }};
  return kTable;
}

const FormatRow* FindFormat(const std::string& path) {
  const std::string extension = platform::Extension(path);
  for (const FormatRow& row : FormatTable()) {
    if (row.extension == extension) return &row;
  }
  return nullptr;
}

const FormatRow& FormatOf(const std::string& path) {
  if (const FormatRow* const row = FindFormat(path)) return *row;
  std::string known;
  for (const FormatRow& row : FormatTable()) {
    known.append(known.empty() ? "" : ", ").append(row.extension);
  }
  throw BadUsage(
      path + ": " +
      Fill(Xlate("the extension says no format; known are {1}"), {tdk::WString(known)}).ToUtf8());
}

void CheckThere(const std::string& path) {
  std::error_code error;
  if (FindFormat(path) != nullptr || std::filesystem::exists(path, error)) return;
  throw Failed(path, Xlate("there is no such job or file").ToUtf8());
}

void CheckReadable(const std::string& path) {
  const FormatRow& row = FormatOf(path);
  if (row.read == Exchanged::kNow) return;
  const auto pattern = row.read == Exchanged::kNever
                           ? Xlate("{1} files cannot be read")
                           : Xlate("{1} files cannot be read yet: not available in this version");
  throw Failed(path, Fill(pattern, {row.name}).ToUtf8());
}

void CheckWritable(const std::string& path) {
  const FormatRow& row = FormatOf(path);
  if (row.written == Exchanged::kNow) return;
  const auto pattern = Xlate("{1} files cannot be written yet: not available in this version");
  throw Failed(path, Fill(pattern, {row.name}).ToUtf8());
}
