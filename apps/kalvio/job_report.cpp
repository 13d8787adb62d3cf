#include "job_report.h"

#include <algorithm>

#include "cadastral_report.h"
#include "console.h"
#include "counts.h"
#include "drawing_report.h"
#include "extents.h"
#include "host/document/host_document.h"
#include "layout.h"
#include "services/number_text.h"
#include "services/translate.h"
#include "table.h"
#include "theme_report.h"

namespace {

constexpr int kShown = 20;
constexpr std::size_t kIndent = 2;
using Align = Table::Align;

std::string Text(const tdk::WString& text) { return text.ToUtf8(); }
std::string OrDash(const tdk::WString& text) { return text.IsEmpty() ? "–" : text.ToUtf8(); }
std::string Number(int value) { return console::Number(static_cast<std::uint64_t>(value)); }
std::string Metres(double value) {
  return IsDefined(value) ? Text(StringDaDouble(value, 0, 3)) : "–";
}

// A list of the job: at most so many of its elements unless all are wanted, and a line about the
// rest.
class List {
 public:
  List(int size, bool all) : size_(size), shown_(all ? size : std::min(size, kShown)) {}

  int Shown() const { return shown_; }
  /// `one` and `many` are translated already.
  void TellRest(const tdk::WString& one, const tdk::WString& many) const {
    if (shown_ == size_) return;
    const std::string line = console::Count(static_cast<std::uint64_t>(size_ - shown_), one, many);
    console::Out(std::string(kIndent, ' ') + line + "\n");
  }

