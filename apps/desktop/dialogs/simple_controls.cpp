// Controls of one value that is typed or pressed.
#include <QDir>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
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
    case kPress: return std::make_unique<PressButton>(row, host);
    default: return std::make_unique<Line>(row, host);
  }
}
