#include "formats/landxml/landxml_document.h"
#include "formats/landxml/record_counts.h"
#include "formats/landxml/xml_print.h"
#include "model/terrain.h"
#include "services/progress.h"
#include "services/translate.h"

namespace landxml {
namespace {

using tdk::geom::PNT_3D;

// Northing first, each number with a blank behind it.
void PrintPoint(platform::OutputFile& file, const PNT_3D& point) {
  Print(file, point.getY(), " ", point.getX(), " ", point.getZ());
}

// As stored: not closed, not turned.
void WriteBoundary(platform::OutputFile& file, const CCnt& contour, std::string_view type,
                   const tdk::WString& word, int index) {
  PrintLine(file, "\t\t\t\t\t<Boundary bndType=\"", type, "\" edgeTrim=\"true\" name=\"", word,
            index, "\">");
  Print(file, "\t\t\t\t\t\t<PntList3D>");
  for (int i = 0; i < contour.GetNoVrts(); ++i) {
    PrintPoint(file, contour.GetVrt(i));
    Print(file, " ");
    file.FlushIfLarge();
  }
  PrintLine(file, "</PntList3D>");
  PrintLine(file, "\t\t\t\t\t</Boundary>");
}

void WriteBoundaries(platform::OutputFile& file, const CCnts& contours, std::string_view type,
                     const tdk::WString& word) {
  for (int i = 0; i < contours.GetNoCnts(); ++i) {
    WriteBoundary(file, contours.GetCntAt(i), type, word, i);
  }
}

// Each segment by itself, also where they join.
void WriteBreaklines(platform::OutputFile& file, const CVncs& breaklines, ProgressSteps& progress) {
  const tdk::WString word = Xlate("breakline");
  for (int i = 0; i < breaklines.GetNoVncs(); ++i) {
    const tdk::geom::LINE_3D& line = breaklines.GetVncAt(i).GetCoords();
    PrintLine(file, "\t\t\t\t\t<Breakline name=\"", word, i, "\">");
    Print(file, "\t\t\t\t\t\t<PntList3D>");
    PrintPoint(file, line.getStart());
    Print(file, " ");
    PrintPoint(file, line.getEnd());
    PrintLine(file, "</PntList3D>");
    PrintLine(file, "\t\t\t\t\t</Breakline>");
    progress.Step();
  }
}

// Ids are positions, also of vertices that no triangle uses.
void WriteTriangulation(platform::OutputFile& file, const CTris& triangulation,
                        ProgressSteps& progress) {
  PrintLine(file, "\t\t\t\t<Pnts>");
  for (int i = 0; i < triangulation.GetNoTriVrts(); ++i) {
    Print(file, "\t\t\t\t\t<P id=\"", i, "\">");
    PrintPoint(file, triangulation.GetTriVrtAt(i));
    PrintLine(file, "</P>");
    progress.Step();
  }
  PrintLine(file, "\t\t\t\t</Pnts>");
  PrintLine(file, "\t\t\t\t<Faces>");
  for (int i = 0; i < triangulation.GetNoTris(); ++i) {
    const CTri& triangle = triangulation.GetTriAt(i);
    PrintLine(file, "\t\t\t\t\t<F>", triangle.GetVerIndex(0), " ", triangle.GetVerIndex(1), " ",
              triangle.GetVerIndex(2), "</F>");
    progress.Step();
  }
  PrintLine(file, "\t\t\t\t</Faces>");
}

}  // namespace

void WriteSurface(platform::OutputFile& file, const CDtmPrj& model) {
  ProgressSteps progress(RecordCount(model));
  PrintLine(file, "\t\t<Surface name=\"", model.GetName(), "\">");
  PrintLine(file, "\t\t\t<SourceData>");
  PrintLine(file, "\t\t\t\t<Boundaries>");
  WriteBoundaries(file, model.GetOuterCnts(), "outer", Xlate("ExtBoundary"));
  WriteBoundaries(file, model.GetIslandCnts(), "island", Xlate("IntBoundary"));
  PrintLine(file, "\t\t\t\t</Boundaries>");
  PrintLine(file, "\t\t\t\t<Breaklines>");
  WriteBreaklines(file, model.GetVncs(), progress);
  PrintLine(file, "\t\t\t\t</Breaklines>");
  PrintLine(file, "\t\t\t</SourceData>");
  PrintLine(file, "\t\t\t<Definition surfType=\"TIN\">");
  WriteTriangulation(file, model.GetTris(), progress);
  PrintLine(file, "\t\t\t</Definition>");
  PrintLine(file, "\t\t</Surface>");
}

}  // namespace landxml
