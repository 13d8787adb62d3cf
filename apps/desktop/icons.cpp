#include "apps/desktop/icons.h"

#include <QApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPainterPath>
#include <QPalette>
#include <array>
#include <span>

namespace {

// One step of a drawing on a field of 24 by 24: where a line begins, where it goes on, the end of a
// closed one, a circle around a place.
struct Step {
  enum Kind : char { kFrom, kTo, kClose, kCircle } kind = kClose;
  signed char x = 0;
  signed char y = 0;
  signed char radius = 0;
};

constexpr Step F(int x, int y) {
  return {Step::kFrom, static_cast<signed char>(x), static_cast<signed char>(y)};
}
constexpr Step T(int x, int y) {
  return {Step::kTo, static_cast<signed char>(x), static_cast<signed char>(y)};
}
constexpr Step C(int x, int y, int radius) {
  return {Step::kCircle, static_cast<signed char>(x), static_cast<signed char>(y),
          static_cast<signed char>(radius)};
}
constexpr Step Z() { return {}; }

// A sheet with a folded corner.
constexpr std::array kNew = {F(6, 3), T(14, 3), T(19, 8), T(19, 21), T(6, 21),
                             Z(),     F(14, 3), T(14, 8), T(19, 8)};
// An open folder.
constexpr std::array kOpen = {F(3, 19), T(3, 5),  T(9, 5),   T(11, 8),  T(20, 8), T(20, 11),
                              F(3, 19), T(7, 11), T(22, 11), T(18, 19), Z()};
// A disk.
constexpr std::array kSave = {F(4, 4),  T(17, 4), T(20, 7),  T(20, 20), T(4, 20),
                              Z(),      F(8, 4),  T(8, 9),   T(15, 9),  T(15, 4),
                              F(7, 20), T(7, 13), T(17, 13), T(17, 20)};
// An arrow into a tray, and out of it.
constexpr std::array kImport = {F(12, 3), T(12, 15), F(7, 10),  T(12, 15), T(17, 10),
                                F(4, 15), T(4, 20),  T(20, 20), T(20, 15)};
constexpr std::array kExport = {F(12, 15), T(12, 3), F(7, 8),   T(12, 3), T(17, 8),
                                F(4, 15),  T(4, 20), T(20, 20), T(20, 15)};
// An arrow that turns back.
constexpr std::array kUndo = {F(8, 4),   T(4, 8),   T(8, 12),  F(4, 8),   T(14, 8),  T(17, 9),
                              T(19, 11), T(20, 14), T(19, 17), T(17, 19), T(14, 20), T(9, 20)};
// A pocket calculator.
constexpr std::array kCompute = {F(5, 3),     T(19, 3),     T(19, 21),   T(5, 21),    Z(),
                                 F(8, 6),     T(16, 6),     T(16, 9),    T(8, 9),     Z(),
                                 C(9, 13, 1), C(15, 13, 1), C(9, 17, 1), C(15, 17, 1)};
// Four corners of a frame.
constexpr std::array kFit = {F(4, 9),   T(4, 4),   T(9, 4),   F(15, 4), T(20, 4), T(20, 9),
                             F(20, 15), T(20, 20), T(15, 20), F(9, 20), T(4, 20), T(4, 15)};
// A magnifying glass.
constexpr std::array kZoomIn = {C(10, 10, 7), F(15, 15), T(21, 21), F(7, 10),
                                T(13, 10),    F(10, 7),  T(10, 13)};
constexpr std::array kZoomOut = {C(10, 10, 7), F(15, 15), T(21, 21), F(7, 10), T(13, 10)};
constexpr std::array kTree = {C(5, 5, 2),   F(5, 7),  T(5, 19),  F(5, 12),    T(11, 12),
                              C(14, 12, 2), F(5, 19), T(11, 19), C(14, 19, 2)};
constexpr std::array kTable = {F(3, 5),   T(21, 5), T(21, 20), T(3, 20), Z(),     F(3, 10),
                               T(21, 10), F(3, 15), T(21, 15), F(9, 5),  T(9, 20)};
// A folded map.
constexpr std::array kPlan = {F(3, 6),  T(9, 4), T(15, 6), T(21, 4), T(21, 18), T(15, 20), T(9, 18),
                              T(3, 20), Z(),     F(9, 4),  T(9, 18), F(15, 6),  T(15, 20)};
constexpr std::array kLayers = {F(12, 4), T(21, 9), T(12, 14), T(3, 9),
                                Z(),      F(3, 14), T(12, 19), T(21, 14)};
// A field book.
constexpr std::array kBook = {F(6, 3),  T(19, 3), T(19, 21), T(6, 21),  Z(),      F(9, 3),
                              T(9, 21), F(12, 8), T(16, 8),  F(12, 12), T(16, 12)};
constexpr std::array kGroup = {F(3, 19), T(3, 5), T(9, 5), T(11, 8), T(21, 8), T(21, 19), Z()};
// Three triangles.
constexpr std::array kTerrain = {F(2, 18), T(8, 6),   T(14, 18), Z(),       F(8, 6),
                                 T(20, 8), T(14, 18), F(20, 8),  T(22, 18), T(14, 18)};
constexpr std::array kRoad = {F(5, 21), T(9, 3),   F(19, 21), T(15, 3),  F(12, 3),
                              T(12, 6), F(12, 10), T(12, 14), F(12, 18), T(12, 21)};
// A parcel.
constexpr std::array kTheme = {F(4, 8), T(13, 3), T(20, 9), T(17, 20), T(6, 18), Z()};

std::span<const Step> StepsOf(Picture picture) {
  switch (picture) {
    case Picture::kNew: return kNew;
    case Picture::kOpen: return kOpen;
    case Picture::kSave: return kSave;
    case Picture::kImport: return kImport;
    case Picture::kExport: return kExport;
    case Picture::kUndo: return kUndo;
    case Picture::kCompute: return kCompute;
    case Picture::kFit: return kFit;
    case Picture::kZoomIn: return kZoomIn;
    case Picture::kZoomOut: return kZoomOut;
    case Picture::kTree: return kTree;
    case Picture::kTable: return kTable;
    case Picture::kPlan: return kPlan;
    case Picture::kLayers: return kLayers;
    case Picture::kBook: return kBook;
    case Picture::kGroup: return kGroup;
    case Picture::kTerrain: return kTerrain;
    case Picture::kRoad: return kRoad;
    case Picture::kTheme: return kTheme;
  }
  return {};
}

QPainterPath PathOf(Picture picture) {
  QPainterPath path;
  for (const Step& step : StepsOf(picture)) {
    const QPointF at(step.x, step.y);
    switch (step.kind) {
      case Step::kFrom: path.moveTo(at); break;
      case Step::kTo: path.lineTo(at); break;
      case Step::kClose: path.closeSubpath(); break;
      case Step::kCircle: path.addEllipse(at, step.radius, step.radius); break;
    }
  }
  return path;
}

class Drawing : public QIconEngine {
 public:
  explicit Drawing(Picture picture) : picture_(picture) {}

