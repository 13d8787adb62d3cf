#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>
#include <unordered_map>
#include <utility>

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

void ReadQuality(const XmlElement& quality, const Units& units, CPunGps& point) {
  const std::string_view word = quality.Value("GPSSolnType");
  for (const SolutionWord& known : kSolutions) {
    if (known.word == word) point.SetQua(known.quality);
  }
  for (const CovarianceTerm& term : kCovariance) {
    if (const auto value = NumberOf(quality, term.attribute)) {
      (point.*term.set)(ToSingle(*value * units.metres * units.metres));
    }
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
    if (const XmlElement* const quality = position.Child(name)) ReadQuality(*quality, units, point);
  }
}

// Each set-up is a base with a group of its own.
class GpsReader {
 public:
  GpsReader(PointFinder& points, LoadContext& context)
      : points_(points), context_(context), library_(*context.document.GetLibGps()) {}

  void Read(const XmlElement& survey) {
    name_ = SurveyName(survey);
    for (const XmlElement& child : survey.children) {
      if (child.name == "GPSSetup") AddGroup(child);
    }
    for (const XmlElement& child : survey.children) {
      if (child.name == "GPSPosition") TakeRover(child, GroupOf(child));
    }
  }

 private:
  int NewGroup() {
    context_.Added(library_.AddGrp(false)).SetNomeGrp(name_);
    return library_.GetGrpArSize() - 1;
  }

  // The first position in a set-up is the base's own.
  void AddGroup(const XmlElement& setUp) {
    const int index = NewGroup();
    if (first_ < 0) first_ = index;
    groups_.emplace(setUp.Value("id"), index);
    ReadBase(setUp, points_, context_.units, *library_.GetGrpAt(index));
    bool isBase = true;
    for (const XmlElement& position : setUp.children) {
      if (position.name != "GPSPosition") continue;
      if (!std::exchange(isBase, false)) TakeRover(position, index);
    }
  }

  // A position that names no set-up is taken for one of the first.
  int GroupOf(const XmlElement& position) {
    const auto found = groups_.find(position.Value("setupID"));
    if (found != groups_.end()) return found->second;
    if (first_ < 0) first_ = NewGroup();
    return first_;
  }

  void TakeRover(const XmlElement& position, int group) {
    ReadRover(position, points_, context_.units, context_.Added(library_.AddPun(group, false)));
  }

  PointFinder& points_;
  LoadContext& context_;
  CLibGps& library_;
  tdk::WString name_;
  std::unordered_map<std::string_view, int> groups_;  // by the ids of set-ups
  int first_ = -1;
};

}  // namespace

void ReadGpsPositions(const XmlElement& survey, PointFinder& points, LoadContext& context) {
  GpsReader(points, context).Read(survey);
}

}  // namespace landxml_load
