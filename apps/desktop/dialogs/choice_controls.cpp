// Controls that choose among what is given: combo boxes, radio buttons, check boxes.
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QMouseEvent>
#include <QRadioButton>
#include <QSignalBlocker>
#include <algorithm>
#include <nlohmann/json.hpp>

#include "apps/desktop/dialogs/control.h"
#include "apps/desktop/dialogs/mnemonics.h"
#include "apps/desktop/qt_text.h"

namespace {

class Combo : public Control {
 public:
  Combo(const ControlRow& row, ControlHost& host)
      : row_(row), box_(NewCombo(row.key, host.Shape())) {
    QObject::connect(box_, &QComboBox::activated, box_, [this, &host](int position) {
      if (position < 0) return;
      // A copy, for the list is made anew while it is handed over.
      const DialogState value = choices_[static_cast<std::size_t>(position)].value;
      host.Put(row_.Input(), value);
    });
  }
  QWidget* Widget() override { return box_; }
  void Refresh(const DialogState& state) override {
    choices_ = row_.choices(state);
    FillCombo(*box_, choices_, state.value(row_.Input(), DialogState()));
  }

 private:
  const ControlRow& row_;
  QComboBox* box_;
  std::vector<Choice> choices_;
};

// Whether all of them find room beside each other.
bool HaveRoom(const std::vector<Choice>& choices, const DialogShape& shape) {
  if (!shape.isHandheld) return true;
  constexpr double kShare = 0.88;
  constexpr double kShareBesideButtons = 0.65;
  int width = 0;
  for (const Choice& choice : choices) {
    width += QFontMetrics(QApplication::font()).horizontalAdvance(choice.text) + shape.finger;
  }
  return width < shape.screen.width() * (shape.isUpright ? kShare : kShareBesideButtons);
}

class Radio : public Control {
 public:
  Radio(const ControlRow& row, ControlHost& host) : row_(row), frame_(new QWidget) {
    const std::vector<Choice> choices = row.choices({});
    const bool isNarrow = !HaveRoom(choices, host.Shape());
    auto* const layout =
        new QBoxLayout(isNarrow ? QBoxLayout::TopToBottom : QBoxLayout::LeftToRight, frame_);
    layout->setContentsMargins(0, 0, 0, 0);
    for (const Choice& choice : choices) {
      auto* const button = new QRadioButton;
      button->setObjectName(ToQt(std::string(row.key) + '.' + choice.value.get<std::string>()));
      SetPlainText(button, choice.text);
      layout->addWidget(button);
      buttons_.emplace_back(button, choice.value);
      QObject::connect(button, &QRadioButton::clicked, button,
                       [&row, &host, value = choice.value] { host.Put(row.Input(), value); });
    }
    if (!isNarrow) layout->addStretch();
    frame_->setFocusProxy(buttons_.front().first);
  }
  QWidget* Widget() override { return frame_; }
  void Refresh(const DialogState& state) override {
    for (const auto& [button, value] : buttons_) {
      button->setChecked(state.value(row_.key, DialogState()) == value);
    }
  }

 private:
  const ControlRow& row_;
  QWidget* frame_;
  std::vector<std::pair<QRadioButton*, DialogState>> buttons_;
};

// The text of a check box on a narrow screen, where it may need several lines.
class CheckText : public QLabel {
 public:
  CheckText(const QString& text, QCheckBox& box) : box_(box) {
    setWordWrap(true);
    setBuddy(&box);
    SetPlainText(this, text);
  }

 protected:
  void mouseReleaseEvent(QMouseEvent* /*event*/) override { box_.click(); }

 private:
  QCheckBox& box_;
};

class Check : public Control {
 public:
  Check(const ControlRow& row, ControlHost& host) : row_(row), box_(new QCheckBox), widget_(box_) {
    const QString text = Translated(row.label);
    box_->setAccessibleName(text);
    box_->setObjectName(row.key);
    if (host.Shape().isHandheld) {
      Spread(text);
    } else {
      SetPlainText(box_, text);
    }
    QObject::connect(box_, &QCheckBox::clicked, box_,
                     [&row, &host](bool checked) { host.Put(row.Input(), checked); });
  }
  QWidget* Widget() override { return widget_; }
  QWidget* Focus() override { return box_; }
  bool IsWide() const override { return true; }
  void Refresh(const DialogState& state) override {
    box_->setChecked(state.value(row_.key, false));
  }

 private:
  void Spread(const QString& text) {
    widget_ = new QWidget;
    widget_->setObjectName(QString(row_.key) + ".row");
    auto* const layout = new QHBoxLayout(widget_);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(box_);
    layout->addWidget(new CheckText(text, *box_), 1);
  }

  const ControlRow& row_;
  QCheckBox* box_;
  QWidget* widget_;
};

}  // namespace

QComboBox* NewCombo(const char* name, const DialogShape& shape) {
  auto* const box = new QComboBox;
  box->setObjectName(name);
  if (!shape.isHandheld) {
    box->setSizeAdjustPolicy(QComboBox::AdjustToContents);
    return box;
  }
  constexpr int kLeastLetters = 4;
  box->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
  box->setMinimumContentsLength(kLeastLetters);
  box->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
  return box;
}

void FillCombo(QComboBox& combo, const std::vector<Choice>& choices, const DialogState& chosen) {
  const QSignalBlocker quiet(&combo);
  bool isSame = combo.count() == static_cast<int>(choices.size());
  for (int i = 0; isSame && i < combo.count(); ++i) {
    isSame = combo.itemText(i) == choices[static_cast<std::size_t>(i)].text;
  }
  if (!isSame) {
    combo.clear();
    for (const Choice& choice : choices) combo.addItem(choice.text);
  }
  const auto at = std::find_if(choices.begin(), choices.end(),
                               [&](const Choice& choice) { return choice.value == chosen; });
  combo.setCurrentIndex(at == choices.end() ? -1 : static_cast<int>(at - choices.begin()));
}

std::unique_ptr<Control> MakeChoiceControl(const ControlRow& row, ControlHost& host) {
  using enum ControlKind;
  switch (row.kind) {
    case kCombo: return std::make_unique<Combo>(row, host);
    case kRadio: return std::make_unique<Radio>(row, host);
    default: return std::make_unique<Check>(row, host);
  }
}
