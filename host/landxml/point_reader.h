// Point groups of a LandXML file as groups of known points.
#pragma once

#include <string>
#include <unordered_map>
#include <vector>

#include "host/landxml/load_context.h"
#include "host/landxml/xml_stream.h"

namespace landxml_load {

class PointReader : public PointFinder {
 public:
  /// `context` is not owned. Points that the job has already are not found by their names.
  explicit PointReader(LoadContext& context);

  /// Groups may stand in one another.
  void BeginGroup(const XmlTag& group);
  void EndGroup() { open_.pop_back(); }
  void TakePoint(const XmlElement& point);

  /// Adds the points that are but names of others.
  void Finish();

  std::optional<Point> Find(std::string_view name) override;

 private:
  static constexpr int kNotMade = -1;
  struct OpenGroup {
    tdk::WString name;
    int group = kNotMade;  // made with its first point, or its name
  };
  struct Reference {
    int group;
    std::string name;
    XmlElement element;
  };

  int GroupOf(OpenGroup& open);
  const CPunPnt& Add(int group, const XmlElement& element, const Point& place);
  std::optional<Point> FindAdded(std::string_view name);
  std::optional<Point> Follow(std::string_view name);
  void IndexNames();

  LoadContext& context_;
  CLibPnt& library_;
  int firstGroup_;
  std::vector<OpenGroup> open_;
  std::vector<Reference> references_;
  std::unordered_map<std::string, std::size_t> referenceOf_;  // by the names that they give
  bool isIndexed_ = false;
  std::unordered_map<std::string_view, const CPunPnt*> byName_;  // names are the library's
};

}  // namespace landxml_load
