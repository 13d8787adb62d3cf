#include "apps/desktop/dialogs/mnemonics.h"

#include <QAbstractButton>
#include <QGroupBox>
#include <QLabel>
#include <QSet>

namespace {

constexpr const char* kPlain = "plainText";

void Show(QWidget* widget, const QString& text) {
  if (auto* const label = qobject_cast<QLabel*>(widget)) label->setText(text);
  if (auto* const button = qobject_cast<QAbstractButton*>(widget)) button->setText(text);
  if (auto* const group = qobject_cast<QGroupBox*>(widget)) group->setTitle(text);
}

// A label stands for its buddy; one without is only read.
bool TakesKey(const QWidget* widget) {
  if (const auto* const label = qobject_cast<const QLabel*>(widget)) {
    return label->buddy() != nullptr;
  }
  return qobject_cast<const QAbstractButton*>(widget) != nullptr;
}

// Where the letter stands that is still free; -1 when there is none.
qsizetype FreeLetter(const QString& text, const QSet<QChar>& taken) {
  for (qsizetype i = 0; i < text.size(); ++i) {
    const QChar letter = text[i].toLower();
    if (letter.isLetterOrNumber() && !taken.contains(letter)) return i;
  }
  return -1;
}

}  // namespace

void SetPlainText(QWidget* widget, const QString& text) {
  widget->setProperty(kPlain, text);
  const bool isRead = qobject_cast<QLabel*>(widget) != nullptr && !TakesKey(widget);
  Show(widget, isRead ? text : QString(text).replace('&', "&&"));
}

QString PlainText(const QWidget* widget) { return widget->property(kPlain).toString(); }

void AssignMnemonics(QWidget* window) {
  QSet<QChar> taken;
  for (QWidget* const widget : window->findChildren<QWidget*>()) {
    const QString text = PlainText(widget);
    if (text.isEmpty() || !TakesKey(widget)) continue;
    const qsizetype at = FreeLetter(text, taken);
    if (at < 0) continue;
    taken.insert(text[at].toLower());
    const auto part = [&](qsizetype from, qsizetype count) {
      return text.mid(from, count).replace('&', "&&");
    };
    Show(widget, part(0, at) + '&' + part(at, -1));
  }
}
