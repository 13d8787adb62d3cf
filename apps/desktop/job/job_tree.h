// The tree of the job for a view; no item is made for a point.
#pragma once

#include <QAbstractItemModel>

#include "apps/desktop/job/job_node.h"

class JobTree : public QAbstractItemModel {
 public:
  /// Shows another document, or what the same one holds now; null: nothing. Not owned.
  void Show(HostDocument* document);

  JobNode NodeAt(const QModelIndex& index) const;
  /// Not valid for the root.
  QModelIndex IndexOf(const JobNode& node) const;

  QModelIndex index(int row, int column, const QModelIndex& parent = {}) const override;
  QModelIndex parent(const QModelIndex& child) const override;
  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;

 private:
  HostDocument* document_ = nullptr;
};
