#include "commands.h"
#include "console.h"
#include "failure.h"
#include "file_import.h"
#include "formats.h"
#include "job_report.h"
#include "job_session.h"
#include "text_preview.h"
#include "theme_report.h"

namespace {

void Load(const std::string& path, HostDocument& document, const TextOptions& options,
          ProgressLine& progress) {
  CheckThere(path);
  CheckReadable(path);
  const Module module;
  TellRemarks(path, ImportFile(module, path, document, options, progress).remarks);
}

}  // namespace

int RunShow(const Arguments& arguments) {
  const std::string& path = arguments.words.front();
  TextOptions options = ReadTextOptions(arguments);
  if (!options.kind) options.kind = PointKind::kKnown;
  ProgressLine progress(console::IsErrorATerminal());
  progress.Begin(path);
  const bool isJob = IsJob(path);
  JobSession session(isJob ? std::optional(path) : std::nullopt,
                     [&](std::uint64_t done, std::uint64_t total) { progress.Show(done, total); });
  if (!isJob) Load(path, session.Document(), options, progress);
  progress.Clear();
  if (arguments.Has("--json")) {
    WriteJobJson(session.Document(), [](std::string_view text) { console::Out(text); });
  } else {
    const FormatRow* const format = isJob ? nullptr : FindFormat(path);
    if (format != nullptr && format->isPointList) {
      PreviewPoints(session.Document(), options, arguments.Has("--all"));
    }
    ReportJob(session.Document(), arguments.Has("--all"));
    if (format != nullptr && format->extension == std::string_view("shp")) ReportEncoding();
  }
  return exit_status::kRan;
}
