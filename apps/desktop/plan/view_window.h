// What of the plane a view shows, and where on it.
#pragma once

#include "host/plot/plan_extent.h"

namespace plan {

/// Pixels run from the upper left corner, y downwards; metres are eastings and northings.
class ViewWindow {
 public:
  /// Keeps what is in the middle.
  void Resize(int width, int height);
  int Width() const { return width_; }
  int Height() const { return height_; }
  double MetresPerPixel() const { return metresPerPixel_; }

  plot::Place ToPixels(const plot::Place& metres) const {
    return {width_ / 2.0 + (metres.x - middle_.x) / metresPerPixel_,
            height_ / 2.0 - (metres.y - middle_.y) / metresPerPixel_};
  }
  plot::Place ToMetres(const plot::Place& pixels) const {
    return {middle_.x + (pixels.x - width_ / 2.0) * metresPerPixel_,
            middle_.y - (pixels.y - height_ / 2.0) * metresPerPixel_};
  }
  /// Metres.
  plot::Box Shown() const;

  /// Shows all of a box (metres) with a margin; an empty box: the surroundings of the origin.
  void Fit(const plot::Box& extent);
  /// Moves what is shown by so many pixels.
  void Move(double right, double down);
  /// Larger by `factor`; what is at the place (pixels) stays there. Ends where nobody sees more.
  void ZoomAt(const plot::Place& pixels, double factor);
  void CentreOn(const plot::Place& metres) { middle_ = metres; }

 private:
  int width_ = 1;
  int height_ = 1;
  plot::Place middle_;
  double metresPerPixel_ = 1;
};

}  // namespace plan
