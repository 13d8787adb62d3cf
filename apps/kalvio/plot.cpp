#include <cmath>

#include "commands.h"
#include "console.h"
#include "counts.h"
#include "failure.h"
#include "file_import.h"
#include "host/store/file_trouble_catcher.h"
#include "job_computation.h"
#include "job_session.h"
#include "platform/numbers.h"
#include "platform/paths.h"
#include "plot_options.h"
#include "services/translate.h"
#include "sources.h"

namespace {

// What the plan is called: the one job in it that has a name, and what it was read from.
std::string TitleOf(HostDocument& document, const Sources& sources) {
  std::string path = AbsolutePath(sources.First());
  while (path.size() > 1 && path.ends_with('/')) path.pop_back();
  std::string file(platform::FileName(path));
  const CLibCmp& surveys = *document.GetLibCmp();
  if (surveys.GetJobArSize() != 1) return file;
  const std::string job = surveys.GetJobAt(0)->GetNome().ToUtf8();
  return job.empty() || file.starts_with(job) ? file : job + " – " + file;
}

std::string Number(double value) {
  constexpr double kLargest = 1e15;
  std::string text;
  if (value >= kLargest) {
    platform::AppendShortest(text, value);
    return text;
  }
  platform::AppendFixed(text, value, 3);
  while (text.ends_with('0')) text.pop_back();
  if (text.ends_with('.')) text.pop_back();
  return text;
}

std::string SizeInWords(const plot::PlanOptions& options, const plot::PlanReport& report) {
  const auto pattern =
      options.kind == plot::PictureKind::kPng ? Xlate("{1} × {2} pixels") : Xlate("{1} × {2} mm");
  return Fill(pattern, {tdk::WString(Number(report.width)), tdk::WString(Number(report.height))})
      .ToUtf8();
}

// "wrote plan.pdf: 105 points, 1 road; 297 × 210 mm, 1:500"
void TellDrawn(const std::string& output, const plot::PlanOptions& options,
               const plot::PlanReport& report) {
  std::string what;
  const auto add = [&](std::uint64_t count, const tdk::WString& one, const tdk::WString& many) {
    if (count == 0) return;
    if (!what.empty()) what += ", ";
    what += console::Count(count, one, many);
  };
  add(report.points, Xlate("{1} point"), Xlate("{1} points"));
  add(report.models, Xlate("{1} terrain model"), Xlate("{1} terrain models"));
  add(report.roads, Xlate("{1} road"), Xlate("{1} roads"));
  add(report.themes, Xlate("{1} theme"), Xlate("{1} themes"));
  add(report.entities, Xlate("{1} drawn entity"), Xlate("{1} drawn entities"));
  if (what.empty()) what = Xlate("nothing").ToUtf8();
  const bool hasScale = options.kind != plot::PictureKind::kPng || options.scale > 0;
  console::Out(Xlate("wrote").ToUtf8() + " " + output + ": " + what + "; " +
               SizeInWords(options, report) + (hasScale ? ", 1:" + Number(report.scale) : "") +
               "\n");
}

void TellLeftOut(const std::string& output, const plot::PlanReport& report) {
  std::vector<std::string> remarks;
  if (report.withoutPlace != 0) {
    remarks.push_back(console::Count(report.withoutPlace,
                                     Xlate("{1} point without plane coordinates is left out"),
                                     Xlate("{1} points without plane coordinates are left out")));
  }
  if (report.beyondSheet != 0) {
    remarks.push_back(console::Count(report.beyondSheet,
                                     Xlate("{1} point lies beyond the sheet at this scale"),
                                     Xlate("{1} points lie beyond the sheet at this scale")));
  }
  if (report.smallTexts != 0) {
    remarks.push_back(console::Count(report.smallTexts,
                                     Xlate("{1} text is too small to be read at this scale"),
                                     Xlate("{1} texts are too small to be read at this scale")));
  }
  for (const std::string& name : report.fineModels) {
    remarks.push_back(
        Fill(
            Xlate("the triangles of terrain model \"{1}\" are too small to be drawn at this scale"),
            {tdk::WString(name)})
            .ToUtf8());
  }
  TellRemarks(output, remarks);
}

[[noreturn]] void RefuseEmpty(const std::string& source, const plot::PlanReport& report) {
  const std::string reason =
      report.withoutPlace == 0
          ? Xlate(
                "there is nothing to draw: no points, no terrain, no roads, no themes, no drawing")
                .ToUtf8()
          : console::Count(
                report.withoutPlace,
                Xlate("there is nothing to draw: its {1} point has no plane coordinates"),
                Xlate("there is nothing to draw: none of its {1} points has plane "
                      "coordinates"));
  throw Failed(source, reason);
}

void Draw(HostDocument& document, const Sources& sources, const plot::PlanOptions& options,
          const std::string& output) {
  const FileTroubleCatcher trouble;
  plot::IPlotter* const plotter = plot::Plotter();
  if (plotter == nullptr) {
    throw Failed(output, Xlate("what draws plans cannot be loaded").ToUtf8());
  }
  const plot::PlanReport report =
      plotter->Draw(document, options, platform::NativePath(AbsolutePath(output)));
  using Outcome = plot::PlanReport::Outcome;
  if (report.outcome == Outcome::kNothingToDraw) RefuseEmpty(sources.First(), report);
  if (report.outcome == Outcome::kNotWritten) throw Failed(output, trouble.Reason());
  TellDrawn(output, options, report);
  TellLeftOut(output, report);
}

}  // namespace

// Points that have no coordinates yet get them first, as in every conversion; the job stays as it
// was.
int RunPlot(const Arguments& arguments) {
  Arguments inputs = arguments;
  const std::string output = inputs.words.back();
  inputs.words.pop_back();
  plot::PlanOptions options = ReadPlanOptions(arguments, output);
  const Sources sources = CheckedSources(inputs);
  for (const std::string& input : inputs.words) RefuseOneForBoth(input, output);
  TextOptions layout = ReadTextOptions(arguments);
  if (!layout.kind) layout.kind = PointKind::kKnown;
  const tdk::WString crs = ReferenceSystemOption(arguments);
  ProgressLine progress(console::IsErrorATerminal());
  progress.Begin(sources.First());
  JobSession session(sources.job,
                     [&](std::uint64_t done, std::uint64_t total) { progress.Show(done, total); });
  progress.Clear();
  HostDocument& document = session.Document();
  ReadFiles(sources, document, layout, progress, FeaturePoints::kOfPoints);
  CompletePositions(*document.GetLibGps(), crs);
  ComputeJob(document, {});
  options.title = TitleOf(document, sources);
  Draw(document, sources, options, output);
  return exit_status::kRan;
}
