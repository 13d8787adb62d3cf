#include "apps/desktop/plan/mark_painter.h"

#include <functional>

#include "apps/desktop/plan/plan_model.h"

namespace plan {
namespace {

constexpr int kIconSide = 16;  // pixels, of the smallest

QPolygonF Triangle(const QPointF& at, double half) {
  return QPolygonF({{at.x(), at.y() - half},
                    {at.x() + half * 0.9, at.y() + half * 0.6},
                    {at.x() - half * 0.9, at.y() + half * 0.6}});
}

QPolygonF Diamond(const QPointF& at, double half) {
  return QPolygonF({{at.x(), at.y() - half},
                    {at.x() + half, at.y()},
                    {at.x(), at.y() + half},
                    {at.x() - half, at.y()}});
}

void PaintCross(QPainter& painter, const QPointF& at, double half) {
  painter.drawLine(QLineF(at.x() - half, at.y(), at.x() + half, at.y()));
  painter.drawLine(QLineF(at.x(), at.y() - half, at.x(), at.y() + half));
}

// In several sizes, each sharp.
QIcon Painted(const std::function<void(QPainter&)>& paint) {
  QIcon icon;
  for (const int side : {kIconSide, 18, 20, 24, 28, 32, 48, 64}) {
    QPixmap picture(side, side);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.scale(static_cast<double>(side) / kIconSide, static_cast<double>(side) / kIconSide);
    paint(painter);
    painter.end();
    icon.addPixmap(picture);
  }
  return icon;
}

}  // namespace

void PaintMark(QPainter& painter, const QPointF& at, double half, plot::MarkKind kind) {
  const QColor color(RgbOf(kind));
  painter.setPen(QPen(color, 1.4));
  painter.setBrush(Qt::NoBrush);
  switch (kind) {
    case plot::MarkKind::kStation:
      painter.setBrush(Qt::white);
      painter.drawPolygon(Triangle(at, half));
      break;
    case plot::MarkKind::kKnown:
    case plot::MarkKind::kManyKnown:
      painter.setBrush(color);
      painter.drawPolygon(Triangle(at, half));
      break;
    case plot::MarkKind::kControl: painter.drawPolygon(Diamond(at, half)); break;
    case plot::MarkKind::kGpsBase:
      painter.setBrush(color);
      painter.drawEllipse(at, half * 0.8, half * 0.8);
      break;
    case plot::MarkKind::kGps: painter.drawEllipse(at, half * 0.6, half * 0.6); break;
    case plot::MarkKind::kMeasured: PaintCross(painter, at, half * 0.6); break;
  }
}

QIcon MarkIcon(plot::MarkKind kind) {
  return Painted([kind](QPainter& painter) {
    PaintMark(painter, {kIconSide / 2.0, kIconSide / 2.0}, kIconSide * 0.38, kind);
  });
}

QIcon LineIcon(std::uint32_t color) {
  return Painted([color](QPainter& painter) {
    painter.setPen(QPen(QColor(color), 2, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.drawPolyline(QPolygonF({{2, 12}, {6, 5}, {10, 10}, {14, 4}}));
  });
}

QIcon LetterIcon() {
  return Painted([](QPainter& painter) {
    QFont font = painter.font();
    font.setPixelSize(kIconSide - 4);
    painter.setFont(font);
    painter.setPen(QColor(0x555555));
    painter.drawText(QRect(0, 0, kIconSide, kIconSide), Qt::AlignCenter, "A");
  });
}

}  // namespace plan
