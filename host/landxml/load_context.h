// What the readers of a LandXML file's parts share.
#pragma once

#include <optional>
#include <string_view>
#include <vector>

#include "host/document/host_document.h"
#include "host/landxml/remarks.h"
#include "host/landxml/units.h"

namespace landxml_load {

/// Where a point of the file lies, metres; the elevation may be undefined.
using Point = tdk::geom::PNT_3D;

/// Finds the coordinates of points that other elements name.
class PointFinder {
 public:
  virtual ~PointFinder();
  virtual std::optional<Point> Find(std::string_view name) = 0;
};

struct LoadContext {
  HostDocument& document;
  Units units;
  Remarks remarks;
  std::string path;     ///< names the file in complaints
  bool isOurs = false;  ///< the file is an export of ours, whose raw angles are in gon

  /// What a library has added. Throws LoadError when the host refused it.
  template <class Object>
  Object& Added(Object* object) const {
    if (object == nullptr) FailAsRefused();
    return *object;
  }
  [[noreturn]] void FailAsRefused() const;
};

/// All numbers of a list; nothing when something else is among them.
std::optional<std::vector<double>> Numbers(std::string_view text);

/// "northing easting [elevation]" in the file's unit, as a point in metres; nothing when it is no
/// such text. The elevation is undefined when it is left out.
std::optional<Point> PointOf(std::string_view text, const Units& units);

/// The element's own text, or the point that its pntRef names.
std::optional<Point> PointOf(const XmlElement* element, const Units& units, PointFinder& points);

/// The value of an attribute as a number; nothing when it is not there or no number.
std::optional<double> NumberOf(const XmlElement& element, std::string_view attribute);
/// The same for a length, in metres.
std::optional<double> LengthOf(const XmlElement& element, std::string_view attribute,
                               const Units& units);

/// The text as a name of the host, without blanks at its ends.
tdk::WString NameOf(std::string_view text);

}  // namespace landxml_load
