// The table of what lies below the chosen node.
#pragma once

#include <QAbstractTableModel>

#include "apps/desktop/job/job_node.h"

class JobTable : public QAbstractTableModel {
 public:
  /// Shows what is below `node`, or, where nothing can be, the node among its neighbours.
  /// `document` is not owned; null: an empty table.
  void Show(HostDocument* document, const JobNode& node);

  /// The node whose children are the rows.
  const JobNode& Shown() const { return shown_; }
  JobNode NodeAt(int row) const { return ChildAt(shown_, row); }

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

 private:
  HostDocument* document_ = nullptr;
  JobNode shown_;
};
