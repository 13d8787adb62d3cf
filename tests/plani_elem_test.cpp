// Straights, arcs and clothoids: where they lead.
#include "model/plani_elem.h"

#include <gtest/gtest.h>

#include <cmath>
#include <ostream>

using tdk::geom::PNT_2D;
using tdk::geom::VECTOR_2D;

namespace {

constexpr double kPi = 3.14159265358979323846;
constexpr double kHalf = 0.70710678118654752;  // cosine of 45 degrees
constexpr double kNear = 1e-9;

const PNT_2D kOrigin(0, 0);
const VECTOR_2D kEast(1, 0);

PNT_2D EndOf(const CPlaniElem& element) {
  PNT_2D end(-1, -1);
  element.GetEndPnt(end);
  return end;
}
VECTOR_2D TangentOf(const CPlaniElem& element, double s) {
  VECTOR_2D tangent(-1, -1);
  element.GetTg(s, tangent);
  return tangent;
}

void ExpectAt(const PNT_2D& place, double x, double y) {
  EXPECT_NEAR(place.getX(), x, kNear);
  EXPECT_NEAR(place.getY(), y, kNear);
}
void ExpectDirection(const VECTOR_2D& tangent, double angle) {
  EXPECT_NEAR(tangent.getX(), std::cos(angle), 1e-12);
  EXPECT_NEAR(tangent.getY(), std::sin(angle), 1e-12);
}

// ---- Straights ----

TEST(PlaniLine, GoesStraightFromStartToEnd) {
  const CLinePlaniElem line(12.5, {1000, 2000}, {1003, 2004});
  EXPECT_EQ(line.GetType(), 0);
  EXPECT_EQ(line.GetProg(), 12.5);
  EXPECT_NEAR(line.GetLength(), 5, kNear);
  ExpectAt(line.GetStartPnt(), 1000, 2000);
  ExpectAt(EndOf(line), 1003, 2004);
  ExpectAt(line.PointAt(2.5), 1001.5, 2002);
}

TEST(PlaniLine, HasOneTangent) {
  const CLinePlaniElem line(0, {1000, 2000}, {1003, 2004});
  EXPECT_NEAR(line.GetStartTg().getX(), 0.6, 1e-12);
  EXPECT_NEAR(line.GetStartTg().getY(), 0.8, 1e-12);
  for (const double s : {0.0, 2.5, 5.0}) {
    EXPECT_NEAR(TangentOf(line, s).getX(), 0.6, 1e-12);
    EXPECT_NEAR(TangentOf(line, s).getY(), 0.8, 1e-12);
  }
}

TEST(PlaniLine, DoesNotTurn) {
  const CLinePlaniElem line(0, {0, 0}, {3, 4});
  EXPECT_FALSE(line.IsCcw());
  EXPECT_TRUE(std::isinf(line.GetRadius(1)));
}

TEST(PlaniLine, HasAnExactTangentAlongAnAxis) {
  const PNT_2D place(1234.5, 6789.25);
  EXPECT_EQ(CLinePlaniElem(0, place, {1234.5, 6800}).GetStartTg().getX(), 0);
  EXPECT_EQ(CLinePlaniElem(0, place, {1234.5, 6800}).GetStartTg().getY(), 1);
  EXPECT_EQ(CLinePlaniElem(0, place, {1000, 6789.25}).GetStartTg().getX(), -1);
  EXPECT_EQ(CLinePlaniElem(0, place, {1000, 6789.25}).GetStartTg().getY(), 0);
}

TEST(PlaniOther, IsAStraightOfAnotherKind) {
  const COtherPlaniElem other(7, {0, 0}, {3, 4});
  EXPECT_GT(other.GetType(), 2);
  EXPECT_NEAR(other.GetLength(), 5, kNear);
  ExpectAt(EndOf(other), 3, 4);
}

// ---- Arcs ----

TEST(PlaniArc, TurnsLeft) {
  const CArcPlaniElem arc(10, {100, 200}, kEast, 50, kPi / 2, /*ccw=*/true);
  EXPECT_EQ(arc.GetType(), 1);
  EXPECT_TRUE(arc.IsCcw());
  EXPECT_EQ(arc.GetAngle(), kPi / 2);
  EXPECT_NEAR(arc.GetLength(), 78.53981633974483, kNear);
  ExpectAt(EndOf(arc), 150, 250);
  ExpectAt(arc.PointAt(arc.GetLength() / 2), 100 + 50 * kHalf, 250 - 50 * kHalf);
  ExpectDirection(TangentOf(arc, 0), 0);
  ExpectDirection(TangentOf(arc, arc.GetLength() / 2), kPi / 4);
  ExpectDirection(TangentOf(arc, arc.GetLength()), kPi / 2);
}

TEST(PlaniArc, TurnsRight) {
  const CArcPlaniElem arc(10, {100, 200}, kEast, 50, kPi / 2, /*ccw=*/false);
  EXPECT_FALSE(arc.IsCcw());
  ExpectAt(EndOf(arc), 150, 150);
  ExpectAt(arc.PointAt(arc.GetLength() / 2), 100 + 50 * kHalf, 150 + 50 * kHalf);
  ExpectDirection(TangentOf(arc, arc.GetLength()), -kPi / 2);
}

TEST(PlaniArc, HasOneRadiusWithoutASign) {
  const CArcPlaniElem arc(0, kOrigin, kEast, 50, 1, /*ccw=*/false);
  for (const double s : {0.0, 25.0, 50.0}) EXPECT_EQ(arc.GetRadius(s), 50);
}

TEST(PlaniArc, MayTurnFurtherThanHalfACircle) {
  const CArcPlaniElem arc(0, {100, 200}, kEast, 50, 3 * kPi / 2, /*ccw=*/true);
  EXPECT_NEAR(arc.GetLength(), 235.61944901923448, kNear);
  ExpectAt(EndOf(arc), 50, 250);
  ExpectDirection(TangentOf(arc, arc.GetLength()), 3 * kPi / 2);
}

TEST(PlaniArc, StartsInAnyDirection) {
  const CArcPlaniElem arc(0, {1000, 2000}, {0.6, 0.8}, 100, kPi / 2, /*ccw=*/true);
  // 100 m along the tangent and 100 m to its left.
  ExpectAt(EndOf(arc), 1000 + 60 - 80, 2000 + 80 + 60);
  EXPECT_NEAR(TangentOf(arc, arc.GetLength()).getX(), -0.8, 1e-12);
  EXPECT_NEAR(TangentOf(arc, arc.GetLength()).getY(), 0.6, 1e-12);
}

// ---- Clothoids ----

/// From the origin to the east, turning left: where it ends.
struct Clothoid {
  double a;
  double length;
  double radius;
  double angle;
  double x;
  double y;
};
void PrintTo(const Clothoid& clothoid, std::ostream* out) {
  *out << "A " << clothoid.a << ", L " << clothoid.length;
}

class PlaniClothoid : public testing::TestWithParam<Clothoid> {
 protected:
  static CClotPlaniElem Make(bool entrance, bool ccw, const PNT_2D& start = kOrigin,
                             const VECTOR_2D& tangent = kEast) {
    return {100, start, tangent, GetParam().length, GetParam().a, entrance, ccw};
  }
  // The end of a clothoid that turns left out of the curve: the same one driven backwards.
  static double ExitX() {
    return GetParam().x * std::cos(GetParam().angle) + GetParam().y * std::sin(GetParam().angle);
  }
  static double ExitY() {
    return GetParam().x * std::sin(GetParam().angle) - GetParam().y * std::cos(GetParam().angle);
  }
};

TEST_P(PlaniClothoid, HasWhatItWasMadeOf) {
  const CClotPlaniElem clothoid = Make(/*entrance=*/true, /*ccw=*/false);
  EXPECT_EQ(clothoid.GetType(), 2);
  EXPECT_EQ(clothoid.GetProg(), 100);
  EXPECT_EQ(clothoid.GetLength(), GetParam().length);
  EXPECT_EQ(clothoid.GetClotoide().GetA(), GetParam().a);
  EXPECT_TRUE(clothoid.IsEntrance());
  EXPECT_FALSE(clothoid.IsCcw());
  EXPECT_FALSE(Make(/*entrance=*/false, /*ccw=*/true).IsEntrance());
  EXPECT_TRUE(Make(/*entrance=*/false, /*ccw=*/true).IsCcw());
}

TEST_P(PlaniClothoid, EntersTheCurve) {
  const auto& [a, length, radius, angle, x, y] = GetParam();
  const CClotPlaniElem left = Make(/*entrance=*/true, /*ccw=*/true);
  ExpectAt(left.PointAt(0), 0, 0);
  ExpectAt(EndOf(left), x, y);
  ExpectDirection(TangentOf(left, length / 2), angle / 4);
  ExpectDirection(TangentOf(left, length), angle);
  const CClotPlaniElem right = Make(/*entrance=*/true, /*ccw=*/false);
  ExpectAt(EndOf(right), x, -y);
  ExpectDirection(TangentOf(right, length), -angle);
}

TEST_P(PlaniClothoid, LeavesTheCurve) {
  const auto& [a, length, radius, angle, x, y] = GetParam();
  const CClotPlaniElem left = Make(/*entrance=*/false, /*ccw=*/true);
  ExpectAt(EndOf(left), ExitX(), ExitY());
  ExpectDirection(TangentOf(left, length / 2), 3 * angle / 4);
  ExpectDirection(TangentOf(left, length), angle);
  const CClotPlaniElem right = Make(/*entrance=*/false, /*ccw=*/false);
  ExpectAt(EndOf(right), ExitX(), -ExitY());
  ExpectDirection(TangentOf(right, length), -angle);
}

TEST_P(PlaniClothoid, IsRoundAtOneEndAndStraightAtTheOther) {
  const auto& [a, length, radius, angle, x, y] = GetParam();
  for (const bool ccw : {true, false}) {
    const CClotPlaniElem in = Make(/*entrance=*/true, ccw);
    EXPECT_TRUE(std::isinf(in.GetRadius(0)) && in.GetRadius(0) > 0);
    EXPECT_NEAR(in.GetRadius(length / 2), 2 * radius, kNear);
    EXPECT_NEAR(in.GetRadius(length), radius, kNear);
    const CClotPlaniElem out = Make(/*entrance=*/false, ccw);
    EXPECT_NEAR(out.GetRadius(0), radius, kNear);
    EXPECT_NEAR(out.GetRadius(length / 2), 2 * radius, kNear);
  }
}

TEST_P(PlaniClothoid, MayStartAnywhereInAnyDirection) {
  const PNT_2D start(1000, 2000);
  const VECTOR_2D tangent(0.6, 0.8);
  const double x = GetParam().x;
  const double y = GetParam().y;
  ExpectAt(EndOf(Make(/*entrance=*/true, /*ccw=*/true, start, tangent)), 1000 + 0.6 * x - 0.8 * y,
           2000 + 0.8 * x + 0.6 * y);
  ExpectAt(EndOf(Make(/*entrance=*/true, /*ccw=*/false, start, tangent)), 1000 + 0.6 * x + 0.8 * y,
           2000 + 0.8 * x - 0.6 * y);
  ExpectAt(EndOf(Make(/*entrance=*/false, /*ccw=*/true, start, tangent)),
           1000 + 0.6 * ExitX() - 0.8 * ExitY(), 2000 + 0.8 * ExitX() + 0.6 * ExitY());
}

TEST_P(PlaniClothoid, DrivenBackwardsLeadsToItsStart) {
  const CClotPlaniElem in = Make(/*entrance=*/true, /*ccw=*/true);
  const VECTOR_2D end = TangentOf(in, in.GetLength());
  const CClotPlaniElem back =
      Make(/*entrance=*/false, /*ccw=*/false, EndOf(in), {-end.getX(), -end.getY()});
  ExpectAt(EndOf(back), 0, 0);
  const double part = in.GetLength() / 3;
  const PNT_2D there = in.PointAt(part);
  ExpectAt(back.PointAt(in.GetLength() - part), there.getX(), there.getY());
}

INSTANTIATE_TEST_SUITE_P(
    Of, PlaniClothoid,
    testing::Values(Clothoid{60, 30, 120, 0.125, 29.953158896196, 1.248605604106},
                    Clothoid{50, 50, 50, 0.5, 48.764384410017, 8.185702368785},
                    Clothoid{100, 80, 125, 0.32, 79.184674450355, 8.471121092245},
                    Clothoid{150, 225, 100, 1.125, 198.144085958472, 77.047819474493}));

TEST(PlaniClothoidExit, EndsWhereItIsKnownTo) {
  const CClotPlaniElem exit(0, kOrigin, kEast, 30, 60, /*entrance=*/false, /*ccw=*/true);
  ExpectAt(EndOf(exit), 29.875123953751, 2.495538531745);
  ExpectDirection(TangentOf(exit, 30), 0.125);
}

// A quarter of a turn, where the integrals of Fresnel are known.
TEST(PlaniClothoidEntrance, TurnsAQuarterAsItsIntegralsSay) {
  const double length = 100 * std::sqrt(kPi);
  const CClotPlaniElem quarter(0, kOrigin, kEast, length, 100, /*entrance=*/true, /*ccw=*/true);
  ExpectAt(EndOf(quarter), length * 0.7798934003768228, length * 0.4382591473903548);
  ExpectDirection(TangentOf(quarter, length), kPi / 2);
}

}  // namespace
