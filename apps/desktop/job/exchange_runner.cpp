#include "apps/desktop/job/exchange_runner.h"

#include <filesystem>
#include <nlohmann/json.hpp>

#include "apps/desktop/job/text_preview.h"
#include "apps/desktop/qt_text.h"
#include "console.h"
#include "formats.h"
#include "host/gis/shape_files.h"
#include "host/landxml/load.h"
#include "job_session.h"
#include "platform/paths.h"
#include "services/file_dialog.h"
#include "services/jobs_folder.h"
#include "trouble_scope.h"

namespace {

std::vector<int> SectionSizes(HostDocument& document) {
  std::vector<int> sizes;
  for (int section = 0; section < ChildCount(document, {}); ++section) {
    sizes.push_back(ChildCount(document, ChildAt({}, section)));
  }
  return sizes;
}

std::string InWords(const ExchangeNote& note) {
  if (note.line == 0) return note.text.ToUtf8();
  return Fill(Xlate("line {1}: {2}"), {tdk::WString(console::Number(note.line)), note.text})
      .ToUtf8();
}

const FormatRow* FormatOfFunction(const ExchangeCommand& command, const std::string& path) {
  if (const FormatRow* const row = FindFormat(path)) return row;
  return FindFormat("x." + std::string(command.extensions));
}

// The dialog of a text file knows its name without the extension.
QString ShownPath(const ExchangeCommand& command, const std::string& path) {
  const std::string extensions = command.extensions;
  const std::string first = extensions.substr(0, extensions.find(';'));
  return ToQt(platform::NativePath(path) +
              (platform::Extension(path).empty() ? '.' + first : std::string()));
}

}  // namespace

std::optional<int> ChooseGivenFile(Dialog& dialog, const std::string& path) {
  const std::string absolute = AbsolutePath(path);
  const std::string_view name = dialog.Name();
  if (name == "file" || name == "cad-file") {
    if (dialog.Set("path", absolute) != DialogSet::kDone) return std::nullopt;
    // A file that it does not take has been told; there is no other to choose.
    return dialog.Press("OK").value_or(Dialog::kCancel);
  }
  if (name == "text-main" || name == "shape-import") {
    const std::string file(platform::FileName(absolute));
    dialog.Set("folder", absolute.substr(0, absolute.size() - file.size()));
    dialog.Set("file", file.substr(0, file.rfind('.')));
  }
  return std::nullopt;
}

std::optional<ExchangeReport> ExchangeRunner::Run(const ExchangeCommand& command,
                                                  const std::optional<std::string>& path) {
  QtViews views(owner_, shape_);
  TextPreview preview(module_, views);
  views.SetPreview(&preview);
  bool isFirst = true;
  if (path) {
    views.prepare = [&](Dialog& dialog) {
      return std::exchange(isFirst, false) ? ChooseGivenFile(dialog, *path) : std::nullopt;
    };
  }
  if (command.isImport) job_.KeepForUndo(views.Progress());
  // An import that is stopped is undone, and an export leaves the old file until it is complete.
  views.AllowCancel(true);
  const Counts before = CountsOf(job_.Document());
  sizesBefore_ = SectionSizes(job_.Document());
  const Outcome outcome =
      command.function == nullptr ? LoadLandXmlFile(views) : Call(command, views);
  if (views.WasCancelled()) {
    views.AllowCancel(false);
    if (command.isImport) job_.Undo(views.Progress());
    throw ExchangeStopped();
  }
  job_.KeepSettings();
  const bool brought = command.isImport && CountsOf(job_.Document()) != before;
  if (command.isImport && !brought) job_.ForgetUndo();
  if (brought) job_.MarkChanged();
  if (!outcome.ran && !brought && outcome.remarks.empty()) return std::nullopt;
  return command.isImport ? ReportImport(command, views, outcome, before)
                          : ReportExport(command, views, outcome);
}

ExchangeRunner::Outcome ExchangeRunner::Call(const ExchangeCommand& command, QtViews& views) {
  const TroubleScope trouble;
  CWnd window(&views);
  const CallResult result =
      module_.Call(command.function, window, job_.Document(), {"kalvio-desktop", KALVIO_VERSION});
  Outcome outcome{result.value == 1 || views.HasWritten(), {}};
  if (result.path) {
    outcome.remarks.push_back(
        Xlate("The job has the path of an image only; the plan does not show it.").ToUtf8());
  }
  if (std::string reason = trouble.Reason(views.Path()); !reason.empty()) {
    outcome.remarks.push_back(std::move(reason));
  }
  for (const ShapeFiles::Note& note : ShapeFiles::Install().TakeNotes()) {
    outcome.remarks.push_back(note.Line());
  }
  // The Shape import says 1 whatever became of it, a cancelled dialog included.
  if (command.function == std::string_view("FImportEntFromFileShape") && views.Path().empty()) {
    outcome.ran = false;
  }
  return outcome;
}

