#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>

#include "host/landxml/survey_reader.h"

namespace landxml_load {
namespace {

constexpr double kRadiansPerDegree = std::numbers::pi / 180;

double RadiansOf(const XmlElement& position, std::string_view attribute) {
  const auto degrees = NumberOf(position, attribute);
  return degrees && IsDefined(*degrees) ? *degrees * kRadiansPerDegree : UndefinedValue;
}

double HeightOf(const XmlElement& position, const Units& units) {
  return LengthOf(position, "wgsHeight", units).value_or(UndefinedValue);
}

struct SolutionWord {
  std::string_view word;
  int quality;
};
constexpr SolutionWord kSolutions[] = {{"Code", 2}, {"Float", 3}, {"Fixed", 4}};

struct CovarianceTerm {
  std::string_view attribute;
  void (CPunGps::*set)(float);
};
constexpr CovarianceTerm kCovariance[] = {
    {"covarianceXX", &CPunGps::SetPosCov_xx}, {"covarianceXY", &CPunGps::SetPosCov_xy},
    {"covarianceXZ", &CPunGps::SetPosCov_xz}, {"covarianceYY", &CPunGps::SetPosCov_yy},
    {"covarianceYZ", &CPunGps::SetPosCov_yz}, {"covarianceZZ", &CPunGps::SetPosCov_zz}};

void ReadQuality(const XmlElement& quality, CPunGps& point) {
  const std::string_view word = quality.Value("GPSSolnType");
  for (const SolutionWord& known : kSolutions) {
    if (known.word == word) point.SetQua(known.quality);
  }
  for (const CovarianceTerm& term : kCovariance) {
    if (const auto value = NumberOf(quality, term.attribute)) (point.*term.set)(ToSingle(*value));
  }
  constexpr double kMost = std::numeric_limits<std::uint8_t>::max();
  const double satellites = NumberOf(quality, "nbrSatellites").value_or(0);
  point.SetNuGpsUsed(static_cast<std::uint8_t>(std::clamp(std::round(satellites), 0.0, kMost)));
}

void ReadBase(const XmlElement& setUp, PointFinder& points, const Units& units, CGrpGps& group) {
  if (const XmlElement* const position = setUp.Child("GPSPosition")) {
    StorePoint(position->Child("TargetPoint"), points, units, group);
    group.SetBaseLat(RadiansOf(*position, "wgsLatitude"));
    group.SetBaseLong(RadiansOf(*position, "wgsLongitude"));
    group.SetBaseElev(HeightOf(*position, units));
  }
  group.SetNome(NameOf(setUp.Value("stationName")));
  group.SetBaseAltAnt(LengthOf(setUp, "antennaHeight", units).value_or(0));
}

void ReadRover(const XmlElement& position, PointFinder& points, const Units& units,
               CPunGps& point) {
  StorePoint(position.Child("TargetPoint"), points, units, point);
  point.SetLat(RadiansOf(position, "wgsLatitude"));
  point.SetLong(RadiansOf(position, "wgsLongitude"));
  point.SetElev(HeightOf(position, units));
  for (const char* const name : {"GPSQCInfoLevel1", "GPSQCInfoLevel2"}) {
    if (const XmlElement* const quality = position.Child(name)) ReadQuality(*quality, point);
  }
}

}  // namespace

// Positions may stand in the set-up that they were measured from; its first is the base's own.
void ReadGpsPositions(const XmlElement& survey, PointFinder& points, LoadContext& context) {
  const XmlElement* const base = survey.Child("GPSSetup");
  if (base == nullptr && survey.Child("GPSPosition") == nullptr) return;
  CLibGps& library = *context.document.GetLibGps();
  CGrpGps& group = context.Added(library.AddGrp(false));
  const int index = library.GetGrpArSize() - 1;
  group.SetNomeGrp(SurveyName(survey));
  if (base != nullptr) ReadBase(*base, points, context.units, group);
  const auto take = [&](const XmlElement& position) {
    ReadRover(position, points, context.units, context.Added(library.AddPun(index, false)));
  };
  for (const XmlElement& child : survey.children) {
    if (child.name == "GPSPosition") take(child);
    if (child.name != "GPSSetup") continue;
    bool isBase = &child == base;
    for (const XmlElement& position : child.children) {
      if (position.name != "GPSPosition") continue;
      if (!std::exchange(isBase, false)) take(position);
    }
  }
}

}  // namespace landxml_load
