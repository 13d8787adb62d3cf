#include "apps/desktop/dialogs/wait_view.h"

#include <QCoreApplication>
#include <QLabel>
#include <QProgressBar>
#include <QVBoxLayout>
#include <algorithm>

#include "apps/desktop/dialogs/button_bar.h"
#include "apps/desktop/dialogs/handheld_style.h"
#include "apps/desktop/dialogs/mnemonics.h"
#include "apps/desktop/qt_text.h"

WaitView::WaitView(const DialogShape& shape, bool mayCancel, QWidget* parent)
    : QDialog(parent), bar_(new QProgressBar) {
  setObjectName("wait");
  setWindowTitle(Translated(ToXlate("Please wait")));
  setWindowModality(Qt::ApplicationModal);
  bar_->setObjectName("progress");
  bar_->setRange(0, 0);
  auto* const layout = new QVBoxLayout(this);
  auto* const contents = new QVBoxLayout;
  contents->setContentsMargins(layout->contentsMargins());
  auto* const label = new QLabel(Translated(ToXlate("The data are being worked on.")));
  label->setWordWrap(shape.isHandheld);
  contents->addWidget(label);
  contents->addWidget(bar_);
  contents->addStretch();
  layout->addLayout(contents, 1);
  if (mayCancel) {
    buttons_ = new ButtonBar({ToXlate("Cancel")}, shape.WithButtonsBelow(),
                             [this](std::string_view) { reject(); });
    buttons_->hide();
    layout->addWidget(buttons_);
  }
  constexpr int kWidth = 340;
  if (!shape.isHandheld) setMinimumWidth(kWidth);
  FillScreen(*this, *layout, shape);
  AssignMnemonics(this);
}

void WaitView::ShowProgress(std::uint64_t done, std::uint64_t total) {
  constexpr int kBetween = 80;  // milliseconds
  if (sinceShown_.isValid() && sinceShown_.elapsed() < kBetween) return;
  sinceShown_.start();
  if (buttons_ != nullptr) buttons_->show();
  if (total > 0) {
    constexpr int kWhole = 1000;
    const double part = static_cast<double>(std::min(done, total)) / static_cast<double>(total);
    bar_->setRange(0, kWhole);
    bar_->setValue(static_cast<int>(part * kWhole));
  }
  // So that it is drawn and its button works; all other windows are shut off by its modality.
  QCoreApplication::processEvents();
}

void WaitView::reject() {
  if (buttons_ != nullptr) isCancelled_ = true;
}
