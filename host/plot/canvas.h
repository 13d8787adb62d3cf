// Drawing on a sheet with Cairo: lines, dots and texts in millimetres.
#pragma once

#include <cairo/cairo.h>

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "host/plot/plan_extent.h"
#include "host/plot/terrain_lines.h"

namespace plot {

struct Colour {
  double red = 0;
  double green = 0;
  double blue = 0;
};

/// `rgb`: 0xRRGGBB
inline Colour ColourOf(std::uint32_t rgb) {
  const auto part = [rgb](int shift) { return ((rgb >> shift) & 0xFF) / 255.0; };
  return {part(16), part(8), part(0)};
}

struct TextStyle {
  double size = 2;  ///< millimetres
  bool isBold = false;
  Colour colour{};
  double share = 0;  ///< where the place is within the text: 0 at its start, 0.5 in its middle
  double angle = 0;  ///< radians, clockwise
};

/// A text that was drawn.
struct DrawnText {
  std::string text;
  Place start;
  double size = 0;
  double angle = 0;
};

class Canvas {
 public:
  /// `context` draws in millimetres and must stay.
  explicit Canvas(cairo_t* context);

  /// The width of a text that is DrawableText, millimetres.
  double WidthOf(std::string_view text, double size, bool isBold);
  /// Its base line goes through `place`.
  void Text(const Place& place, const std::string& text, const TextStyle& style);

  void Stroke(const Polyline& line, double width, const Colour& colour);
  void Stroke(const std::vector<Polyline>& lines, double width, const Colour& colour);
  void Stroke(const std::vector<LineLeg>& legs, double width, const Colour& colour);
  void Fill(const Polyline& outline, const Colour& colour);
  void Fill(const std::vector<Box>& boxes, const Colour& colour);
  /// `veil`: how much of what is below it hides, 0 to 1.
  void Fill(const Box& box, double angle, const Colour& colour, double veil);
  void Circle(const Place& middle, double radius, double width, const Colour& colour);
  void Disc(const Place& middle, double radius, const Colour& colour);

  const std::vector<DrawnText>& Texts() const { return texts_; }

 private:
  void Use(const Colour& colour);
  void UseFont(double size, bool isBold);
  void Add(const Polyline& line);
  double MeasuredWidth(const std::string& text, bool isBold);
  double LetterWidth(char letter, bool isBold);

  cairo_t* context_;
  std::vector<double> letters_[2];  // widths of ASCII letters of size 1, by boldness
  std::vector<DrawnText> texts_;
};

}  // namespace plot
