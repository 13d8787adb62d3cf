#include <QHeaderView>
#include <QTableWidget>
#include <nlohmann/json.hpp>

#include "apps/desktop/dialogs/choices.h"
#include "apps/desktop/dialogs/control.h"
#include "apps/desktop/qt_text.h"

namespace {

// The file as the layout reads it, line by line.
class PreviewTable : public Control {
 public:
  explicit PreviewTable(ControlHost& host) : host_(host), table_(new QTableWidget) {
    constexpr int kRowsSeen = 5;
    table_->setEditTriggers(QAbstractItemView::NoEditTriggers);
    table_->setSelectionMode(QAbstractItemView::NoSelection);
    table_->setTabKeyNavigation(false);
    table_->verticalHeader()->hide();
    table_->horizontalHeader()->setSectionResizeMode(QHeaderView::ResizeToContents);
    table_->verticalHeader()->setSectionResizeMode(QHeaderView::ResizeToContents);
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
    if (preview) Fill(*preview);
  }

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
        table_->setItem(row, column,
                        new QTableWidgetItem(ToQt(cells[static_cast<std::size_t>(column)])));
      }
    }
  }

  ControlHost& host_;
  QTableWidget* table_;
  DialogState shown_;
};

}  // namespace

std::unique_ptr<Control> MakePreviewControl(const ControlRow& /*row*/, ControlHost& host) {
  return std::make_unique<PreviewTable>(host);
}
