// Controls with their labels, below each other.
#pragma once

#include <QGridLayout>
#include <QLabel>

#include "apps/desktop/dialogs/dialog_shape.h"

/// On a desktop labels stand before their controls, on a handheld above them. A row whose widgets
/// are hidden takes no room.
class FormGrid {
 public:
  /// Becomes the layout of `body`, which owns all that is added.
  FormGrid(QWidget* body, const DialogShape& shape);

  /// `label` may be null. `isWide`: the label stands above, whatever the screen. `grows`: the row
  /// takes what height is left.
  void AddRow(QLabel* label, QWidget* widget, bool isWide, bool grows);
  /// At the right of the last row's widget.
  void AddBeside(QWidget* widget);
  /// After the last row: where none that is seen grows, what height is left stays below.
  void End();

 private:
  QGridLayout* grid_;
  bool isNarrow_;
  QWidget* last_ = nullptr;
  int lastColumn_ = 0;
};
