// Terrain models and roads in a JSON job.
#pragma once

#include "host/document/host_document.h"
#include "host/store/json_writer.h"
#include "host/store/progress.h"

class JsonDesignWriter {
 public:
  /// Nothing is owned. The document's object must be open.
  JsonDesignWriter(JsonWriter& json, PointProgress& progress) : json_(json), progress_(progress) {}

  /// The members "terrain" and "roads".
  void Write(HostDocument& document);

 private:
  template <class WriteElement>
  void WriteList(std::string_view key, int size, const WriteElement& writeElement);
  void WriteModel(const CDtmPrj& model);
  void WriteContours(std::string_view key, const CCnts& contours);
  void WriteTriangulation(const CTris& triangulation);
  void WriteRoad(const CRoad& road);
  void WriteProfile(const CProfile& profile);
  void WriteSection(const CProfile& section);
  void WriteVertices(const CProfileAlti& line);

  JsonWriter& json_;
  PointProgress& progress_;
};
