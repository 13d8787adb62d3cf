// Keys for the controls of a window: one underlined letter each.
#pragma once

#include <QWidget>

/// Gives a label, button, check box or group its text. It is shown with the letter that
/// AssignMnemonics finds for it.
void SetPlainText(QWidget* widget, const QString& text);
/// The text without its letter; empty for a widget that has none of SetPlainText.
QString PlainText(const QWidget* widget);

/// Underlines a letter of each text below `window` that stands for a control, each letter once as
/// long as there are enough: so every language has its keys.
void AssignMnemonics(QWidget* window);
