#include "model/gps.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <limits>

#include "support/add_policies.h"

namespace {

using tdk::WString;

// Geodesy of a round earth: enough to tell what is asked of it, with what, and what is made of the
// answer.
class RoundEarth : public IGeodesy, public ICoordTransform {
 public:
  static constexpr double kRadius = 6'000'000;

  RoundEarth() { SetCurrent(this); }
  ~RoundEarth() override { SetCurrent(nullptr); }
  RoundEarth(const RoundEarth&) = delete;
  RoundEarth& operator=(const RoundEarth&) = delete;

  bool ToGeographic(const Geocentric& from, Geographic& to) override {
    const double across = std::hypot(from.x, from.y);
    if (fails) return false;
    to = {std::atan2(from.z, across), std::atan2(from.y, from.x),
          std::hypot(across, from.z) - kRadius};
    return true;
  }
  bool ToGeocentric(const Geographic& from, Geocentric& to) override {
    const double length = kRadius + from.height;
    if (fails) return false;
    to = {length * std::cos(from.lat) * std::cos(from.lon),
          length * std::cos(from.lat) * std::sin(from.lon), length * std::sin(from.lat)};
    return true;
  }
  const ICoordTransform* TransformOf(const WString& crs) override {
    return crs == WString("EPSG:32632") ? this : nullptr;
  }

  // A plane system whose metres are millionths of a radian.
  bool ToGeographic(const PlanePosition& plane, Geographic& place) const override {
    if (fails) return false;
    place = {plane.north / 1e6, plane.east / 1e6, plane.elev + 50};
    return true;
  }
  bool ToPlane(const Geographic& place, PlanePosition& plane) const override {
    if (fails) return false;
    plane = {place.lon * 1e6, place.lat * 1e6, place.height - 50};
    return true;
  }

  bool fails = false;
};

// Two groups; the first has two points.
struct Gps : testing::Test {
  Gps() {
    first = library.AddGrp(true);
    second = library.AddGrp(true);
    point = library.AddPun(0, true);
    secondPoint = library.AddPun(0, true);
  }

  void ExpectGround(double x, double y, double z) const {
    std::array<double, 3> ground{};
    point->GetGeocTerrMis(ground[0], ground[1], ground[2]);
    EXPECT_NEAR(ground[0], x, 1e-6);
    EXPECT_NEAR(ground[1], y, 1e-6);
    EXPECT_NEAR(ground[2], z, 1e-6);
    std::array<double, 3> same{};
    point->GetGeocTerrWgs84(same[0], same[1], same[2]);
    EXPECT_EQ(same, ground);
  }

