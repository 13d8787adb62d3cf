// What settings keep of text layouts, and angles in their notations.
#include <array>
#include <numbers>

#include "services/angle_format.h"
#include "services/date_time.h"
#include "tests/support/text_files.h"

using namespace exchange_test;
using tdk::WString;

namespace {

using TextLayouts = TextTest;
constexpr double kDegree = std::numbers::pi / 180;

TEST_F(TextLayouts, HaveTheirDefaultsWithoutASection) {
  const text::BasicLayout layout = text::LoadBasicLayout();
  EXPECT_EQ(layout.headerRows, 0);
  EXPECT_EQ(layout.separator, 0);
  EXPECT_EQ(layout.fields, (std::array<int, 6>{7, 7, 7, 7, 7, 7}));
  EXPECT_EQ(layout.lengths, (std::array<int, 6>{12, 12, 12, 12, 12, 12}));
  EXPECT_FALSE(layout.quoteNames);
  EXPECT_EQ(text::LoadLastKind(), 0);
  EXPECT_TRUE(text::LoadLastIsFixed());
}

TEST_F(TextLayouts, ReadAFieldCodeAboveTheLastAsTheLast) {
  CIniFile().WriteShort("Importazione", "Campo1", 9);
  CIniFile().WriteShort("Importazione", "Campo2", 6);
  EXPECT_EQ(text::LoadBasicLayout().fields[0], 7);
  EXPECT_EQ(text::LoadBasicLayout().fields[1], 6);
}

TEST_F(TextLayouts, ReadValuesOutOfRangeAsTheirDefaults) {
  CIniFile().WriteShort("Importazione", "Num_righe", 101);
  CIniFile().WriteShort("Importazione", "Delimit", 3);
  CIniFile().WriteShort("Importazione", "LCampo1", 0);
  CIniFile().WriteShort("Importazione", "LCampo2", 101);
  CIniFile().WriteShort("DlgExpFileTxt", "CurSelLibs", 4);
  const text::BasicLayout layout = text::LoadBasicLayout();
  EXPECT_EQ(layout.headerRows, 0);
  EXPECT_EQ(layout.separator, 0);
  EXPECT_EQ(layout.lengths[0], 12);
  EXPECT_EQ(layout.lengths[1], 12);
  EXPECT_EQ(text::LoadLastKind(), 0);
}

class TextFullLayout : public TextTest, public testing::WithParamInterface<const char*> {};

TEST_P(TextFullLayout, IsUpgradedOnceFromTheOlderCatalogue) {
  const std::array<int, 18> upgraded = {0,  1,  3,  4,  5,  6,  7,  8,  9,
                                        13, 14, 15, 16, 17, 18, 19, 20, 21};
  EXPECT_EQ(text::LoadFullLayout(GetParam()).fields, upgraded);
  EXPECT_EQ(CIniFile().ReadLong(GetParam(), "ExpVersion", 1), 0);
  EXPECT_EQ(text::LoadFullLayout(GetParam()).fields, upgraded) << "not a second time";
}

TEST_P(TextFullLayout, IsNotUpgradedWhenItIsOfThePresentCatalogue) {
  CIniFile().WriteLong(GetParam(), "ExpVersion", 0);
  CIniFile().WriteShort(GetParam(), "Campo18", 3);
  EXPECT_EQ(text::LoadFullLayout(GetParam()).fields[2], 2);
  EXPECT_EQ(text::LoadFullLayout(GetParam()).fields[17], 3);
}

TEST_P(TextFullLayout, HasItsDefaults) {
  const text::FullLayout layout = text::LoadFullLayout(GetParam());
  for (const int decimals : layout.decimals) EXPECT_EQ(decimals, 3);
  EXPECT_EQ(layout.separator, 0);
  EXPECT_FALSE(layout.quoteNames);
  EXPECT_EQ(layout.angleFormat, 0);
}

TEST_P(TextFullLayout, IsReadAsItWasStored) {
  text::FullLayout layout = text::LoadFullLayout(GetParam());
  layout.fields[3] = 21;
  layout.decimals[4] = 0;
  layout.separator = 3;
  layout.quoteNames = true;
  layout.angleFormat = 5;
  text::StoreFullLayout(GetParam(), layout);
  const text::FullLayout again = text::LoadFullLayout(GetParam());
  EXPECT_EQ(again.fields, layout.fields);
  EXPECT_EQ(again.decimals, layout.decimals);
  EXPECT_EQ(again.separator, 3);
  EXPECT_TRUE(again.quoteNames);
  EXPECT_EQ(again.angleFormat, 5);
}

INSTANTIATE_TEST_SUITE_P(Each, TextFullLayout, testing::Values("Esportazione", "EsportazioneCel"));

TEST(AngleFormat, WritesSexagesimalTextWithAndWithoutSymbols) {
  const double angle = (12 + 5 / 60.0 + 9.5 / 3600) * kDegree;
  EXPECT_EQ(StrAngSesgFromRadi(angle, 2), WString("12°05'09.50"));
  EXPECT_EQ(StrAngSesgNoSmbFromRadi(angle, 2), WString("12 05 09.50"));
  EXPECT_EQ(StrAngSesgFromRadi(UndefinedValue, 2), WString(""));
}

TEST(AngleFormat, CarriesARoundedSecondOn) {
  const double angle = (10 + 59 / 60.0 + 59.9996 / 3600) * kDegree;
  EXPECT_EQ(StrAngSesgFromRadi(angle, 3), WString("11°00'00.000"));
}

TEST(AngleFormat, PutsMinutesAndSecondsBehindThePoint) {
  const double angle = (12 + 5 / 60.0 + 30 / 3600.0) * kDegree;
  EXPECT_NEAR(AngSesgVertoFromRadi(angle), 12.0530, 1e-12);
  EXPECT_NEAR(AngSesgVertoFromRadi(-angle), -12.0530, 1e-12);
  EXPECT_NEAR(AngGraPriDcPFromRadi(angle), 12.055, 1e-12);
  EXPECT_NEAR(AngSesgVertoFromRadi(11 * kDegree), 11, 1e-12) << "no 10°59'60\"";
}

TEST(AngleFormat, TurnsRadiansIntoDegreesAndGonAndBack) {
  EXPECT_NEAR(AngSesdFromRadi(kDegree), 1, 1e-12);
  EXPECT_NEAR(AngCentFromRadi(90 * kDegree), 100, 1e-12);
  EXPECT_NEAR(AngRadiFromCent(100), 90 * kDegree, 1e-12);
  EXPECT_FALSE(IsDefined(AngRadiFromCent(UndefinedValue)));
  EXPECT_FALSE(IsDefined(AngSesgVertoFromRadi(UndefinedValue)));
}

TEST(DateTime, IsTakenApart) {
  const UtcTime time = FUtcMsToUtcTime(1'456'790'399'999);  // the last second of a leap day
  EXPECT_EQ(time.day, 29);
  EXPECT_EQ(time.month, 2);
  EXPECT_EQ(time.year, 2016);
  EXPECT_EQ(time.hour, 23);
  EXPECT_EQ(time.minute, 59);
  EXPECT_EQ(time.second, 59);
}

}  // namespace
