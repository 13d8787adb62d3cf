#include "host/plot/work_on_sheet.h"

#include <numbers>

#include "host/plot/bit_grid.h"
#include "host/plot/plan_content.h"

namespace plot {
namespace {

constexpr double kLeastCapitals = 0.6;  // of texts that can be read, millimetres
constexpr double kDot = 0.3;            // the side of one by itself, millimetres
constexpr double kThemePoint = 0.8;
constexpr double kRadians = std::numbers::pi / 180;  // of a degree
// More dots than this are as small as can be seen.
constexpr std::size_t kMostLargeDots = 20'000;

class Placer {
 public:
  Placer(const LineWork& work, const Sheet& sheet)
      : work_(work), sheet_(sheet), seen_(sheet.frame, sheet.pixel) {}

  WorkOnSheet Result() {
    result_.name = DrawableText(work_.name);
    result_.arePoints = work_.arePoints;
    if (!work_.colours.empty()) result_.colour = work_.colours.front();
    for (const Leg& leg : work_.legs) Add(leg);
    for (const WorkText& text : work_.texts) Add(text);
    AddDots();
    return std::move(result_);
  }

 private:
  struct Dot {
    Place place;
    Rgb colour;
  };

  void Add(const Leg& leg) {
    LineLeg onSheet = {sheet_.OnSheet(leg.from), sheet_.OnSheet(leg.to)};
    if (!ClipLeg(sheet_.frame, onSheet.first, onSheet.second)) return;
    const Rgb colour = work_.ColourOf(leg.source);
    if (Distance(onSheet.first, onSheet.second) >= sheet_.pixel) {
      result_.legs[colour].push_back(onSheet);
    } else if (seen_.Insert(onSheet.first)) {
      dots_.push_back({onSheet.first, colour});
    }
  }

  void AddDots() {
    const double side = work_.arePoints ? kThemePoint : kDot;
    const double half = (dots_.size() > kMostLargeDots ? sheet_.pixel : side) / 2;
    for (const auto& [p, colour] : dots_) {
      result_.dots[colour].push_back({p.x - half, p.y - half, p.x + half, p.y + half});
    }
  }

  void Add(const WorkText& text) {
    const Place at = sheet_.OnSheet(text.at);
    if (!sheet_.frame.Holds(at) || text.text.empty()) return;
    const double capitals = sheet_.MillimetresOf(text.height);
    if (!(capitals >= kLeastCapitals)) {
      ++result_.smallTexts;
      return;
    }
    // What is higher than the sheet cannot be read either.
    if (capitals > sheet_.frame.Height()) return;
    const double angle = -text.rotation * kRadians;
    Place start = at;
    for (std::size_t from = 0; from <= text.text.size();) {
      const std::size_t end = std::min(text.text.find('\n', from), text.text.size());
      result_.texts.push_back({start, capitals / kCapitals, angle, work_.ColourOf(text.source),
                               DrawableText(text.text.substr(from, end - from))});
      start.x -= kLineSpacing * capitals * std::sin(angle);
      start.y += kLineSpacing * capitals * std::cos(angle);
      from = end + 1;
    }
  }

  const LineWork& work_;
  const Sheet& sheet_;
  WorkOnSheet result_;
  BitGrid seen_;  // dots
  std::vector<Dot> dots_;
};

}  // namespace

WorkOnSheet OnSheet(const LineWork& work, const Sheet& sheet) {
  return Placer(work, sheet).Result();
}

}  // namespace plot
