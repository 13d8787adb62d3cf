#include "host/plot/plan_content.h"

#include <algorithm>
#include <span>

#include "host/plot/road_lines.h"

namespace plot {
namespace {

class Collector {
 public:
  explicit Collector(PlanContent& content) : content_(content) {}

  void Add(const CEgn& point, MarkKind kind) {
    if (point.HasPlane()) {
      content_.marks.push_back({{point.GetCoordX(), point.GetCoordY()}, &point, kind});
    } else {
      ++content_.withoutPlace;
    }
  }

 private:
  PlanContent& content_;
};

void AddStations(const CLibCmp& library, Collector& collector) {
  for (int job = 0; job < library.GetJobArSize(); ++job) {
    for (int station = 0; station < library.GetStaArSize(job); ++station) {
      collector.Add(*library.GetStaAt(job, station), MarkKind::kStation);
    }
  }
}

void AddMeasured(const CLibCmp& library, Collector& collector) {
  for (int job = 0; job < library.GetJobArSize(); ++job) {
    for (int station = 0; station < library.GetStaArSize(job); ++station) {
      for (const CPun* const point : library.PointsOf(job, station)) {
        collector.Add(*point, MarkKind::kMeasured);
      }
    }
  }
}

// Many a group has no base: that is then no point without a place.
void AddBases(const CLibGps& library, Collector& collector) {
  for (int group = 0; group < library.GetGrpArSize(); ++group) {
    const CGrpGps& base = *library.GetGrpAt(group);
    if (base.HasPlane() || !base.NameUtf8().empty()) collector.Add(base, MarkKind::kGpsBase);
  }
}

void AddGps(const CLibGps& library, Collector& collector) {
  for (int group = 0; group < library.GetGrpArSize(); ++group) {
    for (int i = 0; i < library.GetPunArSize(group); ++i) {
      collector.Add(*library.GetPunAt(group, i), MarkKind::kGps);
    }
  }
}

void AddKnown(const CLibPnt& library, MarkKind kind, Collector& collector) {
  for (int group = 0; group < library.GetGrpArSize(); ++group) {
    for (int i = 0; i < library.GetPtnArSize(group); ++i) {
      collector.Add(*library.GetPtnAt(group, i), kind);
    }
  }
}

std::size_t KnownCount(const CLibPnt& library) {
  std::size_t count = 0;
  for (int group = 0; group < library.GetGrpArSize(); ++group) {
    count += static_cast<std::size_t>(library.GetPtnArSize(group));
  }
  return count;
}

bool HasVertex(const CDtmPrj& model) {
  const CTris& triangulation = model.GetTris();
  for (int i = 0; i < triangulation.GetNoTriVrts(); ++i) {
    const auto& vertex = triangulation.GetTriVrtAt(i);
    if (IsDefined(vertex.getX()) && IsDefined(vertex.getY())) return true;
  }
  return false;
}

void AddDesign(HostDocument& document, bool terrain, PlanContent& content) {
  const CLibDtm& models = *document.GetLibDtm();
  for (int i = 0; terrain && i < models.GetPrjArSize(); ++i) {
    if (HasVertex(*models.GetPrjAt(i))) content.models.push_back(models.GetPrjAt(i));
  }
  const CLibRoad& roads = *document.GetLibRoad();
  for (int i = 0; i < roads.GetRoadArSize(); ++i) {
    if (!AxisOf(*roads.GetRoadAt(i), kRoughChord).empty()) {
      content.roads.push_back(roads.GetRoadAt(i));
    }
  }
}

bool HasNoPlace(const LineWork& work) { return work.legs.empty() && work.texts.empty(); }

}  // namespace

PlanContent ContentOf(HostDocument& document, bool terrain) {
  PlanContent content;
  Collector collector(content);
  const CLibCmp& surveys = *document.GetLibCmp();
  AddStations(surveys, collector);
  AddBases(*document.GetLibGps(), collector);
  const bool areMany = KnownCount(*document.GetLibPnt()) > kMostKnownThatStandOut;
  if (!areMany) AddKnown(*document.GetLibPnt(), MarkKind::kKnown, collector);
  for (int i = 0; i < surveys.GetOriArSize(); ++i) {
    collector.Add(*surveys.GetOriAt(i), MarkKind::kControl);
  }
  AddGps(*document.GetLibGps(), collector);
  if (areMany) AddKnown(*document.GetLibPnt(), MarkKind::kManyKnown, collector);
  AddMeasured(surveys, collector);
  AddDesign(document, terrain, content);
  content.themes = ThemesOf(*document.GetLibGis());
  content.drawings = DrawingsOf(*document.GetCadEngine());
  return content;
}

bool PlanContent::IsEmpty() const {
  return marks.empty() && models.empty() && roads.empty() &&
         std::all_of(themes.begin(), themes.end(), HasNoPlace) &&
         std::all_of(drawings.begin(), drawings.end(), HasNoPlace);
}

std::uint64_t EntityCount(const PlanContent& content) {
  std::uint64_t count = 0;
  for (const LineWork& drawing : content.drawings) count += drawing.count;
  return count;
}

Box ExtentOf(const PlanContent& content) {
  Box extent;
  for (const Mark& mark : content.marks) extent.Add(mark.place);
  for (const CDtmPrj* const model : content.models) {
    const CTris& triangulation = model->GetTris();
    for (int i = 0; i < triangulation.GetNoTriVrts(); ++i) {
      const auto& vertex = triangulation.GetTriVrtAt(i);
      if (IsDefined(vertex.getX()) && IsDefined(vertex.getY())) {
        extent.Add({vertex.getX(), vertex.getY()});
      }
    }
  }
  for (const CRoad* const road : content.roads) {
    for (const Polyline& line : AxisOf(*road, kRoughChord)) {
      for (const Place& place : line) extent.Add(place);
    }
  }
  for (const LineWork& theme : content.themes) extent.AddBox(ExtentOf(theme));
  for (const LineWork& drawing : content.drawings) extent.AddBox(ExtentOf(drawing));
  return extent;
}

void Elevations::Add(double elevation) {
  if (!IsDefined(elevation)) return;
  least = std::min(least, elevation);
  most = IsDefined(most) ? std::max(most, elevation) : elevation;
}

Elevations ElevationsOf(const std::vector<const CDtmPrj*>& models) {
  Elevations elevations;
  for (const CDtmPrj* const model : models) {
    const CTris& triangulation = model->GetTris();
    for (int i = 0; i < triangulation.GetNoTris(); ++i) {
      for (int k = 0; k < 3; ++k) {
        elevations.Add(triangulation.GetTriVrtAt(triangulation.GetTriAt(i).GetVerIndex(k)).getZ());
      }
    }
  }
  return elevations;
}

Elevations ElevationsOf(const PlanContent& content) {
  Elevations elevations = ElevationsOf(content.models);
  for (const Mark& mark : content.marks) elevations.Add(mark.point->GetCoordZ());
  return elevations;
}

std::string DrawableText(const std::string& text) {
  constexpr std::size_t kLongest = 60;  // characters
  constexpr std::size_t kMostBytes = 6 * kLongest;
  std::wstring wide = tdk::WString(text.substr(0, kMostBytes)).ToWide();
  const bool isLong = wide.size() > kLongest || text.size() > kMostBytes;
  if (wide.size() > kLongest) wide.resize(kLongest);
  const auto isControl = [](wchar_t c) {
    return c < L' ' || (c >= 0x7F && c < 0xA0) || c == 0xFFFE || c == 0xFFFF;
  };
  std::replace_if(wide.begin(), wide.end(), isControl, L' ');
  while (!wide.empty() && wide.back() == L' ') wide.pop_back();
  wide.erase(0, std::min(wide.find_first_not_of(L' '), wide.size()));
  if (isLong) wide += L'…';
  return tdk::WString(wide.c_str()).ToUtf8();
}

}  // namespace plot
