#include "apps/desktop/job/job_table.h"

#include "apps/desktop/job/node_columns.h"
#include "apps/desktop/qt_text.h"

void JobTable::Show(HostDocument* document, const JobNode& node) {
  beginResetModel();
  document_ = document;
  shown_ = ChildKind(node.kind) == node.kind ? ParentOf(node) : node;
  endResetModel();
}

int JobTable::rowCount(const QModelIndex& parent) const {
  return document_ == nullptr || parent.isValid() ? 0 : ChildCount(*document_, shown_);
}

int JobTable::columnCount(const QModelIndex& parent) const {
  if (document_ == nullptr || parent.isValid()) return 0;
  return static_cast<int>(ColumnsOf(ChildKind(shown_.kind)).size());
}

QVariant JobTable::data(const QModelIndex& index, int role) const {
  if (document_ == nullptr || !index.isValid()) return {};
  const NodeColumn& column =
      ColumnsOf(ChildKind(shown_.kind))[static_cast<std::size_t>(index.column())];
  if (role == Qt::TextAlignmentRole && column.isNumber) {
    return static_cast<int>(Qt::AlignRight | Qt::AlignVCenter);
  }
  if (role != Qt::DisplayRole) return {};
  return ToQt(column.text(*document_, NodeAt(index.row())));
}

QVariant JobTable::headerData(int section, Qt::Orientation orientation, int role) const {
  if (role != Qt::DisplayRole) return {};
  if (orientation == Qt::Vertical) return section + 1;
  if (document_ == nullptr) return {};
  return Translated(ColumnsOf(ChildKind(shown_.kind))[static_cast<std::size_t>(section)].title);
}
