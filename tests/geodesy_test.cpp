// Positions through the real geodesy engine: published coordinates, and the same questions put to
// the reference program of the field.
#include <gtest/gtest.h>

#include <cmath>
#include <numbers>
#include <random>

#include "host/geodesy/gps_positions.h"
#include "host/geodesy/lazy_geodesy.h"
#include "tests/run_kalvio.h"
#include "tests/support/temporary_folder.h"

namespace {

constexpr double kMillimetre = 0.001;
constexpr double kDegree = std::numbers::pi / 180;

double Degrees(double degrees, double minutes, double seconds) {
  return (degrees + minutes / 60 + seconds / 3600) * kDegree;
}

// A point whose coordinates a national survey published in all three forms.
struct PublishedPoint {
  const char* crs;
  Geocentric centre;
  Geographic place;
  double east;
  double north;
};

// The numbers are those of the North American datum of 1983; its ellipsoid differs from that of
// WGS 84 by a tenth of a millimetre, so that they stand for WGS 84 as well.
const PublishedPoint kPublished[] = {
    {"EPSG:32618",
     {1095790.767, -4831327.994, 4003934.360},
     {Degrees(39, 8, 2.34041), Degrees(282, 46, 44.48118) - 360 * kDegree, 108.862},
     308035.018,
     4333993.902},
    {"EPSG:32618",
     {1382964.836, -4637167.377, 4141144.041},
     {Degrees(40, 44, 47.88641), -73.393586699 * kDegree, -5.360},
     635620.505,
     4511872.900},
};

class RealGeodesy : public testing::Test {
 protected:
  RealGeodesy() { LazyGeodesy::Install(); }
  ~RealGeodesy() override { IGeodesy::SetCurrent(nullptr); }

  CGrpGps& AddGroup(const char* crs) {
    CGrpGps& group = *library.AddGrp(true);
    group.SetCrs(crs);
    return group;
  }
  CPunGps& AddPoint() { return *library.AddPun(library.GetGrpArSize() - 1, true); }

