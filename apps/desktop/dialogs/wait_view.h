// The window that is shown while something takes its time.
#pragma once

#include <QDialog>
#include <QElapsedTimer>
#include <cstdint>

#include "apps/desktop/dialogs/dialog_shape.h"

class ButtonBar;
class QProgressBar;

/// How far it has come and, where nothing is left half done, a way to stop it: from when the work
/// tells how far it is, for then it can be asked to stop.
class WaitView : public QDialog {
 public:
  WaitView(const DialogShape& shape, bool mayCancel, QWidget* parent);

  /// `total` 0: not known. Redraws a few times a second at most.
  void ShowProgress(std::uint64_t done, std::uint64_t total);
  bool IsCancelled() const { return isCancelled_; }

  void reject() override;

 private:
  ButtonBar* buttons_ = nullptr;  // null when it cannot be stopped
  bool isCancelled_ = false;
  QProgressBar* bar_;
  QElapsedTimer sinceShown_;
};
