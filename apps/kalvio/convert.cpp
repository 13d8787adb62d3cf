#include <filesystem>

#include "commands.h"
#include "console.h"
#include "failure.h"
#include "file_import.h"
#include "formats.h"
#include "job_computation.h"
#include "job_session.h"
#include "layout.h"
#include "platform/numbers.h"
#include "platform/paths.h"
#include "services/translate.h"
#include "terrain_model.h"

namespace {

struct Files {
  std::vector<std::string> inputs;
  std::string output;
};

// All that can be wrong with the names is found before anything is read: first bad usage, then
// formats that this version lacks.
Files CheckedFiles(const Arguments& arguments) {
  Files files{arguments.words, arguments.words.back()};
  files.inputs.pop_back();
  for (const std::string& path : arguments.words) FormatOf(path);
  for (const std::string& input : files.inputs) {
    RefuseOneForBoth(input, files.output);
  }
  for (const std::string& input : files.inputs) CheckReadable(input);
  CheckWritable(files.output);
  return files;
}

// An option that would have no effect is a mistake of the user's.
void CheckTerrainOptions(const Arguments& arguments) {
  TerrainChoice(arguments);
  const std::string& output = arguments.words.back();
  if (arguments.Has("--select") && FormatOf(output).extension != std::string_view("xml")) {
    throw BadUsage(output + ": " + Xlate("--select is for LandXML files").ToUtf8());
  }
  for (const char* const option : {"--points", "--codes", "--max-edge"}) {
    if (!arguments.Has(option) || arguments.Has("--terrain")) continue;
    throw BadUsage(Fill(Xlate("{1} goes with --terrain"), {option}).ToUtf8());
  }
}

bool WantsProgress(const Arguments& arguments) {
  const std::string wish = arguments.Value("--progress").value_or("auto");
  return wish == "always" || (wish == "auto" && console::IsErrorATerminal());
}

// "23 kB"; nothing for what has no size, such as a pipe.
std::string SizeInWords(const std::string& path) {
  std::error_code error;
  const auto bytes = std::filesystem::file_size(platform::NativePath(path), error);
  if (error) return {};
  constexpr double kStep = 1000;
  double size = static_cast<double>(bytes);
  std::string_view unit = " B";
  for (const std::string_view larger : {" kB", " MB", " GB"}) {
    if (size < kStep) break;
    size /= kStep;
    unit = larger;
  }
  std::string text = " (";
  platform::AppendFixed(text, size, unit == " MB" || unit == " GB" ? 1 : 0);
  return text.append(unit).append(")");
}

// "read  wall.jb2: 1 job": the verbs are filled, so that names stand below each other.
class Summary {
 public:
  explicit Summary(bool isQuiet) : isQuiet_(isQuiet) {}

  void TellRead(const std::string& path, const std::string& what) const {
    Tell(Xlate("read").ToUtf8(), path, what);
  }
  void TellPositions(const CompletedPositions& completed) const {
    if (completed.plane != 0) {
      TellLine(Fill(Xlate("worked out the plane coordinates of {1} GPS points"),
                    {tdk::WString(console::Number(static_cast<std::uint64_t>(completed.plane)))}));
    }
    if (completed.geographic != 0) {
      TellLine(
          Fill(Xlate("worked out latitude and longitude of {1} GPS points"),
               {tdk::WString(console::Number(static_cast<std::uint64_t>(completed.geographic)))}));
    }
  }
  void TellComputation(const survey::SurveyResult& result) const {
    for (const std::string& line : SummaryLines(result)) TellLine(tdk::WString(line));
    if (!Stranded(result).empty()) {
      TellLine(Xlate("kalvio compute tells why stations place no points"));
    }
  }
  void TellTerrain(const std::string& name, const std::string& what) const {
    TellLine(
        Fill(Xlate("made terrain model \"{1}\": {2}"), {tdk::WString(name), tdk::WString(what)}));
  }
  void TellWrote(const std::string& path, const std::string& what) const {
    Tell(Xlate("wrote").ToUtf8(), path, what);
  }

