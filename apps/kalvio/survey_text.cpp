#include "survey_text.h"

#include <algorithm>
#include <map>

#include "console.h"
#include "layout.h"
#include "services/number_text.h"
#include "services/translate.h"
#include "table.h"

namespace {

using survey::JobResult;
using survey::SetUpResult;
using tdk::WString;
using Align = Table::Align;

constexpr std::size_t kShown = 20;
constexpr std::size_t kIndent = 2;
constexpr std::size_t kNamesShown = 10;

std::string Text(const WString& text) { return text.ToUtf8(); }
std::string Decimals(double value, int decimals) {
  return IsDefined(value) ? Text(StringDaDouble(value, 0, decimals)) : "–";
}
std::string Metres(double value) { return Decimals(value, 3); }
std::string Gon(double value) { return Decimals(value, 4); }
// What rounds to a full circle is none.
std::string Direction(double value) {
  constexpr double kRoundedUp = 399.99995;
  return Gon(IsDefined(value) && value >= kRoundedUp ? 0 : value);
}
std::string Millimetres(double metres) {
  return IsDefined(metres) ? Decimals(metres * 1000, 1) : "–";
}
std::string Number(std::size_t count) { return console::Number(count); }
std::string NameOrDash(std::string_view name) { return name.empty() ? "–" : Printable(name); }

class Report {
 public:
  explicit Report(bool all) : all_(all) {}

  void Line(const std::string& line) { text_ += line + "\n"; }
  void Indented(const std::string& line) { Line(std::string(kIndent, ' ') + line); }
  void Add(const Table& table) { text_ += table.Text(); }
  std::size_t Shown(std::size_t size, std::size_t most = kShown) const {
    return all_ ? size : std::min(size, most);
  }
  void TellRest(std::size_t size) {
    if (Shown(size) == size) return;
    Indented(Text(
        Fill(Xlate("… and {1} more (--all shows them)"), {WString(Number(size - Shown(size)))})));
  }
  std::string Take() { return std::move(text_); }