  RoundEarth earth;
  CLibGps library;
  CGrpGps* first;
  CGrpGps* second;
  CPunGps* point;
  CPunGps* secondPoint;
  int grp = -7;
};

TEST_F(Gps, CountsGroupsAndPoints) {
  EXPECT_EQ(CLibGps().GetGrpArSize(), 0);
  EXPECT_EQ(library.GetGrpArSize(), 2);
  EXPECT_EQ(library.GetPunArSize(0), 2);
  EXPECT_EQ(library.GetPunArSize(1), 0);
}

TEST_F(Gps, FindsObjectsInTheOrderOfAddition) {
  EXPECT_EQ(library.GetGrpAt(0), first);
  EXPECT_EQ(library.GetGrpAt(1), second);
  EXPECT_EQ(library.GetPunAt(0, 0), point);
  EXPECT_EQ(library.GetPunAt(0, 1), secondPoint);
}

TEST_F(Gps, HasNothingWhereNoIndexReaches) {
  for (const int beyond : {-1, 2, std::numeric_limits<int>::max()}) {
    EXPECT_EQ(library.GetGrpAt(beyond), nullptr);
    EXPECT_EQ(library.GetPunAt(beyond, 0), nullptr);
    EXPECT_EQ(library.GetPunAt(0, beyond), nullptr);
    EXPECT_EQ(library.GetPunArSize(beyond), 0);
    EXPECT_EQ(library.AddPun(beyond, true), nullptr);
  }
}

TEST_F(Gps, FindsTheIndexOfAGroup) {
  EXPECT_TRUE(library.GetIndiciDiGrp(first, grp));
  EXPECT_EQ(grp, 0);
  EXPECT_TRUE(library.GetIndiciDiGrp(second, grp));
  EXPECT_EQ(grp, 1);
}

TEST_F(Gps, LeavesTheIndexUntouchedForAForeignGroup) {
  CLibGps other;
  const CGrpGps nobodys(0);
  EXPECT_FALSE(library.GetIndiciDiGrp(other.AddGrp(true), grp));
  EXPECT_FALSE(library.GetIndiciDiGrp(&nobodys, grp));
  EXPECT_FALSE(library.GetIndiciDiGrp(nullptr, grp));
  EXPECT_EQ(grp, -7);
}

TEST_F(Gps, AddsNoGroupThatTheHostRefuses) {
  RefuseKinds policy({AddedKind::kGpsGroup});
  library.SetAddPolicy(&policy);
  EXPECT_EQ(library.AddGrp(true), nullptr);
  EXPECT_EQ(library.GetGrpArSize(), 2);
  EXPECT_NE(library.AddPun(0, true), nullptr);
}

TEST_F(Gps, AddsNoPointThatTheHostRefuses) {
  RefuseKinds policy({AddedKind::kGpsPoint});
  library.SetAddPolicy(&policy);
  EXPECT_EQ(library.AddPun(0, true), nullptr);
  EXPECT_EQ(library.GetPunArSize(0), 2);
  EXPECT_NE(library.AddGrp(true), nullptr);
}

TEST_F(Gps, AddsUntilTheHostRefuses) {
  RefuseAfter policy(1);
  library.SetAddPolicy(&policy);
  EXPECT_NE(library.AddPun(1, true), nullptr);
  EXPECT_EQ(library.AddPun(1, true), nullptr);
  EXPECT_EQ(library.GetPunArSize(1), 1);
}

TEST_F(Gps, RemembersTheCurrentGroup) {
  EXPECT_EQ(library.GetCurrGrp(), nullptr);
  library.SetCurrGrp(second);
  EXPECT_EQ(library.GetCurrGrp(), second);
}

TEST_F(Gps, KeepsTargetDrawingsOfLibraryAndGroupsApart) {
  library.SetTargetDrawing(3);
  first->SetTargetDrawing(4);
  EXPECT_EQ(library.GetTargetDrawing(), 3);
  EXPECT_EQ(first->GetTargetDrawing(), 4);
  EXPECT_EQ(second->GetTargetDrawing(), 0);
}

TEST_F(Gps, LeavesEveryObjectWhereItIsWhileOthersAreAdded) {
  for (int i = 0; i < 3000; ++i) {
    library.AddGrp(true);
    library.AddPun(0, true);
  }
  EXPECT_EQ(library.GetGrpAt(1), second);
  EXPECT_EQ(library.GetPunAt(0, 1), secondPoint);
  EXPECT_TRUE(library.GetIndiciDiGrp(library.GetGrpAt(3001), grp));
  EXPECT_EQ(grp, 3001);
}

TEST_F(Gps, KeepsTheTextsOfAGroup) {
  first->SetNomeGrp("base north");
  first->SetData("1/2/2024");
  first->SetNome("B1");
  EXPECT_EQ(first->GetNomeGrp(), WString("base north"));
  EXPECT_EQ(first->GetData(), WString("1/2/2024"));
  EXPECT_EQ(first->GetNome(), WString("B1"));
}

TEST_F(Gps, KeepsThePositionOfTheBase) {
  first->SetBaseLat(0.78);
  first->SetBaseLong(0.2);
  first->SetBaseElev(311.5);
  first->SetBaseAltAnt(1.9);
  EXPECT_EQ(first->GetBaseLat(), 0.78);
  EXPECT_EQ(first->GetBaseLong(), 0.2);
  EXPECT_EQ(first->GetBaseElev(), 311.5);
  EXPECT_EQ(first->GetBaseAltAnt(), 1.9);
}

TEST_F(Gps, KeepsTheGeocentricCoordinatesOfTheBase) {
  double x = 0, y = 0, z = 0;
  first->SetGeocCeFaMis(4'300'000.25, 800'000.5, 4'600'000.75);
  first->GetGeocCeFaMis(x, y, z);
  EXPECT_EQ(x, 4'300'000.25);
  EXPECT_EQ(y, 800'000.5);
  EXPECT_EQ(z, 4'600'000.75);
}

TEST_F(Gps, KeepsTheTypesOfReceiverAndSurvey) {
  first->SetTipoRicevitore(255);
  first->SetTipoRilievo(2);
  EXPECT_EQ(first->GetTipoRicevitore(), 255);
  EXPECT_EQ(first->GetTipoRilievo(), 2);
}

TEST_F(Gps, KeepsThePositionOfAPoint) {
  point->SetLat(-0.5);
  point->SetLong(3.1);
  point->SetElev(-12.25);
  point->SetAltAnt(2.1);
  EXPECT_EQ(point->GetLat(), -0.5);
  EXPECT_EQ(point->GetLong(), 3.1);
  EXPECT_EQ(point->GetElev(), -12.25);
  EXPECT_EQ(point->GetAltAnt(), 2.1);
}

TEST_F(Gps, KeepsTheQualityOfAPoint) {
  point->SetGdop(2.5);
  point->SetPdop(1.5);
  point->SetHposRms(0.011);
  point->SetVposRms(0.022);
  point->SetQua(-1);
  EXPECT_EQ(point->GetGdop(), 2.5);
  EXPECT_EQ(point->GetPdop(), 1.5);
  EXPECT_EQ(point->GetHposRms(), 0.011);
  EXPECT_EQ(point->GetVposRms(), 0.022);
  EXPECT_EQ(point->GetQua(), -1);
}

TEST_F(Gps, KeepsTheSixTermsOfTheCovarianceApart) {
  point->SetPosCov_xx(1);
  point->SetPosCov_xy(2);
  point->SetPosCov_xz(3);
  point->SetPosCov_yy(4);
  point->SetPosCov_yz(5);
  point->SetPosCov_zz(6);
  const std::array<float, 6> terms = {point->GetPosCov_xx(), point->GetPosCov_xy(),
                                      point->GetPosCov_xz(), point->GetPosCov_yy(),
                                      point->GetPosCov_yz(), point->GetPosCov_zz()};
  EXPECT_EQ(terms, (std::array<float, 6>{1, 2, 3, 4, 5, 6}));
}

TEST_F(Gps, KeepsTheCountsOfSatellites) {
  point->SetNuGpsUsed(255);
  point->SetNuGloUsed(7);
  EXPECT_EQ(point->GetNuGpsUsed(), 255);
  EXPECT_EQ(point->GetNuGloUsed(), 7);
}

TEST_F(Gps, KeepsDateAndTimeOfDay) {
  point->SetYear(65535);
  point->SetMonth(12);
  point->SetDay(31);
  point->SetTod(86'399'999);
  EXPECT_EQ(point->GetYear(), 65535);
  EXPECT_EQ(point->GetMonth(), 12);
  EXPECT_EQ(point->GetDay(), 31);
  EXPECT_EQ(point->GetTod(), 86'399'999U);
}

TEST_F(Gps, HasOneTextForCodeAndSecondDescription) {
  point->SetCode("wall");
  EXPECT_EQ(point->GetSecScri(), WString("wall"));
  point->SetNomCoord("1", "tree", 0, 0, 0);
  EXPECT_EQ(point->GetCode(), WString("tree"));
}

TEST_F(Gps, AddsEmptyObjects) {
  EXPECT_TRUE(first->GetNomeGrp().IsEmpty());
  EXPECT_TRUE(point->GetNome().IsEmpty());
  EXPECT_FALSE(IsDefined(point->GetLat()));
  EXPECT_FALSE(IsDefined(first->GetBaseElev()));
  EXPECT_FALSE(IsDefined(point->GetCoordX()));
}

TEST_F(Gps, KeepsTheGeocentricCoordinatesOfAPoint) {
  double x = 0, y = 0, z = 0;
  point->GetGeocCeFaMis(x, y, z);
  EXPECT_FALSE(IsDefined(x) || IsDefined(y) || IsDefined(z));
  point->SetGeocCeFaMis(1, 2, 3);
  point->GetGeocCeFaMis(x, y, z);
  EXPECT_EQ(x + 10 * y + 100 * z, 321);
}

TEST_F(Gps, FindsTheGroundPointBelowTheAntennaAlongTheNormal) {
  point->SetGeocCeFaMis(0, 0, RoundEarth::kRadius + 102);
  point->SetAltAnt(2);
  ExpectGround(0, 0, RoundEarth::kRadius + 100);
  point->SetGeocCeFaMis(-RoundEarth::kRadius - 2, 0, 0);
  ExpectGround(-RoundEarth::kRadius, 0, 0);
}

TEST_F(Gps, FindsTheGroundPointInThePhaseCentreOfAnAntennaWithoutHeight) {
  point->SetGeocCeFaMis(4'000'000, 2'000'000, 3'500'000);
  ExpectGround(4'000'000, 2'000'000, 3'500'000);
}

TEST_F(Gps, HasNoGroundPointWithoutAPhaseCentre) {
  ExpectGround(UndefinedValue, UndefinedValue, UndefinedValue);
  point->SetGeocCeFaMis(1, UndefinedValue, 3);
  ExpectGround(UndefinedValue, UndefinedValue, UndefinedValue);
}

TEST_F(Gps, HasNoGroundPointWhenTheHostCannotSay) {
  point->SetGeocCeFaMis(4'000'000, 2'000'000, 3'500'000);
  earth.fails = true;
  ExpectGround(UndefinedValue, UndefinedValue, UndefinedValue);
  IGeodesy::SetCurrent(nullptr);
  ExpectGround(UndefinedValue, UndefinedValue, UndefinedValue);
}

TEST_F(Gps, DerivesAPositionThatWasNotSetFromTheGroundPoint) {
  point->SetGeocCeFaMis(0, RoundEarth::kRadius + 102, 0);
  point->SetAltAnt(2);
  EXPECT_NEAR(point->GetLat(), 0, 1e-9);
  EXPECT_NEAR(point->GetLong(), std::acos(0), 1e-9);
  EXPECT_NEAR(point->GetElev(), 100, 1e-6);
}

TEST_F(Gps, DerivesOnlyThePartOfAPositionThatWasNotSet) {
  point->SetGeocCeFaMis(0, RoundEarth::kRadius, 0);
  point->SetLong(0.25);
  EXPECT_NEAR(point->GetLat(), 0, 1e-9);
  EXPECT_EQ(point->GetLong(), 0.25);
}

TEST_F(Gps, DerivesThePositionOfTheBaseFromItsGroundPoint) {
  first->SetGeocCeFaMis(RoundEarth::kRadius + 12, 0, 0);
  first->SetBaseAltAnt(2);
  EXPECT_NEAR(first->GetBaseLat(), 0, 1e-9);
  EXPECT_NEAR(first->GetBaseLong(), 0, 1e-9);
  EXPECT_NEAR(first->GetBaseElev(), 10, 1e-6);
}

TEST_F(Gps, DerivesNoPositionWhenTheHostCannotSay) {
  point->SetGeocCeFaMis(0, RoundEarth::kRadius, 0);
  earth.fails = true;
  EXPECT_FALSE(IsDefined(point->GetLat()));
}

TEST_F(Gps, TakesAGroupWithoutAReferenceSystemForNotValid) {
  EXPECT_FALSE(first->IsCdElabValid());
  first->SetCrs("EPSG:0");
  EXPECT_FALSE(first->IsCdElabValid());
}

TEST_F(Gps, TakesAGroupWithAReferenceSystemForValid) {
  first->SetCrs("EPSG:32632");
  EXPECT_EQ(first->GetCrs(), WString("EPSG:32632"));
  EXPECT_TRUE(first->IsCdElabValid());
  EXPECT_FALSE(second->IsCdElabValid());
  IGeodesy::SetCurrent(nullptr);
  EXPECT_FALSE(first->IsCdElabValid());
}

TEST_F(Gps, ConvertsPlaneCoordinatesOfAGroup) {
  double lat = -1, lon = -1, height = -1;
  first->SetCrs("EPSG:32632");
  EXPECT_TRUE(first->GetConvCoord().PlanAttToGrafGps(5e5, 2e5, 100, 0, lat, lon, height));
  EXPECT_EQ(lat, 0.5);
  EXPECT_EQ(lon, 0.2);
  EXPECT_EQ(height, 150);
}

TEST_F(Gps, LeavesTheResultsUntouchedWhenPlaneCoordinatesCannotBeConverted) {
  double lat = -1, lon = -2, height = -3;
  EXPECT_FALSE(first->GetConvCoord().PlanAttToGrafGps(5e5, 2e5, 100, 0, lat, lon, height));
  first->SetCrs("EPSG:32632");
  earth.fails = true;
  EXPECT_FALSE(first->GetConvCoord().PlanAttToGrafGps(5e5, 2e5, 100, 0, lat, lon, height));
  EXPECT_EQ(lat, -1);
  EXPECT_EQ(lon, -2);
  EXPECT_EQ(height, -3);
}

TEST_F(Gps, ConvertsPlaneCoordinatesBack) {
  double north = -1, east = -1, elev = -1;
  EXPECT_FALSE(first->GetConvCoord().GrafGpsToPlanAtt(0.5, 0.2, 150, north, east, elev));
  EXPECT_EQ(north, -1);
  first->SetCrs("EPSG:32632");
  EXPECT_TRUE(first->GetConvCoord().GrafGpsToPlanAtt(0.5, 0.2, 150, north, east, elev));
  EXPECT_EQ(north, 5e5);
  EXPECT_EQ(east, 2e5);
  EXPECT_EQ(elev, 100);
}

}  // namespace
