// The drawing in a JSON job.
#pragma once

#include "host/store/drawing_records.h"
#include "host/store/json_writer.h"
#include "host/store/progress.h"

class JsonDrawingWriter {
 public:
  /// Nothing is owned. The document's object must be open.
  JsonDrawingWriter(JsonWriter& json, PointProgress& progress, const CTcadEng& engine)
      : json_(json), progress_(progress), engine_(engine) {}

  /// The member "drawing"; none for a job without a drawing.
  void Write();

 private:
  void WriteLayers();
  void WriteBlock(const cad::Block& block);
  void WriteEntities(const std::vector<cad::Entity>& entities);
  void WriteEntity(const cad::Entity& entity);

  JsonWriter& json_;
  PointProgress& progress_;
  const CTcadEng& engine_;
};
