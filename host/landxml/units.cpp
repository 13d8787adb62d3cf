#include "host/landxml/units.h"

#include <strings.h>

#include <algorithm>
#include <cmath>
#include <numbers>

#include "services/translate.h"

namespace landxml_load {
namespace {

struct LinearUnit {
  std::string_view name;
  double metres;
};
constexpr double kFoot = 0.3048;
constexpr LinearUnit kLinearUnits[] = {{"meter", 1},
                                       {"meters", 1},
                                       {"feet", kFoot},
                                       {"USFoot", 1200.0 / 3937},
                                       {"metre", 1},
                                       {"millimeter", 0.001},
                                       {"centimeter", 0.01},
                                       {"decimeter", 0.1},
                                       {"kilometer", 1000},
                                       {"foot", kFoot},
                                       {"USSurveyFoot", 1200.0 / 3937},
                                       {"inch", kFoot / 12},
                                       {"yard", kFoot * 3},
                                       {"mile", kFoot * 5280}};

struct NamedAngle {
  std::string_view name;
  AngleUnit unit;
};
constexpr NamedAngle kAngleUnits[] = {{"radians", AngleUnit::kRadians},
                                      {"grads", AngleUnit::kGon},
                                      {"gon", AngleUnit::kGon},
                                      {"decimaldegrees", AngleUnit::kDegrees},
                                      {"decimaldd.mm.ss", AngleUnit::kSexagesimal}};

bool IsSameWord(std::string_view a, std::string_view b) {
  return a.size() == b.size() && strncasecmp(a.data(), b.data(), a.size()) == 0;
}

// Blanks are no part of the name: one program writes two of them.
std::string WithoutBlanks(std::string_view text) {
  std::string name(text);
  name.erase(std::remove(name.begin(), name.end(), ' '), name.end());
  return name;
}

AngleUnit ReadAngle(const XmlElement& element, std::string_view attribute, Remarks& remarks) {
  const std::string name = WithoutBlanks(element.Value(attribute));
  if (name.empty()) return AngleUnit::kRadians;
  for (const NamedAngle& known : kAngleUnits) {
    if (IsSameWord(known.name, name)) return known.unit;
  }
  remarks.Add(element.line, Fill(Xlate("the unit \"{1}\" is not known; radians are assumed"),
                                 {tdk::WString(element.Value(attribute))}));
  return AngleUnit::kRadians;
}

// 45.3025 is 45 degrees, 30 minutes, 25 seconds.
double DegreesOfSexagesimal(double value) {
  constexpr double kStep = 100;
  constexpr double kTiny = 1e-9;  // 30.9999999… minutes are 31
  const double size = std::abs(value);
  const double degrees = std::floor(size + kTiny);
  const double rest = (size - degrees) * kStep;
  const double minutes = std::floor(rest + kTiny * kStep);
  const double seconds = (rest - minutes) * kStep;
  return std::copysign(degrees + minutes / 60 + seconds / 3600, value);
}

}  // namespace

double Units::Gon(double value) const {
  constexpr double kGonPerDegree = 400.0 / 360;
  switch (angle) {
    case AngleUnit::kGon: return value;
    case AngleUnit::kDegrees: return value * kGonPerDegree;
    case AngleUnit::kSexagesimal: return DegreesOfSexagesimal(value) * kGonPerDegree;
    case AngleUnit::kRadians: break;
  }
  return value * (200 / std::numbers::pi);
}

Units ReadUnits(const XmlElement& element, Remarks& remarks) {
  Units units;
  units.isDeclared = true;
  const std::string_view name = element.Value("linearUnit");
  const auto* const known =
      std::find_if(std::begin(kLinearUnits), std::end(kLinearUnits),
                   [&](const LinearUnit& each) { return IsSameWord(each.name, name); });
  if (known != std::end(kLinearUnits)) {
    units.metres = known->metres;
  } else {
    units.isKnown = false;
    remarks.Add(element.line, Fill(Xlate("the unit \"{1}\" is not known; metres are assumed"),
                                   {tdk::WString(name)}));
  }
  units.angle = ReadAngle(element, "angularUnit", remarks);
  return units;
}

}  // namespace landxml_load
