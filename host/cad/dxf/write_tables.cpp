#include <algorithm>
#include <array>
#include <span>

#include "host/cad/dxf/write_sections.h"

namespace dxf_writer {
namespace {

/// A record that every file has.
struct FixedRecord {
  Handle handle;
  std::string_view r12Name;  ///< empty: not in R12
  std::string_view name;
  std::string_view pairs;
};

struct TableKind {
  std::string_view name;  ///< of the table, and of each of its records
  Handle handle;
  std::string_view recordClass;  ///< with its line end
};

constexpr std::string_view kViewEnd = R"(42 50.0
43 0.0
44 0.0
50 0.0
51 0.0
71 0
72 100
73 1
74 3
75 0
76 0
77 0
78 0
)";
constexpr std::string_view kSolidLine = R"(70 0
3 Solid line
72 65
73 0
40 0.0
)";
constexpr std::string_view kOtherLine = R"(70 0
3
72 65
73 0
40 0.0
)";
constexpr std::string_view kStyle = R"(70 0
40 0.0
41 1.0
50 0.0
71 0
42 1.0
3 txt
4
)";
constexpr std::string_view kNoFlags = "70 0\n";
constexpr std::string_view kDimensionStyle = "70 0\n340 9\n";
constexpr std::string_view kLayoutOfModel = "340 1F\n";
constexpr std::string_view kLayoutOfPaper = "340 20\n";

constexpr TableKind kViews{"VPORT", 0x1, "AcDbViewportTableRecord\n"};
constexpr TableKind kLines{"LTYPE", 0x3, "AcDbLinetypeTableRecord\n"};
constexpr TableKind kLayers{"LAYER", 0x7, "AcDbLayerTableRecord\n"};
constexpr TableKind kStyles{"STYLE", 0x8, "AcDbTextStyleTableRecord\n"};
constexpr TableKind kNamedViews{"VIEW", 0xA, ""};
constexpr TableKind kSystems{"UCS", 0xB, ""};
constexpr TableKind kPrograms{"APPID", 0xC, "AcDbRegAppTableRecord\n"};
constexpr TableKind kDimensions{"DIMSTYLE", 0xE, "AcDbDimStyleTableRecord\n"};
constexpr TableKind kBlockRecords{"BLOCK_RECORD", 0x10, "AcDbBlockTableRecord\n"};

constexpr Handle kViewRecord = 0x2;
constexpr Handle kPlotStyle = 0x1D;
constexpr std::array<FixedRecord, 3> kLineRecords = {
    {{0x4, "", "ByBlock", kOtherLine},
     {0x5, "", "ByLayer", kOtherLine},
     {0x6, "CONTINUOUS", "Continuous", kSolidLine}}};
constexpr std::array<FixedRecord, 1> kStyleRecords = {{{0x9, "STANDARD", "Standard", kStyle}}};
constexpr std::array<FixedRecord, 1> kProgramRecords = {{{0xD, "ACAD", "ACAD", kNoFlags}}};
constexpr std::array<FixedRecord, 1> kDimensionRecords = {{{0xF, "", "Standard", kDimensionStyle}}};
constexpr std::array<FixedRecord, 2> kSpaceRecords = {
    {{kModelSpaceRecord, "", "*Model_Space", kLayoutOfModel},
     {kPaperSpaceRecord, "", "*Paper_Space", kLayoutOfPaper}}};

void BeginTable(Tags& tags, const TableKind& kind, std::size_t records) {
  tags.Text<0>("TABLE");
  tags.Text<2>(kind.name);
  if (tags.Is2000()) {
    tags.Reference<5>(kind.handle);
    tags.Reference<330>(0);
    tags.Class("AcDbSymbolTable\n");
  }
  tags.Whole<70>(static_cast<std::int64_t>(records));
}

void EndTable(Tags& tags) { tags.Text<0>("ENDTAB"); }

void BeginRecord(Tags& tags, const TableKind& kind, Handle handle, std::string_view name) {
  tags.FlushIfLarge();
  tags.Text<0>(kind.name);
  if (tags.Is2000()) {
    const bool isDimensionStyle = kind.handle == kDimensions.handle;
    if (isDimensionStyle) tags.Reference<105>(handle);
    if (!isDimensionStyle) tags.Reference<5>(handle);
    tags.Reference<330>(kind.handle);
    tags.Class("AcDbSymbolTableRecord\n");
    tags.Class(kind.recordClass);
  }
  tags.Text<2>(name);
}

