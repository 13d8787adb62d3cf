#include <array>

#include "host/cad/dxf/write_sections.h"

namespace dxf_writer {
namespace {

constexpr std::string_view kDictionaries = R"(0 SECTION
2 OBJECTS
0 DICTIONARY
5 17
330 0
100 AcDbDictionary
281 1
3 ACAD_GROUP
350 18
3 ACAD_LAYOUT
350 19
3 ACAD_MLINESTYLE
350 1A
3 ACAD_PLOTSETTINGS
350 1B
3 ACAD_PLOTSTYLENAME
350 1C
0 DICTIONARY
5 18
330 17
100 AcDbDictionary
281 1
0 DICTIONARY
5 19
330 17
100 AcDbDictionary
281 1
3 Model
350 1F
3 Layout1
350 20
0 DICTIONARY
5 1A
330 17
100 AcDbDictionary
281 1
3 Standard
350 1E
0 DICTIONARY
5 1B
330 17
100 AcDbDictionary
281 1
)";

constexpr std::string_view kStyles = R"(0 ACDBDICTIONARYWDFLT
5 1C
330 17
100 AcDbDictionary
281 1
3 Normal
350 1D
100 AcDbDictionaryWithDefault
340 1D
0 ACDBPLACEHOLDER
5 1D
330 1C
0 MLINESTYLE
5 1E
330 1A
100 AcDbMlineStyle
2 Standard
70 0
3
62 256
51 90.0
52 90.0
71 2
49 0.5
62 256
6 BYLAYER
49 -0.5
62 256
6 BYLAYER
)";

// On a sheet of A4, one to one.
constexpr std::string_view kPlotSettings = R"(100 AcDbPlotSettings
1
2
4 A4
6
40 7.5
41 20.0
42 7.5
43 20.0
44 210.0
45 297.0
46 0.0
47 0.0
48 0.0
49 0.0
140 0.0
141 0.0
142 1.0
143 1.0
72 1
73 0
74 5
7
75 16
147 1.0
148 0.0
149 0.0
)";

constexpr std::string_view kView = R"(10 0.0
20 0.0
11 420.0
21 297.0
12 0.0
22 0.0
32 0.0
14 0.0
24 0.0
34 0.0
15 0.0
25 0.0
35 0.0
146 0.0
13 0.0
23 0.0
33 0.0
16 1.0
26 0.0
36 0.0
17 0.0
27 1.0
37 0.0
76 0
)";

struct Layout {
  Handle handle;
  std::string_view name;
  int plotFlags;
  int tab;
  Handle record;
};
constexpr int kIsModel = 1024;
constexpr std::array<Layout, 2> kLayouts = {
    {{0x1F, "Model", kIsModel, 0, kModelSpaceRecord}, {0x20, "Layout1", 0, 1, kPaperSpaceRecord}}};
constexpr Handle kLayoutDictionary = 0x19;

void WriteLayout(Tags& tags, const Layout& layout) {
  tags.Text<0>("LAYOUT");
  tags.Reference<5>(layout.handle);
  tags.Reference<330>(kLayoutDictionary);
  tags.Pairs(kPlotSettings);
  tags.Whole<70>(layout.plotFlags);
  tags.Class("AcDbLayout\n");
  tags.Text<1>(layout.name);
  tags.Whole<70>(1);
  tags.Whole<71>(layout.tab);
  tags.Pairs(kView);
  tags.Reference<330>(layout.record);
}

}  // namespace

void WriteObjects(Tags& tags) {
  tags.Pairs(kDictionaries);
  tags.Pairs(kStyles);
  for (const Layout& layout : kLayouts) WriteLayout(tags, layout);
  EndSection(tags);
}

}  // namespace dxf_writer
