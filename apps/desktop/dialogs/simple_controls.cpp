#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalBlocker>
#include <QSpinBox>
#include <algorithm>
#include <nlohmann/json.hpp>

#include "apps/desktop/dialogs/control.h"
#include "apps/desktop/dialogs/mnemonics.h"
#include "apps/desktop/qt_text.h"
#include "platform/paths.h"

namespace {

// Takes any whole number that a presenter may refuse by its own words; the arrows stay within what
// it takes.
class NumberBox : public QSpinBox {
 public:
  NumberBox(int least, int most) : least_(least), most_(most) {
    constexpr int kWidest = 32000;
    setRange(-kWidest, kWidest);
  }
  void stepBy(int steps) override { setValue(std::clamp(value() + steps, least_, most_)); }
  QSize sizeHint() const override { return Narrow(QSpinBox::sizeHint()); }
  QSize minimumSizeHint() const override { return Narrow(QSpinBox::minimumSizeHint()); }

 protected:
  StepEnabled stepEnabled() const override {
    return (value() < most_ ? StepUpEnabled : StepNone) |
           (value() > least_ ? StepDownEnabled : StepNone);
  }

 private:
  // As wide as the numbers that it is for.
  QSize Narrow(QSize size) const {
    const int spare =
        fontMetrics().horizontalAdvance("-32000") - fontMetrics().horizontalAdvance("000");
    return {size.width() - spare, size.height()};
  }

  int least_;
  int most_;
};

class Heading : public Control {
 public:
  explicit Heading(const ControlRow& row) : row_(row), label_(new QLabel) {
    label_->setWordWrap(true);
    QFont font = label_->font();
    font.setBold(true);
    label_->setFont(font);
  }
  QWidget* Widget() override { return label_; }
  bool IsWide() const override { return true; }
  void Refresh(const DialogState& state) override {
    label_->setText(Translated(row_.labelOf(state)));
  }

 private:
  const ControlRow& row_;
  QLabel* label_;
};

class Line : public Control {
 public:
  Line(const ControlRow& row, ControlHost& host) : row_(row), line_(new QLineEdit) {
    line_->setReadOnly(row.kind == ControlKind::kShown);
    QObject::connect(line_, &QLineEdit::textEdited, line_,
                     [&row, &host](const QString& text) { host.Put(row.Input(), ToUtf8(text)); });
  }
  QWidget* Widget() override { return line_; }
  void Refresh(const DialogState& state) override {
    const auto value = state.value(row_.key, std::string());
    // What is only shown is a folder, which a presenter has in the host's form.
    const QString text = line_->isReadOnly() ? ShownFolder(value) : ToQt(value);
    if (line_->text() == text) return;
    line_->setText(text);
    if (line_->isReadOnly()) line_->setToolTip(text);
  }

 private:
  static QString ShownFolder(const std::string& folder) {
    return QDir::cleanPath(ToQt(platform::NativePath(folder)));
  }

  const ControlRow& row_;
  QLineEdit* line_;
};

class Number : public Control {
 public:
  Number(const ControlRow& row, ControlHost& host)
      : row_(row), box_(NewNumber(row.key, row.least, row.most)) {
    QObject::connect(box_, &QSpinBox::valueChanged, box_,
                     [&row, &host](int value) { host.Put(row.Input(), value); });
  }
  QWidget* Widget() override { return box_; }
  void Refresh(const DialogState& state) override {
    const QSignalBlocker quiet(box_);
    box_->setValue(state.value(row_.key, 0));
  }

 private:
  const ControlRow& row_;
  QSpinBox* box_;
};

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
      buttons_.push_back({button, choice.value});
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

class PressButton : public Control {
 public:
  PressButton(const ControlRow& row, ControlHost& host) : button_(new QPushButton) {
    SetPlainText(button_, Translated(row.label));
    button_->setAutoDefault(false);
    QObject::connect(button_, &QPushButton::clicked, button_,
                     [&row, &host] { host.Press(row.key); });
  }
  QWidget* Widget() override { return button_; }
  void Refresh(const DialogState& /*state*/) override {}

 private:
  QPushButton* button_;
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

QSpinBox* NewNumber(const QString& name, int least, int most) {
  auto* const box = new NumberBox(least, most);
  box->setObjectName(name);
  return box;
}

std::unique_ptr<Control> MakeSimpleControl(const ControlRow& row, ControlHost& host) {
  using enum ControlKind;
  switch (row.kind) {
    case kHeading: return std::make_unique<Heading>(row);
    case kNumber: return std::make_unique<Number>(row, host);
    case kCombo: return std::make_unique<Combo>(row, host);
    case kRadio: return std::make_unique<Radio>(row, host);
    case kCheck: return std::make_unique<Check>(row, host);
    case kPress: return std::make_unique<PressButton>(row, host);
    default: return std::make_unique<Line>(row, host);
  }
}
