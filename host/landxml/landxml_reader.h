// A LandXML file, element by element, into a job.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "host/landxml/load_context.h"
#include "host/landxml/point_reader.h"
#include "host/landxml/surface_reader.h"
#include "host/landxml/xml_stream.h"

namespace landxml_load {

/// Surfaces and point groups go into the job as they come; of roads and surveys, which may name
/// points that come later, the elements are kept until the end.
class LandXmlReader : public XmlEvents {
 public:
  /// Nothing is owned.
  LandXmlReader(const XmlStream& stream, LoadContext& context)
      : stream_(stream), context_(context), surface_(context), points_(context) {}

  void Begin(const XmlTag& tag) override;
  void Text(std::string_view text) override;
  void End() override;

  /// To be called when the whole file was read: adds what had to wait.
  void Finish();

 private:
  // What an open element is; what it may hold depends on that alone.
  enum class Place {
    kDocument,
    kRoot,
    kUnits,
    kGroup,
    kSurfaces,
    kSurface,
    kSource,
    kBoundaries,
    kBreaklines,
    kDefinition,
    kPoints,
    kPoint,
    kFaces,
    kFace,
    kAlignments,
    kSurvey,
    kElement,  // kept with all that it holds, and taken whole at its end
    kSkipped   // with all that it holds
  };
  struct Rule {
    Place in;
    std::string_view name;
    Place place;
    void (LandXmlReader::*begin)(const XmlTag& tag) = nullptr;
    void (LandXmlReader::*end)() = nullptr;
    void (LandXmlReader::*take)(XmlElement& element) = nullptr;
  };
  static const Rule kRules[];
  struct NotLoaded {
    std::uint64_t count = 0;
    std::uint64_t line = 0;
  };

  static const Rule* FindRule(Place in, std::string_view name);
  void BeginInElement(const XmlTag& tag);
  static XmlElement ElementOf(const XmlTag& tag);
  void CountNotLoaded(const XmlTag& tag);

  void BeginGroup(const XmlTag& tag);
  void EndGroup() { points_.EndGroup(); }
  void BeginSurface(const XmlTag& tag);
  void EndSurface() { surface_.End(); }
  void BeginDefinition(const XmlTag& /*tag*/) { surface_.BeginDefinition(); }
  void BeginPoint(const XmlTag& tag);
  void EndPoint() { surface_.EndPoint(text_); }
  void BeginFace(const XmlTag& tag);
  void EndFace() { surface_.EndFace(text_); }
  void TakeUnits(XmlElement& element);
  void TakeApplication(XmlElement& element);
  void TakePoint(XmlElement& element);
  void TakeBoundary(XmlElement& element) { surface_.TakeBoundary(element); }
  void TakeBreakline(XmlElement& element) { surface_.TakeBreakline(element); }
  void KeepRoad(XmlElement& element) { roads_.push_back(std::move(element)); }
  void BeginSurvey(const XmlTag& tag) { surveys_.push_back(ElementOf(tag)); }
  void KeepInSurvey(XmlElement& element) { surveys_.back().children.push_back(std::move(element)); }

  const XmlStream& stream_;
  LoadContext& context_;
  SurfaceReader surface_;
  PointReader points_;
  std::vector<const Rule*> open_;
  std::size_t skipped_ = 0;           // depth within what is skipped
  std::vector<XmlElement*> element_;  // the element that is kept, and those open in it
  XmlElement kept_;
  std::string text_;  // of the open point or face
  std::vector<XmlElement> roads_;
  std::vector<XmlElement> surveys_;
  bool hasGeometry_ = false;
  std::map<std::string, NotLoaded, std::less<>> notLoaded_;
};

}  // namespace landxml_load
