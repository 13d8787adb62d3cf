#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "model/undefined.h"
#include "services/measure_system.h"
#include "support/current_settings.h"
#include "support/random.h"

namespace {

using tdk::WString;

struct AngleText : testing::Test {
  void Choose(AngleUnit unit) {
    CIniFile().WriteShort("Misure", "UnitaAngoli", static_cast<std::int16_t>(unit));
  }
  static std::string Text(double gon) { return CMeasureSystem::GetTsAngleString(gon).ToUtf8(); }
  static double Value(const char* text) { return CMeasureSystem::GetTsAngleValueCent(text); }

  // Random angles through text and back; and their text once more.
  static void ExpectRoundTrip(double toleranceGon) {
    Random random;
    for (int i = 0; i < 50'000; ++i) {
      const double gon = random.Real(-400, 400);
      const double back =
          CMeasureSystem::GetTsAngleValueCent(CMeasureSystem::GetTsAngleString(gon));
      ASSERT_NEAR(back, gon, toleranceGon);
      ASSERT_EQ(Text(back), Text(gon));
    }
  }

  CurrentSettings current;
};

std::string Sexagesimal(double degrees, double minutes, double seconds, int decimals) {
  return SexagesimalText(degrees + minutes / 60 + seconds / 3600, decimals).ToUtf8();
}

TEST_F(AngleText, IsGonWithFourDecimalsByDefault) {
  EXPECT_EQ(CMeasureSystem::GetAngleUnit(), AngleUnit::kGon);
  EXPECT_EQ(Text(123.45678), "123.4568");
  EXPECT_EQ(Text(0), "0.0000");
}

TEST_F(AngleText, IsDecimalDegreesWithFiveDecimals) {
  Choose(AngleUnit::kDecimalDegrees);
  EXPECT_EQ(Text(100), "90.00000");
  EXPECT_EQ(Text(123.45678), "111.11110");
}

TEST_F(AngleText, IsDegreesMinutesAndSeconds) {
  Choose(AngleUnit::kSexagesimal);
  EXPECT_EQ(Text(100), "90°00'00.0");
  EXPECT_EQ(Text(0), "0°00'00.0");
  EXPECT_EQ(Text((12 + 5 / 60.0 + 7.8 / 3600) / 0.9), "12°05'07.8");
}

TEST_F(AngleText, FollowsTheSettingByItsNumber) {
  CIniFile().WriteShort("Misure", "UnitaAngoli", 1);
  EXPECT_EQ(Text(200), "180.00000");
  CIniFile().WriteShort("Misure", "UnitaAngoli", 2);
  EXPECT_EQ(Text(200), "180°00'00.0");
  CIniFile().WriteShort("Misure", "UnitaAngoli", 0);
  EXPECT_EQ(Text(200), "200.0000");
}

TEST_F(AngleText, IsGonWhenTheSettingIsOutOfItsRange) {
  for (const char* stored : {"3", "-1", "32767", "99999", "abc", "1.5", ""}) {
    current.settings.Set("Misure", "UnitaAngoli", stored);
    EXPECT_EQ(CMeasureSystem::GetAngleUnit(), AngleUnit::kGon) << stored;
    EXPECT_EQ(Text(100), "100.0000") << stored;
  }
}

TEST_F(AngleText, IsEmptyForAnUndefinedAngleInEveryUnit) {
  for (const AngleUnit unit :
       {AngleUnit::kGon, AngleUnit::kDecimalDegrees, AngleUnit::kSexagesimal}) {
    Choose(unit);
    EXPECT_EQ(Text(UndefinedValue), "");
    EXPECT_EQ(Text(std::numeric_limits<double>::quiet_NaN()), "");
    EXPECT_EQ(Text(-std::numeric_limits<double>::infinity()), "");
  }
}

TEST_F(AngleText, ReadsAnEmptyTextAsUndefinedInEveryUnit) {
  for (const AngleUnit unit :
       {AngleUnit::kGon, AngleUnit::kDecimalDegrees, AngleUnit::kSexagesimal}) {
    Choose(unit);
    EXPECT_EQ(Value(""), UndefinedValue);
  }
}

TEST_F(AngleText, ReadsGon) {
  EXPECT_EQ(Value("123.4567"), 123.4567);
  EXPECT_EQ(Value(" 123,4567 "), 123.4567);
  EXPECT_EQ(Value("-0.5"), -0.5);
}

TEST_F(AngleText, ReadsDecimalDegrees) {
  Choose(AngleUnit::kDecimalDegrees);
  EXPECT_NEAR(Value("90.00000"), 100, 1e-12);
  EXPECT_NEAR(Value("-45,5"), -45.5 / 0.9, 1e-12);
}

TEST_F(AngleText, ReadsDegreesMinutesAndSeconds) {
  Choose(AngleUnit::kSexagesimal);
  EXPECT_NEAR(Value("90°00'00.0"), 100, 1e-12);
  EXPECT_NEAR(Value("12°05'07.8"), (12 + 5 / 60.0 + 7.8 / 3600) / 0.9, 1e-12);
  EXPECT_NEAR(Value("12°05'07,8"), (12 + 5 / 60.0 + 7.8 / 3600) / 0.9, 1e-12);
}

TEST_F(AngleText, ReadsDegreesAlone) {
  Choose(AngleUnit::kSexagesimal);
  EXPECT_NEAR(Value("90"), 100, 1e-12);
  EXPECT_NEAR(Value("90°30'"), 90.5 / 0.9, 1e-12);
}

TEST_F(AngleText, ReadsTheSignInFrontForTheWholeAngle) {
  Choose(AngleUnit::kSexagesimal);
  EXPECT_NEAR(Value("-12°30'00.0"), -12.5 / 0.9, 1e-12);
  EXPECT_NEAR(Value("-0°30'00.0"), -0.5 / 0.9, 1e-12);
}

TEST_F(AngleText, ReturnsFromGon) { ExpectRoundTrip(0.00005001); }

TEST_F(AngleText, ReturnsFromDecimalDegrees) {
  Choose(AngleUnit::kDecimalDegrees);
  ExpectRoundTrip(0.000005001 / 0.9);
}

TEST_F(AngleText, ReturnsFromDegreesMinutesAndSeconds) {
  Choose(AngleUnit::kSexagesimal);
  ExpectRoundTrip(0.05001 / 3600 / 0.9);
}

TEST(SexagesimalText, CarriesAFullSecondIntoTheMinute) {
  EXPECT_EQ(Sexagesimal(10, 20, 59.9996, 3), "10°21'00.000");
  EXPECT_EQ(Sexagesimal(10, 20, 59.96, 1), "10°21'00.0");
  EXPECT_EQ(Sexagesimal(10, 20, 59.6, 0), "10°21'00");
}

TEST(SexagesimalText, CarriesAFullMinuteIntoTheDegree) {
  EXPECT_EQ(Sexagesimal(10, 59, 59.96, 1), "11°00'00.0");
  EXPECT_EQ(Sexagesimal(359, 59, 59.96, 1), "360°00'00.0");
}

TEST(SexagesimalText, CarriesNothingThatIsRoundedDown) {
  EXPECT_EQ(Sexagesimal(10, 59, 59.94, 1), "10°59'59.9");
  EXPECT_EQ(Sexagesimal(10, 20, 59.9994, 3), "10°20'59.999");
}

TEST(SexagesimalText, HasTwoDigitsForMinutesAndWholeSeconds) {
  EXPECT_EQ(Sexagesimal(7, 5, 3.25, 2), "7°05'03.25");
  EXPECT_EQ(Sexagesimal(7, 0, 0, 0), "7°00'00");
  EXPECT_EQ(Sexagesimal(0, 0, 9.5, 1), "0°00'09.5");
}

TEST(SexagesimalText, HasOneSignInFront) {
  EXPECT_EQ(SexagesimalText(-12.5, 1).ToUtf8(), "-12°30'00.0");
  EXPECT_EQ(SexagesimalText(-0.5, 1).ToUtf8(), "-0°30'00.0");
  EXPECT_EQ(SexagesimalText(-1e-9, 1).ToUtf8(), "0°00'00.0");
  EXPECT_EQ(SexagesimalText(-0.0, 0).ToUtf8(), "0°00'00");
}

TEST(SexagesimalText, IsEmptyForAnUndefinedAngle) {
  EXPECT_TRUE(SexagesimalText(UndefinedValue, 1).IsEmpty());
  EXPECT_TRUE(SexagesimalText(-std::numeric_limits<double>::infinity(), 1).IsEmpty());
}

TEST(SexagesimalText, NeverShowsSixtySecondsOrMinutes) {
  Random random;
  for (int i = 0; i < 100'000; ++i) {
    const double degrees = random.Whole(0, 1440) / 4.0 - random.Real(0, 1e-4);
    const std::string text = SexagesimalText(degrees, random.Whole(0, 4)).ToUtf8();
    ASSERT_EQ(text.find("'60"), std::string::npos) << text;
    ASSERT_EQ(text.find("°60"), std::string::npos) << text;
  }
}

}  // namespace