 private:
  int size_;
  int shown_;
};

void ReportStations(const CLibCmp& library, int job, bool all) {
  const int count = library.GetStaArSize(job);
  if (count == 0) return;
  const List list(count, all);
  Table table({Align::kLeft, Align::kLeft, Align::kRight, Align::kRight}, kIndent);
  table.Add({Text(Xlate("station")), Text(Xlate("identification")),
             Text(Xlate("instrument height")), Text(Xlate("points"))});
  for (int i = 0; i < list.Shown(); ++i) {
    const CSta& station = *library.GetStaAt(job, i);
    table.Add({OrDash(station.GetNome()), OrDash(station.GetIden()), Metres(station.GetAltStr()),
               Number(library.GetPunArSize(job, i))});
  }
  console::Out(table.Text());
  list.TellRest(Xlate("… and {1} more station (--all shows it)"),
                Xlate("… and {1} more stations (--all shows them)"));
}

void ReportJobs(const CLibCmp& library, bool all) {
  const List list(library.GetJobArSize(), all);
  for (int i = 0; i < list.Shown(); ++i) {
    const CJob& job = *library.GetJobAt(i);
    const auto line =
        Fill(Xlate("Job {1}: surveyor {2}, instrument {3}, date {4}"),
             {tdk::WString(OrDash(job.GetNome())), tdk::WString(OrDash(job.GetOper())),
              tdk::WString(OrDash(job.GetStrum())), tdk::WString(OrDash(job.GetData()))});
    console::Out(Printable(line.ToUtf8()) + "\n");
    ReportStations(library, i, all);
  }
  list.TellRest(Xlate("… and {1} more job (--all shows it)"),
                Xlate("… and {1} more jobs (--all shows them)"));
}

void TellMoreGroups(const List& list) {
  list.TellRest(Xlate("… and {1} more group (--all shows it)"),
                Xlate("… and {1} more groups (--all shows them)"));
}

void ReportGpsGroups(const CLibGps& library, bool all) {
  if (library.GetGrpArSize() == 0) return;
  const List list(library.GetGrpArSize(), all);
  Table table({Align::kLeft, Align::kLeft, Align::kLeft, Align::kRight}, kIndent);
  table.Add(
      {Text(Xlate("group")), Text(Xlate("base")), Text(Xlate("date")), Text(Xlate("points"))});
  for (int i = 0; i < list.Shown(); ++i) {
    const CGrpGps& group = *library.GetGrpAt(i);
    table.Add({OrDash(group.GetNomeGrp()), OrDash(group.GetNome()), OrDash(group.GetData()),
               Number(library.GetPunArSize(i))});
  }
  console::Out(Text(Xlate("GPS groups")) + "\n" + table.Text());
  TellMoreGroups(list);
}

void ReportKnownGroups(const CLibPnt& library, bool all) {
  if (library.GetGrpArSize() == 0) return;
  const List list(library.GetGrpArSize(), all);
  Table table({Align::kLeft, Align::kRight}, kIndent);
  table.Add({Text(Xlate("group")), Text(Xlate("points"))});
  for (int i = 0; i < list.Shown(); ++i) {
    table.Add({OrDash(library.GetGrpAt(i)->GetNome()), Number(library.GetPtnArSize(i))});
  }
  console::Out(Text(Xlate("Known points")) + "\n" + table.Text());
  TellMoreGroups(list);
}

void ReportTerrain(const CLibDtm& library, bool all) {
  if (library.GetPrjArSize() == 0) return;
  const List list(library.GetPrjArSize(), all);
  Table table({Align::kLeft, Align::kRight, Align::kRight, Align::kRight, Align::kRight}, kIndent);
  table.Add({Text(Xlate("terrain model")), Text(Xlate("vertices")), Text(Xlate("triangles")),
             Text(Xlate("contours")), Text(Xlate("breaklines"))});
  for (int i = 0; i < list.Shown(); ++i) {
    const CDtmPrj& model = *library.GetPrjAt(i);
    table.Add({OrDash(model.GetName()), Number(model.GetTris().GetNoTriVrts()),
               Number(model.GetTris().GetNoTris()),
               Number(model.GetOuterCnts().GetNoCnts() + model.GetIslandCnts().GetNoCnts()),
               Number(model.GetVncs().GetNoVncs())});
  }
  console::Out(Text(Xlate("Terrain")) + "\n" + table.Text());
  list.TellRest(Xlate("… and {1} more terrain model (--all shows it)"),
                Xlate("… and {1} more terrain models (--all shows them)"));
}

void ReportRoads(const CLibRoad& library, bool all) {
  if (library.GetRoadArSize() == 0) return;
  const List list(library.GetRoadArSize(), all);
  Table table(
      {Align::kLeft, Align::kRight, Align::kRight, Align::kRight, Align::kRight, Align::kRight},
      kIndent);
  table.Add({Text(Xlate("road")), Text(Xlate("from chainage")), Text(Xlate("to chainage")),
             Text(Xlate("elements")), Text(Xlate("profile vertices")), Text(Xlate("sections"))});
  for (int i = 0; i < list.Shown(); ++i) {
    const CRoad& road = *library.GetRoadAt(i);
    std::vector<const CPlaniElem*> elements;
    road.RetrieveLinkedPlaniElems(elements);
    const CProfile& profile = *road.GetRoadProfile();
    const CProfileAlti* const main = profile.GetMainPrjAlti();
    table.Add({OrDash(road.GetName()), Metres(road.GetStartProg()), Metres(road.GetEndProg()),
               Number(static_cast<int>(elements.size())),
               Number(main == nullptr ? 0 : main->GetNumVrts()), Number(profile.GetNumSections())});
  }
  console::Out(Text(Xlate("Roads")) + "\n" + table.Text());
  list.TellRest(Xlate("… and {1} more road (--all shows it)"),
                Xlate("… and {1} more roads (--all shows them)"));
}

void ReportExtents(const Extents& extents) {
  if (extents.points == 0 && !extents.hasDesign) return;
  Table table({Align::kLeft, Align::kRight, Align::kRight, Align::kRight}, kIndent);
  table.Add({Text(Xlate("coordinate")), Text(Xlate("from")), Text(Xlate("to")),
             Text(Xlate("undefined"))});
  const tdk::WString names[] = {Xlate("x (east)"), Xlate("y (north)"), Xlate("z (elevation)")};
  for (std::size_t i = 0; i < extents.axes.size(); ++i) {
    const Extent& axis = extents.axes[i];
    table.Add(
        {Text(names[i]), Metres(axis.least), Metres(axis.most), console::Number(axis.undefined)});
  }
  console::Out(Text(extents.hasDesign ? Xlate("Extents in metres of all that there is")
                                      : Xlate("Extents in metres, stations included")) +
               "\n" + table.Text());
  if (extents.withoutDistance == 0) return;
  console::Out(console::Count(extents.withoutDistance, Xlate("{1} point without distance"),
                              Xlate("{1} points without distance")) +
               "\n");
}

}  // namespace

void ReportJob(HostDocument& document, bool all) {
  ReportJobs(*document.GetLibCmp(), all);
  ReportGpsGroups(*document.GetLibGps(), all);
  ReportKnownGroups(*document.GetLibPnt(), all);
  ReportTerrain(*document.GetLibDtm(), all);
  ReportRoads(*document.GetLibRoad(), all);
  if (!document.GetCts()->IsEmpty()) ReportCadastre(*document.GetCts());
  ReportThemes(*document.GetLibGis(), all);
  ReportDrawing(*document.GetCadEngine(), all);
  console::Out(Text(Xlate("In all:")) + " " + InWords(CountsOf(document)) + "\n");
  ReportExtents(ExtentsOf(document));
}
