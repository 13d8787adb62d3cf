// What is stored of each object of a job: plain records, the table of their fields, and the way
// from and to the host's objects. Units are those of the objects; the initial values are what a
// field that is left out means.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <tuple>

#include "host/document/host_document.h"
#include "host/store/fields.h"

inline constexpr std::array<std::string_view, 3> kAxes = {"x", "y", "z"};
inline constexpr std::array<std::string_view, 6> kCovarianceTerms = {"xx", "xy", "xz",
                                                                     "yy", "yz", "zz"};
inline constexpr std::array<std::string_view, 4> kLabelNames = {"a", "b", "c", "d"};
inline constexpr std::array<std::string_view, 2> kStationIndices = {"job", "station"};

/// Known points and control records, and the beginning of all other points.
struct PointRecord {
  std::string name;
  std::string desc2;
  std::string desc3;
  double x = UndefinedValue;
  double y = UndefinedValue;
  double z = UndefinedValue;

  static constexpr auto Fields() {
    using R = PointRecord;
    return std::tuple{Field{"name", &R::name}, Field{"desc2", &R::desc2}, Field{"desc3", &R::desc3},
                      Field{"x", &R::x},       Field{"y", &R::y},         Field{"z", &R::z}};
  }
};

struct JobRecord {
  std::string name;
  std::string operatorName;
  std::string instrument;
  std::string date;
  int targetDrawing = 0;

  static constexpr auto Fields() {
    using R = JobRecord;
    return std::tuple{Field{"name", &R::name}, Field{"operator", &R::operatorName},
                      Field{"instrument", &R::instrument}, Field{"date", &R::date},
                      Field{"targetDrawing", &R::targetDrawing}};
  }
};

struct StationRecord : PointRecord {
  std::string iden;
  double instrumentHeight = 0;
  double temperature = 0;
  double pressure = 0;

  static constexpr auto Fields() {
    using R = StationRecord;
    return std::tuple_cat(
        PointRecord::Fields(),
        std::tuple{Field{"iden", &R::iden}, Field{"instrumentHeight", &R::instrumentHeight},
                   Field{"temperature", &R::temperature}, Field{"pressure", &R::pressure}});
  }
};

/// A point observed from a station.
struct ObservationRecord : PointRecord {
  double slopeDistance = UndefinedValue;
  double zenith = UndefinedValue;
  double horizontal = UndefinedValue;
  double prismHeight = 0;
  std::uint64_t dateTime = 0;
  std::uint32_t prismType = 0;
  double prismOffset = 0;
  bool code3D = false;
  bool codedNP = false;

  static constexpr auto Fields() {
    using R = ObservationRecord;
    return std::tuple_cat(
        PointRecord::Fields(),
        std::tuple{Field{"slopeDistance", &R::slopeDistance}, Field{"zenith", &R::zenith},
                   Field{"horizontal", &R::horizontal}, Field{"prismHeight", &R::prismHeight},
                   Field{"dateTime", &R::dateTime}, Field{"prismType", &R::prismType},
                   Field{"prismOffset", &R::prismOffset}, Field{"code3D", &R::code3D},
                   Field{"codedNP", &R::codedNP}});
  }
};

using GeocentricRecord = std::array<double, 3>;
inline constexpr GeocentricRecord kNoGeocentric = {UndefinedValue, UndefinedValue, UndefinedValue};
using CovarianceRecord = std::array<float, 6>;
inline constexpr CovarianceRecord kNoCovariance = {UndefinedFloat, UndefinedFloat, UndefinedFloat,
                                                   UndefinedFloat, UndefinedFloat, UndefinedFloat};

struct GpsGroupRecord : PointRecord {
  std::string groupName;
  std::string date;
  double baseLat = UndefinedValue;
  double baseLong = UndefinedValue;
  double baseElev = UndefinedValue;
  double baseAntennaHeight = 0;
  GeocentricRecord geocentric = kNoGeocentric;
  std::uint8_t receiverType = 0;
  std::uint8_t surveyType = 0;
  std::string crs;
  int targetDrawing = 0;

  static constexpr auto Fields() {
    using R = GpsGroupRecord;
    return std::tuple_cat(
        PointRecord::Fields(),
        std::tuple{Field{"groupName", &R::groupName}, Field{"date", &R::date},
                   Field{"baseLat", &R::baseLat}, Field{"baseLong", &R::baseLong},
                   Field{"baseElev", &R::baseElev},
                   Field{"baseAntennaHeight", &R::baseAntennaHeight},
                   Field{"geocentric", &R::geocentric, kAxes},
                   Field{"receiverType", &R::receiverType}, Field{"surveyType", &R::surveyType},
                   Field{"crs", &R::crs}, Field{"targetDrawing", &R::targetDrawing}});
  }
};

