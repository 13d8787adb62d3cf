// Round numbers for plans: grids, scales, contours, chainages, and their texts.
#include <gtest/gtest.h>

#include "host/plot/nice_numbers.h"

namespace plot {
namespace {

TEST(NiceNumbers, AreOneTwoOrFiveTimesAPowerOfTen) {
  EXPECT_EQ(NiceAtLeast(1), 1);
  EXPECT_EQ(NiceAtLeast(1.01), 2);
  EXPECT_EQ(NiceAtLeast(2.5), 5);
  EXPECT_EQ(NiceAtLeast(51), 100);
  EXPECT_EQ(NiceAtLeast(0.03), 0.05);
  EXPECT_EQ(NiceAtMost(9.9), 5);
  EXPECT_EQ(NiceAtMost(5), 5);
  EXPECT_EQ(NiceAtMost(1.99), 1);
  EXPECT_EQ(NiceAtMost(0.25), 0.2);
}

TEST(NiceNumbers, AreNotMissedByRounding) {
  EXPECT_EQ(NiceAtLeast(0.1 + 0.2 - 0.1), 0.2);
  EXPECT_EQ(NiceAtMost(0.3 - 0.1), 0.2);
  EXPECT_EQ(NiceAtLeast(1000), 1000);
}

TEST(Scale, IsOneThatRulersHave) {
  EXPECT_EQ(ScaleAtLeast(0.2), 1);
  EXPECT_EQ(ScaleAtLeast(101), 125);
  EXPECT_EQ(ScaleAtLeast(500), 500);
  EXPECT_EQ(ScaleAtLeast(760), 1000);
  EXPECT_EQ(ScaleAtLeast(1234567), 1250000);
}

TEST(ContourInterval, GivesEightToTwentyLines) {
  EXPECT_EQ(ContourInterval(0), 0);
  EXPECT_EQ(ContourInterval(20), 1);
  EXPECT_EQ(ContourInterval(100), 5);
  for (double range = 0.01; range < 5000; range *= 1.17) {
    const double lines = range / ContourInterval(range);
    EXPECT_GE(lines, 8 - 1e-6) << range;
    EXPECT_LE(lines, 20 + 1e-6) << range;
  }
}

TEST(Decimals, AreThoseOfTheStep) {
  EXPECT_EQ(DecimalsOf(50), 0);
  EXPECT_EQ(DecimalsOf(1), 0);
  EXPECT_EQ(DecimalsOf(0.5), 1);
  EXPECT_EQ(DecimalsOf(0.02), 2);
}

TEST(Multiples, LieWithinTheRange) {
  const Multiples some = MultiplesWithin(-7, 12, 5);
  EXPECT_EQ(some.first, -1);
  EXPECT_EQ(some.count, 4);
  EXPECT_EQ(MultiplesWithin(0.3, 0.3, 0.1).count, 1);
  EXPECT_EQ(MultiplesWithin(1, 2, 5).count, 0);
}

TEST(Multiples, AreNoneWhereTheyCannotBeCounted) {
  EXPECT_EQ(MultiplesWithin(0, 1e6, 1).count, 0);
  EXPECT_EQ(MultiplesWithin(1e30, 1e30 + 1, 0.1).count, 0);
  EXPECT_EQ(MultiplesWithin(0, 10, 0).count, 0);
}

TEST(PlanTexts, AreReadable) {
  EXPECT_EQ(FixedText(-0.0004, 2), "0.00");
  EXPECT_EQ(CountText(9999), "9999");
  EXPECT_EQ(CountText(1000000), "1\u202F000\u202F000");
  EXPECT_EQ(ScaleText(500), "500");
  EXPECT_EQ(ScaleText(0.5), "0.5");
  EXPECT_EQ(LengthText(500), "500 m");
  EXPECT_EQ(LengthText(2500), "2.5 km");
  EXPECT_EQ(LengthText(0.025), "0.025 m");
}

TEST(PlanTexts, ChainagesAreInKilometresAndMetres) {
  EXPECT_EQ(ChainageText(0, 0), "0+000");
  EXPECT_EQ(ChainageText(1250, 0), "1+250");
  EXPECT_EQ(ChainageText(7.5, 1), "0+007.5");
  EXPECT_EQ(ChainageText(999.99, 0), "1+000");
  EXPECT_EQ(ChainageText(-20, 0), "-0+020");
}

}  // namespace
}  // namespace plot
