#include "apps/desktop/plan/layer_list.h"

#include <QStyle>

#include "apps/desktop/plan/mark_painter.h"
#include "services/translate.h"

namespace plan {
namespace {

QIcon IconOf(const PlanLayer& layer) {
  switch (layer.kind) {
    case LayerKind::kPoints: return MarkIcon(static_cast<plot::MarkKind>(layer.position));
    case LayerKind::kNames:
    case LayerKind::kCodes: return LetterIcon();
    case LayerKind::kDrawing: return LineIcon(layer.ColorOf(0));
    default: return LineIcon(layer.color);
  }
}

}  // namespace

LayerList::LayerList(PlanView& view, QWidget* parent) : QListWidget(parent), view_(view) {
  setObjectName("layers");
  const int side = style()->pixelMetric(QStyle::PM_SmallIconSize);
  setIconSize({side, side});
  setAccessibleName(QString::fromStdString(Xlate("Layers of the plan").ToUtf8()));
  connect(&view_, &PlanView::LayersChanged, this, &LayerList::Refill);
  connect(this, &QListWidget::itemChanged, this, &LayerList::Take);
  Refill();
}

void LayerList::Refill() {
  const QSignalBlocker quiet(this);
  clear();
  for (const PlanLayer& layer : view_.Model().Layers()) {
    auto* const item = new QListWidgetItem(IconOf(layer), QString::fromStdString(layer.name), this);
    item->setFlags(item->flags() | Qt::ItemIsUserCheckable);
    item->setCheckState(layer.isVisible ? Qt::Checked : Qt::Unchecked);
  }
}

void LayerList::Take(const QListWidgetItem* item) {
  view_.SetLayerVisible(static_cast<std::size_t>(row(item)), item->checkState() == Qt::Checked);
}

}  // namespace plan
