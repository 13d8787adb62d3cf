#include "commands.h"
#include "console.h"
#include "failure.h"
#include "file_import.h"
#include "formats.h"
#include "host/store/file_trouble_catcher.h"
#include "job_computation.h"
#include "job_session.h"
#include "platform/output_file.h"
#include "platform/paths.h"
#include "services/translate.h"
#include "survey_json.h"
#include "survey_text.h"

namespace {

// The job, where the first word is one, and the files to be read into it.
struct Sources {
  std::optional<std::string> job;
  std::vector<std::string> files;
};

Sources CheckedSources(const Arguments& arguments) {
  Sources sources;
  sources.files = arguments.words;
  if (IsJob(sources.files.front())) {
    sources.job = sources.files.front();
    sources.files.erase(sources.files.begin());
  }
  for (const std::string& file : sources.files) {
    if (const auto report = arguments.Value("--report")) RefuseOneForBoth(file, *report);
    CheckThere(file);
    CheckReadable(file);
  }
  return sources;
}

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
  const TextOptions layout = ReadTextOptions(arguments);
  ProgressLine progress(console::IsErrorATerminal());
  progress.Begin(sources.job.value_or(sources.files.empty() ? "" : sources.files.front()));
  JobSession session(sources.job,
                     [&](std::uint64_t done, std::uint64_t total) { progress.Show(done, total); });
  progress.Clear();
  const tdk::WString crs = ReferenceSystemOption(arguments);
  const survey::ComputationSettings settings = ComputationOptions(arguments);
  HostDocument& document = session.Document();
  if (!sources.files.empty()) {
    const Module module;
    for (const std::string& file : sources.files) {
      TellRemarks(file, ImportFile(module, file, document, layout, progress).remarks);
    }
  }
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
