#include "apps/desktop/job/copied_text.h"

namespace {

template <class CellAt>
QString Line(int columns, const CellAt& cellAt) {
  QStringList cells;
  for (int column = 0; column < columns; ++column) cells.append(cellAt(column).toString());
  return cells.join('\t') + '\n';
}

}  // namespace

QString ShownText(const QTableView& table) {
  const QAbstractItemModel& model = *table.model();
  const int columns = model.columnCount();
  QString text =
      Line(columns, [&](int column) { return model.headerData(column, Qt::Horizontal); });
  const auto add = [&](int row) {
    text += Line(columns, [&](int column) { return model.index(row, column).data(); });
  };
  const QModelIndexList chosen = table.selectionModel()->selectedRows();
  for (const QModelIndex& index : chosen) add(index.row());
  for (int row = 0; chosen.isEmpty() && row < model.rowCount(); ++row) add(row);
  return text;
}

QString ShownText(const QTreeView& tree) {
  QString text;
  for (QModelIndex index = tree.model()->index(0, 0); index.isValid();
       index = tree.indexBelow(index)) {
    for (QModelIndex above = index.parent(); above.isValid(); above = above.parent()) text += '\t';
    text += index.data().toString() + '\n';
  }
  return text;
}