 private:
  bool all_;
  std::string text_;
};

void TellSetUps(const JobResult& job, Report& report) {
  Table table({Align::kLeft, Align::kLeft, Align::kRight, Align::kRight, Align::kRight,
               Align::kRight, Align::kRight, Align::kRight},
              kIndent);
  table.Add({Text(Xlate("station")), Text(Xlate("method")), Text(Xlate("east")),
             Text(Xlate("north")), Text(Xlate("elevation")), Text(Xlate("orientation (gon)")),
             Text(Xlate("spread (gon)")), Text(Xlate("points"))});
  for (std::size_t i = 0; i < report.Shown(job.setUps.size()); ++i) {
    const SetUpResult& it = job.setUps[i];
    const bool hasSpread = IsDefined(it.orientation) && it.orientationSpread > 0;
    const auto points = static_cast<std::size_t>(it.placed) + static_cast<std::size_t>(it.kept);
    table.Add({NameOrDash(it.name), InWords(it.method), Metres(it.mark.x), Metres(it.mark.y),
               Metres(it.mark.z), Direction(it.orientation),
               hasSpread ? Gon(it.orientationSpread) : "–", Number(points)});
  }
  report.Add(table);
  report.TellRest(job.setUps.size());
}

std::string Remark(const survey::TargetResidual& it) {
  std::string remark = it.isUsed ? "" : Text(Xlate("not used"));
  if (it.StandsOut()) remark += (remark.empty() ? "" : ", ") + Text(Xlate("stands out"));
  return remark;
}

void TellResiduals(const JobResult& job, Report& report) {
  std::vector<std::pair<const SetUpResult*, const survey::TargetResidual*>> all;
  for (const SetUpResult& setUp : job.setUps) {
    for (const survey::TargetResidual& it : setUp.residuals) all.emplace_back(&setUp, &it);
  }
  if (all.empty()) return;
  Table table({Align::kLeft, Align::kLeft, Align::kRight, Align::kRight, Align::kRight,
               Align::kRight, Align::kLeft},
              kIndent);
  table.Add({Text(Xlate("station")), Text(Xlate("target")), Text(Xlate("direction (gon)")),
             Text(Xlate("across (mm)")), Text(Xlate("along (mm)")), Text(Xlate("height (mm)")),
             ""});
  for (std::size_t i = 0; i < report.Shown(all.size()); ++i) {
    const survey::TargetResidual& it = *all[i].second;
    table.Add({NameOrDash(all[i].first->name), NameOrDash(it.name), Gon(it.direction),
               Millimetres(it.across), Millimetres(it.along), Millimetres(it.height), Remark(it)});
  }
  report.Line(Text(Xlate("Residuals: sighted less computed")));
  report.Add(table);
  report.TellRest(all.size());
}

void TellRepeated(const JobResult& job, Report& report) {
  if (job.repeated.empty()) return;
  std::vector<survey::RepeatedPoint> worst = job.repeated;
  std::stable_sort(worst.begin(), worst.end(),
                   [](const auto& a, const auto& b) { return a.spread > b.spread; });
  report.Line(Text(Xlate("Points measured more than once, the largest spread first")));
  Table table({Align::kLeft, Align::kRight, Align::kRight, Align::kRight, Align::kLeft}, kIndent);
  table.Add({Text(Xlate("point")), Text(Xlate("times")), Text(Xlate("plan (mm)")),
             Text(Xlate("height (mm)")), ""});
  for (std::size_t i = 0; i < report.Shown(worst.size()); ++i) {
    const survey::RepeatedPoint& it = worst[i];
    table.Add({NameOrDash(it.name), Number(static_cast<std::size_t>(it.sights)),
               Millimetres(it.spread), Millimetres(it.heightSpread),
               it.isAveraged ? "" : Text(Xlate("too far apart for one point"))});
  }
  report.Add(table);
  report.TellRest(worst.size());
}

// "12 points, no distance: 404, 108, 104, …".
template <class Why>
void TellGroup(const std::vector<std::string>& names, Why why, const std::string& of,
               Report& report) {
  std::string line = of + ", " + InWords(why) + ": ";
  const std::size_t shown = report.Shown(names.size(), kNamesShown);
  for (std::size_t i = 0; i < shown; ++i) line += (i == 0 ? "" : ", ") + NameOrDash(names[i]);
  if (shown < names.size()) {
    line += " " + Text(Fill(Xlate("… and {1} more (--all shows them)"),
                            {WString(Number(names.size() - shown))}));
  }
  report.Indented(line);
}

void TellMissing(const CLibCmp& library, const JobResult& job, Report& report) {
  if (job.missing.empty()) return;
  report.Line(console::Count(job.missing.size(), Xlate("{1} point without coordinates"),
                             Xlate("{1} points without coordinates")));
  std::map<std::pair<int, survey::PointTrouble>, std::vector<std::string>> groups;
  for (const survey::MissingPoint& it : job.missing) {
    const CPun& point = *library.GetPunAt(job.job, it.station, it.point);
    groups[{it.station, it.trouble}].emplace_back(point.NameUtf8());
  }
  std::size_t count = 0;
  for (const auto& [group, names] : groups) {
    if (++count > report.Shown(groups.size())) break;
    const std::string station = NameOrDash(job.setUps[static_cast<std::size_t>(group.first)].name);
    TellGroup(names, group.second, Text(Fill(Xlate("station {1}"), {WString(station)})), report);
  }
  report.TellRest(groups.size());
}

void TellJob(const CLibCmp& library, const JobResult& job, Report& report) {
  report.Line(Text(Fill(Xlate("Job {1}"), {WString(NameOrDash(job.name))})));
  TellSetUps(job, report);
  TellResiduals(job, report);
  TellRepeated(job, report);
  TellMissing(library, job, report);
}

void TellGps(const CLibGps& library, const std::vector<GroupPositions>& groups, Report& report) {
  for (const GroupPositions& it : groups) {
    const CGrpGps& group = *library.GetGrpAt(it.group);
    report.Line(
        Text(Fill(Xlate("GPS group {1}: {2} of {3} points have plane coordinates"),
                  {WString(NameOrDash(group.GetNomeGrp().ToUtf8())),
                   WString(Number(static_cast<std::size_t>(it.withPlane))),
                   WString(Number(static_cast<std::size_t>(it.withPlane) + it.missing.size()))})));
    std::map<NoPlane, std::vector<std::string>> reasons;
    for (const auto& missing : it.missing) {
      reasons[missing.why].emplace_back(library.GetPunAt(it.group, missing.point)->NameUtf8());
    }
    for (const auto& [why, names] : reasons) {
      TellGroup(names, why, console::Count(names.size(), Xlate("{1} point"), Xlate("{1} points")),
                report);
    }
  }
}

}  // namespace

std::string SurveyText(HostDocument& document, const ComputationReport& report, bool all) {
  Report text(all);
  if (report.survey.jobs.empty() && report.gps.empty()) {
    text.Line(Text(Xlate("There is nothing to work out: no total-station job and no GPS group.")));
  }
  for (const JobResult& job : report.survey.jobs) TellJob(*document.GetLibCmp(), job, text);
  TellGps(*document.GetLibGps(), report.gps, text);
  std::vector<std::string> findings = Stranded(report.survey);
  for (std::string& line : Findings(report.survey)) findings.push_back(std::move(line));
  if (!findings.empty()) text.Line(Text(Xlate("To be looked at")));
  for (std::size_t i = 0; i < text.Shown(findings.size()); ++i) text.Indented(findings[i]);
  text.TellRest(findings.size());
  for (const std::string& line : SummaryLines(report.survey)) text.Line(line);
  return text.Take();
}
