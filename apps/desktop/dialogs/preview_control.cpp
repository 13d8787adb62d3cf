#include <QHeaderView>
#include <QTableWidget>
#include <nlohmann/json.hpp>

#include "apps/desktop/dialogs/choices.h"
#include "apps/desktop/dialogs/control.h"
#include "apps/desktop/qt_text.h"

namespace {

constexpr int kRowsSeen = 5;

// North, east and elevation.
bool IsNumber(std::size_t field) { return field >= 1 && field <= 3; }

// The file as the layout reads it, line by line.
class PreviewTable : public Control {
 public:
  explicit PreviewTable(ControlHost& host) : host_(host), table_(new QTableWidget) {
    table_->setEditTriggers(QAbstractItemView::NoEditTriggers);
    table_->setSelectionMode(QAbstractItemView::NoSelection);
    table_->setTabKeyNavigation(false);
    table_->verticalHeader()->hide();
    table_->horizontalHeader()->setSectionResizeMode(QHeaderView::ResizeToContents);
    table_->verticalHeader()->setSectionResizeMode(QHeaderView::ResizeToContents);
    table_->setAlternatingRowColors(true);
    table_->setMinimumHeight(kRowsSeen * 2 * table_->fontMetrics().height());
  }
  QWidget* Widget() override { return table_; }
  bool IsWide() const override { return true; }
  bool Grows() const override { return true; }

  void Refresh(const DialogState& state) override {
    if (state == shown_) return;
    shown_ = state;
    const auto preview = host_.Preview();
    table_->setColumnCount(0);
    table_->setRowCount(0);
    hasFile_ = preview.has_value();
    if (preview) Fill(*preview);
  }
  // An export has no file yet.
  bool HasContents() const override { return hasFile_; }

 private:
  void Fill(const PointPreview& preview) {
    const std::vector<Choice> names = choices::BasicFields({});
    table_->setColumnCount(static_cast<int>(preview.columns.size()));
    table_->setRowCount(static_cast<int>(preview.rows.size()));
    for (int column = 0; column < table_->columnCount(); ++column) {
      const auto code = static_cast<std::size_t>(preview.columns[static_cast<std::size_t>(column)]);
      table_->setHorizontalHeaderItem(column, new QTableWidgetItem(names[code].text));
      for (int row = 0; row < table_->rowCount(); ++row) {
        const auto& cells = preview.rows[static_cast<std::size_t>(row)];
        auto* const item = new QTableWidgetItem(ToQt(cells[static_cast<std::size_t>(column)]));
        if (IsNumber(code)) item->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
        table_->setItem(row, column, item);
      }
    }
  }

  ControlHost& host_;
  QTableWidget* table_;
  DialogState shown_;
  bool hasFile_ = false;
};

}  // namespace

std::unique_ptr<Control> MakePreviewControl(const ControlRow& /*row*/, ControlHost& host) {
  return std::make_unique<PreviewTable>(host);
}
