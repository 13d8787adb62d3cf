#include "apps/desktop/plan/view_window.h"

#include <algorithm>

namespace plan {
namespace {

constexpr double kFinest = 1e-5;  // metres to a pixel
constexpr double kCoarsest = 1e5;
constexpr double kMargin = 0.05;  // of the window, on each side

}  // namespace

void ViewWindow::Resize(int width, int height) {
  width_ = std::max(width, 1);
  height_ = std::max(height, 1);
}

plot::Box ViewWindow::Shown() const {
  const plot::Place upperLeft = ToMetres({0, 0});
  const plot::Place lowerRight =
      ToMetres({static_cast<double>(width_), static_cast<double>(height_)});
  return {upperLeft.x, lowerRight.y, lowerRight.x, upperLeft.y};
}

void ViewWindow::Fit(const plot::Box& extent) {
  constexpr double kAlone = 10;  // metres around a single point
  plot::Box box = extent;
  if (box.IsEmpty()) box.Add({0, 0});
  if (box.Width() == 0 && box.Height() == 0) box = box.Grown(kAlone);
  middle_ = box.Middle();
  const double share = 1 - 2 * kMargin;
  metresPerPixel_ =
      std::clamp(std::max(box.Width() / (width_ * share), box.Height() / (height_ * share)),
                 kFinest, kCoarsest);
}

void ViewWindow::Move(double right, double down) {
  middle_.x -= right * metresPerPixel_;
  middle_.y += down * metresPerPixel_;
}

void ViewWindow::ZoomAt(const plot::Place& pixels, double factor) {
  const plot::Place before = ToMetres(pixels);
  metresPerPixel_ = std::clamp(metresPerPixel_ / factor, kFinest, kCoarsest);
  const plot::Place after = ToMetres(pixels);
  middle_.x += before.x - after.x;
  middle_.y += before.y - after.y;
}

}  // namespace plan
