#include <vector>

#include "formats/landxml/alignment_parts.h"
#include "formats/landxml/xml_print.h"
#include "services/translate.h"

namespace landxml {
namespace {

using Piece = std::vector<const TAltiVrt*>;

// Cuts a height line where a distance or a height is undefined; single points are dropped.
class Pieces {
 public:
  void Add(const TAltiVrt& vertex) {
    if (IsDefined(vertex.distance) && IsDefined(vertex.height)) {
      current_.push_back(&vertex);
    } else {
      EndPiece();
    }
  }
  const std::vector<Piece>& Finish() {
    EndPiece();
    return pieces_;
  }

 private:
  void EndPiece() {
    if (current_.size() >= 2) pieces_.push_back(current_);
    current_.clear();
  }

  Piece current_;
  std::vector<Piece> pieces_;
};

void WritePieces(platform::OutputFile& file, const std::vector<Piece>& pieces,
                 const tdk::WString& name) {
  for (const Piece& piece : pieces) {
    PrintLine(file, "\t\t\t\t\t<CrossSectSurf name=\"", name, "\">");
    Print(file, "\t\t\t\t\t\t<PntList2D>");
    for (const TAltiVrt* const vertex : piece) {
      Print(file, vertex->distance, " ", vertex->height, " ");
    }
    PrintLine(file, "</PntList2D>");
    PrintLine(file, "\t\t\t\t\t</CrossSectSurf>");
  }
}

tdk::WString NameOf(const CProfileAlti& line) {
  const CLibProfile* const library = line.GetProfile()->GetLibProfile();
  const TProfileAltiCode* const code =
      library == nullptr ? nullptr : library->FindSectionAltiCode(line.GetCode());
  return code == nullptr ? tdk::WString() : code->name;
}

}  // namespace

void WriteCrossSectSurfaces(platform::OutputFile& file, const CProfileAlti& line) {
  Pieces pieces;
  for (int i = line.FindNextPrincVrt(-1); i >= 0; i = line.FindNextPrincVrt(i)) {
    pieces.Add(line.GetVrt(i));
  }
  WritePieces(file, pieces.Finish(), NameOf(line));
}

void WriteCrossSect(platform::OutputFile& file, const CProfile& section) {
  PrintLine(file, "\t\t\t\t<CrossSect sta=\"", section.GetSectionProg(), "\" name=\"",
            section.GetName(), "\">");
  Pieces terrain;
  for (int i = 0; i < section.GetNumTerrVrts(); ++i) terrain.Add(section.GetTerrVrt(i));
  WritePieces(file, terrain.Finish(), Xlate("GROUND"));
  for (int i = 0; i < section.GetNumProfileAlti(); ++i) {
    const CProfileAlti& line = section.GetProfileAlti(i);
    if (!line.IsTerr()) WriteCrossSectSurfaces(file, line);
  }
  PrintLine(file, "\t\t\t\t</CrossSect>");
}

void WriteCrossSects(platform::OutputFile& file, const CProfile& profile) {
  PrintLine(file, "\t\t\t<CrossSects state=\"existing\">");
  for (int i = 0; i < profile.GetNumSections(); ++i) WriteCrossSect(file, profile.GetSection(i));
  PrintLine(file, "\t\t\t</CrossSects>");
}

}  // namespace landxml
