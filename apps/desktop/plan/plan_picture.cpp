#include "apps/desktop/plan/plan_picture.h"

#include <QPainter>
#include <array>
#include <map>

#include "apps/desktop/plan/mark_painter.h"
#include "apps/desktop/plan/name_painter.h"
#include "host/plot/nice_numbers.h"

namespace plan {
namespace {

constexpr std::size_t kMostSymbols = 3'000;
constexpr qsizetype kMostSmooth = 4'000;  // legs whose edges are smoothed, which takes its time
constexpr double kHalfSymbol = 4.5;       // pixels
constexpr double kLeastLetters = 5;       // pixels: smaller texts are not legible

QPointF Point(const plot::Place& place) { return {place.x, place.y}; }

// Which kinds of marks are on.
std::array<bool, plot::kMarkKinds> ShownKinds(const PlanModel& model) {
  std::array<bool, plot::kMarkKinds> shown{};
  for (const PlanLayer& layer : model.Layers()) {
    if (layer.kind != LayerKind::kPoints) continue;
    shown[static_cast<std::size_t>(layer.position)] = layer.isVisible;
  }
  shown[static_cast<std::size_t>(plot::MarkKind::kManyKnown)] =
      shown[static_cast<std::size_t>(plot::MarkKind::kKnown)];
  return shown;
}

// Calls onMark(mark) for each mark that is seen, until it says that it has enough: false.
template <class OnMark>
void VisitMarks(const PlanModel& model, const ViewWindow& view, const OnMark& onMark) {
  const auto shown = ShownKinds(model);
  const plot::Box box = view.Shown();
  bool goesOn = true;
  model.Places().VisitCells(box, [&](const plot::Box&, auto places) {
    for (std::size_t i = 0; goesOn && i < places.size(); ++i) {
      const MarkAt& each = places[i];
      if (!box.Holds(each.at) || !shown[static_cast<std::size_t>(each.kind)]) continue;
      goesOn = onMark(each);
    }
  });
}

class Painter {
 public:
  Painter(const PlanModel& model, const ViewWindow& view, const PictureOptions& options,
          QImage& image)
      : model_(model),
        view_(view),
        options_(options),
        image_(image),
        painter_(&image),
        shown_(view.Shown()) {}

  void Paint() {
    for (const PlanLayer* const layer : model_.FromTheGround()) {
      if (layer->isVisible) PaintLines(*layer);
    }
    for (const PlanLayer& layer : model_.Layers()) {
      if (layer.isVisible) PaintTexts(layer);
    }
    PaintMarks();
    PaintHighlight();
    PaintScaleBar();
  }

 private:
  void PaintLines(const PlanLayer& layer) {
    std::map<Rgb, QList<QLineF>> legs;
    std::map<Rgb, QList<QPointF>> dots;
    const plot::Box seen = shown_.Grown(view_.MetresPerPixel() * 4);
    layer.lines.Visit(
        shown_, view_.MetresPerPixel(),
        [&](const Leg& leg) {
          plot::Place from = leg.from;
          plot::Place to = leg.to;
          if (!plot::ClipLeg(seen, from, to)) return;
          const Rgb color = layer.ColorOf(leg.source);
          if (leg.from == leg.to) {
            dots[color].push_back(Point(view_.ToPixels(from)));
          } else {
            legs[color].push_back({Point(view_.ToPixels(from)), Point(view_.ToPixels(to))});
          }
        },
        [&](auto crowd, double pixels) { PaintCrowd(crowd, pixels, layer); });
    for (const auto& [color, lines] : legs) {
      painter_.setRenderHint(QPainter::Antialiasing, lines.size() < kMostSmooth);
      painter_.setPen(QPen(QColor(color), layer.width));
      painter_.drawLines(lines);
    }
    painter_.setRenderHint(QPainter::Antialiasing, false);
    for (const auto& [color, points] : dots) {
      painter_.setPen(QPen(QColor(color), std::max(layer.width, 3.0)));
      painter_.drawPoints(points.data(), static_cast<int>(points.size()));
    }
  }

  // Legs that cannot be told apart are dots, no more of them than there are pixels.
  void PaintCrowd(std::span<const Leg> legs, double pixels, const PlanLayer& layer) {
    const auto most = static_cast<std::size_t>(std::max(pixels, 1.0));
    const std::size_t step = (legs.size() + most - 1) / most;
    for (std::size_t i = 0; i < legs.size(); i += step) {
      PaintDot(legs[i].from, layer.ColorOf(legs[i].source));
    }
  }

