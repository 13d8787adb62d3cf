#include "host/landxml/survey_reader.h"

#include <cmath>
#include <numbers>
#include <unordered_map>

#include "services/translate.h"

namespace landxml_load {
namespace {

class SetUpReader {
 public:
  SetUpReader(PointFinder& points, LoadContext& context)
      : points_(points), context_(context), library_(*context.document.GetLibCmp()) {}

  void Read(const XmlElement& survey) {
    if (survey.Child("InstrumentSetup") != nullptr) {
      context_.Added(library_.AddJob(false)).SetNome(SurveyName(survey));
    }
    for (const XmlElement& child : survey.children) {
      if (child.name == "InstrumentSetup") AddStation(child);
    }
    // Groups of observations may stand before the set-up that they name.
    for (const XmlElement& child : survey.children) {
      if (child.name == "ObservationGroup") TakeGroup(child, nullptr);
      if (child.name == "RawObservation") TakeObservation(child, nullptr, "");
    }
    Tell(firstOrphan_, orphans_, Xlate("observations that belong to no set-up are left out ({1})"));
    Tell(firstAzimuth_, azimuths_, Xlate("orientations of set-ups are not taken over ({1})"));
  }

 private:
  void Tell(std::uint64_t line, std::uint64_t count, const tdk::WString& pattern) {
    if (count != 0) context_.remarks.Add(line, Fill(pattern, {InWords(count)}));
  }

  // The slope distance and the zenith angle, or what they follow from.
  void StoreObservation(const XmlElement& observation, CPun& point) const {
    auto slope = LengthOf(observation, "slopeDistance", context_.units);
    double zenith = GonOf(observation, "zenithAngle");
    const auto across = LengthOf(observation, "horizDistance", context_.units);
    const auto up = LengthOf(observation, "vertDistance", context_.units);
    if (!slope && across && up) {
      slope = std::hypot(*across, *up);
      zenith = std::atan2(*across, *up) * (200 / std::numbers::pi);
    }
    point.SetDtIntAng(slope.value_or(UndefinedValue), zenith, GonOf(observation, "horizAngle"), 0);
  }

  void AddStation(const XmlElement& setUp) {
    CSta& station = context_.Added(library_.AddSta(library_.GetJobArSize() - 1, false));
    StorePoint(setUp.Child("InstrumentPoint"), points_, context_.units, station);
    if (const std::string* const name = setUp.Find("stationName")) station.SetNome(NameOf(*name));
    station.SetAltStr(LengthOf(setUp, "instrumentHeight", context_.units).value_or(0));
    stations_.emplace(setUp.Value("id"), &station);
    if (setUp.Find("orientationAzimuth") != nullptr && azimuths_++ == 0) firstAzimuth_ = setUp.line;
    for (const XmlElement& child : setUp.children) {
      if (child.name == "RawObservation") TakeObservation(child, &station, "");
      if (child.name == "ObservationGroup") TakeGroup(child, &station);
    }
  }

  void TakeGroup(const XmlElement& group, CSta* station) {
    for (const XmlElement& child : group.children) {
      if (child.name == "RawObservation") TakeObservation(child, station, group.Value("setupID"));
    }
  }

  // What stands inside a set-up belongs to it, whatever set-up it names.
  void TakeObservation(const XmlElement& observation, CSta* station, std::string_view groupSetUp) {
    if (station == nullptr) {
      const std::string* const own = observation.Find("setupID");
      const auto found = stations_.find(own != nullptr ? std::string_view(*own) : groupSetUp);
      if (found == stations_.end()) {
        if (orphans_++ == 0) firstOrphan_ = observation.line;
        return;
      }
      station = found->second;
    }
    CPun& point = context_.Added(library_.AddPun(station, false));
    StorePoint(observation.Child("TargetPoint"), points_, context_.units, point);
    point.SetAltPri(LengthOf(observation, "targetHeight", context_.units).value_or(0));
    StoreObservation(observation, point);
  }

  double GonOf(const XmlElement& observation, std::string_view attribute) const {
    const auto angle = NumberOf(observation, attribute);
    if (!angle) return UndefinedValue;
    return context_.isOurs ? *angle : context_.units.Gon(*angle);
  }

  PointFinder& points_;
  LoadContext& context_;
  CLibCmp& library_;
  std::unordered_map<std::string_view, CSta*> stations_;  // by the ids of their set-ups
  std::uint64_t orphans_ = 0;
  std::uint64_t firstOrphan_ = 0;
  std::uint64_t azimuths_ = 0;
  std::uint64_t firstAzimuth_ = 0;
};

// Observations without any set-up are told as such.
bool HasObservations(const XmlElement& survey) {
  return survey.Child("InstrumentSetup") != nullptr ||
         survey.Child("ObservationGroup") != nullptr || survey.Child("RawObservation") != nullptr;
}

}  // namespace

tdk::WString SurveyName(const XmlElement& survey) {
  const XmlElement* const header = survey.Child("SurveyHeader");
  return NameOf(header == nullptr ? survey.Value("desc") : header->Value("name"));
}

void StorePoint(const XmlElement* element, PointFinder& points, const Units& units, CEgn& point) {
  if (element == nullptr) return;
  const auto place = PointOf(element, units, points);
  const std::string* const name = element->Find("name");
  const std::string* const code = element->Find("code");
  point.SetNomCoord(NameOf(name != nullptr ? *name : element->Value("pntRef")),
                    NameOf(code != nullptr ? *code : element->Value("desc")),
                    place ? place->getX() : UndefinedValue, place ? place->getY() : UndefinedValue,
                    place ? place->getZ() : UndefinedValue);
}

void ReadSetUps(const XmlElement& survey, PointFinder& points, LoadContext& context) {
  if (HasObservations(survey)) SetUpReader(points, context).Read(survey);
}

void ReadSurvey(const XmlElement& survey, PointFinder& points, LoadContext& context) {
  const bool hasSetUp = HasObservations(survey);
  const bool hasPosition =
      survey.Child("GPSPosition") != nullptr || survey.Child("GPSSetup") != nullptr;
  if (!hasSetUp && !hasPosition) {
    // A job of ours may be without stations.
    if (!context.isOurs) return;
    context.Added(context.document.GetLibCmp()->AddJob(false)).SetNome(SurveyName(survey));
    return;
  }
  ReadSetUps(survey, points, context);
  ReadGpsPositions(survey, points, context);
}

}  // namespace landxml_load
