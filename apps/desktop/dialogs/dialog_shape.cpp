#include "apps/desktop/dialogs/dialog_shape.h"

#include <algorithm>
#include <array>

namespace {

// Screens of handhelds, by their sides in pixels, and how big a finger is on them.
struct ScreenRow {
  int longSide;
  int shortSide;
  int finger;
  int text;
};
constexpr std::array kScreens = {ScreenRow{400, 300, 30, 12}, ScreenRow{680, 500, 48, 20}};

}  // namespace

DialogShape DialogShape::WithButtonsBelow() const {
  DialogShape shape = *this;
  shape.isUpright = true;
  return shape;
}

DialogShape CPalmDevice::SelectIdDlgStd(QSize screen) {
  const int longSide = std::max(screen.width(), screen.height());
  const int shortSide = std::min(screen.width(), screen.height());
  for (const ScreenRow& row : kScreens) {
    if (longSide > row.longSide || shortSide > row.shortSide) continue;
    return {true, screen.height() > screen.width(), row.finger, row.text, screen};
  }
  return {};
}
