#include "apps/desktop/plan/name_painter.h"

#include "host/plot/bit_grid.h"

namespace plan {
namespace {

constexpr double kCell = 3;     // pixels
constexpr double kAside = 6;    // of a text from its point
constexpr double kSymbol = 10;  // the room of a symbol

// The room that is taken.
class Room {
 public:
  explicit Room(const ViewWindow& view)
      : cells_({0, 0, static_cast<double>(view.Width()), static_cast<double>(view.Height())},
               kCell) {}

  bool IsFree(const QRectF& box) const {
    if (!(box.left() >= 0 && box.top() >= 0 && box.right() <= cells_.Area().right &&
          box.bottom() <= cells_.Area().high)) {
      return false;
    }
    for (int row = cells_.RowOf(box.top()); row <= cells_.RowOf(box.bottom()); ++row) {
      if (cells_.HasAny(row, cells_.ColumnOf(box.left()), cells_.ColumnOf(box.right()))) {
        return false;
      }
    }
    return true;
  }
  void Take(const QRectF& box) {
    const int last = std::min(cells_.RowOf(box.bottom()), cells_.Rows() - 1);
    for (int row = std::max(cells_.RowOf(box.top()), 0); row <= last; ++row) {
      cells_.SetRun(row, std::max(cells_.ColumnOf(box.left()), 0),
                    std::min(cells_.ColumnOf(box.right()), cells_.Columns() - 1));
    }
  }

 private:
  plot::BitGrid cells_;
};

QString TextOf(const plot::Mark& mark, bool names, bool codes) {
  QString text;
  if (names) text = QString::fromUtf8(mark.point->NameUtf8());
  if (codes) {
    const std::string code = mark.point->GetSecScri().ToUtf8();
    if (!code.empty()) text += (text.isEmpty() ? "" : " ") + QString::fromStdString(code);
  }
  return QString::fromStdString(plot::DrawableText(text.toStdString()));
}

}  // namespace

void PaintNames(const PlanModel& model, const ViewWindow& view,
                const std::vector<std::uint32_t>& marks, QPainter& painter) {
  const bool names = model.IsShown(LayerKind::kNames);
  const bool codes = model.IsShown(LayerKind::kCodes);
  if (!names && !codes) return;
  Room room(view);
  const auto pixelOf = [&](std::uint32_t mark) {
    const plot::Place pixel = view.ToPixels(model.Marks()[mark].place);
    return QPointF(pixel.x, pixel.y);
  };
  for (const std::uint32_t mark : marks) {
    room.Take(QRectF(pixelOf(mark) - QPointF(kSymbol / 2, kSymbol / 2), QSizeF(kSymbol, kSymbol)));
  }
  const QFontMetricsF metrics(painter.font());
  for (const std::uint32_t mark : marks) {
    const plot::Mark& each = model.Marks()[mark];
    const QString text = TextOf(each, names, codes);
    if (text.isEmpty()) continue;
    const QPointF at = pixelOf(mark) + QPointF(kAside, -kAside + 2);
    const QRectF box(at.x(), at.y() - metrics.ascent(), metrics.horizontalAdvance(text),
                     metrics.height());
    if (!room.IsFree(box)) continue;
    room.Take(box);
    painter.setPen(QColor(RgbOf(each.kind)));
    painter.drawText(at, text);
  }
}

}  // namespace plan
