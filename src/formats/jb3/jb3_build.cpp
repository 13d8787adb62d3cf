#include "formats/jb3/jb3_build.h"

#include <tinyxml.h>

#include <array>
#include <cmath>

#include "formats/jb3/jb3_dates.h"
#include "formats/jb3/jb3_schema.h"
#include "platform/code_page.h"
#include "services/measure_system.h"
#include "services/number_text.h"

namespace jb3 {
namespace {

// The attribute is left out when the text is empty.
void SetUnlessEmpty(TiXmlElement& element, const char* attribute, const tdk::WString& text) {
  if (!text.IsEmpty()) SetText(element, attribute, text);
}

void SetNameAndText(TiXmlElement& element, const CEgn& object) {
  SetName(element, object.GetNome());
  SetUnlessEmpty(element, attribute::kDesc, object.GetSecScri());
}

// Empty when the value is undefined.
tdk::WString Fixed(double value, int decimals) { return StringDaDouble(value, 0, decimals); }

tdk::WString FixedOrZero(double value, int decimals) {
  tdk::WString text = Fixed(value, decimals);
  return text.IsEmpty() ? tdk::WString("0") : text;
}

void AppendPlaneCoordinates(TiXmlElement& parent, const CEgn& object) {
  const tdk::WString north = Fixed(object.GetCoordY(), kCoordinateDecimals);
  const tdk::WString east = Fixed(object.GetCoordX(), kCoordinateDecimals);
  const tdk::WString elevation = Fixed(object.GetCoordZ(), kCoordinateDecimals);
  if (north.IsEmpty() || east.IsEmpty() || elevation.IsEmpty()) return;
  TiXmlElement& place = AppendElement(parent, element::kPlaniCoords);
  SetText(place, attribute::kNorth, north);
  SetText(place, attribute::kEast, east);
  SetText(place, attribute::kElevation, elevation);
}

// Written only when all four values are there.
template <class Object>
void AppendGeocentric(TiXmlElement& parent, const Object& object, double antennaHeight) {
  Geocentric centre;
  object.GetGeocCeFaMis(centre.x, centre.y, centre.z);
  const std::array<std::pair<const char*, tdk::WString>, 4> values = {{
      {attribute::kGeocentricX, Fixed(centre.x, kCoordinateDecimals)},
      {attribute::kGeocentricY, Fixed(centre.y, kCoordinateDecimals)},
      {attribute::kGeocentricZ, Fixed(centre.z, kCoordinateDecimals)},
      {attribute::kAntennaHeight, Fixed(antennaHeight, kCoordinateDecimals)},
  }};
  for (const auto& [name, text] : values) {
    if (text.IsEmpty()) return;
  }
  TiXmlElement& geocentric = AppendElement(parent, element::kGeoCoords);
  for (const auto& [name, text] : values) SetText(geocentric, name, text);
}

void AppendRawObservation(TiXmlElement& parent, const CPun& point) {
  const tdk::WString horizontal = CMeasureSystem::GetTsAngleString(point.GetDato2());
  const tdk::WString zenith = CMeasureSystem::GetTsAngleString(point.GetDato1());
  if (horizontal.IsEmpty() || zenith.IsEmpty()) return;
  TiXmlElement& raw = AppendElement(parent, element::kRawObservation);
  SetText(raw, attribute::kTargetHeight, FixedOrZero(point.GetAltPri(), kObservationDecimals));
  SetText(raw, attribute::kHorizAngle, horizontal);
  SetText(raw, attribute::kZenithAngle, zenith);
  SetUnlessEmpty(raw, attribute::kSlopeDistance, Fixed(point.GetDato0(), kObservationDecimals));
  if (const char* word = WordOf(kTargetTypes, point.GetPrismType())) {
    raw.SetAttribute(attribute::kTargetType, word);
  }
  SetUnlessEmpty(raw, attribute::kPrismConstant,
                 Fixed(point.GetPrismOffset(), kPrismConstantDecimals));
}

// A covariance with as many decimals as it takes not to be written as zero; a blank when it is
// undefined.
tdk::WString CovarianceText(float single) {
  const double value = single;
  if (!IsDefined(value)) return " ";
  if (value == 0) return "0";
  constexpr std::array<double, 3> kLimits = {1e-5, 1e-6, 1e-7};
  int decimals = 8;
  for (const double limit : kLimits) {
    if (std::fabs(value) > limit) return Fixed(value, decimals);
    ++decimals;
  }
  constexpr int kMostDecimals = 10;
  tdk::WString text = Fixed(value, kMostDecimals);
  if (DoubleDaString(text) != 0) return text;
  return value > 0 ? "0.0000000001" : "-0.0000000001";
}

void AppendPrecision(TiXmlElement& parent, const CPunGps& point) {
  std::array<tdk::WString, kPrecisions.size()> precisions;
  for (std::size_t i = 0; i < kPrecisions.size(); ++i) {
    precisions[i] = Fixed((point.*kPrecisions[i].get)(), kPrecisionDecimals);
  }
  std::array<tdk::WString, kCovariances.size()> covariances;
  bool allCovariances = true;
  for (std::size_t i = 0; i < kCovariances.size(); ++i) {
    covariances[i] = CovarianceText((point.*kCovariances[i].get)());
    allCovariances = allCovariances && !covariances[i].IsEmpty();
  }
  const auto& [pdop, gdop, hrms, vrms] = precisions;
  const bool wanted =
      !pdop.IsEmpty() || !gdop.IsEmpty() || !hrms.IsEmpty() || (!vrms.IsEmpty() && allCovariances);
  if (!wanted) return;
  TiXmlElement& stat = AppendElement(parent, element::kGpsStat);
  for (std::size_t i = 0; i < kPrecisions.size(); ++i) {
    SetUnlessEmpty(stat, kPrecisions[i].name, precisions[i]);
  }
  if (!allCovariances) return;
  for (std::size_t i = 0; i < kCovariances.size(); ++i) {
    SetText(stat, kCovariances[i].name, covariances[i]);
  }
}

void AppendSatellites(TiXmlElement& parent, const CPunGps& point) {
  const tdk::WString gps = Fixed(point.GetNuGpsUsed(), 0);
  const tdk::WString glonass = Fixed(point.GetNuGloUsed(), 0);
  if (gps.IsEmpty() || glonass.IsEmpty()) return;
  TiXmlElement& satellites = AppendElement(parent, element::kGpsSat);
  SetText(satellites, attribute::kGpsCount, gps);
  SetText(satellites, attribute::kGlonassCount, glonass);
  satellites.SetAttribute(attribute::kGalileoCount, "0");  // the host does not count them
}

}  // namespace

TiXmlElement& AppendElement(TiXmlNode& parent, const char* name) {
  auto* const child = new TiXmlElement(name);
  parent.LinkEndChild(child);
  return *child;
}

void SetText(TiXmlElement& element, const char* attribute, const tdk::WString& text) {
  if (platform::IsAscii(text.ToUtf8()))
    return element.SetAttribute(attribute, text.ToUtf8().c_str());
  std::string bytes;
  platform::AppendCodePageFromUtf8(bytes, text.ToUtf8());
  element.SetAttribute(attribute, bytes.c_str());
}

void SetName(TiXmlElement& element, const tdk::WString& name) {
  SetText(element, attribute::kName, name.IsEmpty() ? tdk::WString(kEmptyName) : name);
}

void SetJobLabels(TiXmlElement& element, const CJob& job) {
  SetName(element, job.GetNome());
  SetUnlessEmpty(element, kJobLabels[1].name, job.GetOper());
  SetUnlessEmpty(element, kJobLabels[2].name, job.GetStrum());
  // A date that cannot be made out is written as an empty one.
  if (!job.GetData().IsEmpty()) {
    element.SetAttribute(kJobLabels[3].name, NormalisedDate(job.GetData()).c_str());
  }
}

void BuildStation(TiXmlElement& element, const CSta& station) {
  SetNameAndText(element, station);
  SetText(element, attribute::kInstrumentHeight,
          FixedOrZero(station.GetAltStr(), kInstrumentHeightDecimals));
  AppendPlaneCoordinates(element, station);
}

void BuildPoint(TiXmlElement& element, const CPun& point) {
  SetNameAndText(element, point);
  AppendRawObservation(element, point);
  AppendPlaneCoordinates(element, point);
}

void BuildGpsBase(TiXmlElement& element, const CLibGps& library, int group) {
  const CGrpGps& base = *library.GetGrpAt(group);
  const GroupSpan span = SpanOf(library, group);
  SetNameAndText(element, base);
  element.SetAttribute(attribute::kType,
                       base.GetTipoRicevitore() == 1 ? kOneFrequency : kTwoFrequencies);
  element.SetAttribute(attribute::kStartDate, span.startDate.c_str());
  element.SetAttribute(attribute::kStartTime, span.startTime.c_str());
  element.SetAttribute(attribute::kEndDate, span.endDate.c_str());
  element.SetAttribute(attribute::kEndTime, span.endTime.c_str());
  element.SetAttribute(attribute::kCorrection,
                       base.GetTipoRilievo() == 1 ? kBaseSurvey : kRealTime);
  AppendGeocentric(element, base, base.GetBaseAltAnt());
  AppendPlaneCoordinates(element, base);
}

void BuildGpsPoint(TiXmlElement& element, const CPunGps& point) {
  SetNameAndText(element, point);
  if (point.GetDay() != 0 && point.GetMonth() != 0 && point.GetYear() != 0) {
    element.SetAttribute(attribute::kDate,
                         DateText(point.GetDay(), point.GetMonth(), point.GetYear()).c_str());
  }
  if (point.GetTod() != 0) element.SetAttribute(attribute::kTime, TimeText(point.GetTod()).c_str());
  if (const char* word = WordOf(kSolutions, point.GetQua())) {
    element.SetAttribute(attribute::kSolution, word);
  }
  AppendGeocentric(element, point, point.GetAltAnt());
  AppendPrecision(element, point);
  AppendSatellites(element, point);
  AppendPlaneCoordinates(element, point);
}

void BuildKnownPoint(TiXmlElement& element, const CEgn& point, const char* type) {
  SetNameAndText(element, point);
  element.SetAttribute(attribute::kType, type);
  AppendPlaneCoordinates(element, point);
}

void Save(const TiXmlDocument& document, TextFileSink& sink) {
  TiXmlPrinter printer;
  document.Accept(&printer);
  sink.WriteBytes(printer.Str());
}

}  // namespace jb3
