// The views of the main window and how they stand: beside each other on a desktop, one at a time on
// a handheld.
#include <QAction>
#include <QDockWidget>
#include <QHeaderView>
#include <QLabel>
#include <QPainter>
#include <QSplitter>
#include <QStatusBar>
#include <QTabBar>
#include <QTabWidget>
#include <QTableView>
#include <QToolBar>
#include <QTreeView>

#include "apps/desktop/icons.h"
#include "apps/desktop/main_window.h"
#include "apps/desktop/plan/layer_list.h"
#include "apps/desktop/plan/plan_view.h"
#include "apps/desktop/qt_text.h"

namespace {

// A line that ends in dots where there is no room for it.
class Line : public QLabel {
 protected:
  void paintEvent(QPaintEvent* /*event*/) override {
    QPainter painter(this);
    const QString shown = fontMetrics().elidedText(text(), Qt::ElideRight, width());
    painter.drawText(rect(), Qt::AlignVCenter | Qt::AlignLeft, shown);
  }
};

}  // namespace

void MainWindow::MakeViews() {
  MakeTree();
  MakeTable();
  MakePlan();
  layers_ = new plan::LayerList(*plan_);
  counts_ = new Line;
  counts_->setObjectName("counts");
  // However much there is, the window need not be wide for it.
  counts_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
  statusBar()->addWidget(counts_, 1);
  place_ = new QLabel;
  place_->setObjectName("place");
  if (shape_.isHandheld) {
    MakeHandheldLayout();
  } else {
    MakeDesktopLayout();
  }
  NameViews();
}

void MainWindow::MakeTree() {
  treeView_ = new QTreeView;
  treeView_->setObjectName("tree");
  treeView_->setModel(&tree_);
  treeView_->setHeaderHidden(true);
  treeView_->setUniformRowHeights(true);
  connect(treeView_->selectionModel(), &QItemSelectionModel::currentChanged, this,
          [this](const QModelIndex& index) { ShowTable(tree_.NodeAt(index)); });
}

void MainWindow::MakeTable() {
  tableView_ = new QTableView;
  tableView_->setObjectName("table");
  tableView_->setModel(&table_);
  tableView_->setSelectionBehavior(QAbstractItemView::SelectRows);
  tableView_->setAlternatingRowColors(true);
  tableView_->setShowGrid(false);
  tableView_->setWordWrap(false);
  tableView_->setTabKeyNavigation(false);
  QHeaderView& rows = *tableView_->verticalHeader();
  rows.setSectionResizeMode(QHeaderView::Fixed);
  constexpr int kAround = 6;
  if (!shape_.isHandheld) rows.setDefaultSectionSize(tableView_->fontMetrics().height() + kAround);
  connect(tableView_->selectionModel(), &QItemSelectionModel::currentChanged, this,
          [this](const QModelIndex& index) {
            if (!index.isValid()) return;
            plan_->Highlight(PointOf(job_.Document(), table_.NodeAt(index.row())));
          });
}

void MainWindow::MakePlan() {
  plan_ = new plan::PlanView;
  plan_->setObjectName("plan");
  connect(plan_, &plan::PlanView::Picked, this, &MainWindow::ShowPicked);
  connect(plan_, &plan::PlanView::PointedAt, this, &MainWindow::ShowPlace);
}

void MainWindow::MakeDesktopLayout() {
  auto* const right = new QSplitter(Qt::Vertical);
  right->addWidget(plan_);
  right->addWidget(tableView_);
  right->setStretchFactor(0, 1);
  right->setSizes({480, 190});
  auto* const all = new QSplitter;
  all->addWidget(treeView_);
  all->addWidget(right);
  all->setStretchFactor(1, 1);
  all->setSizes({230, 700});
  setCentralWidget(all);
  auto* const dock = new QDockWidget(this);
  dock->setObjectName("layersDock");
  dock->setWidget(layers_);
  addDockWidget(Qt::RightDockWidgetArea, dock);
  constexpr int kDockWidth = 190;
  resizeDocks({dock}, {kDockWidth}, Qt::Horizontal);
  tools_ = addToolBar(QString());
  tools_->setObjectName("tools");
  tools_->setMovable(false);
  tools_->setIconSize({20, 20});
  statusBar()->addPermanentWidget(place_);
}

void MainWindow::MakeHandheldLayout() {
  pages_ = new QTabWidget;
  pages_->setObjectName("pages");
  pages_->setDocumentMode(true);
  for (QWidget* const view : {static_cast<QWidget*>(plan_), static_cast<QWidget*>(treeView_),
                              static_cast<QWidget*>(tableView_), static_cast<QWidget*>(layers_)}) {
    pages_->addTab(view, QString());
  }
  setCentralWidget(pages_);
  statusBar()->addPermanentWidget(place_);
}

// In the user's language, and again when that changes.
void MainWindow::NameViews() {
  treeView_->setAccessibleName(Translated(ToXlate("The job as a tree")));
  tableView_->setAccessibleName(Translated(ToXlate("What is chosen, as a table")));
  plan_->setAccessibleName(Translated(ToXlate("The plan")));
  layers_->setAccessibleName(Translated(ToXlate("Layers of the plan")));
  if (auto* const dock = findChild<QDockWidget*>("layersDock")) {
    dock->setWindowTitle(Translated(ToXlate("Layers")));
  }
  if (tools_ != nullptr) tools_->setWindowTitle(Translated(ToXlate("Tool bar")));
  if (pages_ == nullptr) return;
  const struct {
    Picture picture;
    const char* name;
  } kPages[] = {{Picture::kPlan, ToXlate("Plan")},
                {Picture::kTree, ToXlate("Job")},
                {Picture::kTable, ToXlate("Table")},
                {Picture::kLayers, ToXlate("Layers")}};
  for (int i = 0; i < pages_->count(); ++i) {
    pages_->setTabIcon(i, IconOf(kPages[i].picture));
    pages_->setTabToolTip(i, Translated(kPages[i].name));
    pages_->tabBar()->setAccessibleTabName(i, Translated(kPages[i].name));
  }
}
