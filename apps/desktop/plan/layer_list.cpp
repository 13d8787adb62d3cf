#include "apps/desktop/plan/layer_list.h"

#include "services/translate.h"

namespace plan {
namespace {

QIcon ColorOf(const PlanLayer& layer) {
  constexpr int kSide = 12;
  QPixmap picture(kSide, kSide);
  const bool hasOne =
      layer.colors.empty() && layer.kind != LayerKind::kNames && layer.kind != LayerKind::kCodes;
  picture.fill(hasOne ? QColor(layer.color) : QColor(Qt::transparent));
  return picture;
}

}  // namespace

LayerList::LayerList(PlanView& view, QWidget* parent) : QListWidget(parent), view_(view) {
  setObjectName("layers");
  setAccessibleName(QString::fromStdString(Xlate("Layers of the plan").ToUtf8()));
  connect(&view_, &PlanView::LayersChanged, this, &LayerList::Refill);
  connect(this, &QListWidget::itemChanged, this, &LayerList::Take);
  Refill();
}

void LayerList::Refill() {
  const QSignalBlocker quiet(this);
  clear();
  for (const PlanLayer& layer : view_.Model().Layers()) {
    auto* const item =
        new QListWidgetItem(ColorOf(layer), QString::fromStdString(layer.name), this);
    item->setFlags(item->flags() | Qt::ItemIsUserCheckable);
    item->setCheckState(layer.isVisible ? Qt::Checked : Qt::Unchecked);
  }
}

void LayerList::Take(const QListWidgetItem* item) {
  view_.SetLayerVisible(static_cast<std::size_t>(row(item)), item->checkState() == Qt::Checked);
}

}  // namespace plan
