#include "formats/jb3/jb3_elements.h"

#include <tinyxml.h>

#include <algorithm>
#include <optional>

#include "formats/jb3/jb3_schema.h"
#include "platform/numbers.h"
#include "services/measure_system.h"
#include "services/number_text.h"

namespace jb3 {
namespace {

// One attribute: its name and its text in the system's code page.
struct Attribute {
  std::string_view name;
  std::string_view value;

  tdk::WString Text() const { return tdk::ConvertString(value, 0); }
  double Number() const { return DoubleDaCString(value); }
  std::int64_t Whole() const { return platform::ParseWholePrefix(value).value_or(0); }
};

// Calls `take` once for each attribute, in the file's order.
template <class Take>
void ForEachAttribute(const TiXmlElement& element, Take take) {
  for (const TiXmlAttribute* each = element.FirstAttribute(); each != nullptr;
       each = each->Next()) {
    take(Attribute{each->NameTStr(), each->ValueStr()});
  }
}

// Name and description; true when the attribute was one of them.
bool TakeNameOrText(const Attribute& read, CEgn& object) {
  if (read.name == attribute::kName) {
    object.SetNome(read.Text());
  } else if (read.name == attribute::kDesc) {
    object.SetSecScri(read.Text());
  } else {
    return false;
  }
  return true;
}

template <class Table>
auto RowNamed(const Table& table, std::string_view name) {
  return std::find_if(table.begin(), table.end(),
                      [name](const auto& row) { return row.name == name; });
}

// The text before and after the first `divider`, which must not stand first.
struct Halves {
  std::string_view before;
  std::string_view after;
};

std::optional<Halves> Split(std::string_view text, char divider) {
  const std::size_t at = text.find(divider);
  if (at == std::string_view::npos || at == 0) return std::nullopt;
  return Halves{text.substr(0, at), text.substr(at + 1)};
}

// Day, month and year; without both dividers nothing is set.
void TakeDate(std::string_view text, CPunGps& point) {
  const auto day = Split(text, '-');
  const auto month = day ? Split(day->after, '-') : std::nullopt;
  if (!month) return;
  const auto number = [](std::string_view part) { return ShortDaString32000(tdk::WString(part)); };
  point.SetDay(static_cast<std::uint8_t>(number(day->before)));
  point.SetMonth(static_cast<std::uint8_t>(number(month->before)));
  point.SetYear(static_cast<std::uint16_t>(number(month->after)));
}

// Hours, minutes and, where they are, seconds, into milliseconds.
void TakeTime(std::string_view text, CPunGps& point) {
  const auto hours = Split(text, ':');
  if (!hours) return;
  const auto minutes = Split(hours->after, ':').value_or(Halves{hours->after, "0"});
  const auto number = [](std::string_view part) {
    return static_cast<std::uint32_t>(platform::ParseWholePrefix(part).value_or(0));
  };
  point.SetTod(
      (number(minutes.after) + number(minutes.before) * 60U + number(hours->before) * 3600U) *
      1000U);
}

// The geocentric coordinates; the antenna height goes to the object at once. All three are handed
// over, whatever the file has.
template <class Object, class SetAntenna>
void TakeGeocentric(const TiXmlElement& element, Object& object, SetAntenna setAntenna) {
  Geocentric centre;
  ForEachAttribute(element, [&](const Attribute& read) {
    if (read.name == attribute::kGeocentricX) centre.x = read.Number();
    if (read.name == attribute::kGeocentricY) centre.y = read.Number();
    if (read.name == attribute::kGeocentricZ) centre.z = read.Number();
    if (read.name == attribute::kAntennaHeight) (object.*setAntenna)(read.Number());
  });
  object.SetGeocCeFaMis(centre.x, centre.y, centre.z);
}

}  // namespace

void PlaneCoordinates::ApplyTo(CEgn& object) const {
  if (!IsDefined(north) || !IsDefined(east) || !IsDefined(elevation)) return;
  object.SetCoord(east, north, elevation);
  object.CalcolaValiditaXYZ();
}

PlaneCoordinates ReadPlaneCoordinates(const TiXmlElement& element, PlaneCoordinates before) {
  ForEachAttribute(element, [&](const Attribute& read) {
    if (read.name == attribute::kNorth) before.north = read.Number();
    if (read.name == attribute::kEast) before.east = read.Number();
    if (read.name == attribute::kElevation) before.elevation = read.Number();
  });
  return before;
}

void KnownPointValues::ApplyTo(CEgn& object) const {
  if (name != nullptr) object.SetNome(tdk::ConvertString(name, 0));
  if (desc != nullptr) object.SetSecScri(tdk::ConvertString(desc, 0));
  place.ApplyTo(object);
}

KnownPointValues ReadKnownPointValues(const TiXmlElement& element) {
  KnownPointValues values;
  ForEachAttribute(element, [&](const Attribute& read) {
    if (read.name == attribute::kType) values.type = read.value;
    if (read.name == attribute::kName) values.name = read.value.data();
    if (read.name == attribute::kDesc) values.desc = read.value.data();
  });
  for (const TiXmlElement* child = element.FirstChildElement(element::kPlaniCoords);
       child != nullptr; child = child->NextSiblingElement(element::kPlaniCoords)) {
    values.place = ReadPlaneCoordinates(*child, values.place);
  }
  return values;
}

tdk::WString KnownGroupName(int number) {
  return tdk::WString("Grp") + StringDaDoubleConZeri(number, 2);
}

void ReadJobLabels(const TiXmlElement& element, CJob& job) {
  ForEachAttribute(element, [&](const Attribute& read) {
    const auto label = RowNamed(kJobLabels, read.name);
    if (label != kJobLabels.end()) (job.*label->set)(read.Text());
  });
}

void ReadNameAndText(const TiXmlElement& element, CEgn& object) {
  ForEachAttribute(element, [&](const Attribute& read) { TakeNameOrText(read, object); });
}

void ReadStationValues(const TiXmlElement& element, CSta& station) {
  ForEachAttribute(element, [&](const Attribute& read) {
    if (TakeNameOrText(read, station)) return;
    if (read.name == attribute::kInstrumentHeight) station.SetAltStr(read.Number());
  });
}

void ReadRawObservation(const TiXmlElement& element, CPun& point) {
  double distance = UndefinedValue;
  double zenith = UndefinedValue;
  double horizontal = UndefinedValue;
  ForEachAttribute(element, [&](const Attribute& read) {
    if (read.name == attribute::kTargetHeight) {
      point.SetAltPri(read.Number());
    } else if (read.name == attribute::kHorizAngle) {
      horizontal = CMeasureSystem::GetTsAngleValueCent(read.Text());
    } else if (read.name == attribute::kZenithAngle) {
      zenith = CMeasureSystem::GetTsAngleValueCent(read.Text());
      point.SetCode3D(true);
    } else if (read.name == attribute::kSlopeDistance) {
      distance = read.Number();
    } else if (read.name == attribute::kTargetType) {
      const CodeWord* const row = RowOf(kTargetTypes, read.value);
      if (row != nullptr) point.SetPrismType(static_cast<unsigned>(row->code));
    } else if (read.name == attribute::kPrismConstant) {
      point.SetPrismOffset(read.Number());
    }
  });
  point.SetDtIntAng(distance, zenith, horizontal, 0);
}

void ReadGpsBaseValues(const TiXmlElement& element, CGrpGps& group) {
  ForEachAttribute(element, [&](const Attribute& read) {
    if (read.name == attribute::kName) group.SetNomeGrp(read.Text());
    if (TakeNameOrText(read, group)) return;
    if (read.name == attribute::kType) group.SetTipoRicevitore(read.value == kOneFrequency ? 1 : 2);
    if (read.name == attribute::kStartDate) group.SetData(read.Text());
    // Whatever the value: what a base was is not taken back from a file.
    if (read.name == attribute::kCorrection) group.SetTipoRilievo(2);
  });
}

void ReadGpsPointValues(const TiXmlElement& element, CPunGps& point) {
  ForEachAttribute(element, [&](const Attribute& read) {
    if (TakeNameOrText(read, point)) return;
    if (read.name == attribute::kDate) TakeDate(read.value, point);
    if (read.name == attribute::kTime) TakeTime(read.value, point);
    if (read.name != attribute::kSolution) return;
    const CodeWord* const row = RowOf(kSolutions, read.value);
    if (row != nullptr) point.SetQua(row->code);
  });
}

void ReadGeocentric(const TiXmlElement& element, CGrpGps& group) {
  TakeGeocentric(element, group, &CGrpGps::SetBaseAltAnt);
}

void ReadGeocentric(const TiXmlElement& element, CPunGps& point) {
  TakeGeocentric(element, point, &CPunGps::SetAltAnt);
}

void ReadPrecision(const TiXmlElement& element, CPunGps& point) {
  ForEachAttribute(element, [&](const Attribute& read) {
    const auto precision = RowNamed(kPrecisions, read.name);
    if (precision != kPrecisions.end()) return (point.*precision->set)(read.Number());
    const auto term = RowNamed(kCovariances, read.name);
    if (term != kCovariances.end()) (point.*term->set)(ToSingle(read.Number()));
  });
}

void ReadSatellites(const TiXmlElement& element, CPunGps& point) {
  ForEachAttribute(element, [&](const Attribute& read) {
    if (read.name == attribute::kGpsCount)
      point.SetNuGpsUsed(static_cast<std::uint8_t>(read.Whole()));
    if (read.name == attribute::kGlonassCount) {
      point.SetNuGloUsed(static_cast<std::uint8_t>(read.Whole()));
    }
  });
}

}  // namespace jb3
