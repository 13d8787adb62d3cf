// The elements of a road's horizontal geometry: straights, arcs, clothoids.
#pragma once

#include "tdk/geometry.h"

/// One element, driven from its start. Lengths, radii and chainages in metres; a tangent is a unit
/// vector in the direction of driving; distances s count from the start.
class CPlaniElem {
 public:
  enum Type { kStraight = 0, kArc = 1, kClothoid = 2, kOther = 3 };

  CPlaniElem(double prog, const tdk::geom::PNT_2D& start, const tdk::geom::VECTOR_2D& tangent)
      : prog_(prog), start_(start), tangent_(tangent) {}
  virtual ~CPlaniElem();
  CPlaniElem(const CPlaniElem&) = delete;
  CPlaniElem& operator=(const CPlaniElem&) = delete;

  // In the order in which the host declares them.
  virtual int GetType() const = 0;
  virtual double GetLength() const = 0;
  virtual void GetEndPnt(tdk::geom::PNT_2D& end) const = 0;
  virtual void GetTg(double s, tdk::geom::VECTOR_2D& tangent) const = 0;
  /// Without a sign; infinite where the element is straight.
  virtual double GetRadius(double s) const = 0;
  /// Counter-clockwise: it turns to the left.
  virtual bool IsCcw() const = 0;

  /// Chainage of the start.
  double GetProg() const { return prog_; }
  const tdk::geom::PNT_2D& GetStartPnt() const { return start_; }
  const tdk::geom::VECTOR_2D& GetStartTg() const { return tangent_; }

  /// The place at a distance from the start.
  virtual tdk::geom::PNT_2D PointAt(double s) const = 0;

 private:
  double prog_;
  tdk::geom::PNT_2D start_;
  tdk::geom::VECTOR_2D tangent_;
};

class CLinePlaniElem : public CPlaniElem {
 public:
  CLinePlaniElem(double prog, const tdk::geom::PNT_2D& start, const tdk::geom::PNT_2D& end);

  int GetType() const override { return kStraight; }
  double GetLength() const override;
  void GetEndPnt(tdk::geom::PNT_2D& end) const override { end = end_; }
  void GetTg(double s, tdk::geom::VECTOR_2D& tangent) const override;
  double GetRadius(double s) const override;
  bool IsCcw() const override { return false; }
  tdk::geom::PNT_2D PointAt(double s) const override;

 private:
  tdk::geom::PNT_2D end_;
};

/// A straight of a kind that no format knows.
class COtherPlaniElem : public CLinePlaniElem {
 public:
  using CLinePlaniElem::CLinePlaniElem;
  int GetType() const override { return kOther; }
};

class CArcPlaniElem : public CPlaniElem {
 public:
  /// `angle`: the central angle, radians, positive.
  CArcPlaniElem(double prog, const tdk::geom::PNT_2D& start, const tdk::geom::VECTOR_2D& tangent,
                double radius, double angle, bool ccw)
      : CPlaniElem(prog, start, tangent), radius_(radius), angle_(angle), ccw_(ccw) {}

  int GetType() const override { return kArc; }
  double GetLength() const override { return radius_ * angle_; }
  void GetEndPnt(tdk::geom::PNT_2D& end) const override { end = PointAt(GetLength()); }
  void GetTg(double s, tdk::geom::VECTOR_2D& tangent) const override;
  double GetRadius(double /*s*/) const override { return radius_; }
  bool IsCcw() const override { return ccw_; }
  tdk::geom::PNT_2D PointAt(double s) const override;

  /// The central angle, radians, positive.
  double GetAngle() const { return angle_; }

 private:
  double radius_;
  double angle_;
  bool ccw_;
};

/// The parameter of a clothoid: A * A is its length times the radius at its curved end.
class CClotoide {
 public:
  explicit CClotoide(double a) : a_(a) {}
  double GetA() const { return a_; }

 private:
  double a_;
};

/// A clothoid from the straight into the curve (an entrance) or out of it.
class CClotPlaniElem : public CPlaniElem {
 public:
  CClotPlaniElem(double prog, const tdk::geom::PNT_2D& start, const tdk::geom::VECTOR_2D& tangent,
                 double length, double a, bool entrance, bool ccw);

  int GetType() const override { return kClothoid; }
  double GetLength() const override { return length_; }
  void GetEndPnt(tdk::geom::PNT_2D& end) const override { end = PointAt(length_); }
  void GetTg(double s, tdk::geom::VECTOR_2D& tangent) const override;
  double GetRadius(double s) const override;
  bool IsCcw() const override { return ccw_; }
  tdk::geom::PNT_2D PointAt(double s) const override;

  const CClotoide& GetClotoide() const { return clothoid_; }
  bool IsEntrance() const { return entrance_; }

 private:
  // Positive to the left.
  double CurvatureAt(double s) const;
  // How far it has turned, radians, positive to the left.
  double TurnAt(double s) const;

  double length_;
  CClotoide clothoid_;
  bool entrance_;
  bool ccw_;
};
