#include "host/gis/shp_reader.h"

#include <algorithm>
#include <cmath>

#include "services/translate.h"

namespace shape {
namespace {

// What is less is no measure, in files; heights are held to the same.
constexpr double kNoData = -1e38;

double Known(double value) {
  return std::isfinite(value) && value > kNoData && IsDefined(value) ? value : UndefinedValue;
}

gis::Vertex VertexOf(const SHPObject& object, int i) {
  return {object.padfX[i], object.padfY[i],
          object.padfZ != nullptr ? Known(object.padfZ[i]) : UndefinedValue,
          object.padfM != nullptr && object.bMeasureIsUsed != 0 ? Known(object.padfM[i])
                                                                : UndefinedValue};
}

bool IsSamePlace(const gis::Vertex& a, const gis::Vertex& b) {
  return a.x == b.x && a.y == b.y && a.z == b.z;
}

bool HasPlaces(const SHPObject& object) {
  const auto isGood = [](double value) { return std::isfinite(value) && IsDefined(value); };
  return std::all_of(object.padfX, object.padfX + object.nVertices, isGood) &&
         std::all_of(object.padfY, object.padfY + object.nVertices, isGood);
}

}  // namespace

std::unique_ptr<ShpReader> ShpReader::Open(Stream& shp, std::string_view shx, Remarks& why) {
  const std::optional<ShapeHeader> header = ReadHeader(shp);
  const std::optional<ShapeKind> kind = header ? KindOf(header->type) : std::nullopt;
  if (!kind) {
    Remark(why, header ? ToXlate("it holds shapes of a kind that is not known")
                       : ToXlate("it does not begin as a Shape file does"));
    return nullptr;
  }
  const ShapeIndex index = IndexOf(shp, *header, shx);
  if (index.badAt != 0) {
    Remark(why, ToXlate("it breaks off, or is damaged, at byte {1}"), {NumberText(index.badAt)});
    return nullptr;
  }
  MemoryStream indexStream(index.shx);
  StreamSet streams;
  streams.Add("shp", shp);
  streams.Add("shx", indexStream);
  SAHooks hooks = streams.Hooks();
  SHPHandle const opened = SHPOpenLL(StreamSet::Name("shp").c_str(), "rb", &hooks);
  if (opened == nullptr) {
    why.emplace_back(streams.Complaint().c_str());
    return nullptr;
  }
  SHPSetFastModeReadObject(opened, 1);
  return std::unique_ptr<ShpReader>(new ShpReader(opened, *kind, index.isRebuilt));
}

bool ShpReader::ReadShape(int shape, gis::CTheme& theme) {
  // Its memory belongs to the open file; destroying it only gives it back for the next one.
  const std::unique_ptr<SHPObject, decltype(&SHPDestroyObject)> object(
      SHPReadObject(shp_.get(), shape), &SHPDestroyObject);
  if (object == nullptr || !IsSound(*object)) return false;
  theme.AddFeature();
  if (object->nSHPType == SHPT_NULL || object->nVertices == 0) return true;
  const std::optional<ShapeKind> own = KindOf(object->nSHPType);
  if (!own || own->entity != kind_.entity) {
    ++otherTypes_;
  } else if (!HasPlaces(*object)) {
    ++badPlaces_;
  } else {
    AddParts(*object, theme);
  }
  return true;
}

bool ShpReader::IsSound(const SHPObject& object) const {
  if (object.nVertices < 0 || object.nParts < 0) return false;
  // Vertices before the first part would belong to none.
  if (object.nParts > 0 && object.panPartStart[0] != 0) return false;
  for (int i = 0; i < object.nParts; ++i) {
    const int next = i + 1 < object.nParts ? object.panPartStart[i + 1] : object.nVertices;
    if (object.panPartStart[i] < 0 || object.panPartStart[i] > next) return false;
  }
  return true;
}

void ShpReader::AddParts(const SHPObject& object, gis::CTheme& theme) {
  if (object.nParts == 0) return AddPart(object, 0, object.nVertices, theme);
  for (int i = 0; i < object.nParts; ++i) {
    const int first = object.panPartStart[i];
    const int last = i + 1 < object.nParts ? object.panPartStart[i + 1] : object.nVertices;
    if (first == last) continue;
    const int type = object.panPartType != nullptr ? object.panPartType[i] : SHPP_RING;
    const bool isSurface = object.nSHPType == SHPT_MULTIPATCH;
    if (isSurface && (type == SHPP_TRISTRIP || type == SHPP_TRIFAN)) {
      AddTriangles(object, first, last, type == SHPP_TRIFAN, theme);
    } else if (kind_.entity == gis::EntityType::kPolygon) {
      AddRing(object, first, last, theme);
    } else {
      AddPart(object, first, last, theme);
    }
  }
}

void ShpReader::AddPart(const SHPObject& object, int first, int last, gis::CTheme& theme) {
  theme.AddPart();
  for (int v = first; v < last; ++v) theme.AddVertex(VertexOf(object, v));
}

void ShpReader::AddRing(const SHPObject& object, int first, int last, gis::CTheme& theme) {
  AddPart(object, first, last, theme);
  const gis::Vertex start = VertexOf(object, first);
  if (IsSamePlace(start, VertexOf(object, last - 1))) return;
  theme.AddVertex(start);
  ++openRings_;
}

void ShpReader::AddTriangles(const SHPObject& object, int first, int last, bool isFan,
                             gis::CTheme& theme) {
  ++surfaces_;
  for (int v = first + 2; v < last; ++v) {
    theme.AddPart();
    const int corner = isFan ? first : v - 2;
    for (const int at : {corner, v - 1, v, corner}) theme.AddVertex(VertexOf(object, at));
  }
}

void ShpReader::TellRemarks(Remarks& remarks) const {
  if (isRebuilt_) {
    Remark(remarks, ToXlate("its index (.shx) is missing or does not fit; the file was read "
                            "without it"));
  }
  RemarkCount(remarks, ToXlate("shapes of another kind than the file's, left empty: {1}"),
              otherTypes_);
  RemarkCount(remarks, ToXlate("shapes with coordinates that are no numbers, left empty: {1}"),
              badPlaces_);
  RemarkCount(remarks, ToXlate("rings that were open, now closed: {1}"), openRings_);
  RemarkCount(remarks, ToXlate("strips and fans of triangles, now polygons: {1}"), surfaces_);
}

void DropUnusedMeasures(gis::CTheme& theme) {
  if (!theme.Is3D() || std::ranges::any_of(theme.Ms(), IsDefined)) return;
  theme.DropMeasures();
}

}  // namespace shape
