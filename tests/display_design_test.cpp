// What the display objects of terrain, roads and profiles draw.
#include <gmock/gmock.h>

#include <cmath>

#include "tests/support/displayed.h"

using namespace display_test;
using exchange_test::AddElement;
using exchange_test::AddMainLine;
using exchange_test::AddSection;
using exchange_test::kPi;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

namespace {

class DisplayOfDesigns : public Displayed {
 protected:
  CDtmPrj& AddModel() {
    CDtmPrj* const model = document.GetLibDtm()->AddPrj(false);
    model->SetName("HILL");
    return *model;
  }
  void DrawTerrain() { CDisLibDtm(&engine, &symbols, document.GetLibDtm(), true).AddAllDtm(); }
  void DrawRoads() { CDisRoad(&engine, &symbols, document.GetLibRoad(), true).AddAllRoads(); }
  void DrawProfiles() {
    CDisLibProfile(&engine, &symbols, document.GetLibProfile(), document.GetLibRoad(), true)
        .AddAllProfiles();
  }
  /// The chainage line, from 100 to 140 m, falling from 12 to 10 m.
  CRoad& AddRoadWithProfile() {
    CRoad& road = AddRoad("A1");
    AddMainLine(road, {{100, 12}, {120, 11}, {140, 10}});
    return road;
  }
};

// ---- Terrain ----

TEST_F(DisplayOfDesigns, TrianglesAreFaces) {
  CTris& triangles = AddModel().GetTris();
  for (const cad::Point& vertex : {cad::Point(0, 0, 1), {10, 0, 2}, {0, 10, 3}, {10, 10, 4}}) {
    triangles.AddTriVrt(vertex);
  }
  ASSERT_TRUE(triangles.AddTri(0, 1, 2));
  ASSERT_TRUE(triangles.AddTri(1, 3, 2));
  DrawTerrain();
  const auto faces = On<cad::FaceShape>("HILL_TRIANGLES");
  ASSERT_THAT(faces, SizeIs(2));
  ASSERT_THAT(faces[1].points, SizeIs(3));
  ExpectAt(faces[1].points[0], 10, 0, 2);
  ExpectAt(faces[1].points[1], 10, 10, 4);
  ExpectAt(faces[1].points[2], 0, 10, 3);
}

TEST_F(DisplayOfDesigns, BreaklinesArePolylinesInSpace) {
  AddModel().GetVncs().AddVnc({{1, 2, 3}, {4, 5, 6}});
  DrawTerrain();
  const auto lines = On<cad::PolylineShape>("HILL_BREAKLINES");
  ASSERT_THAT(lines, SizeIs(1));
  EXPECT_FALSE(lines[0].isClosed);
  ExpectAt(lines[0].points.at(0), 1, 2, 3);
  ExpectAt(lines[0].points.at(1), 4, 5, 6);
}

TEST_F(DisplayOfDesigns, ContoursAreClosedPolylinesWithEachCornerOnce) {
  CDtmPrj& model = AddModel();
  for (CCnts* const contours : {&model.GetOuterCnts(), &model.GetIslandCnts()}) {
    CCnt& contour = contours->AddCnt();
    for (const cad::Point& vertex : {cad::Point(0, 0, 1), {9, 0, 2}, {9, 9, 3}, {0, 0, 1}}) {
      contour.AddVrt(vertex);
    }
  }
  DrawTerrain();
  const auto contours = On<cad::PolylineShape>("HILL_CONTOURS");
  ASSERT_THAT(contours, SizeIs(2));
  for (const cad::PolylineShape& contour : contours) {
    EXPECT_TRUE(contour.isClosed);
    ASSERT_THAT(contour.points, SizeIs(3));
    ExpectAt(contour.points[2], 9, 9, 3);
  }
}

TEST_F(DisplayOfDesigns, AnEmptyModelHasNoLayers) {
  AddModel();
  DrawTerrain();
  EXPECT_THAT(Layers(), IsEmpty());
}

// ---- Roads ----

TEST_F(DisplayOfDesigns, StraightOfARoadIsALine) {
  exchange_test::AddStraight(AddRoad("A1"));
  DrawRoads();
  const auto lines = On<cad::LineShape>("A1_AXIS");
  ASSERT_THAT(lines, SizeIs(1));
  ExpectAt(lines[0].from, 1000, 2000, 0);
  ExpectAt(lines[0].to, 1100, 2000, 0);
}

TEST_F(DisplayOfDesigns, CurveToTheLeftIsAnArcFromItsStart) {
  AddElement<CArcPlaniElem>(AddRoad("A1"), 0.0, tdk::geom::PNT_2D(100, 0),
                            tdk::geom::VECTOR_2D(0, 1), 100.0, kPi / 3, true);
  DrawRoads();
  const auto arcs = On<cad::ArcShape>("A1_AXIS");
  ASSERT_THAT(arcs, SizeIs(1));
  ExpectAt(arcs[0].center, 0, 0, 0);
  EXPECT_NEAR(arcs[0].radius, 100, 1e-9);
  EXPECT_NEAR(arcs[0].start, 0, 1e-9);
  EXPECT_NEAR(arcs[0].end, 60, 1e-9);
}

TEST_F(DisplayOfDesigns, CurveToTheRightIsAnArcFromItsEnd) {
  AddElement<CArcPlaniElem>(AddRoad("A1"), 0.0, tdk::geom::PNT_2D(-100, 0),
                            tdk::geom::VECTOR_2D(0, 1), 100.0, kPi / 3, false);
  DrawRoads();
  const auto arcs = On<cad::ArcShape>("A1_AXIS");
  ASSERT_THAT(arcs, SizeIs(1));
  ExpectAt(arcs[0].center, 0, 0, 0);
  EXPECT_NEAR(arcs[0].start, 120, 1e-9);
  EXPECT_NEAR(arcs[0].end, 180, 1e-9);
}

double DistanceToSegment(const tdk::geom::PNT_2D& p, const cad::Point& a, const cad::Point& b) {
  const double dx = b.getX() - a.getX();
  const double dy = b.getY() - a.getY();
  const double along =
      ((p.getX() - a.getX()) * dx + (p.getY() - a.getY()) * dy) / (dx * dx + dy * dy);
  const double t = std::min(1.0, std::max(0.0, along));
  return std::hypot(p.getX() - a.getX() - t * dx, p.getY() - a.getY() - t * dy);
}

TEST_F(DisplayOfDesigns, ClothoidIsAPolylineNoFurtherThanAMillimetreFromIt) {
  CRoad& road = AddRoad("A1");
  AddElement<CClotPlaniElem>(road, 0.0, tdk::geom::PNT_2D(500, 700), tdk::geom::VECTOR_2D(1, 0),
                             60.0, 50.0, true, true);
  DrawRoads();
  const auto lines = On<cad::PolylineShape>("A1_AXIS");
  ASSERT_THAT(lines, SizeIs(1));
  std::vector<const CPlaniElem*> elements;
  road.RetrieveLinkedPlaniElems(elements);
  constexpr int kSamples = 1000;
  const std::vector<cad::Point>& points = lines[0].points;
  for (int i = 0; i <= kSamples; ++i) {
    const auto place = elements.at(0)->PointAt(60.0 * i / kSamples);
    double nearest = 1e9;
    for (std::size_t j = 1; j < points.size(); ++j) {
      nearest = std::min(nearest, DistanceToSegment(place, points[j - 1], points[j]));
    }
    EXPECT_LE(nearest, 0.001) << i;
  }
  ExpectAt(points.front(), 500, 700, 0);
}

TEST_F(DisplayOfDesigns, ARoadLiesOnItsTargetDrawing) {
  const int target = engine.AddDrawing(0, "ROADS", true, false, false);
  CRoad& road = AddRoad("A1");
  exchange_test::AddStraight(road);
  road.SetTargetDrawing(target);
  DrawRoads();
  EXPECT_THAT(Layers(), ElementsAre("ROADS"));
  EXPECT_THAT(On<cad::LineShape>("ROADS"), SizeIs(1));
}

// ---- Profiles ----

TEST_F(DisplayOfDesigns, ProfileIsAPolylineOfDistancesAndHeights) {
  AddRoadWithProfile();
  DrawProfiles();
  const auto lines = On<cad::PolylineShape>("A1_PROFILE");
  ASSERT_THAT(lines, SizeIs(1));
  const std::vector<cad::Point>& points = lines[0].points;
  ASSERT_THAT(points, SizeIs(3));
  EXPECT_NEAR(points[2].getX() - points[0].getX(), 40, 1e-9);
  EXPECT_NEAR(points[2].getY() - points[0].getY(), -2, 1e-9);
  EXPECT_EQ(points[0].getZ(), 0);
}

TEST_F(DisplayOfDesigns, SectionHasItsGroundAndItsLines) {
  CRoad& road = AddRoad("A1");
  CProfile& section = AddSection(road, "1", 100);
  for (const TAltiVrt& vertex : {TAltiVrt{-5, 10}, TAltiVrt{0, 11}, TAltiVrt{5, 10}}) {
    section.AddTerrVrt(vertex);
  }
  exchange_test::AddVertices(section.AddProfileAlti(1, false), {{-4, 12}, {4, 12}});
  DrawProfiles();
  const auto lines = On<cad::PolylineShape>("A1_SECTIONS");
  ASSERT_THAT(lines, SizeIs(2));
  EXPECT_NEAR(lines[1].points.at(0).getX() - lines[0].points.at(0).getX(), 1, 1e-9);
  EXPECT_NEAR(lines[1].points.at(0).getY() - lines[0].points.at(0).getY(), 2, 1e-9);
}

TEST_F(DisplayOfDesigns, ProfilesLieToTheRightOfAllElseAboveEachOther) {
  CRoad& road = AddRoadWithProfile();
  AddElement<CLinePlaniElem>(road, 0.0, tdk::geom::PNT_2D(0, 50), tdk::geom::PNT_2D(300, 80));
  CProfile& section = AddSection(road, "1", 100);
  exchange_test::AddVertices(section.AddProfileAlti(1, false), {{-4, 12}, {4, 13}});
  DrawRoads();
  DrawProfiles();
  const auto profile = On<cad::PolylineShape>("A1_PROFILE");
  const auto sections = On<cad::PolylineShape>("A1_SECTIONS");
  ASSERT_THAT(profile, SizeIs(1));
  ASSERT_THAT(sections, SizeIs(1));
  EXPECT_GT(profile[0].points.at(0).getX(), 300);
  EXPECT_GT(sections[0].points.at(0).getX(), 300);
  EXPECT_GT(sections[0].points.at(0).getY(), profile[0].points.at(0).getY());
}

TEST_F(DisplayOfDesigns, HeightLineIsCutWhereItIsUndefined) {
  CRoad& road = AddRoad("A1");
  AddMainLine(road, {{0, 1}, {10, 2}, {20, UndefinedValue}, {30, 4}, {40, 5}});
  DrawProfiles();
  EXPECT_THAT(On<cad::PolylineShape>("A1_PROFILE"), SizeIs(2));
}

TEST_F(DisplayOfDesigns, ProfilesLieOnTheTargetOfTheirRoadElseOfTheirLibrary) {
  const int library = engine.AddDrawing(0, "PROFILES", true, false, false);
  const int own = engine.AddDrawing(0, "OWN", true, false, false);
  document.GetLibProfile()->SetTargetDrawing(library);
  AddRoadWithProfile();
  AddRoadWithProfile().SetTargetDrawing(own);
  DrawProfiles();
  EXPECT_THAT(On<cad::PolylineShape>("PROFILES"), SizeIs(1));
  EXPECT_THAT(On<cad::PolylineShape>("OWN"), SizeIs(1));
}

}  // namespace
