#include "services/display/symbols.h"

#include <algorithm>

#include "platform/letters.h"

namespace {

constexpr int kNotMade = -1;
constexpr std::array<std::string_view, kSymbols> kNames = {"FB_POINT", "FB_STATION", "FB_GPS",
                                                           "FB_GPSBASE", "FB_KNOWN"};

std::string_view NameOf(Symbol symbol) { return kNames[static_cast<std::size_t>(symbol)]; }

cad::AttributeDefinition Attribute(const char* tag, const display::TextPlace& place) {
  return {tag, {place.right, place.up, 0}, display::kTextHeight / display::kSymbolSize};
}

// In a block single lines: not every program reads polylines in the blocks of old versions well.
template <class Add>
void AddSides(const cad::PolylineShape& line, const Add& add) {
  const std::size_t sides = line.points.size() - (line.isClosed ? 0 : 1);
  for (std::size_t i = 0; i < sides; ++i) {
    add(cad::LineShape{line.points[i], line.points[(i + 1) % line.points.size()]});
  }
}

cad::Block MakeBlock(Symbol symbol) {
  cad::Block block;
  block.name = NameOf(symbol);
  const auto add = [&](cad::Shape shape) {
    block.entities.push_back({1, cad::kByBlock, false, cad::Origin::kUser, std::move(shape)});
  };
  for (const cad::PolylineShape& line : display::SymbolLines(symbol)) AddSides(line, add);
  if (block.entities.empty()) add(cad::PointShape{});
  block.attributes = {Attribute("NAME", display::kNamePlace),
                      Attribute("CODE", display::kCodePlace),
                      Attribute("HEIGHT", display::kHeightPlace)};
  return block;
}

}  // namespace

namespace display {

bool IsFieldBookBlock(std::string_view name) {
  return std::any_of(kNames.begin(), kNames.end(), [&](std::string_view known) {
    return platform::AreSameInAnyLetters(known, name);
  });
}

// Triangles for what a survey stands on, a square for the base of a GPS group.
std::vector<cad::PolylineShape> SymbolLines(Symbol symbol) {
  constexpr double kHalf = 0.5;
  constexpr double kBelow = 0.29;  // an equilateral triangle about its centre
  constexpr double kAbove = 0.58;
  switch (symbol) {
    case Symbol::kPoint: break;
    case Symbol::kStation:
    case Symbol::kKnownPoint:
      return {{{{-kHalf, -kBelow, 0}, {kHalf, -kBelow, 0}, {0, kAbove, 0}}, {}, true}};
    case Symbol::kGpsBase:
      return {{{{-kHalf, -kHalf, 0}, {kHalf, -kHalf, 0}, {kHalf, kHalf, 0}, {-kHalf, kHalf, 0}},
               {},
               true}};
    case Symbol::kGpsPoint:
      return {{{{-kHalf, 0, 0}, {kHalf, 0, 0}}, {}, false},
              {{{0, -kHalf, 0}, {0, kHalf, 0}}, {}, false}};
  }
  return {};
}

}  // namespace display

CDocSymbolManager::CDocSymbolManager(CTcadEng* engine) : engine_(engine) { blocks_.fill(kNotMade); }

void CDocSymbolManager::CopyUserSymbolsFrom(const CDocSymbolManager& source) {
  for (const std::string_view name : kNames) {
    const int there = source.engine_->FindBlock(name);
    if (there < 0 || engine_->FindBlock(name) >= 0) continue;
    cad::Block block = source.engine_->Blocks()[static_cast<std::size_t>(there)];
    for (cad::Entity& entity : block.entities) entity.drawing = 1;
    engine_->AddBlock(std::move(block));
  }
}

int CDocSymbolManager::BlockOf(Symbol symbol) {
  int& block = blocks_[static_cast<std::size_t>(symbol)];
  if (block == kNotMade) block = engine_->FindBlock(NameOf(symbol));
  if (block == kNotMade) block = engine_->AddBlock(MakeBlock(symbol));
  return block;
}
