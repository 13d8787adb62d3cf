#include "apps/desktop/dialogs/handheld_style.h"

#include <QString>

void DressForHandheld(QWidget& window, const DialogShape& shape) {
  if (!shape.isHandheld) return;
  const QString style = QStringLiteral(
      "* { font-size: %2px; }"
      "QPushButton, QComboBox, QLineEdit, QSpinBox, QCheckBox, QRadioButton, QTabBar::tab"
      " { min-height: %1px; }"
      "QListView::item { min-height: %1px; }"
      "QPushButton { padding: 0 6px; min-width: 20px; }"
      "QSpinBox::up-button, QSpinBox::down-button { width: %3px; }"
      "QScrollBar:vertical { width: %4px; }");
  window.setStyleSheet(
      style.arg(shape.finger).arg(shape.text).arg(shape.finger * 2 / 3).arg(shape.finger / 2));
  window.setFixedSize(shape.screen);
}
