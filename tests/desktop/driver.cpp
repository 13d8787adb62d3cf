#include "tests/desktop/driver.h"

#include <QLabel>
#include <algorithm>

namespace desktop_test {
namespace {

std::string NameOf(const std::string& key, std::size_t position) {
  return key + '.' + std::to_string(position);
}

void EnterList(QWidget& window, const std::string& key, const DialogState& value) {
  if (auto* const list = window.findChild<QListWidget*>(Q(key))) {
    for (int i = 0; i < list->count(); ++i) {
      const bool isChecked = std::find(value.begin(), value.end(), i) != value.end();
      list->item(i)->setCheckState(isChecked ? Qt::Checked : Qt::Unchecked);
    }
    return;
  }
  for (std::size_t i = 0; i < value.size(); ++i) {
    if (auto* const box = window.findChild<QSpinBox*>(Q(NameOf(key, i)))) {
      box->setValue(value[i].get<int>());
    } else {
      Choose(window, NameOf(key, i), value[i].get<int>());
    }
  }
}

void EnterText(QWidget& window, const std::string& key, const std::string& text) {
  if (auto* const radio = window.findChild<QRadioButton*>(Q(key + '.' + text))) {
    QTest::mouseClick(radio, Qt::LeftButton);
  } else if (auto* const box = window.findChild<QComboBox*>(Q(key));
             box != nullptr && text == "all") {
    Choose(window, key, 0);
  } else if (auto* const line = window.findChild<QLineEdit*>(Q(key));
             line != nullptr && line->isVisibleTo(&window)) {
    Type(window, key, text);
  } else {
    ChooseRow(window, key + 's', text);
  }
}

DialogState ShownIn(QWidget& window, const std::string& key, const DialogState& like) {
  if (like.is_array()) {
    DialogState list = DialogState::array();
    for (std::size_t i = 0; i < like.size(); ++i) {
      if (auto* const box = window.findChild<QSpinBox*>(Q(NameOf(key, i)))) {
        list.push_back(box->value());
      } else {
        list.push_back(Find<QComboBox>(window, NameOf(key, i)).currentIndex());
      }
    }
    return list;
  }
  if (like.is_string()) {
    for (auto* const radio : window.findChildren<QRadioButton*>()) {
      if (radio->isChecked() && radio->objectName().startsWith(Q(key + '.'))) {
        return radio->objectName().mid(static_cast<qsizetype>(key.size()) + 1).toStdString();
      }
    }
    return Find<QLineEdit>(window, key).text().toStdString();
  }
  if (like.is_boolean()) return Find<QCheckBox>(window, key).isChecked();
  if (auto* const box = window.findChild<QSpinBox*>(Q(key))) return box->value();
  return Find<QComboBox>(window, key).currentIndex();
}

}  // namespace

void Enter(QWidget& window, const std::string& key, const DialogState& value) {
  if (value.is_array()) return EnterList(window, key, value);
  if (value.is_string()) return EnterText(window, key, value.get<std::string>());
  if (value.is_boolean()) {
    auto& box = Find<QCheckBox>(window, key);
    if (box.isChecked() != value.get<bool>()) box.click();
    return;
  }
  if (auto* const box = window.findChild<QSpinBox*>(Q(key))) return box->setValue(value.get<int>());
  // The list of units has an entry for all in front.
  Choose(window, key, value.get<int>() + (key == "unit" ? 1 : 0));
}

DialogState Shown(QWidget& window, const DialogState& keys) {
  DialogState shown;
  for (const auto& [key, like] : keys.items()) shown[key] = ShownIn(window, key, like);
  return shown;
}

void Driver::Look() {
  auto* const window = qobject_cast<QDialog*>(QApplication::activeModalWidget());
  if (window == nullptr || window->objectName() == "wait") return;
  std::erase_if(taken_,
                [](QDialog* each) { return !QApplication::topLevelWidgets().contains(each); });
  if (std::find(taken_.begin(), taken_.end(), window) != taken_.end()) return;
  taken_.push_back(window);
  names.push_back(window->objectName().toStdString());
  if (window->objectName() == "message") {
    messages.push_back(Find<QLabel>(*window, "text").text().toStdString());
  }
  if (steps_.empty()) return window->reject();
  const Step step = std::move(steps_.front());
  steps_.pop_front();
  try {
    step(*window);
  } catch (const std::exception& error) {
    ADD_FAILURE() << error.what() << " in " << names.back();
    window->reject();
  }
  std::erase(taken_, window);
}

}  // namespace desktop_test
