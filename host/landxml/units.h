// The units that a LandXML file declares.
#pragma once

#include <string_view>

#include "host/landxml/remarks.h"
#include "host/landxml/xml_element.h"

namespace landxml_load {

enum class AngleUnit { kRadians, kGon, kDegrees, kSexagesimal };

struct Units {
  double metres = 1;  ///< of one linear unit
  AngleUnit angle = AngleUnit::kRadians;
  bool isDeclared = false;
  bool isKnown = true;  ///< the linear unit

  /// An angle as the file has it, in gon.
  double Gon(double value) const;
  /// The same in radians.
  double Radians(double value) const { return Gon(value) * kRadiansPerGon; }

 private:
  static constexpr double kRadiansPerGon = 0.015707963267948967;
};

/// Reads a `Metric` or `Imperial` element. A unit that nobody knows leaves metres or radians, with
/// a remark.
Units ReadUnits(const XmlElement& element, Remarks& remarks);

}  // namespace landxml_load
