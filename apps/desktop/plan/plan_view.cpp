#include "apps/desktop/plan/plan_view.h"

#include <QApplication>
#include <QGestureEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QToolTip>
#include <cmath>
#include <set>

#include "apps/desktop/plan/plan_picture.h"
#include "services/translate.h"

namespace plan {
namespace {

constexpr double kStep = 1.5;       // of a key or a button
constexpr double kShare = 0.2;      // of the window, for an arrow key
constexpr double kNotches = 120.0;  // of the wheel, in its own units

std::set<std::string> NamesOff(const PlanModel& model, bool wasVisible) {
  std::set<std::string> names;
  for (const PlanLayer& layer : model.Layers()) {
    if (layer.isVisible == wasVisible) names.insert(layer.name);
  }
  return names;
}

bool Touches(const plot::Box& a, const plot::Box& b) {
  return a.left <= b.right && b.left <= a.right && a.low <= b.high && b.low <= a.high;
}

}  // namespace

PlanView::PlanView(QWidget* parent) : QWidget(parent) {
  setObjectName("plan");
  setAccessibleName(QString::fromStdString(Xlate("Plan").ToUtf8()));
  setMouseTracking(true);
  setFocusPolicy(Qt::StrongFocus);
  setAttribute(Qt::WA_OpaquePaintEvent);
  grabGesture(Qt::PinchGesture);
}

void PlanView::ShowJob(HostDocument& document) {
  const std::set<std::string> off = NamesOff(model_, false);
  const bool wasEmpty = model_.Extent().IsEmpty();
  model_ = PlanModel(document);
  for (std::size_t i = 0; i < model_.Layers().size(); ++i) {
    if (off.contains(model_.Layers()[i].name)) model_.SetVisible(i, false);
  }
  highlighted_ = nullptr;
  if (wasEmpty || isFitted_ || !Touches(model_.Extent(), window_.Shown())) Fit();
  emit LayersChanged();
  update();
}

void PlanView::Clear() {
  model_ = PlanModel();
  highlighted_ = nullptr;
  emit LayersChanged();
  update();
}

void PlanView::SetLayerVisible(std::size_t layer, bool visible) {
  if (layer >= model_.Layers().size()) return;
  model_.SetVisible(layer, visible);
  update();
}

void PlanView::Highlight(const CEgn* point) {
  highlighted_ = point;
  if (point != nullptr && point->HasPlane()) {
    const plot::Place place{point->GetCoordX(), point->GetCoordY()};
    if (!window_.Shown().Holds(place)) {
      window_.CentreOn(place);
      isFitted_ = false;
    }
  }
  update();
}

void PlanView::Fit() {
  window_.Fit(model_.Extent());
  isFitted_ = true;
  update();
}

void PlanView::ZoomIn() { ZoomAtMiddle(kStep); }
void PlanView::ZoomOut() { ZoomAtMiddle(1 / kStep); }

void PlanView::ZoomAtMiddle(double factor) {
  window_.ZoomAt({width() / 2.0, height() / 2.0}, factor);
  isFitted_ = false;
  update();
}

void PlanView::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.drawImage(0, 0, PaintPlan(model_, window_, {devicePixelRatioF(), highlighted_}));
  if (!model_.Extent().IsEmpty()) return;
  const char* const hint = model_.WithoutPlace() > 0
                               ? ToXlate("Nothing with coordinates in this job")
                               : ToXlate("Drop files of a survey here, or choose what to import.");
  painter.setPen(QColor(0x666666));
  painter.drawText(rect().adjusted(8, 8, -8, -40), Qt::AlignCenter | Qt::TextWordWrap,
                   QString::fromStdString(Xlate(hint).ToUtf8()));
}

void PlanView::resizeEvent(QResizeEvent*) {
  window_.Resize(width(), height());
  if (isFitted_) Fit();
}

void PlanView::wheelEvent(QWheelEvent* event) {
  const double notches = event->angleDelta().y() / kNotches;
  window_.ZoomAt({event->position().x(), event->position().y()}, std::pow(kStep, notches));
  isFitted_ = false;
  update();
  event->accept();
}

void PlanView::mousePressEvent(QMouseEvent* event) {
  pressedAt_ = last_ = event->position();
  isDragging_ = false;
}

void PlanView::mouseMoveEvent(QMouseEvent* event) {
  const plot::Place place = window_.ToMetres({event->position().x(), event->position().y()});
  emit PointedAt(place.x, place.y);
  if ((event->buttons() & (Qt::LeftButton | Qt::MiddleButton)) == 0) return;
  const QPointF way = event->position() - pressedAt_;
  isDragging_ = isDragging_ || way.manhattanLength() >= QApplication::startDragDistance();
  if (!isDragging_) return;
  const QPointF step = event->position() - last_;
  last_ = event->position();
  window_.Move(step.x(), step.y());
  isFitted_ = false;
  update();
}

void PlanView::mouseReleaseEvent(QMouseEvent* event) {
  if (!isDragging_ && event->button() == Qt::LeftButton) Pick(event->position());
  isDragging_ = false;
}

void PlanView::mouseDoubleClickEvent(QMouseEvent* event) {
  window_.ZoomAt({event->position().x(), event->position().y()}, kStep * kStep);
  isFitted_ = false;
  update();
}

void PlanView::keyPressEvent(QKeyEvent* event) {
  const double across = width() * kShare;
  const double down = height() * kShare;
  isFitted_ = false;
  switch (event->key()) {
    case Qt::Key_Left: window_.Move(across, 0); break;
    case Qt::Key_Right: window_.Move(-across, 0); break;
    case Qt::Key_Up: window_.Move(0, down); break;
    case Qt::Key_Down: window_.Move(0, -down); break;
    case Qt::Key_Plus:
    case Qt::Key_Equal: ZoomIn(); break;
    case Qt::Key_Minus: ZoomOut(); break;
    case Qt::Key_Home: Fit(); break;
    default: QWidget::keyPressEvent(event); return;
  }
  update();
}

bool PlanView::event(QEvent* event) {
  if (event->type() != QEvent::Gesture) return QWidget::event(event);
  auto* const gestures = static_cast<QGestureEvent*>(event);
  auto* const pinch = static_cast<QPinchGesture*>(gestures->gesture(Qt::PinchGesture));
  if (pinch == nullptr) return QWidget::event(event);
  const QPointF at = mapFromGlobal(pinch->hotSpot());
  window_.ZoomAt({at.x(), at.y()}, pinch->scaleFactor());
  isFitted_ = false;
  update();
  return true;
}

void PlanView::Pick(const QPointF& pixels) {
  const std::optional<Found> found = FindAt(model_, window_, {pixels.x(), pixels.y()});
  highlighted_ = found ? found->point : nullptr;
  if (found) {
    QToolTip::showText(mapToGlobal(pixels.toPoint()), QString::fromStdString(found->text), this);
  } else {
    QToolTip::hideText();
  }
  update();
  emit Picked(found.value_or(Found{}));
}

}  // namespace plan