  void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode,
             QIcon::State /*state*/) override {
    constexpr double kField = 24;
    constexpr double kLine = 1.7;
    const double scale = std::min(rect.width(), rect.height()) / kField;
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->translate(QRectF(rect).center() - QPointF(scale, scale) * (kField / 2));
    painter->scale(scale, scale);
    painter->setBrush(Qt::NoBrush);
    painter->setPen(QPen(ColorFor(mode), kLine, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter->drawPath(PathOf(picture_));
    painter->restore();
  }

  QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
    QPixmap picture(size);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    paint(&painter, QRect(QPoint(), size), mode, state);
    return picture;
  }

  QIconEngine* clone() const override { return new Drawing(picture_); }

 private:
  static QColor ColorFor(QIcon::Mode mode) {
    const QPalette colors = QApplication::palette();
    switch (mode) {
      case QIcon::Disabled: return colors.color(QPalette::Disabled, QPalette::WindowText);
      case QIcon::Selected: return colors.color(QPalette::HighlightedText);
      default: return colors.color(QPalette::WindowText);
    }
  }

  Picture picture_;
};

}  // namespace

QIcon IconOf(Picture picture) { return QIcon(new Drawing(picture)); }

QIcon ProgramIcon() {
  QPixmap picture(128, 128);
  picture.fill(Qt::transparent);
  QPainter painter(&picture);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Qt::NoPen);
  painter.setBrush(QColor(0x1D4F63));
  painter.drawRoundedRect(4, 4, 120, 120, 22, 22);
  constexpr double kScale = 4.2;
  painter.translate(14, 14);
  painter.scale(kScale, kScale);
  painter.setBrush(Qt::NoBrush);
  painter.setPen(QPen(Qt::white, 1.7, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  painter.drawPath(PathOf(Picture::kTerrain));
  painter.setPen(QPen(QColor(0xE8A33D), 1.7, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  painter.drawPath(PathOf(Picture::kExport));
  return QIcon::fromTheme("kalvio-desktop", QIcon(picture));
}
