#include <filesystem>

#include "commands.h"
#include "console.h"
#include "failure.h"
#include "file_import.h"
#include "formats.h"
#include "job_report.h"
#include "job_session.h"
#include "services/translate.h"
#include "text_preview.h"

namespace {

// A folder and a .json document are jobs; anything else is a file to import.
bool IsJob(const std::string& path) {
  std::error_code error;
  return IsJsonJob(path) || std::filesystem::is_directory(path, error);
}

// A name that is not there is told as such before its extension is looked at.
void CheckThere(const std::string& path) {
  std::error_code error;
  if (FindFormat(path) != nullptr || std::filesystem::exists(path, error)) return;
  throw Failed(path, Xlate("there is no such job or file").ToUtf8());
}

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
  }
  return exit_status::kRan;
}