 private:
  void Tell(const std::string& verb, const std::string& path, const std::string& what) const {
    const std::size_t column =
        std::max(DisplayWidth(Xlate("read").ToUtf8()), DisplayWidth(Xlate("wrote").ToUtf8())) + 1;
    TellLine(
        tdk::WString(verb + std::string(column - DisplayWidth(verb), ' ') + path + ": " + what));
  }
  void TellLine(const tdk::WString& line) const {
    if (isQuiet_) return;
    console::Out(line.ToUtf8() + "\n");
    if (!console::FinishOutput()) throw Failure(exit_status::kFailed, console::OutputTrouble());
  }

  bool isQuiet_;
};

void Import(const Files& files, const Module& module, HostDocument& document,
            const TextOptions& options, const Summary& summary, ProgressLine& progress) {
  // Where themes cannot go, their points can.
  const Carried& carried = FormatOf(files.output).carried;
  const bool makesPoints = carried.known && !carried.themes;
  for (const std::string& input : files.inputs) {
    const Exchange in = ImportFile(module, input, document, options, progress, makesPoints);
    summary.TellRead(input, InWords(in.counts));
    TellRemarks(input, in.remarks);
  }
}

// Also for groups that have a reference system of their own.
void CompleteGpsPositions(HostDocument& document, const tdk::WString& crs, const Summary& summary) {
  summary.TellPositions(CompletePositions(*document.GetLibGps(), crs));
}

void ComputeCoordinates(HostDocument& document, const Arguments& arguments,
                        const Summary& summary) {
  if (arguments.Has("--no-compute")) return;
  const ComputationReport report = ComputeJob(document, ComputationOptions(arguments));
  summary.TellComputation(report.survey);
  TellRemarks(Xlate("coordinates").ToUtf8(), Findings(report.survey));
}

// Of all points, once they have their coordinates.
void AddTerrain(HostDocument& document, const Arguments& arguments, const Summary& summary) {
  if (!arguments.Has("--terrain")) return;
  const std::string name = FreeTerrainName(document);
  const TerrainReport report = MakeTerrain(document, name, TerrainChoice(arguments));
  summary.TellTerrain(name, InWords(report));
  TellRemarks(name, report.Remarks());
}

void Export(const Files& files, const Module& module, HostDocument& document,
            const TextOptions& options, const OutputOptions& output, const Summary& summary,
            ProgressLine& progress) {
  Exchange out = ExportFile(module, files.output, document, options, output, progress);
  if (!out.leftBack.IsNothing()) {
    out.remarks.push_back(Fill(Xlate("left out, for such a file cannot hold it: {1}"),
                               {tdk::WString(InWords(out.leftBack))})
                              .ToUtf8());
  }
  summary.TellWrote(files.output, InWords(out.counts) + SizeInWords(files.output));
  TellRemarks(files.output, out.remarks);
}

}  // namespace

int RunConvert(const Arguments& arguments) {
  const TextOptions options = ReadTextOptions(arguments);
  OutputOptions output{ReadLandXmlParts(arguments), ReadDrawingOptions(arguments), {}, false};
  const Files files = CheckedFiles(arguments);
  CheckTerrainOptions(arguments);
  const tdk::WString crs = ReferenceSystemOption(arguments);  // before anything is read
  output.crs = crs;
  const auto job = arguments.Value("--job");
  const Summary summary(arguments.Has("--quiet"));
  ProgressLine progress(WantsProgress(arguments));
  progress.Begin(job.value_or(""));
  JobSession session(job,
                     [&](std::uint64_t done, std::uint64_t total) { progress.Show(done, total); });
  progress.Clear();
  const Module module;
  // Points of a text file may need the reference system of their group.
  GiveReferenceSystem(*session.Document().GetLibGps(), crs);
  Import(files, module, session.Document(), options, summary, progress);
  CompleteGpsPositions(session.Document(), crs, summary);
  ComputeCoordinates(session.Document(), arguments, summary);
  AddTerrain(session.Document(), arguments, summary);
  Export(files, module, session.Document(), options, output, summary, progress);
  // Every input has brought something, or there would have been a failure.
  session.Keep(std::nullopt, /*succeeded=*/true);
  return exit_status::kRan;
}
