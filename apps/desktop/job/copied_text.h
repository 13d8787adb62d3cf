// What is shown of the job, as text for the clipboard.
#pragma once

#include <QTableView>
#include <QTreeView>

/// The selected rows under their titles, columns apart by tabs; all rows when none is selected.
QString ShownText(const QTableView& table);
/// The lines that are unfolded, each moved in by a tab for every level.
QString ShownText(const QTreeView& tree);
