#include "apps/desktop/dialogs/form_grid.h"

namespace {

// Labels, what they are about, and what stands beside that.
constexpr int kField = 1;
constexpr int kBeside = 2;
constexpr int kColumns = 3;

}  // namespace

FormGrid::FormGrid(QWidget* body, const DialogShape& shape)
    : grid_(new QGridLayout(body)), isNarrow_(shape.isHandheld) {
  grid_->setColumnStretch(kField, 1);
}

void FormGrid::AddRow(QLabel* label, QWidget* widget, bool isWide, bool grows) {
  int row = grid_->rowCount();
  const bool isAbove = isWide || isNarrow_;
  lastColumn_ = isAbove ? 0 : kField;
  if (label != nullptr && isAbove) {
    grid_->addWidget(label, row, 0, 1, kColumns);
    ++row;
  } else if (label != nullptr) {
    grid_->addWidget(label, row, 0);
  }
  grid_->addWidget(widget, row, lastColumn_, 1, kColumns - lastColumn_);
  if (grows) {
    constexpr int kNearlyAll = 255;  // of what the last row gets 1
    QSizePolicy policy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    policy.setVerticalStretch(kNearlyAll);
    widget->setSizePolicy(policy);
  }
  last_ = widget;
}

void FormGrid::AddBeside(QWidget* widget) {
  const int row = grid_->rowCount() - 1;
  if (last_ != nullptr) {
    grid_->removeWidget(last_);
    grid_->addWidget(last_, row, lastColumn_, 1, kBeside - lastColumn_);
  }
  grid_->addWidget(widget, row, kBeside);
}

void FormGrid::End() { grid_->setRowStretch(grid_->rowCount(), 1); }
