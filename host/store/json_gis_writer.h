// The GIS themes of a job as JSON.
#pragma once

#include "host/store/json_writer.h"
#include "host/store/progress.h"
#include "model/gis.h"

class JsonGisWriter {
 public:
  /// Nothing is owned. The document's object must be open.
  JsonGisWriter(JsonWriter& json, PointProgress& progress, const gis::CLibGis& library)
      : json_(json), progress_(progress), library_(library) {}

  /// The member "gis"; nothing when there are no themes.
  void Write();

 private:
  void WriteTheme(const gis::CTheme& theme);
  void WriteFeature(const gis::CTheme& theme, int feature);

  JsonWriter& json_;
  PointProgress& progress_;
  const gis::CLibGis& library_;
  std::string line_;
};
