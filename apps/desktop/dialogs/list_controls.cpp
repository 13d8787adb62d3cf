#include <QListWidget>
#include <QSignalBlocker>
#include <nlohmann/json.hpp>

#include "apps/desktop/dialogs/control.h"
#include "apps/desktop/dialogs/rows_list.h"
#include "apps/desktop/qt_text.h"

namespace {

QListWidget* NewList(const DialogShape& shape) {
  constexpr int kRows = 4;
  auto* const list = new RowsList(kRows, shape);
  list->setUniformItemSizes(true);
  return list;
}

// Names of which one is chosen.
class NameList : public Control {
 public:
  NameList(const ControlRow& row, ControlHost& host) : row_(row), list_(NewList(host.Shape())) {
    // Not what is current: the first row is that as soon as the list has the keys.
    QObject::connect(list_, &QListWidget::itemSelectionChanged, list_, [this, &host] {
      const int position = list_->currentRow();
      if (position < 0 || list_->selectedItems().isEmpty()) return;
      const DialogState value = choices_[static_cast<std::size_t>(position)].value;
      host.Put(row_.Input(), value);
    });
  }
  QWidget* Widget() override { return list_; }
  bool IsWide() const override { return true; }
  bool Grows() const override { return true; }
  void Refresh(const DialogState& state) override {
    const QSignalBlocker quiet(list_);
    std::vector<Choice> choices = row_.choices(state);
    if (!IsSame(choices)) {
      list_->clear();
      for (const Choice& choice : choices) list_->addItem(choice.text);
    }
    choices_ = std::move(choices);
    Choose(state.value(row_.Input(), DialogState()));
  }

 private:
  bool IsSame(const std::vector<Choice>& choices) const {
    return std::equal(choices.begin(), choices.end(), choices_.begin(), choices_.end(),
                      [](const Choice& a, const Choice& b) { return a.value == b.value; });
  }
  void Choose(const DialogState& chosen) {
    int at = -1;
    for (std::size_t i = 0; i < choices_.size(); ++i) {
      if (choices_[i].value == chosen) at = static_cast<int>(i);
    }
    const QListWidgetItem* const item = list_->item(at);
    if (list_->currentRow() == at && (item == nullptr || item->isSelected())) return;
    list_->setCurrentRow(at);
    if (at < 0) list_->clearSelection();
  }

  const ControlRow& row_;
  QListWidget* list_;
  std::vector<Choice> choices_;
};

// Names with a check box each; what is handed over is the list of the checked positions.
class CheckedNames : public Control {
 public:
  CheckedNames(const ControlRow& row, ControlHost& host) : row_(row), list_(NewList(host.Shape())) {
    QObject::connect(list_, &QListWidget::itemChanged, list_,
                     [this, &host] { host.Put(row_.Input(), Checked()); });
  }
  QWidget* Widget() override { return list_; }
  bool IsWide() const override { return true; }
  bool Grows() const override { return true; }
  void Refresh(const DialogState& state) override {
    const QSignalBlocker quiet(list_);
    const DialogState rows = state.value(row_.key, DialogState::array());
    while (list_->count() > static_cast<int>(rows.size())) delete list_->takeItem(0);
    while (list_->count() < static_cast<int>(rows.size())) list_->addItem(QString());
    for (std::size_t i = 0; i < rows.size(); ++i) {
      QListWidgetItem& item = *list_->item(static_cast<int>(i));
      item.setText(ToQt(rows[i].value("name", std::string())));
      item.setCheckState(rows[i].value("checked", false) ? Qt::Checked : Qt::Unchecked);
    }
  }

 private:
  DialogState Checked() const {
    DialogState positions = DialogState::array();
    for (int i = 0; i < list_->count(); ++i) {
      if (list_->item(i)->checkState() == Qt::Checked) positions.push_back(i);
    }
    return positions;
  }

  const ControlRow& row_;
  QListWidget* list_;
};

}  // namespace

std::unique_ptr<Control> MakeListControl(const ControlRow& row, ControlHost& host) {
  if (row.kind == ControlKind::kList) return std::make_unique<NameList>(row, host);
  return std::make_unique<CheckedNames>(row, host);
}
