#include "host/plot/line_work.h"
#include "model/undefined.h"

namespace plot {
namespace {

constexpr Rgb kColours[] = {0x2E7D6B, 0x6A4FA3, 0xA3562E, 0x2E6AA3, 0x7D7A2E};

void AddPart(const gis::CTheme& theme, const gis::VertexRange& range, std::uint32_t feature,
             std::vector<Leg>& legs) {
  const auto place = [&](std::size_t i) { return Place{theme.Xs()[i], theme.Ys()[i]}; };
  const auto isThere = [](const Place& p) { return IsDefined(p.x) && IsDefined(p.y); };
  const bool arePoints = theme.GetType() == gis::EntityType::kPoint;
  for (std::size_t i = range.first + (arePoints ? 0 : 1); i < range.last; ++i) {
    const Place from = place(arePoints ? i : i - 1);
    const Place to = place(i);
    if (isThere(from) && isThere(to)) legs.push_back({from, to, feature});
  }
}

LineWork WorkOf(const gis::CTheme& theme, int position) {
  LineWork work;
  work.name = theme.GetName().ToUtf8();
  work.position = position;
  work.arePoints = theme.GetType() == gis::EntityType::kPoint;
  work.count = static_cast<std::uint64_t>(theme.GetNumFeatures());
  work.colours = {kColours[static_cast<std::size_t>(position) % std::size(kColours)]};
  work.legs.reserve(theme.GetNumVertices());
  for (int feature = 0; feature < theme.GetNumFeatures(); ++feature) {
    for (int part = 0; part < theme.GetNumParts(feature); ++part) {
      AddPart(theme, theme.GetPart(feature, part), static_cast<std::uint32_t>(feature), work.legs);
    }
  }
  return work;
}

}  // namespace

std::vector<LineWork> ThemesOf(const gis::CLibGis& library) {
  std::vector<LineWork> themes;
  for (int i = 0; i < library.GetNumThemes(); ++i) {
    themes.push_back(WorkOf(*library.GetTheme(i), i));
  }
  return themes;
}

Box ExtentOf(const LineWork& work) {
  Box extent;
  for (const Leg& leg : work.legs) {
    extent.Add(leg.from);
    extent.Add(leg.to);
  }
  for (const WorkText& text : work.texts) extent.Add(text.at);
  return extent;
}

}  // namespace plot
