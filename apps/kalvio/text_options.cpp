#include "text_options.h"

#include <algorithm>
#include <nlohmann/json.hpp>

#include "failure.h"
#include "platform/numbers.h"
#include "platform/paths.h"
#include "services/translate.h"

namespace {

constexpr int kMostHeaderRows = 100;
constexpr int kMostWidth = 100;
constexpr int kNoColumn = 7;
constexpr int kUnusedWidth = 12;
constexpr const char* kUsualColumns = "name,east,north,elev,descr";
constexpr std::array<std::string_view, 8> kColumnNames = {"name",  "north", "east", "elev",
                                                          "descr", "date",  "time", "-"};

// A full export has a catalogue of its own: its codes for the same columns, and for an empty one.
constexpr std::size_t kFullColumns = 18;
constexpr int kFullDecimals = 3;
constexpr std::array<int, 8> kGpsCodes = {0, 14, 15, 16, 1, 19, 20, 21};
constexpr std::array<int, 8> kTotalStationCodes = {0, 9, 10, 11, 1, 15, 18, 21};

std::vector<std::string> Split(const std::string& list) {
  std::vector<std::string> parts;
  for (std::size_t start = 0; start <= list.size();) {
    const std::size_t comma = std::min(list.find(',', start), list.size());
    parts.push_back(list.substr(start, comma - start));
    start = comma + 1;
  }
  return parts;
}

[[noreturn]] void Refuse(const char* option, const std::string& value) {
  throw BadUsage(Fill(Xlate("{1} cannot be \"{2}\""), {option, tdk::WString(value)}).ToUtf8());
}

std::array<int, TextOptions::kColumns> ReadColumns(const std::string& list) {
  std::array<int, TextOptions::kColumns> columns{};
  columns.fill(kNoColumn);
  const auto parts = Split(list);
  if (parts.size() > columns.size()) Refuse("--columns", list);
  for (std::size_t i = 0; i < parts.size(); ++i) {
    const auto* const found = std::find(kColumnNames.begin(), kColumnNames.end(), parts[i]);
    if (found == kColumnNames.end()) Refuse("--columns", list);
    columns[i] = static_cast<int>(found - kColumnNames.begin());
  }
  return columns;
}

std::vector<int> ReadWidths(const std::string& list) {
  std::vector<int> widths;
  for (const std::string& part : Split(list)) {
    const auto width = platform::ParseWhole(part);
    if (!width || *width < 1 || *width > kMostWidth) Refuse("--widths", list);
    widths.push_back(static_cast<int>(*width));
  }
  if (widths.size() > TextOptions::kColumns) Refuse("--widths", list);
  return widths;
}

int ReadRows(const std::string& text) {
  const auto rows = platform::ParseWhole(text);
  if (!rows || *rows < 0 || *rows > kMostHeaderRows) Refuse("--header-rows", text);
  return static_cast<int>(*rows);
}

PointKind ReadKind(const std::string& word) {
  if (word == "control") return PointKind::kControl;
  if (word == "ts") return PointKind::kTotalStation;
  return word == "gps" ? PointKind::kGps : PointKind::kKnown;
}

void CheckReferenceSystemName(const Arguments& arguments) {
  const auto crs = arguments.Value("--crs");
  if (!crs) return;
  const std::size_t colon = crs->find(':');
  if (colon == std::string::npos || colon == 0 || colon + 1 == crs->size()) Refuse("--crs", *crs);
}

bool SetAll(Dialog& dialog, const DialogState& values) {
  return std::all_of(values.items().begin(), values.items().end(), [&](const auto& each) {
    return dialog.Set(each.key(), each.value()) == DialogSet::kDone;
  });
}

bool FillFull(Dialog& dialog, const TextOptions& options, const std::array<int, 8>& codes) {
  std::array<int, kFullColumns> fields{};
  fields.fill(codes[kNoColumn]);
  for (std::size_t i = 0; i < options.columns.size(); ++i) {
    fields[i] = codes[static_cast<std::size_t>(options.columns[i])];
  }
  std::array<int, kFullColumns> decimals{};
  decimals.fill(kFullDecimals);
  int separator = 1;
  if (options.separator == "space") separator = 0;
  if (options.separator == "tab") separator = 3;
  return SetAll(dialog, {{"fields", fields},
                         {"decimals", decimals},
                         {"separator", separator},
                         {"quoteNames", options.quoteNames}});
}

}  // namespace

