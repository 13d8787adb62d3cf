// Elements, attributes and words of JB3 documents: reader and writer share them, so that they
// cannot drift.
//
//   JB3
//     Application
//     Job (total station)     Station: PlaniCoords, Pnts: Pnt: RawObservation, PlaniCoords
//     Job (GPS)               GpsBase: GeoCoords, PlaniCoords, GpsPnts: GpsPnt: GeoCoords, GpsStat,
//     GpsSat, PlaniCoords KnownPoints             KnownPoint: PlaniCoords
//
// All values are attributes. Attributes stand here in the order in which they are written.
#pragma once

#include <array>
#include <string_view>

#include "model/gps.h"
#include "model/total_station.h"

namespace jb3 {

namespace element {
inline constexpr char kRoot[] = "JB3";
inline constexpr char kApplication[] = "Application";
inline constexpr char kJob[] = "Job";
inline constexpr char kStation[] = "Station";
inline constexpr char kPoints[] = "Pnts";
inline constexpr char kPoint[] = "Pnt";
inline constexpr char kRawObservation[] = "RawObservation";
inline constexpr char kGpsBase[] = "GpsBase";
inline constexpr char kGpsPoints[] = "GpsPnts";
inline constexpr char kGpsPoint[] = "GpsPnt";
inline constexpr char kGeoCoords[] = "GeoCoords";
inline constexpr char kGpsStat[] = "GpsStat";
inline constexpr char kGpsSat[] = "GpsSat";
inline constexpr char kPlaniCoords[] = "PlaniCoords";
inline constexpr char kKnownPoints[] = "KnownPoints";
inline constexpr char kKnownPoint[] = "KnownPoint";
}  // namespace element

namespace attribute {
// Of every point-like element.
inline constexpr char kName[] = "name";
inline constexpr char kDesc[] = "desc";

// Application.
inline constexpr char kVersion[] = "version";
inline constexpr char kManufacturer[] = "manufacturer";
inline constexpr char kManufacturerUrl[] = "manufacturerURL";

// Station.
inline constexpr char kInstrumentHeight[] = "instrument_height";

// RawObservation.
inline constexpr char kTargetHeight[] = "target_height";
inline constexpr char kHorizAngle[] = "horiz_angle";
inline constexpr char kZenithAngle[] = "zenit_angle";
inline constexpr char kSlopeDistance[] = "slope_distance";
inline constexpr char kTargetType[] = "target_type";
inline constexpr char kPrismConstant[] = "prism_constant";

// GpsBase.
inline constexpr char kType[] = "type";
inline constexpr char kStartDate[] = "start_date";
inline constexpr char kStartTime[] = "start_time";
inline constexpr char kEndDate[] = "end_date";
inline constexpr char kEndTime[] = "end_time";
inline constexpr char kCorrection[] = "correction";

// GpsPnt.
inline constexpr char kDate[] = "date";
inline constexpr char kTime[] = "time";
inline constexpr char kSolution[] = "solution";

// GeoCoords.
inline constexpr char kGeocentricX[] = "cfx";
inline constexpr char kGeocentricY[] = "cfy";
inline constexpr char kGeocentricZ[] = "cfz";
inline constexpr char kAntennaHeight[] = "antenna_height";

// GpsSat.
inline constexpr char kGpsCount[] = "no_gps";
inline constexpr char kGlonassCount[] = "no_glonass";
inline constexpr char kGalileoCount[] = "no_galileo";

// PlaniCoords: host Y, X and Z.
inline constexpr char kNorth[] = "north";
inline constexpr char kEast[] = "east";
inline constexpr char kElevation[] = "elevation";
}  // namespace attribute

// Decimals of the numbers; all lengths in metres.
inline constexpr int kCoordinateDecimals = 3;
inline constexpr int kPrecisionDecimals = 3;
inline constexpr int kInstrumentHeightDecimals = 3;
inline constexpr int kObservationDecimals = 4;  // prism height and slope distance
inline constexpr int kPrismConstantDecimals = 3;

// A name that is empty is written as this word, and read back so.
inline constexpr char kEmptyName[] = "empty";
inline constexpr char kGpsJobName[] = "GPS";
inline constexpr char kGenericPoint[] = "generic";
inline constexpr char kControlPoint[] = "ctrl";

// Receiver type 1 is "L1"; survey type 1 is "BAS". All others share the second word.
inline constexpr char kOneFrequency[] = "L1";
inline constexpr char kTwoFrequencies[] = "L2";
inline constexpr char kBaseSurvey[] = "BAS";
inline constexpr char kRealTime[] = "RTK";

/// A label of a total-station job. "time" is known to readers too, but has no place in the host.
struct JobLabel {
  const char* name;
  tdk::WString (CJob::*get)() const;
  void (CJob::*set)(const tdk::WString&);
};
inline constexpr std::array<JobLabel, 4> kJobLabels = {{
    {"name", &CJob::GetNome, &CJob::SetNome},
    {"operator", &CJob::GetOper, &CJob::SetOper},
    {"instrument", &CJob::GetStrum, &CJob::SetStrum},
    {"date", &CJob::GetData, &CJob::SetData},
}};

/// Precision of a GPS point.
struct Precision {
  const char* name;
  double (CPunGps::*get)() const;
  void (CPunGps::*set)(double);
};
inline constexpr std::array<Precision, 4> kPrecisions = {{
    {"pdop", &CPunGps::GetPdop, &CPunGps::SetPdop},
    {"gdop", &CPunGps::GetGdop, &CPunGps::SetGdop},
    {"hrms", &CPunGps::GetHposRms, &CPunGps::SetHposRms},
    {"vrms", &CPunGps::GetVposRms, &CPunGps::SetVposRms},
}};

struct CovarianceTerm {
  const char* name;
  float (CPunGps::*get)() const;
  void (CPunGps::*set)(float);
};
inline constexpr std::array<CovarianceTerm, 6> kCovariances = {{
    {"qxx", &CPunGps::GetPosCov_xx, &CPunGps::SetPosCov_xx},
    {"qxy", &CPunGps::GetPosCov_xy, &CPunGps::SetPosCov_xy},
    {"qxz", &CPunGps::GetPosCov_xz, &CPunGps::SetPosCov_xz},
    {"qyy", &CPunGps::GetPosCov_yy, &CPunGps::SetPosCov_yy},
    {"qyz", &CPunGps::GetPosCov_yz, &CPunGps::SetPosCov_yz},
    {"qzz", &CPunGps::GetPosCov_zz, &CPunGps::SetPosCov_zz},
}};

/// A code of the host and its word in the file. Where two codes share a word, or two words a code,
/// `written` and `read` say which way a row goes; these rows are part of the format.
struct CodeWord {
  int code;
  const char* word;
  bool written = true;
  bool read = true;
};

inline constexpr std::array<CodeWord, 7> kTargetTypes = {{
    {0, "", /*written=*/false},
    {1, "Prism"},
    {2, "360 Prism"},
    {3, "Reflectorless"},
    {4, "Reflectorless", /*written=*/true, /*read=*/false},
    {5, "Sheet"},
    {6, "SMR"},
}};

inline constexpr std::array<CodeWord, 7> kSolutions = {{
    {-1, "calc"},
    {0, "no sol", /*written=*/false},
    {0, "autonomous", /*written=*/true, /*read=*/false},
    {1, "autonomous"},
    {2, "code"},
    {3, "float"},
    {4, "fixed"},
}};

/// The word to write for a code; null when the attribute is left out.
template <class Table>
constexpr const char* WordOf(const Table& table, long long code) {
  for (const CodeWord& row : table) {
    if (row.written && row.code == code) return row.word;
  }
  return nullptr;
}

/// The row whose word was read; null when there is none.
template <class Table>
constexpr const CodeWord* RowOf(const Table& table, std::string_view word) {
  for (const CodeWord& row : table) {
    if (row.read && row.word == word) return &row;
  }
  return nullptr;
}

}  // namespace jb3
