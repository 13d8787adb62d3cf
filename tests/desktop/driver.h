// Works the windows of the desktop as a user would, while they run modally.
#pragma once

#include <gtest/gtest.h>

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDialog>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QSpinBox>
#include <QTest>
#include <QTimer>
#include <deque>
#include <functional>
#include <nlohmann/json.hpp>
#include <string>
#include <utility>
#include <vector>

#include "services/dialog.h"

namespace desktop_test {

inline QString Q(const std::string& text) { return QString::fromStdString(text); }

/// A control by its key; a failure of the test when there is none of that kind.
template <class Widget>
Widget& Find(QWidget& window, const std::string& key) {
  auto* const widget = window.findChild<Widget*>(Q(key));
  if (widget == nullptr) throw std::runtime_error("no control " + key);
  return *widget;
}

inline void Press(QWidget& window, const std::string& button) {
  QTest::mouseClick(&Find<QPushButton>(window, button), Qt::LeftButton);
}

inline void Type(QWidget& window, const std::string& key, const std::string& text) {
  auto& line = Find<QLineEdit>(window, key);
  line.selectAll();
  QTest::keyClick(&line, Qt::Key_Delete);
  QTest::keyClicks(&line, Q(text));
}

inline void Choose(QWidget& window, const std::string& key, int position) {
  auto& box = Find<QComboBox>(window, key);
  box.setCurrentIndex(position);
  Q_EMIT box.activated(position);
}

inline void ChooseRow(QWidget& window, const std::string& key, const std::string& text) {
  auto& list = Find<QListWidget>(window, key);
  const auto found = list.findItems(Q(text), Qt::MatchExactly);
  if (found.isEmpty()) throw std::runtime_error("no row " + text);
  list.setCurrentItem(found.front());
}

/// Enters a value into the control of that key, in the words of scripts.
void Enter(QWidget& window, const std::string& key, const DialogState& value);

/// What the controls of those keys show, in the words of scripts.
DialogState Shown(QWidget& window, const DialogState& keys);

/// Takes windows in turn as they come up; when nobody is left to take one, it is cancelled.
class Driver {
 public:
  using Step = std::function<void(QDialog& window)>;

  Driver() { LookSoon(); }

  void Then(Step step) { steps_.push_back(std::move(step)); }
  /// Enters all values in their order and presses a button; a window that stays open is cancelled.
  void Then(DialogState values, std::string button = "OK") {
    Then([values = std::move(values), button = std::move(button)](QDialog& window) {
      for (const auto& [key, value] : values.items()) Enter(window, key, value);
      Press(window, button);
      if (window.isVisible()) window.reject();
    });
  }
  /// The same without entering anything.
  void Push(std::string button) { Then(DialogState::object(), std::move(button)); }
  /// Answers a message box.
  void Answer(std::string button) {
    Then([button = std::move(button)](QDialog& window) { Press(window, button); });
  }

  /// The names of the windows that came, and the texts of the message boxes among them.
  std::vector<std::string> names;
  std::vector<std::string> messages;
  bool HasStepsLeft() const { return !steps_.empty(); }

 private:
  void Look();
  // Anew each time: a timer does not fire within its own event, and there a window may open
  // another.
  void LookSoon() {
    QTimer::singleShot(0, &owner_, [this] {
      LookSoon();
      Look();
    });
  }

  QObject owner_;
  std::deque<Step> steps_;
  std::vector<QDialog*> taken_;
};

}  // namespace desktop_test
