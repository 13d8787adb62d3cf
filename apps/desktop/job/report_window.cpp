#include "apps/desktop/job/report_window.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QListWidget>
#include <QStyle>
#include <QVBoxLayout>

#include "apps/desktop/dialogs/button_bar.h"
#include "apps/desktop/dialogs/handheld_style.h"
#include "apps/desktop/dialogs/mnemonics.h"
#include "apps/desktop/qt_text.h"

namespace {

QListWidgetItem* NewItem(const ReportLine& line, const QWidget& window) {
  auto* const item = new QListWidgetItem(line.text);
  if (line.isWarning) {
    item->setIcon(window.style()->standardIcon(QStyle::SP_MessageBoxWarning));
  }
  if (line.object) {
    QFont font = item->font();
    font.setUnderline(true);
    item->setFont(font);
    item->setForeground(window.palette().link());
    item->setToolTip(Translated(ToXlate("Show it in the job")));
  }
  return item;
}

}  // namespace

ReportWindow::ReportWindow(ExchangeReport report, const DialogShape& shape, QWidget* parent)
    : QDialog(parent), report_(std::move(report)) {
  setObjectName("report");
  setWindowTitle(report_.title);
  setAttribute(Qt::WA_DeleteOnClose);
  auto* const list = new QListWidget;
  list->setObjectName("lines");
  list->setAccessibleName(Translated(ToXlate("What the exchange did")));
  list->setWordWrap(true);
  constexpr int kBetweenLines = 2;
  list->setSpacing(kBetweenLines);
  for (const ReportLine& line : report_.lines) list->addItem(NewItem(line, *this));
  const auto go = [this, list](const QListWidgetItem* item) {
    const ReportLine& line = report_.lines[static_cast<std::size_t>(list->row(item))];
    if (line.object && onObject) onObject(*line.object);
  };
  connect(list, &QListWidget::itemClicked, list, go);
  connect(list, &QListWidget::itemActivated, list, go);
  auto* const bar = new ButtonBar({ToXlate("Copy"), ToXlate("Close")}, shape.WithButtonsBelow(),
                                  [this](std::string_view label) {
                                    if (label == "Close") {
                                      close();
                                    } else {
                                      QGuiApplication::clipboard()->setText(report_.AsText());
                                    }
                                  });
  bar->Button("Close")->setDefault(true);
  bar->Button("Close")->setFocus();
  auto* const layout = new QVBoxLayout(this);
  layout->addWidget(list);
  layout->addWidget(bar);
  FillScreen(*this, *layout, shape);
  constexpr QSize kUsual(560, 360);
  if (!shape.isHandheld) resize(kUsual);
  AssignMnemonics(this);
}
