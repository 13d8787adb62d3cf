// The window that is shown while something takes its time.
#pragma once

#include <QDialog>
#include <QElapsedTimer>
#include <cstdint>

#include "apps/desktop/dialogs/dialog_shape.h"

class QLabel;
class QProgressBar;

/// How far it has come and, where nothing is left half done, a way to stop it.
class WaitView : public QDialog {
 public:
  WaitView(const DialogShape& shape, bool mayCancel, QWidget* parent);

  /// `total` 0: not known. Redraws a few times a second at most.
  void ShowProgress(std::uint64_t done, std::uint64_t total);
  bool IsCancelled() const { return isCancelled_; }

  void reject() override;

 private:
  bool mayCancel_;
  bool isCancelled_ = false;
  QProgressBar* bar_;
  QElapsedTimer sinceShown_;
};
