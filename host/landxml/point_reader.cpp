#include "host/landxml/point_reader.h"

#include "platform/numbers.h"
#include "services/translate.h"

namespace landxml_load {

PointReader::PointReader(LoadContext& context)
    : context_(context),
      library_(*context.document.GetLibPnt()),
      firstGroup_(library_.GetGrpArSize()) {}

void PointReader::BeginGroup(const XmlTag& group) {
  const char* const name = group.Find("name");
  open_.push_back({NameOf(name == nullptr ? "" : name)});
  if (name != nullptr) GroupOf(open_.back());
}

int PointReader::GroupOf(OpenGroup& open) {
  if (open.group != kNotMade) return open.group;
  context_.Added(library_.AddGrp(false)).SetLabels(open.name, {}, {}, {});
  open.group = library_.GetGrpArSize() - 1;
  return open.group;
}

void PointReader::TakePoint(const XmlElement& point) {
  const int group = GroupOf(open_.back());
  if (const auto place = PointOf(point.text, context_.units)) {
    Add(group, point, *place);
  } else if (const std::string* const name = point.Find("pntRef")) {
    references_.push_back({group, *name, point});
  } else {
    context_.remarks.Add(
        point.line, Fill(Xlate("point \"{1}\" has no coordinates"), {NameOf(point.Value("name"))}));
  }
}

// The code is what the host calls the second description; a description takes its place where there
// is no code.
const CPunPnt& PointReader::Add(int group, const XmlElement& element, const Point& place) {
  CPunPnt& point = context_.Added(library_.AddPtn(group, false));
  const std::string* const code = element.Find("code");
  const tdk::WString description = NameOf(element.Value("desc"));
  const std::string* const name = element.Find("name");
  point.SetNomCoord(NameOf(name != nullptr ? *name : element.Value("pntRef")),
                    code != nullptr ? NameOf(*code) : description, place.getX(), place.getY(),
                    place.getZ());
  if (code != nullptr) point.SetTerScri(description);
  return point;
}

// A reference may lead to another one, which may come later; a ring of them leads nowhere.
std::optional<Point> PointReader::Follow(std::string_view name) {
  for (std::size_t steps = 0; steps <= references_.size(); ++steps) {
    if (const auto place = FindAdded(name)) return place;
    const auto next = referenceOf_.find(NameOf(name).ToUtf8());
    if (next == referenceOf_.end()) return std::nullopt;
    name = references_[next->second].name;
  }
  return std::nullopt;
}

void PointReader::Finish() {
  for (std::size_t i = 0; i < references_.size(); ++i) {
    const std::string* const name = references_[i].element.Find("name");
    if (name != nullptr) referenceOf_.emplace(NameOf(*name).ToUtf8(), i);
  }
  for (const Reference& reference : references_) {
    if (const auto place = Follow(reference.name)) {
      const CPunPnt& added = Add(reference.group, reference.element, *place);
      byName_.emplace(added.NameUtf8(), &added);  // which also keeps ways short
    } else {
      context_.remarks.Add(reference.element.line, Fill(Xlate("there is no point \"{1}\""),
                                                        {tdk::WString(reference.name)}));
    }
  }
  referenceOf_.clear();
  references_.clear();
}

std::optional<Point> PointReader::Find(std::string_view name) { return FindAdded(name); }

std::optional<Point> PointReader::FindAdded(std::string_view name) {
  IndexNames();
  const auto found = byName_.find(NameOf(name).ToUtf8());
  if (found == byName_.end()) return std::nullopt;
  const CPunPnt& point = *found->second;
  return Point(point.GetCoordX(), point.GetCoordY(), point.GetCoordZ());
}

// The first point of a name holds.
void PointReader::IndexNames() {
  if (isIndexed_) return;
  isIndexed_ = true;
  for (int group = firstGroup_; group < library_.GetGrpArSize(); ++group) {
    for (int i = 0; i < library_.GetPtnArSize(group); ++i) {
      const CPunPnt* const point = library_.GetPtnAt(group, i);
      byName_.emplace(point->NameUtf8(), point);
    }
  }
}

}  // namespace landxml_load
