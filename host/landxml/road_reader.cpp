#include "host/landxml/road_reader.h"

#include "host/landxml/element_reader.h"
#include "host/landxml/profile_reader.h"
#include "services/translate.h"

namespace landxml_load {
namespace {

void ReadProfiles(const XmlElement& profile, CRoad& road, LoadContext& context) {
  for (const XmlElement& line : profile.children) {
    if (line.name != "ProfAlign") continue;
    const CProfileAlti* const main = road.GetRoadProfile()->GetMainPrjAlti();
    if (main == nullptr || main->IsEmpty()) {
      ReadProfile(line, road, context);
    } else {
      context.remarks.Add(
          line.line, Fill(Xlate("road \"{1}\": only its first profile is kept"), {road.GetName()}));
    }
  }
}

// Stations of profiles and sections do not know of equations, and neither does the host.
void TellOfEquations(const XmlElement& alignment, const tdk::WString& name, LoadContext& context) {
  std::uint64_t count = 0;
  for (const XmlElement& child : alignment.children) count += child.name == "StaEquation" ? 1 : 0;
  if (count == 0) return;
  context.remarks.Add(
      alignment.line,
      Fill(Xlate("road \"{1}\": station equations are not applied ({2})"), {name, InWords(count)}));
}

}  // namespace

void ReadRoad(const XmlElement& alignment, PointFinder& points, LoadContext& context) {
  const tdk::WString name = NameOf(alignment.Value("name"));
  const double start = LengthOf(alignment, "staStart", context.units).value_or(0);
  ElementReader elements(context, points, start);
  for (const XmlElement& child : alignment.children) {
    if (child.name == "CoordGeom") elements.Take(child);
  }
  if (elements.Elements().empty()) {
    context.remarks.Add(alignment.line,
                        Fill(Xlate("road \"{1}\" is left out: it has no geometry"), {name}));
    return;
  }
  CRoad& road = context.Added(context.document.GetLibRoad()->AddRoad(false));
  road.SetName(name);
  const auto length = LengthOf(alignment, "length", context.units);
  road.SetProgs(start, length ? start + *length : elements.Prog());
  for (auto& element : elements.Elements()) road.AddElement(std::move(element));
  for (const XmlElement& child : alignment.children) {
    if (child.name == "Profile") ReadProfiles(child, road, context);
    if (child.name == "CrossSects") ReadCrossSections(child, road, context);
  }
  TellOfEquations(alignment, name, context);
}

}  // namespace landxml_load
