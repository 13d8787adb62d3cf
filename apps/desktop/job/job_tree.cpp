#include "apps/desktop/job/job_tree.h"

#include "apps/desktop/job/node_icons.h"
#include "apps/desktop/qt_text.h"
#include "console.h"

namespace {

// An index carries the kind of its node and the indices above the last one, which is its row.
constexpr int kBits = 29;
constexpr quintptr kMask = (quintptr{1} << kBits) - 1;

quintptr Pack(const JobNode& parent, NodeKind kind) {
  return static_cast<quintptr>(kind) << (2 * kBits) | static_cast<quintptr>(parent.a) << kBits |
         static_cast<quintptr>(parent.b);
}

}  // namespace

void JobTree::Show(HostDocument* document) {
  beginResetModel();
  document_ = document;
  endResetModel();
}

JobNode JobTree::NodeAt(const QModelIndex& index) const {
  if (!index.isValid()) return {};
  const quintptr id = index.internalId();
  JobNode parent;
  parent.a = static_cast<int>(id >> kBits & kMask);
  parent.b = static_cast<int>(id & kMask);
  parent.kind = ParentOf({static_cast<NodeKind>(id >> (2 * kBits))}).kind;
  return ChildAt(parent, index.row());
}

QModelIndex JobTree::IndexOf(const JobNode& node) const {
  if (node.kind == NodeKind::kRoot || document_ == nullptr) return {};
  return createIndex(RowOf(node), 0, Pack(ParentOf(node), node.kind));
}

QModelIndex JobTree::index(int row, int column, const QModelIndex& parent) const {
  if (document_ == nullptr || column != 0) return {};
  const JobNode above = NodeAt(parent);
  if (row < 0 || row >= ChildCount(*document_, above)) return {};
  return createIndex(row, 0, Pack(above, ChildAt(above, row).kind));
}

QModelIndex JobTree::parent(const QModelIndex& child) const {
  return child.isValid() ? IndexOf(ParentOf(NodeAt(child))) : QModelIndex();
}

int JobTree::rowCount(const QModelIndex& parent) const {
  return document_ == nullptr ? 0 : ChildCount(*document_, NodeAt(parent));
}

int JobTree::columnCount(const QModelIndex& /*parent*/) const { return 1; }

QVariant JobTree::data(const QModelIndex& index, int role) const {
  if (document_ == nullptr || !index.isValid()) return {};
  const JobNode node = NodeAt(index);
  if (role == Qt::DecorationRole) return IconOf(node.kind);
  if (role != Qt::DisplayRole) return {};
  QString text = ToQt(NameOf(*document_, node));
  if (ChildKind(node.kind) != node.kind) {
    text += QString(" (%1)").arg(ChildCount(*document_, node));
  }
  return text;
}
