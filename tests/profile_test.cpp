// Height lines: heights along them, their principal vertices, the codes of section lines.
#include "model/profile.h"

#include <gtest/gtest.h>

#include "tests/support/exchange_roads.h"

using exchange_test::Curved;
using exchange_test::NotPrincipal;

namespace {

class ProfileHeight : public testing::Test {
 protected:
  void Add(std::initializer_list<TAltiVrt> vertices) { exchange_test::AddVertices(line, vertices); }

  void Expect(double prog, double height) {
    bool ok = false;
    EXPECT_NEAR(CalcQuoteAtAltiProg(line, prog, ok), height, 1e-9) << "at " << prog;
    EXPECT_TRUE(ok) << "at " << prog;
  }
  void ExpectNone(double prog) {
    bool ok = true;
    EXPECT_EQ(CalcQuoteAtAltiProg(line, prog, ok), 0) << "at " << prog;
    EXPECT_FALSE(ok) << "at " << prog;
  }

  CProfileAlti line{nullptr, 0, false};
};

TEST_F(ProfileHeight, IsThereFromTheFirstVertexToTheLast) {
  Add({{100, 10}, {200, 30}});
  ExpectNone(99.999);
  Expect(100, 10);
  Expect(200, 30);
  ExpectNone(200.001);
}

TEST_F(ProfileHeight, IsNotThereWithoutTwoPrincipalVertices) {
  ExpectNone(0);
  Add({{100, 10}});
  ExpectNone(100);
  Add({NotPrincipal(200, 30)});
  ExpectNone(100);
  ExpectNone(150);
  ExpectNone(200);
}

TEST_F(ProfileHeight, RunsStraightFromVertexToVertex) {
  Add({{100, 10}, {200, 30}, {250, 5}});
  Expect(150, 20);
  Expect(175, 25);
  Expect(210, 25);
  Expect(240, 10);
}

TEST_F(ProfileHeight, PassesThroughEachVertex) {
  Add({{100, 10}, {200, 30}, {250, 5}});
  Expect(200, 30);
}

TEST_F(ProfileHeight, TakesNoNoticeOfOtherVertices) {
  Add({NotPrincipal(-10, 7), {0, 100}, NotPrincipal(50, 500), {100, 110}, NotPrincipal(120, 9)});
  ExpectNone(-5);
  Expect(25, 102.5);
  Expect(50, 105);
  ExpectNone(110);
}

// Grades of 10 % up and down. The parabola lies 0.2 * 60 / 8 = 1.5 below the vertex.
TEST_F(ProfileHeight, FollowsTheParabolaInsideAVerticalCurve) {
  Add({{0, 100}, Curved(150, 115, 120, 180), {300, 100}});
  Expect(100, 110);
  Expect(120, 112);
  Expect(135, 113.125);
  Expect(150, 113.5);
  Expect(165, 113.125);
  Expect(180, 112);
  Expect(200, 110);
}

TEST_F(ProfileHeight, FollowsTheParabolaInAHollowToo) {
  Add({{0, 100}, Curved(150, 85, 120, 180), {300, 100}});
  Expect(120, 88);
  Expect(135, 86.875);
  Expect(150, 86.5);
  Expect(180, 88);
}

// Grades of 2 % and 5 %, the vertex in the middle of 40 m.
TEST_F(ProfileHeight, FollowsTheParabolaBetweenGradesOfOneDirection) {
  Add({{0, 10}, Curved(100, 12, 80, 120), {200, 17}});
  Expect(90, 11.8 + 0.03 * 100 / 80);
  Expect(100, 12 + 0.03 * 40 / 8);
  Expect(110, 12.5 + 0.03 * 100 / 80);
}

// Two parabolas that meet at the vertex, 20 * 40 * 0.2 / (2 * 60) = 4 / 3 below it.
TEST_F(ProfileHeight, FollowsTwoParabolasInsideAnUnsymmetricalCurve) {
  Add({{0, 100}, Curved(150, 115, 130, 190), {300, 100}});
  Expect(120, 112);
  Expect(130, 113);
  Expect(140, 114 - 1.0 / 3);
  Expect(150, 115 - 4.0 / 3);
  Expect(170, 113 - 1.0 / 3);
  Expect(190, 111);
  Expect(200, 110);
}

TEST_F(ProfileHeight, FollowsEachOfSeveralCurves) {
  Add({{0, 0}, Curved(100, 10, 80, 120), Curved(200, 0, 180, 220), {300, 10}});
  Expect(100, 10 - 0.2 * 40 / 8);
  Expect(150, 5);
  Expect(200, 0 + 0.2 * 40 / 8);
}

// There is no grade on its other side.
TEST_F(ProfileHeight, TakesACurveAtEitherEndForNone) {
  Add({Curved(0, 100, -20, 20), {100, 110}, Curved(200, 100, 180, 220)});
  Expect(10, 101);
  Expect(190, 101);
}

TEST_F(ProfileHeight, TakesNoNoticeOfTheCurveOfAnotherVertex) {
  TAltiVrt vertex = Curved(150, 120, 120, 180);
  vertex.isPrincipal = false;
  Add({{0, 100}, vertex, {300, 100}});
  Expect(150, 100);
}

// ---- Vertices ----

TEST(ProfileVertex, IsPrincipalUnlessItIsSaidOtherwise) {
  EXPECT_TRUE(IsPrincAltiVrt({1, 2}));
  EXPECT_FALSE(IsPrincAltiVrt(NotPrincipal(1, 2)));
  EXPECT_FALSE(IsDefined(TAltiVrt().distance));
  EXPECT_FALSE(IsDefined(TAltiVrt().height));
}

TEST(ProfileVertex, MayHaveAVerticalCurve) {
  EXPECT_FALSE(IsRaccVertAltiVrt({1, 2}));
  EXPECT_TRUE(IsRaccVertAltiVrt(Curved(1, 2, 0, 2)));
}

TEST(ProfileVertex, IsFoundAmongThePrincipalOnes) {
  CProfileAlti line(nullptr, 0, false);
  EXPECT_EQ(line.FindNextPrincVrt(-1), -1);
  exchange_test::AddVertices(line, {NotPrincipal(0, 0),
                                    {1, 1},
                                    NotPrincipal(2, 2),
                                    NotPrincipal(3, 3),
                                    {4, 4},
                                    NotPrincipal(5, 5)});
  EXPECT_EQ(line.FindNextPrincVrt(-1), 1);
  EXPECT_EQ(line.FindNextPrincVrt(0), 1);
  EXPECT_EQ(line.FindNextPrincVrt(1), 4);
  EXPECT_EQ(line.FindNextPrincVrt(2), 4);
  EXPECT_EQ(line.FindNextPrincVrt(4), -1);
  EXPECT_EQ(line.FindNextPrincVrt(5), -1);
}

// ---- Codes ----

TEST(ProfileCodes, AreFoundByTheirNumber) {
  CLibProfile library;
  EXPECT_EQ(library.FindSectionAltiCode(0), nullptr);
  library.AddSectionAltiCode(7, "Pavement");
  library.AddSectionAltiCode(-3, "Ditch");
  ASSERT_NE(library.FindSectionAltiCode(7), nullptr);
  EXPECT_EQ(library.FindSectionAltiCode(7)->name, "Pavement");
  ASSERT_NE(library.FindSectionAltiCode(-3), nullptr);
  EXPECT_EQ(library.FindSectionAltiCode(-3)->name, "Ditch");
  EXPECT_EQ(library.FindSectionAltiCode(3), nullptr);
}

TEST(ProfileCodes, KeepTheFirstNameOfACode) {
  CLibProfile library;
  library.AddSectionAltiCode(7, "first");
  library.AddSectionAltiCode(7, "second");
  EXPECT_EQ(library.Codes().size(), 1u);
  EXPECT_EQ(library.FindSectionAltiCode(7)->name, "first");
}

TEST(ProfileCodes, AreTheSameForARoadAndItsSections) {
  CRoad road;
  road.ProfileCodes().AddSectionAltiCode(7, "Pavement");
  CProfile& section = exchange_test::AddSection(road, "S", 0);
  EXPECT_EQ(road.GetRoadProfile()->GetLibProfile(), &road.ProfileCodes());
  EXPECT_EQ(section.GetLibProfile(), &road.ProfileCodes());
  EXPECT_EQ(section.AddProfileAlti(7, false).GetProfile(), &section);
}

}  // namespace
