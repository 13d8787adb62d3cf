#include "apps/desktop/plan/name_painter.h"

#include <QMultiHash>
#include <algorithm>
#include <array>

#include "host/plot/bit_grid.h"

namespace plan {
namespace {

constexpr double kCell = 2;    // pixels
constexpr double kAside = 8;   // of a text from its point
constexpr double kSymbol = 9;  // the room of a symbol
constexpr double kBelow = 2;   // of a text below the line that it stands on

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

QString Drawable(const std::string& text) {
  return QString::fromStdString(plot::DrawableText(text));
}

// What may stand beside a point, the fullest first.
QStringList TextsOf(const plot::Mark& mark, bool names, bool codes) {
  const QString name = names ? Drawable(std::string(mark.point->NameUtf8())) : QString();
  const QString code = codes ? Drawable(mark.point->GetSecScri().ToUtf8()) : QString();
  if (name.isEmpty() || code.isEmpty())
    return name.isEmpty() ? QStringList{code} : QStringList{name};
  return {name + ' ' + code, name};
}

// Where a text may stand beside its point: the usual place first.
std::array<QRectF, 4> PlacesFor(const QPointF& at, double width, double height) {
  const double right = at.x() + kAside;
  const double left = at.x() - kAside - width;
  const double above = at.y() - height;
  return {QRectF(right, above, width, height), QRectF(right, at.y(), width, height),
          QRectF(left, above, width, height), QRectF(left, at.y(), width, height)};
}

class NamePainter {
 public:
  NamePainter(const ViewWindow& view, QPainter& painter)
      : room_(view), painter_(painter), metrics_(painter.font()) {
    // The scale bar's.
    constexpr double kHigh = 34;
    room_.Take({0, view.Height() - kHigh, view.Width() * 0.25 + 20, kHigh});
  }

  void Occupy(const QPointF& at) {
    room_.Take(QRectF(at - QPointF(kSymbol / 2, kSymbol / 2), QSizeF(kSymbol, kSymbol)));
  }
  /// `texts`: the fullest first, the name alone last.
  void Paint(const QPointF& at, const QStringList& texts, const QColor& color) {
    if (IsNamedAlready(at, texts.last())) return;
    for (const QString& text : texts) {
      if (text.isEmpty()) continue;
      for (const QRectF& box :
           PlacesFor(at, metrics_.horizontalAdvance(text), metrics_.ascent() + kBelow)) {
        if (!room_.IsFree(box)) continue;
        named_.insert(texts.last(), at);
        return PaintIn(box, text, color);
      }
    }
  }

 private:
  // A point that was measured from several stations is one to the eye.
  bool IsNamedAlready(const QPointF& at, const QString& name) const {
    constexpr double kSamePlace = 6;  // pixels
    const auto places = named_.equal_range(name);
    return std::any_of(places.first, places.second, [&](const QPointF& other) {
      return (other - at).manhattanLength() < kSamePlace;
    });
  }
  // On a ground of its own, so that lines behind it do not run through its letters.
  void PaintIn(const QRectF& box, const QString& text, const QColor& color) {
    room_.Take(box);
    painter_.fillRect(box, QColor(255, 255, 255, 170));
    painter_.setPen(color);
    painter_.drawText(QPointF(box.left(), box.bottom() - kBelow), text);
  }

  Room room_;
  QPainter& painter_;
  QFontMetricsF metrics_;
  QMultiHash<QString, QPointF> named_;
};

}  // namespace

void PaintNames(const PlanModel& model, const ViewWindow& view,
                const std::vector<std::uint32_t>& marks, QPainter& painter) {
  const bool names = model.IsShown(LayerKind::kNames);
  const bool codes = model.IsShown(LayerKind::kCodes);
  if (!names && !codes) return;
  NamePainter texts(view, painter);
  const auto pixelOf = [&](const plot::Mark& mark) {
    const plot::Place pixel = view.ToPixels(mark.place);
    return QPointF(pixel.x, pixel.y);
  };
  for (const std::uint32_t mark : marks) texts.Occupy(pixelOf(model.Marks()[mark]));
  for (const std::uint32_t mark : marks) {
    const plot::Mark& each = model.Marks()[mark];
    texts.Paint(pixelOf(each), TextsOf(each, names, codes), QColor(RgbOf(each.kind)));
  }
}

}  // namespace plan