TextOptions ReadTextOptions(const Arguments& arguments) {
  TextOptions options;
  if (const auto kind = arguments.Value("--kind")) options.kind = ReadKind(*kind);
  options.columns = ReadColumns(arguments.Value("--columns").value_or(kUsualColumns));
  options.separator = arguments.Value("--separator").value_or("comma");
  if (const auto widths = arguments.Value("--widths")) options.widths = ReadWidths(*widths);
  options.headerRows = ReadRows(arguments.Value("--header-rows").value_or("0"));
  options.quoteNames = arguments.Has("--quote-names");
  CheckReferenceSystemName(arguments);
  return options;
}

std::string_view ColumnName(int code) { return kColumnNames[static_cast<std::size_t>(code)]; }

std::optional<PointKind> FirstKindWithPoints(const Counts& counts) {
  if (counts.points != 0) return PointKind::kTotalStation;
  if (counts.gpsPoints != 0) return PointKind::kGps;
  if (counts.knownPoints != 0) return PointKind::kKnown;
  if (counts.controlPoints != 0) return PointKind::kControl;
  return std::nullopt;
}

Counts OfKind(const Counts& counts, PointKind kind) {
  Counts part;
  switch (kind) {
    case PointKind::kKnown:
      part.knownGroups = counts.knownGroups;
      part.knownPoints = counts.knownPoints;
      break;
    case PointKind::kControl: part.controlPoints = counts.controlPoints; break;
    case PointKind::kTotalStation:
      part.jobs = counts.jobs;
      part.stations = counts.stations;
      part.points = counts.points;
      break;
    case PointKind::kGps:
      part.gpsGroups = counts.gpsGroups;
      part.gpsPoints = counts.gpsPoints;
      break;
  }
  return part;
}

bool FillTextMain(Dialog& dialog, const std::string& path, const TextOptions& options) {
  const std::string name(platform::FileName(path));
  const DialogState state = dialog.State();
  DialogState values = {{"folder", path.substr(0, path.size() - name.size())},
                        {"kind", static_cast<int>(options.kind.value_or(PointKind::kKnown))},
                        {"file", name.substr(0, name.rfind('.'))}};
  if (!state.at("fieldType").is_null()) {
    values["fieldType"] = options.widths ? "fixed" : "delimited";
  }
  return SetAll(dialog, values);
}

bool FillDelimitedFields(Dialog& dialog, const std::string& /*path*/, const TextOptions& options) {
  DialogState values = {{"headerRows", options.headerRows},
                        {"fields", options.columns},
                        {"quoteNames", options.quoteNames}};
  if (!dialog.State().at("separator").is_null()) values["separator"] = options.separator;
  return SetAll(dialog, values);
}

bool FillFixedFields(Dialog& dialog, const std::string& /*path*/, const TextOptions& options) {
  std::array<int, TextOptions::kColumns> lengths{};
  lengths.fill(kUnusedWidth);
  std::copy(options.widths->begin(), options.widths->end(), lengths.begin());
  return SetAll(
      dialog,
      {{"headerRows", options.headerRows}, {"fields", options.columns}, {"lengths", lengths}});
}

bool FillGpsExport(Dialog& dialog, const std::string& /*path*/, const TextOptions& options) {
  return FillFull(dialog, options, kGpsCodes);
}

bool FillTotalStationExport(Dialog& dialog, const std::string& /*path*/,
                            const TextOptions& options) {
  return FillFull(dialog, options, kTotalStationCodes);
}
