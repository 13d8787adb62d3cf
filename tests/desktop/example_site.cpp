#include "tests/desktop/example_site.h"

#include <array>
#include <cmath>
#include <memory>

#include "model/gis.h"

namespace {

// A road that bends through a village: its axis, as a place and a direction by its chainage.
constexpr double kLength = 240;      // metres
constexpr double kEast = 1'684'300;  // where it begins
constexpr double kNorth = 4'852'100;

struct OnRoad {
  double x;
  double y;
  double direction;  // radians from the east, counter-clockwise
};

OnRoad At(double chainage, double aside) {
  constexpr double kStraight = 90;
  constexpr double kRadius = 140;
  const double turned = std::max(0.0, chainage - kStraight) / kRadius;
  const double direction = 0.15 + turned;
  double x = kEast + std::min(chainage, kStraight) * std::cos(0.15);
  double y = kNorth + std::min(chainage, kStraight) * std::sin(0.15);
  x += kRadius * (std::sin(direction) - std::sin(0.15));
  y += kRadius * (std::cos(0.15) - std::cos(direction));
  return {x - aside * std::sin(direction), y + aside * std::cos(direction), direction};
}

double HeightAt(double x, double y) {
  return 148 + 0.03 * (x - kEast) + 2.5 * std::sin((y - kNorth) / 40) + std::cos((x - kEast) / 30);
}

class Survey {
 public:
  explicit Survey(CLibCmp& library) : library_(library) {
    library_.AddJob(true)->SetLabels("VIA ROMA", "R. Neri", "TS-1", "2026-05-04");
  }

  void SetUp(const char* name, double chainage) {
    at_ = At(chainage, 5.5);
    station_ = library_.AddSta(0, true);
    station_->SetNomCoord(name, "nail", at_.x, at_.y, HeightAt(at_.x, at_.y));
    station_->SetAltStr(1.62);
  }
  void Sight(const char* code, double chainage, double aside) {
    constexpr double kGon = 200 / 3.14159265358979323846;
    const OnRoad place = At(chainage, aside);
    const double dx = place.x - at_.x;
    const double dy = place.y - at_.y;
    CPun& point = *library_.AddPun(station_, true);
    const double direction = std::atan2(dx, dy) * kGon;
    point.SetDtIntAng(std::hypot(dx, dy), 99.2, direction < 0 ? direction + 400 : direction, 0);
    point.SetNomCoord(tdk::WString(std::to_string(++last_)), tdk::WString(code), place.x, place.y,
                      HeightAt(place.x, place.y));
    point.SetAltPri(1.5);
  }

 private:
  CLibCmp& library_;
  CSta* station_ = nullptr;
  OnRoad at_{};
  int last_ = 100;
};

void AddTotalStation(CLibCmp& library) {
  Survey survey(library);
  constexpr std::array kNames = {"S1", "S2", "S3"};
  constexpr double kReach = kLength / kNames.size();
  for (std::size_t i = 0; i < kNames.size(); ++i) {
    const double first = kReach * static_cast<double>(i);
    survey.SetUp(kNames[i], first + kReach / 2);
    for (double along = first; along < first + kReach; along += 10) {
      survey.Sight("KERB", along, 4);
      survey.Sight("KERB", along, -4);
    }
    for (double along = first + 4; along < first + kReach; along += 16) {
      survey.Sight("TREE", along, 11 + std::fmod(along * 7, 5));
      survey.Sight("LAMP", along + 3, -6);
      survey.Sight("GROUND", along, -16 - std::fmod(along * 3, 9));
    }
  }
}

void AddKnown(CLibPnt& library) {
  library.AddGrp(true)->SetLabels("known.csv", "", "", "");
  constexpr std::array kPlaces = {std::pair{10, 24}, std::pair{130, -26}, std::pair{225, 20}};
  int number = 0;
  for (const auto& [along, aside] : kPlaces) {
    const OnRoad at = At(along, aside);
    library.AddPtn(0, true)->SetNomCoord(tdk::WString("K" + std::to_string(++number)), "pillar",
                                         at.x, at.y, HeightAt(at.x, at.y));
  }
}

// A net of triangles over all of it.
void AddTerrain(CLibDtm& library) {
  constexpr int kColumns = 23;
  constexpr int kRows = 17;
  constexpr double kSide = 12;
  CDtmPrj& model = *library.AddPrj(true);
  model.SetName("ground");
  for (int i = 0; i < kColumns * kRows; ++i) {
    const double x = kEast - 20 + kSide * (i % kColumns) + 4 * std::sin(i * 2.7);
    const double y = kNorth - 35 + kSide * (i / kColumns) + 4 * std::cos(i * 1.9);
    model.GetTris().AddTriVrt({x, y, HeightAt(x, y)});
  }
  for (int row = 0; row + 1 < kRows; ++row) {
    for (int column = 0; column + 1 < kColumns; ++column) {
      const int first = row * kColumns + column;
      model.GetTris().AddTri(first, first + 1, first + kColumns);
      model.GetTris().AddTri(first + 1, first + kColumns + 1, first + kColumns);
    }
  }
}

void AddRoad(CLibRoad& library) {
  constexpr double kStraight = 90;
  CRoad& road = *library.AddRoad(true);
  road.SetName("Via Roma");
  const OnRoad from = At(0, 0);
  const OnRoad bend = At(kStraight, 0);
  road.AddElement(std::make_unique<CLinePlaniElem>(0, tdk::geom::PNT_2D{from.x, from.y},
                                                   tdk::geom::PNT_2D{bend.x, bend.y}));
  road.AddElement(std::make_unique<CArcPlaniElem>(
      kStraight, tdk::geom::PNT_2D{bend.x, bend.y},
      tdk::geom::VECTOR_2D{std::cos(bend.direction), std::sin(bend.direction)}, 140,
      (kLength - kStraight) / 140, true));
  road.SetProgs(0, kLength);
}

// Houses beside the road, as a theme.
void AddHouses(gis::CLibGis& library) {
  auto theme = std::make_unique<gis::CTheme>("buildings", gis::EntityType::kPolygon, false, false);
  for (const auto& [along, aside] :
       {std::pair{20, -24}, {48, -26}, {80, 22}, {112, 26}, {150, -27}, {182, -25}, {205, 24}}) {
    theme->AddFeature();
    theme->AddPart();
    for (const auto& [length, width] : {std::pair{-8, -5}, {8, -5}, {8, 5}, {-8, 5}, {-8, -5}}) {
      const OnRoad corner = At(along + length, aside + width);
      theme->AddVertex({corner.x, corner.y});
    }
  }
  library.AddTheme(std::move(theme), true);
}

// Both kerbs as lines of a drawing.
void AddKerbs(CTcadEng& engine) {
  const int kerbs = engine.AddDrawing(0, "KERBS", true, false, false);
  for (const double aside : {4.0, -4.0}) {
    cad::PolylineShape line;
    for (double along = 0; along <= kLength; along += 5) {
      const OnRoad at = At(along, aside);
      line.points.push_back({at.x, at.y, HeightAt(at.x, at.y)});
    }
    engine.Add({.drawing = kerbs, .color = 6, .shape = std::move(line)});
  }
}

}  // namespace

void FillSite(HostDocument& document) {
  AddTotalStation(*document.GetLibCmp());
  AddKnown(*document.GetLibPnt());
  AddTerrain(*document.GetLibDtm());
  AddRoad(*document.GetLibRoad());
  AddHouses(*document.GetLibGis());
  AddKerbs(*document.GetCadEngine());
}
