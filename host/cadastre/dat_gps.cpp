#include "host/cadastre/dat_gps.h"

#include <algorithm>
#include <cmath>

#include "host/cadastre/covariance.h"
#include "host/cadastre/dat_notes.h"
#include "host/cadastre/gps_session.h"
#include "platform/numbers.h"
#include "services/translate.h"

namespace dat {
namespace {

constexpr int kLengthDecimals = 3;
constexpr std::uint8_t kOneFrequency = 1;  // a receiver type

// Where the antenna was: as it was measured, else above the ground point.
Geocentric PhaseCentre(const Geocentric& measured, Geographic ground, double antennaHeight) {
  if (measured.IsComplete()) return measured;
  IGeodesy* const geodesy = IGeodesy::Current();
  Geocentric place;
  if (geodesy == nullptr || !ground.IsComplete()) return place;
  if (IsDefined(antennaHeight)) ground.height += antennaHeight;
  geodesy->ToGeocentric(ground, place);
  return place;
}

template <class Object>
Geocentric Measured(const Object& object) {
  Geocentric place;
  object.GetGeocCeFaMis(place.x, place.y, place.z);
  return place;
}

Geocentric PlaceOf(const CPunGps& point) {
  return PhaseCentre(Measured(point), point.GetStoredPlace(), point.GetAltAnt());
}
Geocentric PlaceOf(const CGrpGps& base) {
  return PhaseCentre(Measured(base), base.GetStoredBase(), base.GetBaseAltAnt());
}

struct Measurement {
  const CPunGps* point;
  Geocentric place;
};

// "PDOP=2", empty when it is not known.
std::string PdopText(double pdop) {
  if (!IsDefined(pdop)) return {};
  std::string text = "PDOP=";
  platform::AppendFixed(text, pdop, 0);
  return text;
}

double WorstPdop(const std::vector<Measurement>& measurements) {
  double worst = UndefinedValue;
  for (const Measurement& measurement : measurements) {
    const double pdop = measurement.point->GetPdop();
    if (IsDefined(pdop)) worst = IsDefined(worst) ? std::max(worst, pdop) : pdop;
  }
  return worst;
}

class GpsWriter {
 public:
  explicit GpsWriter(DatDraft& draft) : draft_(draft) {}

  void WriteGroup(const CLibGps& library, int index) {
    const CGrpGps& group = *library.GetGrpAt(index);
    const std::vector<Measurement> measurements = Measurements(library, index);
    if (measurements.empty()) {
      ++empty_;
      return;
    }
    const Geocentric base = PlaceOf(group);
    if (!base.IsComplete()) {
      draft_.Fault(Fill(Xlate("GPS group {1}: its base has no position"), {group.GetNomeGrp()}));
      return;
    }
    WriteBase(group, base);
    WriteSession(group, measurements);
    for (const Measurement& measurement : measurements) WriteBaseline(measurement, base);
  }

  void TellLeftOut() {
    draft_.RemarkOf(unplaced_, Xlate("GPS points without a position are left out ({1})"));
    draft_.RemarkOf(empty_, Xlate("GPS groups without measurements are left out ({1})"));
    draft_.RemarkOf(withoutPdop_, Xlate("GPS points have no PDOP: its field is empty ({1})"));
  }

 private:
  std::vector<Measurement> Measurements(const CLibGps& library, int group) {
    std::vector<Measurement> measurements;
    for (int i = 0; i < library.GetPunArSize(group); ++i) {
      const CPunGps* const point = library.GetPunAt(group, i);
      const Geocentric place = PlaceOf(*point);
      if (place.IsComplete()) {
        measurements.push_back({point, place});
      } else {
        ++unplaced_;
      }
    }
    return measurements;
  }

  void WriteBase(const CGrpGps& group, const Geocentric& place) {
    if (IsNameless(group.NameUtf8())) {
      draft_.Fault(Fill(Xlate("GPS group {1}: its base has no name"), {group.GetNomeGrp()}));
    }
    DatLine(draft_, '1')
        .Surveyed(group.NameUtf8())
        .List({place.x, place.y, place.z}, kLengthDecimals)
        .Fixed(group.GetBaseAltAnt(), kLengthDecimals)
        .Note(NotesOf(group));
  }

  // A group begins at its own date, where that has a time of day.
  void WriteSession(const CGrpGps& group, const std::vector<Measurement>& measurements) {
    Session session;
    session.Take(MomentOf(group.GetData().ToUtf8()));
    for (const Measurement& measurement : measurements) {
      session.Take(MomentOf(*measurement.point));
    }
    DatLine(draft_, '6')
        .Put(group.GetTipoRicevitore() == kOneFrequency ? "L1" : "L2")
        .Put(Text(session.start))
        .Put(Text(session.end))
        .Put("RTK")
        .Put(PdopText(WorstPdop(measurements)));
  }

  void WriteBaseline(const Measurement& measurement, const Geocentric& base) {
    const CPunGps& point = *measurement.point;
    const Geocentric& place = measurement.place;
    const std::vector<double> terms = CovarianceOf(point);
    Check(point, StateOf(terms));
    if (!IsDefined(point.GetPdop())) ++withoutPdop_;
    DatLine(draft_, '2')
        .Surveyed(point.NameUtf8())
        .List({place.x - base.x, place.y - base.y, place.z - base.z}, kLengthDecimals)
        .List(terms, kCovarianceDecimals)
        .Put(PdopText(point.GetPdop()))
        .Fixed(point.GetAltAnt(), kLengthDecimals)
        .Note(NotesOf(point));
  }

  void Check(const CPunGps& point, CovarianceState state) {
    const auto tell = [&](const tdk::WString& pattern) {
      draft_.Fault(Fill(pattern, {point.GetNome()}));
    };
    if (IsNameless(point.NameUtf8())) draft_.Fault(Xlate("a GPS point has no name"));
    if (state == CovarianceState::kMissing) tell(Xlate("GPS point {1} has no covariance matrix"));
    if (state == CovarianceState::kNotPositive) {
      tell(Xlate("GPS point {1}: its covariance matrix is not positive definite"));
    }
  }

  DatDraft& draft_;
  std::uint64_t unplaced_ = 0;
  std::uint64_t empty_ = 0;
  std::uint64_t withoutPdop_ = 0;
};

}  // namespace

void WriteGps(const CLibGps& library, DatDraft& draft) {
  GpsWriter writer(draft);
  for (int group = 0; group < library.GetGrpArSize(); ++group) writer.WriteGroup(library, group);
  writer.TellLeftOut();
}

}  // namespace dat
