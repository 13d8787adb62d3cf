// GPS bases and baselines in the file.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>

#include "host/cadastre/gps_session.h"
#include "support/cadastral_jobs.h"

namespace {

using cadastral_jobs::Records;
using cadastral_jobs::Texts;
using testing::ElementsAre;
using testing::IsEmpty;

using Terms = std::array<float, 6>;
constexpr Terms kSound = {4e-6F, 0, 0, 4e-6F, 0, 4e-6F};

class DatGps : public testing::Test {
 protected:
  DatGps() {
    cadastral_jobs::FillHeading(*document.GetCts());
    group.SetNome("B");
    group.SetNomeGrp("Day 1");
    group.SetGeocCeFaMis(4500000, 900000, 4300000);
  }
  CPunGps& Measure(const char* name, double dx, const Terms& terms = kSound) {
    CPunGps* const point = library.AddPun(0, true);
    point->SetNome(name);
    point->SetGeocCeFaMis(4500000 + dx, 900000, 4300000);
    point->SetPdop(2);
    SetTerms(*point, terms);
    return *point;
  }
  static void SetTerms(CPunGps& point, const Terms& terms) {
    point.SetPosCov_xx(terms[0]);
    point.SetPosCov_xy(terms[1]);
    point.SetPosCov_xz(terms[2]);
    point.SetPosCov_yy(terms[3]);
    point.SetPosCov_yz(terms[4]);
    point.SetPosCov_zz(terms[5]);
  }
  static void SetTime(CPunGps& point, int day, int hour, int minute) {
    point.SetYear(2025);
    point.SetMonth(3);
    point.SetDay(static_cast<std::uint8_t>(day));
    point.SetTod(static_cast<unsigned long>(hour * 60 + minute) * 60'000 + 59'999);
  }
  std::vector<std::string> Written(char type) {
    return Records(cadastral_jobs::Compose(document).bytes, type);
  }
  std::vector<std::string> Remarks() { return Texts(cadastral_jobs::Compose(document).remarks); }
  std::vector<std::string> Faults() { return Texts(cadastral_jobs::Compose(document).faults); }

