#include <QComboBox>
#include <QGridLayout>
#include <QLabel>
#include <QSignalBlocker>
#include <QSpinBox>
#include <QTabWidget>
#include <nlohmann/json.hpp>

#include "apps/desktop/dialogs/control.h"
#include "apps/desktop/dialogs/mnemonics.h"
#include "apps/desktop/qt_text.h"
#include "console.h"

namespace {

tdk::WString InWords(int number) {
  return tdk::WString(console::Number(static_cast<std::uint64_t>(number)));
}

// What each column of a file holds. The widgets of column 1 are called "fields.0" and "lengths.0".
class Columns : public Control {
 public:
  static constexpr int kColumnsOfAPage = 6;

  Columns(const ControlRow& row, ControlHost& host) : row_(row), host_(host) {
    if (row.pages == 1) {
      widget_ = NewPage(0);
      return;
    }
    auto* const tabs = new QTabWidget;
    tabs->setDocumentMode(host.Shape().isHandheld);
    for (int page = 0; page < row.pages; ++page) {
      const int first = page * kColumnsOfAPage;
      tabs->addTab(NewPage(first), TitleOf(first + 1, first + kColumnsOfAPage));
    }
    widget_ = tabs;
  }

  QWidget* Widget() override { return widget_; }
  QWidget* Focus() override { return fields_.front(); }
  bool IsWide() const override { return true; }
  void Refresh(const DialogState& state) override {
    const DialogState fields = state.value(row_.key, DialogState::array());
    const std::vector<Choice> choices = row_.choices(state);
    for (std::size_t i = 0; i < fields_.size() && i < fields.size(); ++i) {
      FillCombo(*fields_[i], choices, fields[i]);
    }
    if (row_.numbers == nullptr) return;
    const DialogState numbers = state.value(row_.numbers, DialogState::array());
    for (std::size_t i = 0; i < numbers_.size() && i < numbers.size(); ++i) {
      const QSignalBlocker quiet(numbers_[i]);
      numbers_[i]->setValue(numbers[i].get<int>());
    }
  }

 private:
  QString TitleOf(int first, int last) const {
    if (host_.Shape().isHandheld) return ToQt(InWords(first)) + '-' + ToQt(InWords(last));
    return Translated(ToXlate("Columns {1}-{2}"), {InWords(first), InWords(last)});
  }

  QWidget* NewPage(int first) {
    auto* const page = new QWidget;
    auto* const grid = new QGridLayout(page);
    if (row_.pages == 1 || host_.Shape().isHandheld) grid->setContentsMargins(0, 0, 0, 0);
    grid->addWidget(NewHead(row_.label), 0, 1);
    if (row_.numbers != nullptr) grid->addWidget(NewHead(row_.numberLabel), 0, 2);
    for (int i = 0; i < kColumnsOfAPage; ++i) AddColumn(*grid, first + i, i + 1);
    grid->setColumnStretch(1, 1);
    return page;
  }

  static QLabel* NewHead(const char* text) {
    auto* const label = new QLabel;
    label->setWordWrap(true);
    SetPlainText(label, Translated(text));
    return label;
  }

  void AddColumn(QGridLayout& grid, int column, int line) {
    const tdk::WString number = InWords(column + 1);
    auto* const label = new QLabel;
    QComboBox* const field = NewCombo(NameOf(row_.key, column).toUtf8().constData(), host_.Shape());
    label->setBuddy(field);
    SetPlainText(label, ToQt(number));
    field->setAccessibleName(Translated(ToXlate("Column {1}: {2}"), {number, Xlate(row_.label)}));
    QObject::connect(field, &QComboBox::activated, field, [this] { PutFields(); });
    grid.addWidget(label, line, 0);
    grid.addWidget(field, line, 1);
    fields_.push_back(field);
    if (row_.numbers != nullptr) AddNumber(grid, column, line);
  }

  void AddNumber(QGridLayout& grid, int column, int line) {
    QSpinBox* const box = NewNumber(NameOf(row_.numbers, column), row_.least, row_.most);
    box->setAccessibleName(
        Translated(ToXlate("Column {1}: {2}"), {InWords(column + 1), Xlate(row_.numberLabel)}));
    QObject::connect(box, &QSpinBox::valueChanged, box, [this] { PutNumbers(); });
    grid.addWidget(box, line, 2);
    numbers_.push_back(box);
  }

  static QString NameOf(const char* key, int column) {
    return ToQt(std::string(key) + '.' + console::Number(static_cast<std::uint64_t>(column)));
  }

  // Codes of fields are their positions in the list.
  void PutFields() {
    DialogState codes = DialogState::array();
    for (const QComboBox* const field : fields_) codes.push_back(field->currentIndex());
    host_.Put(row_.Input(), codes);
  }
  void PutNumbers() {
    DialogState numbers = DialogState::array();
    for (const QSpinBox* const box : numbers_) numbers.push_back(box->value());
    host_.Put(row_.numbers, numbers);
  }

  const ControlRow& row_;
  ControlHost& host_;
  QWidget* widget_ = nullptr;
  std::vector<QComboBox*> fields_;
  std::vector<QSpinBox*> numbers_;
};

}  // namespace

std::unique_ptr<Control> MakeColumnControl(const ControlRow& row, ControlHost& host) {
  return std::make_unique<Columns>(row, host);
}
