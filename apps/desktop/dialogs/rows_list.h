// A list that says how much room it wants in rows.
#pragma once

#include <QListWidget>
#include <algorithm>

#include "apps/desktop/dialogs/dialog_shape.h"

/// Room for at least `rows` rows, and for half as many again where there is more.
class RowsList : public QListWidget {
 public:
  RowsList(int rows, const DialogShape& shape) : rows_(rows), finger_(shape.finger) {}

  QSize minimumSizeHint() const override { return {0, HeightOf(rows_)}; }
  QSize sizeHint() const override {
    return {QListWidget::sizeHint().width(), HeightOf(rows_ + rows_ / 2)};
  }

 private:
  int HeightOf(int rows) const {
    const int row = std::max({finger_, fontMetrics().height() + 2, iconSize().height()});
    return rows * row + 2 * frameWidth();
  }

  int rows_;
  int finger_;
};