void WriteRecords(Tags& tags, const TableKind& kind, std::span<const FixedRecord> records) {
  for (const FixedRecord& record : records) {
    const std::string_view name = tags.Is2000() ? record.name : record.r12Name;
    if (name.empty()) continue;
    BeginRecord(tags, kind, record.handle, name);
    tags.Pairs(record.pairs);
  }
}

void WriteTable(Tags& tags, const TableKind& kind, std::span<const FixedRecord> records) {
  const auto isThere = [&](const FixedRecord& record) {
    return tags.Is2000() || !record.r12Name.empty();
  };
  BeginTable(tags, kind,
             static_cast<std::size_t>(std::count_if(records.begin(), records.end(), isThere)));
  if (tags.Is2000() && kind.handle == kDimensions.handle) {
    tags.Class("AcDbDimStyleTable\n");
    tags.Whole<71>(0);
  }
  WriteRecords(tags, kind, records);
  EndTable(tags);
}

// Programs open the drawing with all of it in view.
void WriteView(Tags& tags, const Extent& extent) {
  const View view = ViewOf(extent);
  tags.Whole<70>(0);
  tags.Place<10>(0, 0);
  tags.Place<11>(1, 1);
  tags.Place<12>(view.x, view.y);
  tags.Place<13>(0, 0);
  tags.Place<14>(1, 1);
  tags.Place<15>(1, 1);
  tags.Place<16>({0, 0, 1});
  tags.Place<17>({0, 0, 0});
  tags.Real<40>(view.height);
  tags.Real<41>(View::kWidthByHeight);
  tags.Pairs(kViewEnd);
}

void WriteViews(Tags& tags, const Plan& plan) {
  BeginTable(tags, kViews, 1);
  BeginRecord(tags, kViews, kViewRecord, tags.Is2000() ? "*Active" : "*ACTIVE");
  WriteView(tags, plan.DrawingExtent());
  EndTable(tags);
}

void WriteLayers(Tags& tags, const Plan& plan) {
  constexpr int kLocked = 4;
  constexpr int kUsualWidth = -3;
  BeginTable(tags, kLayers, plan.Layers().size());
  for (const PlannedLayer& layer : plan.Layers()) {
    BeginRecord(tags, kLayers, tags.NextHandle(), layer.name);
    tags.Whole<70>(layer.isLocked ? kLocked : 0);
    tags.Whole<62>(layer.isVisible ? layer.color : -layer.color);
    tags.Text<6>(tags.Is2000() ? "Continuous" : "CONTINUOUS");
    if (!tags.Is2000()) continue;
    tags.Whole<370>(kUsualWidth);
    tags.Reference<390>(kPlotStyle);
  }
  EndTable(tags);
}

void WriteBlockRecords(Tags& tags, const Plan& plan) {
  BeginTable(tags, kBlockRecords, kSpaceRecords.size() + plan.BlockOrder().size());
  WriteRecords(tags, kBlockRecords, kSpaceRecords);
  for (const int position : plan.BlockOrder()) {
    const PlannedBlock& block = plan.BlockAt(position);
    BeginRecord(tags, kBlockRecords, RecordOf(block), block.name);
    tags.Reference<340>(0);
  }
  EndTable(tags);
}

}  // namespace

void WriteTables(Tags& tags, const Plan& plan) {
  tags.Text<0>("SECTION");
  tags.Text<2>("TABLES");
  WriteViews(tags, plan);
  WriteTable(tags, kLines, kLineRecords);
  WriteLayers(tags, plan);
  WriteTable(tags, kStyles, kStyleRecords);
  WriteTable(tags, kNamedViews, {});
  WriteTable(tags, kSystems, {});
  WriteTable(tags, kPrograms, kProgramRecords);
  WriteTable(tags, kDimensions, kDimensionRecords);
  if (tags.Is2000()) WriteBlockRecords(tags, plan);
  EndSection(tags);
}

}  // namespace dxf_writer
