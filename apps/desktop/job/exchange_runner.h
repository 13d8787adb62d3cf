// One exchange, from the menu to its report.
#pragma once

#include <optional>
#include <string>

#include "apps/desktop/dialogs/qt_views.h"
#include "apps/desktop/job/desktop_job.h"
#include "apps/desktop/job/exchange_report.h"
#include "apps/desktop/job/exchange_table.h"
#include "module.h"

class ExchangeRunner {
 public:
  /// `owner`: the window that dialogs belong to. Nothing is owned.
  ExchangeRunner(DesktopJob& job, const Module& module, QWidget* owner, const DialogShape& shape)
      : job_(job), module_(module), owner_(owner), shape_(shape) {}

  /// Runs a command; the dialogs of a text or Shape import start with `path`, all others take it
  /// without asking. What it did; nothing when the user cancelled its dialog. Afterwards the
  /// document may be another one. Throws JobError, and ExchangeStopped, with everything as it was,
  /// when the user stopped it.
  std::optional<ExchangeReport> Run(const ExchangeCommand& command,
                                    const std::optional<std::string>& path = {});

 private:
  struct Outcome {
    bool ran = false;
    std::vector<std::string> remarks;
  };

  Outcome Call(const ExchangeCommand& command, QtViews& views);
  Outcome LoadLandXmlFile(QtViews& views);
  ExchangeReport ReportImport(const ExchangeCommand& command, const QtViews& views,
                              const Outcome& outcome, const Counts& before);
  ExchangeReport ReportExport(const ExchangeCommand& command, const QtViews& views,
                              const Outcome& outcome);
  void TellNew(ExchangeReport& report) const;
  void TellRemarks(const QtViews& views, const Outcome& outcome, ExchangeReport& report);

  DesktopJob& job_;
  const Module& module_;
  QWidget* owner_;
  DialogShape shape_;
  std::vector<int> sizesBefore_;  // of the sections of the tree
};

/// Fills the dialog that chooses the file of an import: it takes `path` and closes, or starts with
/// it where there is more to be asked.
std::optional<int> ChooseGivenFile(Dialog& dialog, const std::string& path);
