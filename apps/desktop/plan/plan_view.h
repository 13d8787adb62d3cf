// The plan as a widget: pan, zoom about the pointer, a click that tells what is there.
#pragma once

#include <QWidget>

#include "apps/desktop/plan/plan_find.h"
#include "apps/desktop/plan/plan_model.h"
#include "apps/desktop/plan/view_window.h"

namespace plan {

class PlanView : public QWidget {
  Q_OBJECT

 public:
  explicit PlanView(QWidget* parent = nullptr);

  /// Shows the job as it is now, in the window that was shown before; all of it the first time and
  /// when nothing of it would be seen. Layers that were off stay off. `document` must outlive what
  /// is shown; see Clear.
  void ShowJob(HostDocument& document);
  /// Shows nothing: before the document goes, or loses points.
  void Clear();

  const PlanModel& Model() const { return model_; }
  const ViewWindow& Window() const { return window_; }
  void SetLayerVisible(std::size_t layer, bool visible);

  /// Puts a ring around a point and brings it into view; null: no ring.
  void Highlight(const CEgn* point);

  QSize sizeHint() const override { return {640, 480}; }
  QSize minimumSizeHint() const override { return {160, 120}; }

 public slots:
  void Fit();
  void ZoomIn();
  void ZoomOut();

 signals:
  /// The pointer is over this place, metres.
  void PointedAt(double easting, double northing);
  /// A click; `text` is empty where nothing is.
  void Picked(const plan::Found& found);
  /// There are other layers now.
  void LayersChanged();

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  bool event(QEvent* event) override;

 private:
  void ZoomAtMiddle(double factor);
  void Pick(const QPointF& pixels);

  PlanModel model_;
  ViewWindow window_;
  const CEgn* highlighted_ = nullptr;
  bool isFitted_ = false;  // what is shown was fitted to the widget, and nobody moved it since
  QPointF pressedAt_;
  QPointF last_;
  bool isDragging_ = false;
};

}  // namespace plan