  HostDocument document;
  CLibGps& library = *document.GetLibGps();
  CGrpGps& group = *library.AddGrp(true);
};

TEST_F(DatGps, ABaseIsFollowedByItsSessionAndItsBaselines) {
  group.SetBaseAltAnt(1.25);
  group.SetSecScri("NAIL");
  CPunGps& point = Measure("P", -12.345);
  point.SetAltAnt(2);
  point.SetSecScri("WALL");
  const std::string bytes = cadastral_jobs::Compose(document).bytes;
  EXPECT_THAT(bytes,
              testing::EndsWith("1|B|4500000.000,900000.000,4300000.000|1.250|NAIL|\r\n"
                                "6|L2|||RTK|PDOP=2|\r\n"
                                "2|P|-12.345,0.000,0.000|0.000004000,0.000000000,0.000000000,"
                                "0.000004000,0.000000000,0.000004000|PDOP=2|2.000|WALL|\r\n"));
}

TEST_F(DatGps, OneFrequencyIsTold) {
  Measure("P", 1);
  group.SetTipoRicevitore(1);
  EXPECT_THAT(Written('6'), ElementsAre("6|L1|||RTK|PDOP=2|"));
}

TEST_F(DatGps, ASessionLastsFromTheFirstToTheLastMeasurement) {
  SetTime(Measure("a", 1), 2, 9, 5);
  SetTime(Measure("b", 2), 1, 23, 59);
  SetTime(Measure("c", 3), 2, 8, 0);
  Measure("d", 4);
  EXPECT_THAT(Written('6'), ElementsAre("6|L2|01032025-23:59|02032025-09:05|RTK|PDOP=2|"));
}

TEST_F(DatGps, ASessionBeginsAtTheGroupsOwnTime) {
  SetTime(Measure("a", 1), 2, 9, 5);
  group.SetData("02/03/2025 08:30");
  EXPECT_THAT(Written('6'), ElementsAre("6|L2|02032025-08:30|02032025-09:05|RTK|PDOP=2|"));
  group.SetData("02/03/2025");
  EXPECT_THAT(Written('6'), ElementsAre("6|L2|02032025-09:05|02032025-09:05|RTK|PDOP=2|"));
}

TEST_F(DatGps, TimesAreReadInTheFormsThatGroupsHave) {
  for (const char* text : {"20/11/2025 09:05", "20-11-2025 9.05.30", "2025-11-20T09:05:59Z",
                           "20112025-09:05", "day 20.11.2025, 09 05"}) {
    EXPECT_EQ(dat::Text(dat::MomentOf(std::string_view(text))), "20112025-09:05") << text;
  }
  for (const char* text : {"", "20/11/2025", "20/11/2025 25:00", "20/13/2025 09:05", "0/0/0 0:0",
                           "99999999999/1/2025 1:1", "1 2 3"}) {
    EXPECT_EQ(dat::Text(dat::MomentOf(std::string_view(text))), "") << text;
  }
}

TEST_F(DatGps, TheWorstPdopIsThatOfTheSession) {
  Measure("a", 1).SetPdop(1.4);
  Measure("b", 2).SetPdop(3.6);
  Measure("c", 3).SetPdop(UndefinedValue);
  EXPECT_THAT(Written('6'), ElementsAre("6|L2|||RTK|PDOP=4|"));
  EXPECT_THAT(Written('2'),
              ElementsAre(testing::HasSubstr("|PDOP=1|"), testing::HasSubstr("|PDOP=4|"),
                          testing::HasSubstr("0.000004000||0.000||")));
  EXPECT_THAT(Remarks(), ElementsAre("GPS points have no PDOP: its field is empty (1)"));
}

TEST_F(DatGps, AMatrixThatIsNotPositiveDefiniteIsNamedByItsPoint) {
  const Terms bad[] = {{-4e-6F, 0, 0, 4e-6F, 0, 4e-6F},     // a variance below nothing
                       {4e-6F, 4e-6F, 0, 4e-6F, 0, 4e-6F},  // two axes that are one
                       {4e-6F, 0, 5e-6F, 4e-6F, 0, 4e-6F},  // more together than apart
                       {0, 0, 0, 0, 0, 0},                  // nothing at all
                       {4e-10F, 0, 0, 4e-6F, 0, 4e-6F},     // nothing once it is rounded
                       {1e6F, 0, 0, 1e6F, 0, 1e6F}};        // no survey
  for (const Terms& terms : bad) Measure("G7", 1, terms);
  const std::vector<std::string> faults = Faults();
  EXPECT_EQ(faults.size(), std::size(bad));
  EXPECT_THAT(faults,
              testing::Each("GPS point G7: its covariance matrix is not positive definite"));
}

// Read by rows it is one; read with the diagonal first it would not be.
TEST_F(DatGps, AMatrixIsReadByRows) {
  Measure("a", 1, {2.2e-5F, 3.1e-6F, 1.58e-5F, 1.08e-5F, 2.8e-6F, 3.08e-5F});
  EXPECT_THAT(Faults(), IsEmpty());
}

TEST_F(DatGps, AMatrixThatIsMissingIsNamedByItsPoint) {
  Terms terms = kSound;
  terms[3] = UndefinedFloat;
  Measure("G8", 1, terms);
  EXPECT_THAT(Faults(), ElementsAre("GPS point G8 has no covariance matrix"));
}

TEST_F(DatGps, ABaseWithoutAPositionIsNamed) {
  Measure("a", 1);
  group.SetGeocCeFaMis(UndefinedValue, 1, 2);
  EXPECT_THAT(Faults(), ElementsAre("GPS group Day 1: its base has no position"));
}

TEST_F(DatGps, NamesAreNeeded) {
  Measure("", 1);
  group.SetNome("");
  EXPECT_THAT(Faults(),
              ElementsAre("GPS group Day 1: its base has no name", "a GPS point has no name"));
}

TEST_F(DatGps, PointsWithoutAPositionAndGroupsWithoutPointsAreLeftOutAndTold) {
  Measure("a", 1);
  Measure("b", 1).SetGeocCeFaMis(UndefinedValue, UndefinedValue, UndefinedValue);
  library.AddGrp(true);
  EXPECT_THAT(Written('1').size(), 1U);
  EXPECT_THAT(Written('2').size(), 1U);
  EXPECT_THAT(Remarks(), ElementsAre("GPS points without a position are left out (1)",
                                     "GPS groups without measurements are left out (1)"));
}

// A geodesy of the test's own: the height is all that its geocentric coordinates have.
class HeightGeodesy : public IGeodesy {
 public:
  HeightGeodesy() { SetCurrent(this); }
  ~HeightGeodesy() override { SetCurrent(nullptr); }
  bool ToGeographic(const Geocentric&, Geographic&) override { return false; }
  bool ToGeocentric(const Geographic& from, Geocentric& to) override {
    to = {from.height, 0, 0};
    return true;
  }
  const ICoordTransform* TransformOf(const tdk::WString&) override { return nullptr; }
};

TEST_F(DatGps, AnAntennaStandsAboveAPlaceThatIsKnownOnTheGround) {
  const HeightGeodesy geodesy;
  CPunGps& point = Measure("a", 1);
  point.SetGeocCeFaMis(UndefinedValue, UndefinedValue, UndefinedValue);
  point.SetLat(0.7);
  point.SetLong(0.2);
  point.SetElev(100);
  point.SetAltAnt(2);
  group.SetGeocCeFaMis(UndefinedValue, UndefinedValue, UndefinedValue);
  group.SetBaseLat(0.7);
  group.SetBaseLong(0.2);
  group.SetBaseElev(90);
  group.SetBaseAltAnt(1.5);
  EXPECT_THAT(Written('1'), ElementsAre("1|B|91.500,0.000,0.000|1.500||"));
  EXPECT_THAT(Written('2'), ElementsAre(testing::StartsWith("2|a|10.500,0.000,0.000|")));
}

}  // namespace
