// LandXML the plain way: what the writer is measured against.
#pragma once

#include <string>
#include <string_view>

#include "plain_file.h"
#include "plain_job.h"

namespace bench {

class PlainLandXml {
 public:
  /// `header`: all that comes before the survey.
  PlainLandXml(const std::string& path, std::string_view header) : file_(path) {
    file_.Text(header);
  }

  /// The points of `arrays` have no coordinates; a distance from `undefined` on is not written.
  void Write(const PlainArrays& arrays, double undefined) {
    const std::string_view name = View(arrays.job.name);
    Texts("\t<Survey desc=\"", name, "\">\n\t\t<SurveyHeader name=\"", name, "\" />\n");
    for (std::size_t i = 0; i < arrays.stations.size(); ++i) {
      Setup(i, arrays.stations[i].station);
      const std::size_t first = arrays.stations[i].firstPoint;
      for (std::size_t k = first; k < arrays.PointEnd(i); ++k) {
        Observation(k - first, arrays.points[k], undefined);
      }
      file_.Text("\t\t</InstrumentSetup>\n");
    }
    file_.Text("\t</Survey>\n</LandXML>\n");
    file_.Close();
  }

 private:
  template <class... Parts>
  void Texts(const Parts&... parts) {
    (file_.Text(parts), ...);
  }

  void Measure(std::string_view attribute, double value) {
    Texts(attribute, "=\"");
    file_.Fixed(value, 6);
    file_.Text("\" ");
  }

  void Setup(std::size_t position, const PlainStation& station) {
    file_.Text("\t\t<InstrumentSetup id=\"Setup");
    file_.Whole(position);
    Texts("\" stationName=\"", View(station.name), "\" instrumentHeight=\"");
    file_.Fixed(station.height, 6);
    file_.Text("\">\n");
    file_.EndRecord();
  }

  void Observation(std::size_t position, const PlainPoint& point, double undefined) {
    file_.Text("\t\t\t<RawObservation setupID=\"Setup");
    file_.Whole(position);
    file_.Text("\" ");
    Measure("targetHeight", point.prismHeight);
    Measure("horizAngle", point.horizontal);
    if (point.slopeDistance < undefined) Measure("slopeDistance", point.slopeDistance);
    Measure("zenithAngle", point.zenith);
    file_.Text(">\n\t\t\t</RawObservation>\n");
    file_.EndRecord();
  }

  PlainFile file_;
};

}  // namespace bench
