// Surfaces of a LandXML file, point by point and face by face.
#pragma once

#include "host/landxml/id_table.h"
#include "host/landxml/load_context.h"
#include "host/landxml/xml_stream.h"

namespace landxml_load {

class SurfaceReader {
 public:
  /// `context` is not owned.
  explicit SurfaceReader(LoadContext& context) : context_(context) {}

  void Begin(const XmlTag& surface);
  void End();

  /// Ids of points count anew.
  void BeginDefinition() {
    ids_ = {};
    firstVertex_ = model_->GetTris().GetNoTriVrts();
  }
  void TakeBoundary(const XmlElement& boundary);
  void TakeBreakline(const XmlElement& breakline);

  void BeginPoint(const XmlTag& point);
  void EndPoint(std::string_view text);
  void BeginFace(const XmlTag& face);
  void EndFace(std::string_view text);

 private:
  struct Left {
    std::uint64_t hiddenFaces = 0;
    std::uint64_t badFaces = 0;
    std::uint64_t badPoints = 0;
    std::uint64_t pointsWithoutElevation = 0;
    std::uint64_t doubleIds = 0;
  };

  std::optional<std::vector<Point>> PointsOf(const XmlElement& element);
  bool ReadCorner(std::string_view& text, int& vertex) const;
  void Tell(std::uint64_t count, const tdk::WString& pattern);

  LoadContext& context_;
  CDtmPrj* model_ = nullptr;
  std::uint64_t line_ = 0;
  IdTable ids_;
  int firstVertex_ = 0;             // of the definition
  std::optional<std::int64_t> id_;  // of the open point
  bool isHidden_ = false;           // the open face
  Left left_;
};

}  // namespace landxml_load
