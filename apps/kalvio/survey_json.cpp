#include "survey_json.h"

#include <nlohmann/json.hpp>

namespace {

using Json = nlohmann::ordered_json;
using survey::JobResult;
using survey::SetUpResult;
using survey::TargetResidual;

Json Value(double value) { return IsDefined(value) ? Json(value) : Json(nullptr); }

// Words that stay as they are in every language.
const char* Word(survey::SetUpMethod method) {
  using enum survey::SetUpMethod;
  switch (method) {
    case kKept: return "kept";
    case kKnown: return "known";
    case kSighted: return "sighted";
    case kResected: return "resected";
    case kAssumed: return "assumed";
    case kNone: break;
  }
  return "none";
}

Json Word(survey::SetUpTrouble trouble) {
  using enum survey::SetUpTrouble;
  switch (trouble) {
    case kNotTied: return "not-tied";
    case kTooFewSights: return "too-few-sights";
    case kUndetermined: return "undetermined";
    case kDoesNotFit: return "does-not-fit";
    case kNoOrientation: return "no-orientation";
    case kNone: break;
  }
  return nullptr;
}

const char* Word(survey::PointTrouble trouble) {
  using enum survey::PointTrouble;
  switch (trouble) {
    case kStation: return "station";
    case kNoDistance: return "no-distance";
    case kNoAngle: break;
  }
  return "no-angle";
}

const char* Word(NoPlane why) {
  using enum NoPlane;
  switch (why) {
    case kNoSystem: return "no-crs";
    case kUnknownSystem: return "unknown-crs";
    case kNoPosition: return "no-position";
    case kOutside: break;
  }
  return "outside-crs";
}

Json StandsOut(const TargetResidual& it) {
  Json list = Json::array();
  if (it.directionStandsOut) list.push_back("direction");
  if (it.alongStandsOut) list.push_back("along");
  if (it.heightStandsOut) list.push_back("height");
  return list;
}

Json ResidualJson(const TargetResidual& it) {
  return {{"target", it.name},         {"direction", it.direction},  {"across", it.across},
          {"along", Value(it.along)},  {"height", Value(it.height)}, {"used", it.isUsed},
          {"standsOut", StandsOut(it)}};
}

Json SetUpJson(const SetUpResult& it) {
  Json residuals = Json::array();
  for (const TargetResidual& residual : it.residuals) residuals.push_back(ResidualJson(residual));
  return {{"name", it.name},
          {"method", Word(it.method)},
          {"trouble", Word(it.trouble)},
          {"x", Value(it.mark.x)},
          {"y", Value(it.mark.y)},
          {"z", Value(it.mark.z)},
          {"orientation", Value(it.orientation)},
          {"orientationSpread", it.orientationSpread},
          {"markSigma", it.markSigma},
          {"placed", it.placed},
          {"kept", it.kept},
          {"residuals", std::move(residuals)}};
}

Json JobJson(const CLibCmp& library, const JobResult& job) {
  Json stations = Json::array();
  for (const SetUpResult& it : job.setUps) stations.push_back(SetUpJson(it));
  Json repeated = Json::array();
  for (const survey::RepeatedPoint& it : job.repeated) {
    repeated.push_back({{"name", it.name},
                        {"sights", it.sights},
                        {"spread", it.spread},
                        {"heightSpread", it.heightSpread},
                        {"averaged", it.isAveraged}});
  }
  Json missing = Json::array();
  for (const survey::MissingPoint& it : job.missing) {
    missing.push_back({{"station", it.station},
                       {"point", it.point},
                       {"name", library.GetPunAt(job.job, it.station, it.point)->NameUtf8()},
                       {"reason", Word(it.trouble)}});
  }
  return {{"name", job.name},
          {"assumed", job.isAssumed},
          {"stations", std::move(stations)},
          {"repeated", std::move(repeated)},
          {"missing", std::move(missing)}};
}

Json GpsJson(const CLibGps& library, const GroupPositions& it) {
  Json missing = Json::array();
  for (const GroupPositions::Missing& point : it.missing) {
    missing.push_back({{"point", point.point},
                       {"name", library.GetPunAt(it.group, point.point)->NameUtf8()},
                       {"reason", Word(point.why)}});
  }
  return {{"groupName", library.GetGrpAt(it.group)->GetNomeGrp().ToUtf8()},
          {"withPlane", it.withPlane},
          {"missing", std::move(missing)}};
}

}  // namespace

std::string SurveyJson(HostDocument& document, const ComputationReport& report) {
  Json jobs = Json::array();
  for (const JobResult& job : report.survey.jobs) {
    jobs.push_back(JobJson(*document.GetLibCmp(), job));
  }
  Json gps = Json::array();
  for (const GroupPositions& it : report.gps) gps.push_back(GpsJson(*document.GetLibGps(), it));
  Json clashes = Json::array();
  for (const survey::KnownClash& it : report.survey.clashes) {
    clashes.push_back({{"name", it.name},
                       {"used", {Value(it.used.x), Value(it.used.y), Value(it.used.z)}},
                       {"other", {Value(it.other.x), Value(it.other.y), Value(it.other.z)}}});
  }
  const Json whole = {{"jobs", std::move(jobs)},
                      {"gpsGroups", std::move(gps)},
                      {"knownClashes", std::move(clashes)}};
  return whole.dump(1, ' ', false, Json::error_handler_t::replace) + "\n";
}
