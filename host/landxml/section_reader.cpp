#include <strings.h>

#include "host/landxml/profile_reader.h"
#include "services/translate.h"

namespace landxml_load {
namespace {

// What programs call the ground, ours in both languages first.
constexpr const char* kGroundNames[] = {"GROUND",          "TERRENO", "EG", "EXISTING",
                                        "Existing Ground", "Terrain", "OG"};

bool IsGround(const XmlElement& surface) {
  if (surface.Value("state") == "existing") return true;
  const std::string name(surface.Value("name"));
  for (const char* known : kGroundNames) {
    if (strcasecmp(known, name.c_str()) == 0) return true;
  }
  return false;
}

// Lists of one surface, one piece each; an undefined vertex stands between two pieces.
class Pieces {
 public:
  Pieces(LoadContext& context, std::vector<TAltiVrt>& vertices)
      : context_(context), vertices_(vertices) {}

  void Take(const XmlElement& list) {
    const auto numbers = Numbers(list.text);
    if (!numbers || numbers->size() % 2 != 0) {
      context_.remarks.Add(list.line, Xlate("this is no list of points, so it is left out"));
      return;
    }
    BeginPiece();
    for (std::size_t i = 0; i < numbers->size(); i += 2) Add((*numbers)[i], (*numbers)[i + 1]);
  }

  void TakePoint(const XmlElement& point) {
    const auto numbers = Numbers(point.text);
    const std::string_view format = point.Value("dataFormat");
    if (!numbers || numbers->size() != 2 || (!format.empty() && format != "Offset Elevation")) {
      context_.remarks.Add(
          point.line, Fill(Xlate("{1} is left out: {2}"),
                           {tdk::WString(point.name), Xlate("it is no offset and elevation")}));
      return;
    }
    Add((*numbers)[0], (*numbers)[1]);
  }

  void BeginPiece() {
    if (!vertices_.empty()) vertices_.emplace_back();
  }

 private:
  void Add(double distance, double height) {
    vertices_.push_back({distance * context_.units.metres, height * context_.units.metres});
  }

  LoadContext& context_;
  std::vector<TAltiVrt>& vertices_;
};

void TakeSurface(const XmlElement& surface, Pieces& pieces) {
  bool hasPoints = false;
  for (const XmlElement& child : surface.children) {
    if (child.name == "PntList2D") pieces.Take(child);
    if (child.name != "CrossSectPnt") continue;
    if (!hasPoints) pieces.BeginPiece();
    hasPoints = true;
    pieces.TakePoint(child);
  }
}

// Codes are numbered as their names come.
int CodeOf(const tdk::WString& name, CLibProfile& codes) {
  for (const TProfileAltiCode& code : codes.Codes()) {
    if (code.name == name) return code.code;
  }
  const int code = static_cast<int>(codes.Codes().size()) + 1;
  codes.AddSectionAltiCode(code, name);
  return code;
}

void ReadSection(const XmlElement& element, CRoad& road, LoadContext& context) {
  const auto station = LengthOf(element, "sta", context.units);
  if (!station) {
    context.remarks.Add(element.line,
                        Fill(Xlate("{1} is left out: {2}"),
                             {tdk::WString(element.name), Xlate("it has no station")}));
    return;
  }
  CProfile& section = road.GetRoadProfile()->AddSection();
  section.SetSectionProg(*station);
  section.SetName(NameOf(element.Value("name")));
  std::vector<TAltiVrt> ground;
  Pieces groundPieces(context, ground);
  for (const XmlElement& surface : element.children) {
    if (surface.name != "CrossSectSurf" && surface.name != "DesignCrossSectSurf") continue;
    if (surface.name == "CrossSectSurf" && IsGround(surface)) {
      TakeSurface(surface, groundPieces);
      continue;
    }
    std::vector<TAltiVrt> vertices;
    Pieces pieces(context, vertices);
    TakeSurface(surface, pieces);
    const int code = CodeOf(NameOf(surface.Value("name")), road.ProfileCodes());
    CProfileAlti& line = section.AddProfileAlti(code, /*terrain=*/false);
    for (const TAltiVrt& vertex : vertices) line.AddVrt(vertex);
  }
  for (const TAltiVrt& vertex : ground) section.AddTerrVrt(vertex);
}

}  // namespace

void ReadCrossSections(const XmlElement& sections, CRoad& road, LoadContext& context) {
  for (const XmlElement& section : sections.children) {
    if (section.name == "CrossSect") ReadSection(section, road, context);
  }
}

}  // namespace landxml_load
