// The box around what is written.
#pragma once

#include <limits>

#include "host/cad/writing/geometry.h"
#include "model/drawing_entities.h"

namespace cad_writer {

class Extent {
 public:
  /// A point that is not defined widens nothing.
  void Include(const cad::Point& point);
  /// Widens by a box, seen as it is inserted.
  void Include(const Extent& box, const InsertPlacing& placing);

  bool IsEmpty() const { return min_.getX() > max_.getX(); }
  /// Infinite as long as it is empty.
  const cad::Point& Min() const { return min_; }
  const cad::Point& Max() const { return max_; }

 private:
  static constexpr double kNothing = std::numeric_limits<double>::infinity();
  cad::Point min_{kNothing, kNothing, kNothing};
  cad::Point max_{-kNothing, -kNothing, -kNothing};
};

/// A window that shows all of an extent from above.
struct View {
  double x = 0;  ///< its centre
  double y = 0;
  double height = 1;
  static constexpr double kWidthByHeight = 1.5;
};
View ViewOf(const Extent& extent);

/// Widens by a shape. Texts and inserts count as the point where they stand: how wide a text is
/// depends on its reader's font.
void Include(Extent& extent, const cad::Shape& shape);

}  // namespace cad_writer
