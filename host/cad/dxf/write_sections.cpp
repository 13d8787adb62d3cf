#include "host/cad/dxf/write_sections.h"

namespace dxf_writer {
namespace {

constexpr std::string_view kHeaderStart = R"(9 $DWGCODEPAGE
3 ANSI_1252
9 $INSBASE
10 0.0
20 0.0
30 0.0
)";

constexpr std::string_view kHeaderEnd = R"(9 $TEXTSTYLE
7 STANDARD
9 $CLAYER
8 0
)";

constexpr std::string_view kMetres = R"(9 $INSUNITS
70 6
9 $MEASUREMENT
70 1
)";

constexpr std::string_view kNoClasses = R"(0 SECTION
2 CLASSES
0 ENDSEC
)";

constexpr std::string_view kModelBlock = R"(0 BLOCK
5 13
330 11
100 AcDbEntity
8 0
100 AcDbBlockBegin
2 *Model_Space
70 0
10 0.0
20 0.0
30 0.0
3 *Model_Space
1
0 ENDBLK
5 14
330 11
100 AcDbEntity
8 0
100 AcDbBlockEnd
)";

constexpr std::string_view kPaperBlock = R"(0 BLOCK
5 15
330 12
100 AcDbEntity
67 1
8 0
100 AcDbBlockBegin
2 *Paper_Space
70 0
10 0.0
20 0.0
30 0.0
3 *Paper_Space
1
0 ENDBLK
5 16
330 12
100 AcDbEntity
67 1
8 0
100 AcDbBlockEnd
)";

// Programs know an empty drawing by these.
constexpr double kNothing = 1e20;

void WriteExtent(Tags& tags, const Extent& extent) {
  const bool isEmpty = extent.IsEmpty();
  tags.Text<9>("$EXTMIN");
  tags.Place<10>(isEmpty ? cad::Point(kNothing, kNothing, kNothing) : extent.Min());
  tags.Text<9>("$EXTMAX");
  tags.Place<10>(isEmpty ? cad::Point(-kNothing, -kNothing, -kNothing) : extent.Max());
}

void BeginSection(Tags& tags, std::string_view name) {
  tags.Text<0>("SECTION");
  tags.Text<2>(name);
}

}  // namespace

void WriteHeader(Tags& tags, const Plan& plan) {
  BeginSection(tags, "HEADER");
  tags.Text<9>("$ACADVER");
  tags.Text<1>(tags.Is2000() ? "AC1015" : "AC1009");
  tags.Pairs(kHeaderStart);
  WriteExtent(tags, plan.DrawingExtent());
  tags.Pairs(kHeaderEnd);
  if (tags.Is2000()) {
    tags.Pairs(kMetres);
    tags.Text<9>("$HANDSEED");
    tags.Reference<5>(plan.HandleSeed());
  }
  EndSection(tags);
  if (tags.Is2000()) tags.Pairs(kNoClasses);
}

void BeginBlocks(Tags& tags) {
  BeginSection(tags, "BLOCKS");
  if (!tags.Is2000()) return;
  tags.Pairs(kModelBlock);
  tags.Pairs(kPaperBlock);
}

void BeginEntities(Tags& tags) { BeginSection(tags, "ENTITIES"); }

void EndSection(Tags& tags) { tags.Text<0>("ENDSEC"); }

void WriteEnd(Tags& tags) {
  if (tags.Is2000()) WriteObjects(tags);
  tags.Text<0>("EOF");
}

}  // namespace dxf_writer
