#include "host/plot/canvas.h"

#include <algorithm>

namespace plot {
namespace {

constexpr std::size_t kAscii = 128;
constexpr double kPi = 3.14159265358979323846;
// A path with too many lines is slow to stroke.
constexpr std::size_t kMostInOnePath = 1'000;
// Letters are measured large, where no rounding of the font matters.
constexpr double kMeasuringSize = 100;

}  // namespace

Canvas::Canvas(cairo_t* context) : context_(context) {
  cairo_font_options_t* const options = cairo_font_options_create();
  cairo_font_options_set_hint_style(options, CAIRO_HINT_STYLE_NONE);
  cairo_font_options_set_hint_metrics(options, CAIRO_HINT_METRICS_OFF);
  cairo_font_options_set_antialias(options, CAIRO_ANTIALIAS_GRAY);
  cairo_set_font_options(context_, options);
  cairo_font_options_destroy(options);
  cairo_set_line_cap(context_, CAIRO_LINE_CAP_ROUND);
  cairo_set_line_join(context_, CAIRO_LINE_JOIN_ROUND);
}

void Canvas::Use(const Colour& colour) {
  cairo_set_source_rgb(context_, colour.red, colour.green, colour.blue);
}

void Canvas::UseFont(double size, bool isBold) {
  cairo_select_font_face(context_, "sans-serif", CAIRO_FONT_SLANT_NORMAL,
                         isBold ? CAIRO_FONT_WEIGHT_BOLD : CAIRO_FONT_WEIGHT_NORMAL);
  cairo_set_font_size(context_, size);
}

double Canvas::MeasuredWidth(const std::string& text, bool isBold) {
  UseFont(kMeasuringSize, isBold);
  cairo_text_extents_t extents;
  cairo_text_extents(context_, text.c_str(), &extents);
  return extents.x_advance / kMeasuringSize;
}

double Canvas::LetterWidth(char letter, bool isBold) {
  std::vector<double>& widths = letters_[isBold ? 1 : 0];
  for (std::size_t code = widths.size(); code < kAscii; ++code) {
    widths.push_back(MeasuredWidth(std::string(1, static_cast<char>(code)), isBold));
  }
  return widths[static_cast<unsigned char>(letter)];
}

double Canvas::WidthOf(std::string_view text, double size, bool isBold) {
  const bool isAscii = std::all_of(text.begin(), text.end(),
                                   [](char c) { return static_cast<unsigned char>(c) < kAscii; });
  if (!isAscii) return size * MeasuredWidth(std::string(text), isBold);
  double width = 0;
  for (const char letter : text) width += LetterWidth(letter, isBold);
  return width * size;
}

void Canvas::Text(const Place& place, const std::string& text, const TextStyle& style) {
  if (text.empty()) return;
  const double back = style.share * WidthOf(text, style.size, style.isBold);
  const Place start = {place.x - back * std::cos(style.angle),
                       place.y - back * std::sin(style.angle)};
  Use(style.colour);
  UseFont(style.size, style.isBold);
  cairo_save(context_);
  cairo_translate(context_, start.x, start.y);
  cairo_rotate(context_, style.angle);
  cairo_move_to(context_, 0, 0);
  cairo_show_text(context_, text.c_str());
  cairo_restore(context_);
  cairo_new_path(context_);
  texts_.push_back({text, start, style.size, style.angle});
}

void Canvas::Add(const Polyline& line) {
  for (std::size_t i = 0; i < line.size(); ++i) {
    const bool isFirst = i == 0;
    (isFirst ? cairo_move_to : cairo_line_to)(context_, line[i].x, line[i].y);
  }
}

void Canvas::Stroke(const Polyline& line, double width, const Colour& colour) {
  Use(colour);
  cairo_set_line_width(context_, width);
  Add(line);
  cairo_stroke(context_);
}

void Canvas::Stroke(const std::vector<Polyline>& lines, double width, const Colour& colour) {
  for (const Polyline& line : lines) Stroke(line, width, colour);
}

void Canvas::Stroke(const std::vector<LineLeg>& legs, double width, const Colour& colour) {
  Use(colour);
  cairo_set_line_width(context_, width);
  for (std::size_t i = 0; i < legs.size(); ++i) {
    cairo_move_to(context_, legs[i].first.x, legs[i].first.y);
    cairo_line_to(context_, legs[i].second.x, legs[i].second.y);
    if (i % kMostInOnePath == kMostInOnePath - 1) cairo_stroke(context_);
  }
  cairo_stroke(context_);
}

void Canvas::Fill(const Polyline& outline, const Colour& colour) {
  Use(colour);
  Add(outline);
  cairo_close_path(context_);
  cairo_fill(context_);
}

void Canvas::Fill(const std::vector<Box>& boxes, const Colour& colour) {
  Use(colour);
  for (std::size_t i = 0; i < boxes.size(); ++i) {
    cairo_rectangle(context_, boxes[i].left, boxes[i].low, boxes[i].Width(), boxes[i].Height());
    if (i % kMostInOnePath == kMostInOnePath - 1) cairo_fill(context_);
  }
  cairo_fill(context_);
}

void Canvas::Fill(const Box& box, double angle, const Colour& colour, double veil) {
  const Place middle = box.Middle();
  cairo_save(context_);
  cairo_translate(context_, middle.x, middle.y);
  cairo_rotate(context_, angle);
  cairo_rectangle(context_, -box.Width() / 2, -box.Height() / 2, box.Width(), box.Height());
  cairo_restore(context_);
  cairo_set_source_rgba(context_, colour.red, colour.green, colour.blue, veil);
  cairo_fill(context_);
}

void Canvas::Circle(const Place& middle, double radius, double width, const Colour& colour) {
  Use(colour);
  cairo_set_line_width(context_, width);
  cairo_new_sub_path(context_);
  cairo_arc(context_, middle.x, middle.y, radius, 0, 2 * kPi);
  cairo_stroke(context_);
}

void Canvas::Disc(const Place& middle, double radius, const Colour& colour) {
  Use(colour);
  cairo_new_sub_path(context_);
  cairo_arc(context_, middle.x, middle.y, radius, 0, 2 * kPi);
  cairo_fill(context_);
}

}  // namespace plot
