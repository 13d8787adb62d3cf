#include "export_remarks.h"

#include <algorithm>

#include "console.h"
#include "services/translate.h"

namespace {

struct RoadLosses {
  std::uint64_t otherElements = 0;
  std::uint64_t asymmetricCurves = 0;
  std::uint64_t plainVertices = 0;
};

void CountVertices(const CProfileAlti& line, RoadLosses& losses) {
  constexpr double kNoDifference = 1e-6;  // metres: what the file's decimals cannot show
  for (int i = 0; i < line.GetNumVrts(); ++i) {
    const TAltiVrt& vertex = line.GetVrt(i);
    if (!IsPrincAltiVrt(vertex)) ++losses.plainVertices;
    if (!IsRaccVertAltiVrt(vertex)) continue;
    const double before = vertex.distance - vertex.curve->start;
    const double after = vertex.curve->end - vertex.distance;
    if (std::abs(before - after) > kNoDifference) ++losses.asymmetricCurves;
  }
}

RoadLosses LossesOf(const CRoad& road) {
  RoadLosses losses;
  std::vector<const CPlaniElem*> elements;
  road.RetrieveLinkedPlaniElems(elements);
  losses.otherElements = static_cast<std::uint64_t>(std::count_if(
      elements.begin(), elements.end(),
      [](const CPlaniElem* element) { return element->GetType() == CPlaniElem::kOther; }));
  if (const CProfileAlti* const main = road.GetRoadProfile()->GetMainPrjAlti()) {
    CountVertices(*main, losses);
  }
  return losses;
}

void AddRoadRemarks(const CLibRoad& roads, std::vector<std::string>& remarks) {
  for (int i = 0; i < roads.GetRoadArSize(); ++i) {
    const CRoad& road = *roads.GetRoadAt(i);
    const RoadLosses losses = LossesOf(road);
    const auto add = [&](std::uint64_t count, const tdk::WString& pattern) {
      if (count == 0) return;
      remarks.push_back(
          Fill(pattern, {road.GetName(), tdk::WString(console::Number(count))}).ToUtf8());
    };
    add(losses.otherElements,
        Xlate("road \"{1}\": elements that the format does not have are left out ({2})"));
    add(losses.asymmetricCurves,
        Xlate(
            "road \"{1}\": vertical curves come out with their length alone, as symmetric ({2})"));
    add(losses.plainVertices,
        Xlate("road \"{1}\": profile vertices that are not principal are left out ({2})"));
  }
}

bool IsMarkup(const tdk::WString& text) {
  return text.ToUtf8().find_first_of("&<\"") != std::string::npos;
}

// Names go out as they are.
class MarkupCounter {
 public:
  void Add(const tdk::WString& text) { count_ += IsMarkup(text) ? 1 : 0; }
  void Add(const CEgn& point) {
    Add(point.GetNome());
    Add(point.GetSecScri());
  }
  std::uint64_t Count() const { return count_; }

 private:
  std::uint64_t count_ = 0;
};

void CountJobs(const CLibCmp& library, MarkupCounter& counter) {
  for (int job = 0; job < library.GetJobArSize(); ++job) {
    counter.Add(library.GetJobAt(job)->GetNome());
    for (int station = 0; station < library.GetStaArSize(job); ++station) {
      counter.Add(*library.GetStaAt(job, station));
      for (const CPun* const point : library.PointsOf(job, station)) counter.Add(*point);
    }
  }
}

void CountGps(const CLibGps& library, MarkupCounter& counter) {
  for (int group = 0; group < library.GetGrpArSize(); ++group) {
    counter.Add(library.GetGrpAt(group)->GetNomeGrp());
    counter.Add(*library.GetGrpAt(group));
    for (int i = 0; i < library.GetPunArSize(group); ++i) counter.Add(*library.GetPunAt(group, i));
  }
}

void CountKnown(const CLibPnt& library, MarkupCounter& counter) {
  for (int group = 0; group < library.GetGrpArSize(); ++group) {
    counter.Add(library.GetGrpAt(group)->GetNome());
    for (int i = 0; i < library.GetPtnArSize(group); ++i) {
      counter.Add(library.GetPtnAt(group, i)->GetNome());
    }
  }
}

void CountRoads(const CLibRoad& library, MarkupCounter& counter) {
  for (int i = 0; i < library.GetRoadArSize(); ++i) {
    const CRoad& road = *library.GetRoadAt(i);
    counter.Add(road.GetName());
    for (const TProfileAltiCode& code : road.ProfileCodes().Codes()) counter.Add(code.name);
  }
}

std::uint64_t CountMarkup(HostDocument& document, const LandXmlParts& parts) {
  MarkupCounter counter;
  if (parts.jobs) CountJobs(*document.GetLibCmp(), counter);
  if (parts.gps) CountGps(*document.GetLibGps(), counter);
  if (parts.points) CountKnown(*document.GetLibPnt(), counter);
  if (parts.roads) CountRoads(*document.GetLibRoad(), counter);
  const CLibDtm& models = *document.GetLibDtm();
  for (int i = 0; parts.surfaces && i < models.GetPrjArSize(); ++i) {
    counter.Add(models.GetPrjAt(i)->GetName());
  }
  return counter.Count();
}

}  // namespace

void AddExportRemarks(HostDocument& document, const FormatRow& format, const LandXmlParts& parts,
                      std::vector<std::string>& remarks) {
  if (format.extension != std::string_view("xml")) return;
  if (parts.roads) AddRoadRemarks(*document.GetLibRoad(), remarks);
  if (const std::uint64_t count = CountMarkup(document, parts)) {
    remarks.push_back(Fill(Xlate("names with &, < or \" go out as they are, so that strict XML "
                                 "readers refuse the file ({1})"),
                           {tdk::WString(console::Number(count))})
                          .ToUtf8());
  }
}