  CLibGps library;
};

class PublishedPlace : public RealGeodesy, public testing::WithParamInterface<PublishedPoint> {};

TEST_P(PublishedPlace, HasThePlaneCoordinatesOfItsPhaseCentre) {
  AddGroup(GetParam().crs);
  CPunGps& point = AddPoint();
  point.SetGeocCeFaMis(GetParam().centre.x, GetParam().centre.y, GetParam().centre.z);
  EXPECT_EQ(CompletePositions(library, "").plane, 1);
  EXPECT_NEAR(point.GetCoordX(), GetParam().east, kMillimetre);
  EXPECT_NEAR(point.GetCoordY(), GetParam().north, kMillimetre);
  EXPECT_NEAR(point.GetCoordZ(), GetParam().place.height, kMillimetre);
}

TEST_P(PublishedPlace, HasTheLatitudeAndLongitudeOfItsPhaseCentre) {
  constexpr double kMillimetreOnEarth = kMillimetre / 6378137;
  AddGroup(GetParam().crs);
  CPunGps& point = AddPoint();
  point.SetGeocCeFaMis(GetParam().centre.x, GetParam().centre.y, GetParam().centre.z);
  EXPECT_NEAR(point.GetLat(), GetParam().place.lat, kMillimetreOnEarth);
  EXPECT_NEAR(point.GetLong(), GetParam().place.lon, kMillimetreOnEarth);
  EXPECT_NEAR(point.GetElev(), GetParam().place.height, kMillimetre);
}

TEST_P(PublishedPlace, HasTheLatitudeAndLongitudeOfItsPlaneCoordinates) {
  constexpr double kMillimetreOnEarth = kMillimetre / 6378137;
  AddGroup(GetParam().crs);
  CPunGps& point = AddPoint();
  point.SetCoord(GetParam().east, GetParam().north, GetParam().place.height);
  EXPECT_EQ(CompletePositions(library, "").geographic, 1);
  EXPECT_NEAR(point.GetLat(), GetParam().place.lat, kMillimetreOnEarth);
  EXPECT_NEAR(point.GetLong(), GetParam().place.lon, kMillimetreOnEarth);
  EXPECT_NEAR(point.GetElev(), GetParam().place.height, kMillimetre);
}

INSTANTIATE_TEST_SUITE_P(Each, PublishedPlace, testing::ValuesIn(kPublished),
                         [](const auto& each) { return "Point" + std::to_string(each.index); });

TEST_F(RealGeodesy, PutsTheGroundPointBelowTheAntennaAlongTheNormal) {
  CPunGps& point = (AddGroup(""), AddPoint());
  const PublishedPoint& published = kPublished[0];
  point.SetGeocCeFaMis(published.centre.x, published.centre.y, published.centre.z);
  point.SetAltAnt(2);
  double x = 0, y = 0, z = 0;
  point.GetGeocTerrMis(x, y, z);
  const double lat = published.place.lat;
  const double lon = published.place.lon;
  EXPECT_NEAR(x, published.centre.x - 2 * std::cos(lat) * std::cos(lon), kMillimetre);
  EXPECT_NEAR(y, published.centre.y - 2 * std::cos(lat) * std::sin(lon), kMillimetre);
  EXPECT_NEAR(z, published.centre.z - 2 * std::sin(lat), kMillimetre);
  EXPECT_NEAR(point.GetElev(), published.place.height - 2, kMillimetre);
}

TEST_F(RealGeodesy, AgreesWithTheReferenceProgram) {
  constexpr int kPoints = 50;
  std::mt19937 random(7);
  std::uniform_real_distribution<double> east(300'000, 700'000);
  std::uniform_real_distribution<double> north(4'000'000, 5'500'000);
  std::uniform_real_distribution<double> height(-50, 3'000);
  AddGroup("EPSG:32632");
  std::string asked;
  for (int i = 0; i < kPoints; ++i) {
    CPunGps& point = AddPoint();
    point.SetCoord(std::round(east(random)), std::round(north(random)), std::round(height(random)));
    for (const double part : {point.GetCoordX(), point.GetCoordY(), point.GetCoordZ()}) {
      asked += std::to_string(static_cast<long>(part)) + " ";
    }
    asked += "\n";
  }
  EXPECT_EQ(CompletePositions(library, "").geographic, kPoints);
  TemporaryFolder folder;
  const auto run = e2e::RunProgram(
      "cs2cs", {"-f", "%.11f", "EPSG:32632", "EPSG:4326", folder.Write("points", asked)});
  ASSERT_EQ(run.status, 0) << run.err;
  std::istringstream answers(run.out);
  answers.imbue(std::locale::classic());
  for (int i = 0; i < kPoints; ++i) {
    double lat = 0, lon = 0, elev = 0;
    answers >> lat >> lon >> elev;
    EXPECT_NEAR(library.GetPunAt(0, i)->GetLat(), lat * kDegree, 1e-11) << i;
    EXPECT_NEAR(library.GetPunAt(0, i)->GetLong(), lon * kDegree, 1e-11) << i;
    EXPECT_NEAR(library.GetPunAt(0, i)->GetElev(), elev, kMillimetre) << i;
  }
}

TEST_F(RealGeodesy, ComesBackToTheSamePlaneCoordinates) {
  CConvCoord& conversion = AddGroup("EPSG:32632").GetConvCoord();
  double lat = 0, lon = 0, height = 0, north = 0, east = 0, elev = 0;
  ASSERT_TRUE(conversion.PlanAttToGrafGps(4945599.116, 652734.826, 111.873, 0, lat, lon, height));
  ASSERT_TRUE(conversion.GrafGpsToPlanAtt(lat, lon, height, north, east, elev));
  EXPECT_NEAR(north, 4945599.116, 1e-6);
  EXPECT_NEAR(east, 652734.826, 1e-6);
  EXPECT_NEAR(elev, 111.873, 1e-6);
}

TEST_F(RealGeodesy, TakesOnlyPlaneReferenceSystemsForValid) {
  EXPECT_TRUE(AddGroup("EPSG:32632").IsCdElabValid());
  EXPECT_TRUE(AddGroup("EPSG:3003").IsCdElabValid());
  for (const char* crs : {"", "EPSG:4326", "EPSG:4978", "EPSG:999999", "nonsense", "EPSG:"}) {
    EXPECT_FALSE(AddGroup(crs).IsCdElabValid()) << crs;
  }
}

TEST_F(RealGeodesy, GivesTheReferenceSystemToGroupsWithoutOne) {
  AddGroup("");
  AddGroup("EPSG:32633");
  CompletePositions(library, "EPSG:32632");
  EXPECT_EQ(library.GetGrpAt(0)->GetCrs(), tdk::WString("EPSG:32632"));
  EXPECT_EQ(library.GetGrpAt(1)->GetCrs(), tdk::WString("EPSG:32633"));
}

TEST_F(RealGeodesy, LeavesWhatIsThereAsItIs) {
  AddGroup("EPSG:32618");
  CPunGps& point = AddPoint();
  const Geocentric& centre = kPublished[0].centre;
  point.SetGeocCeFaMis(centre.x, centre.y, centre.z);
  point.SetCoord(1, 2, 3);
  const CompletedPositions completed = CompletePositions(library, "");
  EXPECT_EQ(completed.plane + completed.geographic, 0);
  EXPECT_EQ(point.GetCoordX(), 1);
}

TEST_F(RealGeodesy, WorksNothingOutWithoutAReferenceSystem) {
  AddGroup("");
  CPunGps& point = AddPoint();
  point.SetCoord(500000, 4900000, 100);
  CompletePositions(library, "");
  EXPECT_FALSE(IsDefined(point.GetLat()));
}

TEST_F(RealGeodesy, CompletesBasesToo) {
  CGrpGps& group = AddGroup("EPSG:32618");
  const Geocentric& centre = kPublished[1].centre;
  group.SetGeocCeFaMis(centre.x, centre.y, centre.z);
  EXPECT_EQ(CompletePositions(library, "").plane, 1);
  EXPECT_NEAR(group.GetCoordX(), kPublished[1].east, kMillimetre);
}

TEST_F(RealGeodesy, RefusesAPlaceThatCannotBeProjected) {
  CConvCoord& conversion = AddGroup("EPSG:32632").GetConvCoord();
  double lat = 7, lon = 8, height = 9;
  EXPECT_FALSE(conversion.PlanAttToGrafGps(1e30, 1e30, 0, 0, lat, lon, height));
  EXPECT_EQ(lat + lon + height, 24);
}

}  // namespace
