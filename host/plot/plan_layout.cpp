#include "host/plot/plan_layout.h"

#include <algorithm>

#include "host/plot/nice_numbers.h"

namespace plot {
namespace {

constexpr double kLongSide = 297;  // A4, millimetres
constexpr double kShortSide = 210;
// Around the frame: the title above, coordinates at the left and below, the scale bar and the
// legend at the foot.
constexpr double kMarginTop = 19;
constexpr double kMarginLeft = 13;
constexpr double kMarginRight = 8;
constexpr double kMarginBottom = 25;
// Between the frame and the outermost point, so that names have a place.
constexpr double kPadding = 8;
constexpr double kLargestPaddingShare = 0.08;
constexpr double kScaleOfOnePoint = 100;
constexpr double kVectorPixel = 0.25;

constexpr double kGridDistance = 30;
constexpr double kScaleBar = 60;
constexpr double kLargestScaleBarShare = 0.35;
constexpr double kChainageLabels = 25;

Box FrameOf(double width, double height) {
  return {kMarginLeft, kMarginTop, width - kMarginRight, height - kMarginBottom};
}

// The N of 1:N at which all of the extent is inside the frame.
double FittingScale(const Box& extent, const Box& frame) {
  const double padX = std::min(kPadding, frame.Width() * kLargestPaddingShare);
  const double padY = std::min(kPadding, frame.Height() * kLargestPaddingShare);
  const double needed = 1000 * std::max(extent.Width() / (frame.Width() - 2 * padX),
                                        extent.Height() / (frame.Height() - 2 * padY));
  return needed > 0 ? ScaleAtLeast(needed) : kScaleOfOnePoint;
}

bool IsBetterUpright(const Box& extent, double scale) {
  const Box across = FrameOf(kLongSide, kShortSide);
  const Box upright = FrameOf(kShortSide, kLongSide);
  if (scale == 0) return FittingScale(extent, upright) < FittingScale(extent, across);
  return extent.Height() > extent.Width();
}

}  // namespace

Box Sheet::Shown() const {
  const double halfWidth = MetresOf(frame.Width()) / 2;
  const double halfHeight = MetresOf(frame.Height()) / 2;
  return {middle.x - halfWidth, middle.y - halfHeight, middle.x + halfWidth, middle.y + halfHeight};
}

Sheet LayOut(const Box& extent, const PlanOptions& options) {
  Sheet sheet;
  const bool isPng = options.kind == PictureKind::kPng;
  const double unit = isPng ? 1 / kPixelsPerMillimetre : 1;
  sheet.width = options.width * unit;
  sheet.height = options.height * unit;
  if (options.width == 0 || options.height == 0) {
    const bool isUpright = IsBetterUpright(extent, options.scale);
    sheet.width = isUpright ? kShortSide : kLongSide;
    sheet.height = isUpright ? kLongSide : kShortSide;
    if (isPng && isUpright) {  // the width is the same in pixels
      sheet.width = kLongSide;
      sheet.height = kLongSide * kLongSide / kShortSide;
    }
  }
  sheet.frame = FrameOf(sheet.width, sheet.height);
  sheet.scale = options.scale > 0 ? options.scale : FittingScale(extent, sheet.frame);
  sheet.middle = extent.Middle();
  sheet.pixel = isPng ? unit : kVectorPixel;
  return sheet;
}

Grid GridOf(const Sheet& sheet) {
  const double shortSide = std::min(sheet.frame.Width(), sheet.frame.Height());
  Grid grid;
  grid.step = NiceAtLeast(sheet.MetresOf(std::min(kGridDistance, shortSide / 2)));
  grid.decimals = DecimalsOf(grid.step);
  const Box shown = sheet.Shown();
  const auto lines = [&](double least, double most) {
    std::vector<double> places;
    const Multiples found = MultiplesWithin(least, most, grid.step);
    places.reserve(static_cast<std::size_t>(found.count));
    for (int i = 0; i < found.count; ++i) places.push_back((found.first + i) * grid.step);
    return places;
  };
  grid.eastings = lines(shown.left, shown.right);
  grid.northings = lines(shown.low, shown.high);
  return grid;
}

double ScaleBarLength(const Sheet& sheet) {
  const double widest = std::min(kScaleBar, sheet.frame.Width() * kLargestScaleBarShare);
  return NiceAtMost(sheet.MetresOf(widest));
}

ChainageSteps ChainageStepsOf(const Sheet& sheet) {
  const double labels = NiceAtLeast(sheet.MetresOf(kChainageLabels));
  return {NiceAtMost(labels / 4), labels};  // 20 in fives, 50 in tens, 100 in twenties
}

}  // namespace plot
