// The window that tells what an exchange did.
#pragma once

#include <QDialog>
#include <functional>

#include "apps/desktop/dialogs/dialog_shape.h"
#include "apps/desktop/job/exchange_report.h"

/// Stays beside the main window: lines about an object of the job lead to it.
class ReportWindow : public QDialog {
 public:
  ReportWindow(ExchangeReport report, const DialogShape& shape, QWidget* parent);

  /// Called with the object of a line that was clicked.
  std::function<void(const JobNode&)> onObject;
  const ExchangeReport& Report() const { return report_; }

 private:
  ExchangeReport report_;
};