// The module only writes LandXML; the host reads it.
ExchangeRunner::Outcome ExchangeRunner::LoadLandXmlFile(QtViews& views) {
  CWnd window(&views);
  CDlgImportExportGeneric dialog(CCloudManager::GetInstance(), &window, -1);
  dialog.SetVars(CJobsFolder::GetJobNameFolderWthSlash(), Xlate("LandXML file import"), "xml",
                 /*isImport=*/true, {});
  if (dialog.DoModal() != Dialog::kOk) return {};
  tdk::WString path;
  dialog.GetVars(path);
  const TroubleScope trouble;
  Outcome outcome{true, {}};
  try {
    outcome.remarks =
        LoadLandXml(platform::NativePath(path.ToUtf8()), job_.Document(), views.Progress());
  } catch (const landxml_load::LoadError& error) {
    const std::string reason = trouble.Reason(path.ToUtf8());
    outcome.remarks.push_back(reason.empty() ? error.what() : reason);
  } catch (const ExchangeStopped&) {
    outcome.ran = false;
  }
  views.EndWait();
  return outcome;
}

ExchangeReport ExchangeRunner::ReportImport(const ExchangeCommand& command, const QtViews& views,
                                            const Outcome& outcome, const Counts& before) {
  HostDocument& document = job_.Document();
  ExchangeReport report{Translated(command.text), {}};
  if (!views.Path().empty()) report.Tell(ShownPath(command, views.Path()));
  const Counts after = CountsOf(document);
  report.Tell(Translated(ToXlate("came in: {1}"), {tdk::WString(::InWords(after - before))}));
  TellNew(report);
  report.Tell(Translated(ToXlate("before: {1}"), {tdk::WString(::InWords(before))}));
  report.Tell(Translated(ToXlate("now: {1}"), {tdk::WString(::InWords(after))}));
  TellRemarks(views, outcome, report);
  return report;
}

ExchangeReport ExchangeRunner::ReportExport(const ExchangeCommand& command, const QtViews& views,
                                            const Outcome& outcome) {
  ExchangeReport report{Translated(command.text), {}};
  if (!views.Path().empty()) report.Tell(ShownPath(command, views.Path()));
  const Counts all = CountsOf(job_.Document());
  const FormatRow* const format = FormatOfFunction(command, views.Path());
  if (format != nullptr && !format->isPointList) {
    const Counts held = Within(all, format->carried);
    report.Tell(Translated(ToXlate("the file can hold: {1}"), {tdk::WString(::InWords(held))}));
    if (const Counts left = all - held; !left.IsNothing()) {
      report.Warn(Fill(Xlate("left out, for such a file cannot hold it: {1}"),
                       {tdk::WString(::InWords(left))})
                      .ToUtf8(),
                  job_.Document());
    }
  } else {
    report.Tell(Translated(ToXlate("the job holds: {1}"), {tdk::WString(::InWords(all))}));
  }
  TellRemarks(views, outcome, report);
  return report;
}

// What is new below the sections of the tree, each to be gone to.
void ExchangeRunner::TellNew(ExchangeReport& report) const {
  constexpr int kShown = 20;
  HostDocument& document = job_.Document();
  const std::vector<int> sizes = SectionSizes(document);
  for (std::size_t i = 0; i < sizes.size(); ++i) {
    const JobNode section = ChildAt({}, static_cast<int>(i));
    const int last = std::min(sizes[i], sizesBefore_[i] + kShown);
    for (int row = sizesBefore_[i]; row < last; ++row) {
      const JobNode node = ChildAt(section, row);
      report.Tell(
          Translated(ToXlate("new: {1}: {2}"), {NameOf(document, section), NameOf(document, node)}),
          node);
    }
  }
}

void ExchangeRunner::TellRemarks(const QtViews& views, const Outcome& outcome,
                                 ExchangeReport& report) {
  HostDocument& document = job_.Document();
  for (const std::string& remark : outcome.remarks) report.Warn(remark, document);
  for (const ExchangeNote& note : views.Notes()) report.Warn(InWords(note), document);
  for (const QString& message : views.Messages()) report.Warn(ToUtf8(message), document);
}