struct GpsPointRecord : PointRecord {
  double lat = UndefinedValue;
  double lon = UndefinedValue;
  double elev = UndefinedValue;
  double antennaHeight = 0;
  double gdop = UndefinedValue;
  double pdop = UndefinedValue;
  double hrms = UndefinedValue;
  double vrms = UndefinedValue;
  CovarianceRecord cov = kNoCovariance;
  std::uint8_t gpsUsed = 0;
  std::uint8_t glonassUsed = 0;
  std::uint16_t year = 0;
  std::uint8_t month = 0;
  std::uint8_t day = 0;
  std::uint32_t tod = 0;
  std::int32_t quality = 0;
  GeocentricRecord geocentric = kNoGeocentric;
  bool codedNP = false;

  static constexpr auto Fields() {
    using R = GpsPointRecord;
    return std::tuple_cat(
        PointRecord::Fields(),
        std::tuple{Field{"lat", &R::lat}, Field{"long", &R::lon}, Field{"elev", &R::elev},
                   Field{"antennaHeight", &R::antennaHeight}, Field{"gdop", &R::gdop},
                   Field{"pdop", &R::pdop}, Field{"hrms", &R::hrms}, Field{"vrms", &R::vrms},
                   Field{"cov", &R::cov, kCovarianceTerms}, Field{"gpsUsed", &R::gpsUsed},
                   Field{"glonassUsed", &R::glonassUsed}, Field{"year", &R::year},
                   Field{"month", &R::month}, Field{"day", &R::day}, Field{"tod", &R::tod},
                   Field{"quality", &R::quality}, Field{"geocentric", &R::geocentric, kAxes},
                   Field{"codedNP", &R::codedNP}});
  }
};

struct KnownGroupRecord {
  std::array<std::string, 4> labels;
  int targetDrawing = 0;

  static constexpr auto Fields() {
    using R = KnownGroupRecord;
    return std::tuple{Field{"labels", &R::labels, kLabelNames},
                      Field{"targetDrawing", &R::targetDrawing}};
  }
};

/// The target drawings of the libraries themselves.
struct TargetsRecord {
  int cmp = 0;
  int gps = 0;
  int pnt = 0;
  int cts = 0;
  int gis = 0;
  int profile = 0;

  static constexpr auto Fields() {
    using R = TargetsRecord;
    return std::tuple{Field{"cmp", &R::cmp}, Field{"gps", &R::gps}, Field{"pnt", &R::pnt},
                      Field{"cts", &R::cts}, Field{"gis", &R::gis}, Field{"profile", &R::profile}};
  }
};

/// Where the user works; kNone: nowhere.
struct CurrentRecord {
  static constexpr int kNone = -1;
  std::array<int, 2> station = {kNone, kNone};
  int gpsGroup = kNone;

  static constexpr auto Fields() {
    using R = CurrentRecord;
    return std::tuple{Field{"station", &R::station, kStationIndices},
                      Field{"gpsGroup", &R::gpsGroup}};
  }
};

JobRecord RecordOf(const CJob& job);
StationRecord RecordOf(const CSta& station);
ObservationRecord RecordOf(const CPun& point);
GpsGroupRecord RecordOf(const CGrpGps& group);
GpsPointRecord RecordOf(const CPunGps& point);
KnownGroupRecord RecordOf(const CGrpPnt& group);
PointRecord RecordOf(const CEgn& point);
TargetsRecord TargetsOf(HostDocument& document);
CurrentRecord CurrentOf(HostDocument& document);

void Store(const JobRecord& record, CJob& job);
void Store(const StationRecord& record, CSta& station);
void Store(const ObservationRecord& record, CPun& point);
void Store(const GpsGroupRecord& record, CGrpGps& group);
void Store(const GpsPointRecord& record, CPunGps& point);
void Store(const KnownGroupRecord& record, CGrpPnt& group);
void Store(const PointRecord& record, CEgn& point);
void Store(const TargetsRecord& record, HostDocument& document);

/// Makes a station (job and station index) or a GPS group the one the user works in. False when
/// there is none such.
bool SelectStation(const std::array<int, 2>& indices, HostDocument& document);
bool SelectGpsGroup(int index, HostDocument& document);

/// How many points of all kinds, control records, vertices and triangles of terrain, features
/// of themes and entities of the drawing included, the document holds: what takes the time when it
/// is written.
std::uint64_t CountRecords(HostDocument& document);
