// The buttons of a dialog, laid out for its shape.
#pragma once

#include <QPushButton>
#include <functional>
#include <string_view>
#include <vector>

#include "apps/desktop/dialogs/dialog_shape.h"

/// Buttons for the labels (untranslated, which are also their object names): in a line to the right
/// on a desktop, those that work on the contents to the left; on a handheld in rows as wide as the
/// screen, or below each other at its side.
class ButtonBar : public QWidget {
 public:
  ButtonBar(const std::vector<std::string_view>& labels, const DialogShape& shape,
            const std::function<void(std::string_view)>& press);

  QPushButton* Button(std::string_view label) const;

 private:
  void LayOut(const DialogShape& shape);
  void LayOutOnDesktop();
  void LayOutInRows(int width);

  std::vector<QPushButton*> buttons_;
};