  void PaintTexts(const PlanLayer& layer) {
    layer.texts.VisitCells(shown_, [&](const plot::Box&, auto texts) {
      for (const plot::WorkText& text : texts) {
        const double height = text.height / view_.MetresPerPixel();
        if (height < kLeastLetters || height > view_.Height() || !shown_.Holds(text.at)) continue;
        PaintText(text, height, layer.ColorOf(text.source));
      }
    });
  }
  void PaintText(const plot::WorkText& text, double height, Rgb color) {
    painter_.save();
    QFont font = painter_.font();
    font.setPixelSize(std::max(1, static_cast<int>(std::lround(height / plot::kCapitals))));
    painter_.setFont(font);
    painter_.setPen(QColor(color));
    painter_.translate(Point(view_.ToPixels(text.at)));
    painter_.rotate(-text.rotation);
    const QStringList lines = QString::fromStdString(text.text).split('\n');
    for (qsizetype i = 0; i < lines.size(); ++i) {
      painter_.drawText(QPointF(0, static_cast<double>(i) * height * plot::kLineSpacing), lines[i]);
    }
    painter_.restore();
  }

  void PaintMarks() {
    const std::vector<std::uint32_t> symbols = SymbolsIn(model_, view_);
    if (symbols.empty()) {
      PaintDots();
      return;
    }
    painter_.setRenderHint(QPainter::Antialiasing);
    for (auto mark = symbols.rbegin(); mark != symbols.rend(); ++mark) {
      const plot::Mark& each = model_.Marks()[*mark];
      PaintMark(painter_, Point(view_.ToPixels(each.place)), kHalfSymbol, each.kind);
    }
    PaintNames(model_, view_, symbols, painter_);
    painter_.setRenderHint(QPainter::Antialiasing, false);
  }

  void PaintDots() {
    VisitMarks(model_, view_, [&](const MarkAt& each) {
      PaintDot(each.at, RgbOf(each.kind));
      return true;
    });
  }

  // Straight into the picture: a million points must not wait for a painter.
  void PaintDot(const plot::Place& place, Rgb color) {
    const plot::Place pixel = view_.ToPixels(place);
    const double x = pixel.x * options_.pixelRatio;
    const double y = pixel.y * options_.pixelRatio;
    if (x < 0 || y < 0 || x >= image_.width() || y >= image_.height()) return;
    reinterpret_cast<QRgb*>(bits_ + static_cast<int>(y) * stride_)[static_cast<int>(x)] =
        0xFF000000 | color;
  }

  void PaintHighlight() {
    const CEgn* const point = options_.highlighted;
    if (point == nullptr || !point->HasPlane()) return;
    painter_.setRenderHint(QPainter::Antialiasing);
    painter_.setBrush(Qt::NoBrush);
    painter_.setPen(QPen(QColor(0xE05A00), 2.5));
    painter_.drawEllipse(Point(view_.ToPixels({point->GetCoordX(), point->GetCoordY()})), 11, 11);
  }

  void PaintScaleBar() {
    constexpr double kLongest = 0.25;  // of the width
    const double metres = plot::NiceAtMost(view_.Width() * kLongest * view_.MetresPerPixel());
    const double pixels = metres / view_.MetresPerPixel();
    const double left = 10;
    const double low = view_.Height() - 10;
    const QString text = QString::fromStdString(plot::LengthText(metres));
    const double textWidth = painter_.fontMetrics().horizontalAdvance(text);
    painter_.fillRect(QRectF(left - 5, low - 24, std::max(pixels, textWidth) + 10, 29),
                      QColor(255, 255, 255, 200));
    painter_.setPen(QPen(Qt::black, 1));
    painter_.drawLines(QList<QLineF>{{left, low, left + pixels, low},
                                     {left, low - 4, left, low},
                                     {left + pixels, low - 4, left + pixels, low}});
    painter_.drawText(QPointF(left, low - 8), text);
  }

  const PlanModel& model_;
  const ViewWindow& view_;
  const PictureOptions& options_;
  QImage& image_;
  uchar* bits_ = image_.bits();
  qsizetype stride_ = image_.bytesPerLine();
  QPainter painter_;
  plot::Box shown_;
};

}  // namespace

std::vector<std::uint32_t> SymbolsIn(const PlanModel& model, const ViewWindow& view) {
  std::vector<std::uint32_t> symbols;
  VisitMarks(model, view, [&](const MarkAt& each) {
    symbols.push_back(each.mark);
    return symbols.size() <= kMostSymbols;
  });
  if (symbols.size() > kMostSymbols) symbols.clear();
  std::sort(symbols.begin(), symbols.end());
  return symbols;
}

QImage PaintPlan(const PlanModel& model, const ViewWindow& view, const PictureOptions& options) {
  const double ratio = options.pixelRatio;
  QImage image(static_cast<int>(std::lround(view.Width() * ratio)),
               static_cast<int>(std::lround(view.Height() * ratio)), QImage::Format_RGB32);
  image.setDevicePixelRatio(ratio);
  image.fill(Qt::white);
  Painter(model, view, options, image).Paint();
  return image;
}

}  // namespace plan
