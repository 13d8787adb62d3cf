#include "apps/desktop/dialogs/control_table.h"

#include <algorithm>
#include <array>
#include <nlohmann/json.hpp>

#include "apps/desktop/dialogs/choices.h"
#include "services/translate.h"

namespace {

using enum ControlKind;

// ---- What a state says ----

template <const char* const& key>
bool Has(const DialogState& state) {
  const auto found = state.find(key);
  return found != state.end() && !found->is_null();
}
template <const char* const& key>
bool HasNot(const DialogState& state) {
  return !Has<key>(state);
}
template <const char* const& key>
bool Is(const DialogState& state) {
  return state.value(key, false);
}
constexpr const char* kFiles = "files";
constexpr const char* kFieldType = "fieldType";
constexpr const char* kUnits = "units";
constexpr const char* kSeparator = "separator";
constexpr const char* kOptions = "pointOptionsVisible";
constexpr const char* kAssociation = "associationVisible";
constexpr const char* kAssociationEnabled = "associationEnabled";

bool IsDrawingExport(const DialogState& state) { return !state.value("import", true); }

const char* Direction(const DialogState& state) {
  return Has<kFiles>(state) ? ToXlate("Import") : ToXlate("Export");
}

// A text file has a choice of field types, a CSV file has none.
const char* WhichFile(const DialogState& state) {
  const bool isText = Has<kFieldType>(state);
  if (Has<kFiles>(state)) return isText ? ToXlate("Text file import") : ToXlate("Csv file import");
  return isText ? ToXlate("Text file export") : ToXlate("Csv file export");
}

const char* UnitLabel(const DialogState& state) {
  constexpr int kTotalStation = 2;
  return state.value("kind", 0) == kTotalStation ? ToXlate("Station:") : ToXlate("Group:");
}

// ---- The dialogs ----

constexpr const char* kFolderLabel = ToXlate("Folder:");
constexpr const char* kFileLabel = ToXlate("File:");
constexpr const char* kRowsLabel = ToXlate("Header rows:");
constexpr const char* kContent = ToXlate("Content");
constexpr const char* kDecimals = ToXlate("No. of decimals");

constexpr auto kFileDialog = std::to_array<ControlRow>({{.key = "path", .kind = kFile}});

constexpr auto kCadFile = std::to_array<ControlRow>({
    {.key = "path", .kind = kFile},
    {.key = "version",
     .kind = kCombo,
     .label = ToXlate("Save as:"),
     .choices = choices::DrawingVersions,
     .isShown = IsDrawingExport},
    {.key = "explode",
     .kind = kCheck,
     .label = ToXlate("Explode fielbook entities"),
     .isShown = IsDrawingExport},
    {.key = "notVisible",
     .kind = kCheck,
     .label = ToXlate("Export entities not displayed"),
     .isShown = IsDrawingExport},
});

constexpr auto kTextMain = std::to_array<ControlRow>({
    {.key = "direction", .kind = kHeading, .labelOf = Direction},
    {.key = "fileKind", .kind = kHeading, .labelOf = WhichFile},
    {.key = "kind",
     .kind = kCombo,
     .label = ToXlate("Stations\\Groups"),
     .choices = choices::PointKinds},
    {.key = "unit",
     .kind = kCombo,
     .choices = choices::Units,
     .isShown = Has<kUnits>,
     .labelOf = UnitLabel},
    {.key = "fieldType",
     .kind = kRadio,
     .label = ToXlate("Field type:"),
     .choices = choices::FieldTypes,
     .isShown = Has<kFieldType>},
    {.key = "folder", .kind = kShown, .label = kFolderLabel},
    {.key = "Change", .kind = kPress, .label = ToXlate("Change")},
    {.key = "files",
     .kind = kList,
     .label = kFileLabel,
     .choices = choices::Files,
     .isShown = Has<kFiles>,
     .sets = "file"},
    {.key = "file", .kind = kText, .label = kFileLabel, .isShown = HasNot<kFiles>},
});

constexpr auto kDelimited = std::to_array<ControlRow>({
    {.key = "headerRows", .kind = kNumber, .label = kRowsLabel, .most = 100},
    {.key = "separator",
     .kind = kRadio,
     .label = ToXlate("Separator:"),
     .choices = choices::BasicSeparators,
     .isShown = Has<kSeparator>},
    {.key = "fields", .kind = kColumns, .label = kContent, .choices = choices::BasicFields},
    {.key = "quoteNames", .kind = kCheck, .label = ToXlate("Remove quotes from names")},
    {.key = "preview", .kind = kPreview, .label = ToXlate("Points as they are read")},
});

constexpr auto kFixed = std::to_array<ControlRow>({
    {.key = "headerRows", .kind = kNumber, .label = kRowsLabel, .most = 100},
    {.key = "fields",
     .kind = kColumns,
     .label = kContent,
     .choices = choices::BasicFields,
     .least = 1,
     .most = 100,
     .numbers = "lengths",
     .numberLabel = ToXlate("Length")},
    {.key = "preview", .kind = kPreview, .label = ToXlate("Points as they are read")},
});

constexpr std::array<ControlRow, 4> FullExport(ChoicesOf fields) {
  return {{
      {.key = "fields",
       .kind = kColumns,
       .label = kContent,
       .choices = fields,
       .most = 15,
       .numbers = "decimals",
       .numberLabel = kDecimals,
       .pages = 3},
      {.key = "separator",
       .kind = kCombo,
       .label = ToXlate("Separator:"),
       .group = ToXlate("Options"),
       .choices = choices::FullSeparators},
      {.key = "quoteNames",
       .kind = kCheck,
       .label = ToXlate("Add the quotes in names"),
       .group = ToXlate("Options")},
      {.key = "angleFormat",
       .kind = kCombo,
       .label = ToXlate("Angle format:"),
       .group = ToXlate("Options"),
       .choices = choices::AngleFormats},
  }};
}
constexpr auto kGpsExport = FullExport(choices::GpsFields);
constexpr auto kTotalStationExport = FullExport(choices::TotalStationFields);

constexpr auto kSurveyPage = std::to_array<ControlRow>({
    {.key = "jobs", .kind = kCheckList, .label = ToXlate("Jobs")},
    {.key = "gpsGroups", .kind = kCheckList, .label = ToXlate("Gps groups")},
    {.key = "pointGroups", .kind = kCheckList, .label = ToXlate("Known Points")},
});
constexpr auto kTerrainPage = std::to_array<ControlRow>(
    {{.key = "surfaces", .kind = kCheckList, .label = ToXlate("Terrain models")}});
constexpr auto kRoadPage =
    std::to_array<ControlRow>({{.key = "roads", .kind = kCheckList, .label = ToXlate("Roads")}});

constexpr auto kShapeExport = std::to_array<ControlRow>({
    {.key = "themes", .kind = kCheckList, .label = ToXlate("Themes")},
    {.key = "coordinateType",
     .kind = kCombo,
     .label = ToXlate("Coordinates:"),
     .choices = choices::CoordinateTypes},
    {.key = "folder", .kind = kShown, .label = kFolderLabel},
    {.key = "Change", .kind = kPress, .label = ToXlate("Change")},
    {.key = "maxChars",
     .kind = kNumber,
     .label = ToXlate("No. max. of characters:"),
     .least = 10,
     .most = 250},
});

constexpr auto kShapeImport = std::to_array<ControlRow>({
    {.key = "folder", .kind = kShown, .label = kFolderLabel},
    {.key = "Change", .kind = kPress, .label = ToXlate("Change")},
    {.key = "files", .kind = kList, .label = kFileLabel, .choices = choices::Files, .sets = "file"},
    {.key = "createPoints",
     .kind = kCheck,
     .label = ToXlate("Create and associate points to GIS entities"),
     .isShown = Is<kOptions>},
    {.key = "nameField",
     .kind = kCombo,
     .label = ToXlate("Name :"),
     .group = ToXlate("Data association"),
     .choices = choices::TableFields,
     .isShown = Is<kAssociation>,
     .isEnabled = Is<kAssociationEnabled>},
    {.key = "codeField",
     .kind = kCombo,
     .label = ToXlate("Code/Description:"),
     .group = ToXlate("Data association"),
     .choices = choices::TableFields,
     .isShown = Is<kAssociation>,
     .isEnabled = Is<kAssociationEnabled>},
});

constexpr auto kJobFolder = std::to_array<ControlRow>({{.key = "folder", .kind = kFolder}});

constexpr auto kReferenceSystem = std::to_array<ControlRow>(
    {{.key = "crs", .kind = kText, .label = ToXlate("Reference system, as EPSG:32632:")}});

constexpr auto kDialogs = std::to_array<DialogRow>({
    {"file", kFileDialog},
    {"cad-file", kCadFile},
    {"text-main", kTextMain},
    {"delimited-fields", kDelimited},
    {"fixed-fields", kFixed},
    {"gps-export", kGpsExport},
    {"ts-export", kTotalStationExport},
    {"landxml-survey", kSurveyPage},
    {"landxml-triangulation", kTerrainPage},
    {"landxml-roads", kRoadPage},
    {"shape-export", kShapeExport},
    {"shape-import", kShapeImport},
    {"job-folder", kJobFolder},
    {"reference-system", kReferenceSystem},
});

}  // namespace

std::span<const DialogRow> DialogTable() { return kDialogs; }

const DialogRow* FindDialogRow(std::string_view name) {
  const auto* const row = std::find_if(kDialogs.begin(), kDialogs.end(),
                                       [&](const DialogRow& each) { return each.name == name; });
  return row == kDialogs.end() ? nullptr : row;
}
