#include <strings.h>

#include <optional>
#include <unordered_map>
#include <utility>

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

// The vertices of one line; an undefined one stands between two pieces.
class Pieces {
 public:
  explicit Pieces(LoadContext& context) : context_(&context) {}

  void Take(const XmlElement& surface) {
    isNew_ = true;
    for (const XmlElement& child : surface.children) {
      if (child.name == "PntList2D") TakeList(child);
      if (child.name == "CrossSectPnt") TakePoint(child);
      if (child.name == "PntList3D") Refuse(child);
    }
  }
  const std::vector<TAltiVrt>& Vertices() const { return vertices_; }

 private:
  // A piece of its own.
  void TakeList(const XmlElement& list) {
    const auto numbers = Numbers(list.text);
    if (!numbers || numbers->size() % 2 != 0) {
      Refuse(list);
      return;
    }
    isNew_ = true;
    for (std::size_t i = 0; i < numbers->size(); i += 2) Add((*numbers)[i], (*numbers)[i + 1]);
  }

  void Refuse(const XmlElement& list) {
    context_->remarks.Add(list.line, Xlate("this is no list of points, so it is left out"));
  }

  void TakePoint(const XmlElement& point) {
    const auto numbers = Numbers(point.text);
    const std::string_view format = point.Value("dataFormat");
    if (numbers && numbers->size() == 2 && (format.empty() || format == "Offset Elevation")) {
      Add((*numbers)[0], (*numbers)[1]);
      return;
    }
    context_->remarks.Add(point.line,
                          Fill(Xlate("{1} is left out: {2}"),
                               {tdk::WString(point.name), Xlate("it is no offset and elevation")}));
  }

  void Add(double distance, double height) {
    if (std::exchange(isNew_, false) && !vertices_.empty()) vertices_.emplace_back();
    const double metres = context_->units.metres;
    vertices_.push_back({distance * metres, height * metres});
  }

  LoadContext* context_;
  std::vector<TAltiVrt> vertices_;
  bool isNew_ = true;  // the next vertex begins a piece
};

class SectionReader {
 public:
  SectionReader(CRoad& road, LoadContext& context) : road_(road), context_(context) {
    // A road may have several collections of sections.
    for (const TProfileAltiCode& code : road.ProfileCodes().Codes()) {
      codes_.emplace(code.name.ToUtf8(), code.code);
    }
  }

  void Read(const XmlElement& element) {
    const auto station = LengthOf(element, "sta", context_.units);
    if (!station) {
      context_.remarks.Add(element.line,
                           Fill(Xlate("{1} is left out: {2}"),
                                {tdk::WString(element.name), Xlate("it has no station")}));
      return;
    }
    CProfile& section = road_.GetRoadProfile()->AddSection();
    section.SetSectionProg(*station);
    section.SetName(NameOf(element.Value("name")));
    Pieces ground(context_);
    std::vector<std::pair<int, Pieces>> lines;   // with their codes
    std::optional<std::string_view> groundName;  // another existing surface is no ground
    for (const XmlElement& surface : element.children) {
      const std::string_view name = surface.Value("name");
      if (surface.name == "CrossSectSurf" && IsGround(surface) &&
          groundName.value_or(name) == name) {
        groundName = name;
        ground.Take(surface);
      } else if (surface.name == "CrossSectSurf" || surface.name == "DesignCrossSectSurf") {
        // A line with gaps comes as several surfaces of one name.
        const int code = CodeOf(NameOf(surface.Value("name")).ToUtf8());
        if (lines.empty() || lines.back().first != code) lines.emplace_back(code, context_);
        lines.back().second.Take(surface);
      }
    }
    for (const TAltiVrt& vertex : ground.Vertices()) section.AddTerrVrt(vertex);
    for (const auto& [code, pieces] : lines) {
      CProfileAlti& line = section.AddProfileAlti(code, /*terrain=*/false);
      for (const TAltiVrt& vertex : pieces.Vertices()) line.AddVrt(vertex);
    }
  }

 private:
  // Codes are numbered as their names come.
  int CodeOf(const std::string& name) {
    const auto [found, isNew] = codes_.emplace(name, static_cast<int>(codes_.size()) + 1);
    if (isNew) {
      road_.ProfileCodes().AddSectionAltiCode(found->second, tdk::WString(std::string_view(name)));
    }
    return found->second;
  }

  CRoad& road_;
  LoadContext& context_;
  std::unordered_map<std::string, int> codes_;
};

}  // namespace

void ReadCrossSections(const XmlElement& sections, CRoad& road, LoadContext& context) {
  SectionReader reader(road, context);
  for (const XmlElement& section : sections.children) {
    if (section.name == "CrossSect") reader.Read(section);
  }
}

}  // namespace landxml_load
