// A picture in memory that Cairo draws on, and its bytes as a file has them.
#pragma once

#include <cairo/cairo.h>

#include <memory>
#include <optional>
#include <string>

#include "host/plot/canvas.h"
#include "host/plot/plan_layout.h"

namespace plot {

class Picture {
 public:
  /// White. `pixels` (width and height) are those of a PNG picture.
  Picture(PictureKind kind, const Sheet& sheet, const Place& pixels, const std::string& title);

  /// Draws in millimetres from the upper left corner.
  cairo_t* Context() const { return context_.get(); }

  /// Ends the drawing. `texts` are what was written on it: Cairo draws the letters of an SVG
  /// picture as shapes, so these are laid over it unseen, to be found, marked and read aloud.
  /// Nothing when there was no memory for it.
  std::optional<std::string> Finish(const std::vector<DrawnText>& texts);

 private:
  PictureKind kind_;
  std::string title_;
  std::string bytes_;
  std::unique_ptr<cairo_surface_t, decltype(&cairo_surface_destroy)> surface_;
  std::unique_ptr<cairo_t, decltype(&cairo_destroy)> context_;
};

}  // namespace plot
