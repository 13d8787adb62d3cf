#include "commands.h"
#include "console.h"
#include "failure.h"
#include "file_import.h"
#include "host/store/file_trouble_catcher.h"
#include "job_computation.h"
#include "job_session.h"
#include "platform/output_file.h"
#include "sources.h"
#include "survey_json.h"
#include "survey_text.h"

namespace {

void WriteReport(const std::string& path, const std::string& text) {
  const FileTroubleCatcher trouble;
  platform::OutputFile file;
  if (file.Open(AbsolutePath(path))) {
    file.Buffer() = text;
    if (file.Commit()) return;
  }
  throw Failed(path, trouble.Reason());
}

}  // namespace

int RunCompute(const Arguments& arguments) {
  const Sources sources = CheckedSources(arguments);
  if (const auto report = arguments.Value("--report")) {
    for (const std::string& file : sources.files) RefuseOneForBoth(file, *report);
  }
  const TextOptions layout = ReadTextOptions(arguments);
  ProgressLine progress(console::IsErrorATerminal());
  progress.Begin(sources.First());
  JobSession session(sources.job,
                     [&](std::uint64_t done, std::uint64_t total) { progress.Show(done, total); });
  progress.Clear();
  const tdk::WString crs = ReferenceSystemOption(arguments);
  const survey::ComputationSettings settings = ComputationOptions(arguments);
  HostDocument& document = session.Document();
  ReadFiles(sources, document, layout, progress);
  CompletePositions(*document.GetLibGps(), crs);
  const ComputationReport report = ComputeJob(document, settings);
  const bool all = arguments.Has("--all");
  const auto text = [&](bool isJson, bool isWhole) {
    return isJson ? SurveyJson(document, report) : SurveyText(document, report, isWhole);
  };
  if (const auto file = arguments.Value("--report"))
    WriteReport(*file, text(IsJsonJob(*file), true));
  console::Out(text(arguments.Has("--json"), all));
  session.Keep(arguments.Value("--save"), /*succeeded=*/true);
  return exit_status::kRan;
}
