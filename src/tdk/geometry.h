// Points, vectors and segments of the host. X is the easting, Y the northing, Z the elevation, in
// metres.
#pragma once

namespace tdk::geom {

class PNT_2D {
 public:
  PNT_2D() = default;
  PNT_2D(double x, double y) : x_(x), y_(y) {}
  double getX() const { return x_; }
  double getY() const { return y_; }

 private:
  double x_ = 0;
  double y_ = 0;
};

class PNT_3D : public PNT_2D {
 public:
  PNT_3D() = default;
  PNT_3D(double x, double y, double z) : PNT_2D(x, y), z_(z) {}
  double getZ() const { return z_; }

 private:
  double z_ = 0;
};

class VECTOR_2D {
 public:
  VECTOR_2D() = default;
  VECTOR_2D(double x, double y) : x_(x), y_(y) {}
  double getX() const { return x_; }
  double getY() const { return y_; }

 private:
  double x_ = 0;
  double y_ = 0;
};

class LINE_3D {
 public:
  LINE_3D() = default;
  LINE_3D(const PNT_3D& start, const PNT_3D& end) : start_(start), end_(end) {}
  const PNT_3D& getStart() const { return start_; }
  const PNT_3D& getEnd() const { return end_; }

 private:
  PNT_3D start_;
  PNT_3D end_;
};

}  // namespace tdk::geom
