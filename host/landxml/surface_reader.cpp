#include "host/landxml/surface_reader.h"

#include "platform/numbers.h"
#include "services/translate.h"

namespace landxml_load {
namespace {

constexpr double kNoElevation = 0;

}  // namespace

void SurfaceReader::Begin(const XmlTag& surface) {
  line_ = surface.Line();
  model_ = &context_.Added(context_.document.GetLibDtm()->AddPrj(false));
  const char* const name = surface.Find("name");
  model_->SetName(NameOf(name == nullptr ? "" : name));
  ids_ = {};
  left_ = {};
}

void SurfaceReader::Tell(std::uint64_t count, const tdk::WString& pattern) {
  if (count != 0) context_.remarks.Add(line_, Fill(pattern, {model_->GetName(), InWords(count)}));
}

void SurfaceReader::End() {
  Tell(left_.hiddenFaces, Xlate("surface \"{1}\": invisible faces are left out ({2})"));
  Tell(left_.badFaces,
       Xlate("surface \"{1}\": faces without three points of the surface are left out ({2})"));
  Tell(left_.badPoints,
       Xlate("surface \"{1}\": points without a number or without coordinates are left out ({2})"));
  Tell(left_.pointsWithoutElevation,
       Xlate("surface \"{1}\": points without an elevation are put at 0 ({2})"));
  Tell(left_.doubleIds,
       Xlate("surface \"{1}\": points with the id of an earlier one are in no face ({2})"));
}

// The points of all lists in an element. Nothing, with a remark, when one is no list of points.
std::optional<std::vector<Point>> SurfaceReader::PointsOf(const XmlElement& element) {
  std::vector<Point> points;
  for (const XmlElement& list : element.children) {
    const std::size_t size = list.name == "PntList2D" ? 2 : 3;
    if (size == 3 && list.name != "PntList3D") continue;
    const auto numbers = Numbers(list.text);
    if (!numbers || numbers->size() % size != 0) {
      context_.remarks.Add(list.line, Xlate("this is no list of points, so it is left out"));
      return std::nullopt;
    }
    const double metres = context_.units.metres;
    for (std::size_t i = 0; i < numbers->size(); i += size) {
      const double z = size == 3 ? (*numbers)[i + 2] * metres : kNoElevation;
      points.emplace_back((*numbers)[i + 1] * metres, (*numbers)[i] * metres, z);
      if (size == 2) ++left_.pointsWithoutElevation;
    }
  }
  return points;
}

// An outer boundary, or a hole: the host has one kind of those.
void SurfaceReader::TakeBoundary(const XmlElement& boundary) {
  const std::string_view type = boundary.Value("bndType");
  const bool isOuter = type == "outer";
  if (!isOuter && type != "void" && type != "island") {
    context_.remarks.Add(
        boundary.line, Fill(Xlate("a boundary of type \"{1}\" is left out"), {tdk::WString(type)}));
    return;
  }
  const auto points = PointsOf(boundary);
  if (!points || points->empty()) return;
  CCnt& contour = (isOuter ? model_->GetOuterCnts() : model_->GetIslandCnts()).AddCnt();
  for (const Point& point : *points) contour.AddVrt(point);
}

void SurfaceReader::TakeBreakline(const XmlElement& breakline) {
  const auto points = PointsOf(breakline);
  if (!points) return;
  for (std::size_t i = 1; i < points->size(); ++i) {
    model_->GetVncs().AddVnc({(*points)[i - 1], (*points)[i]});
  }
}

void SurfaceReader::BeginPoint(const XmlTag& point) {
  id_.reset();
  const char* const id = point.Find("id");
  if (id == nullptr) return;
  std::string_view text = id;
  id_ = platform::TakeWhole(text);
  if (!platform::IsBlank(text)) id_.reset();
}

void SurfaceReader::EndPoint(std::string_view text) {
  const auto point = id_ ? PointOf(text, context_.units) : std::nullopt;
  if (!point) {
    ++left_.badPoints;
    return;
  }
  const bool hasElevation = IsDefined(point->getZ());
  if (!hasElevation) ++left_.pointsWithoutElevation;
  // A second point of an id is kept, but faces go to the first.
  if (!ids_.Add(*id_)) ++left_.doubleIds;
  model_->GetTris().AddTriVrt(hasElevation ? *point
                                           : Point(point->getX(), point->getY(), kNoElevation));
}

void SurfaceReader::BeginFace(const XmlTag& face) {
  const char* const invisible = face.Find("i");
  const std::string_view value = invisible == nullptr ? "" : invisible;
  isHidden_ = value == "1" || value == "true";
}

bool SurfaceReader::ReadCorner(std::string_view& text, int& vertex) const {
  const auto id = platform::TakeWhole(text);
  const auto found = id ? ids_.Find(*id) : std::nullopt;
  if (found) vertex = firstVertex_ + *found;
  return found.has_value();
}

// A face of a grid has four corners: two triangles.
void SurfaceReader::EndFace(std::string_view text) {
  if (isHidden_) {
    ++left_.hiddenFaces;
    return;
  }
  int corners[4] = {};
  const bool isTriangle =
      ReadCorner(text, corners[0]) && ReadCorner(text, corners[1]) && ReadCorner(text, corners[2]);
  const bool isQuadrangle = isTriangle && !platform::IsBlank(text) && ReadCorner(text, corners[3]);
  if (!isTriangle || !platform::IsBlank(text)) {
    ++left_.badFaces;
    return;
  }
  CTris& triangulation = model_->GetTris();
  triangulation.AddTri(corners[0], corners[1], corners[2]);
  if (isQuadrangle) triangulation.AddTri(corners[0], corners[2], corners[3]);
}

}  // namespace landxml_load
