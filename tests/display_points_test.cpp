// What the display objects of points draw: symbols with their texts, each part on its layer.
#include <gmock/gmock.h>

#include "tests/support/displayed.h"

using namespace display_test;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;
using testing::UnorderedElementsAre;

namespace {

class DisplayOfPoints : public Displayed {
 protected:
  void DrawJobs(bool explode) {
    CDisLibCmp(&engine, &symbols, &document, true).AddAllLibCmp(explode);
  }
  void DrawGps(bool explode) {
    CDisLibGps(&engine, &symbols, document.GetLibGps(), true).AddAllLibGps(explode);
  }
  void DrawKnown(bool explode) {
    CDisLibPnt(&engine, &symbols, document.GetLibPnt(), true).AddAllLibPnt(explode);
  }
  void DrawNames(bool explode) { CDisPtNome(&engine, &symbols, &document).AddAllNames(explode); }

  /// Name, code and height, as the attributes of an insert have them.
  static std::vector<std::string> TextsOf(const cad::InsertShape& insert) {
    std::vector<std::string> texts;
    for (const cad::Attribute& attribute : insert.attributes) texts.push_back(attribute.text);
    return texts;
  }
};

// ---- Blocks ----

TEST_F(DisplayOfPoints, StationsAndPointsAreBlocksWithTheirTextsAsAttributes) {
  AddStation("S1", 10, 20, 3);
  AddPoint("P1", "TREE", 11, 21, 4.126);
  DrawJobs(false);
  const auto stations = On<cad::InsertShape>("J_STATIONS");
  const auto points = On<cad::InsertShape>("J_POINTS");
  ASSERT_THAT(stations, SizeIs(1));
  ASSERT_THAT(points, SizeIs(1));
  EXPECT_EQ(BlockOf(stations[0]), "FB_STATION");
  EXPECT_EQ(BlockOf(points[0]), "FB_POINT");
  ExpectAt(points[0].at, 11, 21, 4.126);
  EXPECT_THAT(TextsOf(points[0]), ElementsAre("P1", "TREE", "4.13"));
}

TEST_F(DisplayOfPoints, AttributesOfABlockAreCalledNameCodeHeight) {
  AddStation("S1", 10, 20, 3);
  DrawJobs(false);
  std::vector<std::string> tags;
  for (const auto& definition : engine.Blocks().at(0).attributes) tags.push_back(definition.tag);
  EXPECT_THAT(tags, ElementsAre("NAME", "CODE", "HEIGHT"));
}

TEST_F(DisplayOfPoints, BlocksCarryTheNamesSoThatNoneIsDrawnBesideThem) {
  AddStation("S1", 10, 20, 3);
  DrawNames(false);
  EXPECT_THAT(engine.Entities(), IsEmpty());
}

TEST_F(DisplayOfPoints, EachKindOfPointHasItsSymbol) {
  AddKnownGroup("K");
  AddKnown("K1", 1, 2);
  CGrpGps* const group = document.GetLibGps()->AddGrp(false);
  group->SetNomeGrp("G");
  Fill(group, "BASE", "", 5, 6);
  Fill(document.GetLibGps()->AddPun(0, false), "G1", "", 7, 8);
  DrawKnown(false);
  DrawGps(false);
  EXPECT_EQ(BlockOf(On<cad::InsertShape>("K_POINTS").at(0)), "FB_KNOWN");
  EXPECT_EQ(BlockOf(On<cad::InsertShape>("G_STATIONS").at(0)), "FB_GPSBASE");
  EXPECT_EQ(BlockOf(On<cad::InsertShape>("G_POINTS").at(0)), "FB_GPS");
}

TEST_F(DisplayOfPoints, ABlockOfTheUsersOwnStandsForTheSymbolOfItsName) {
  cad::Block own;
  own.name = "fb_station";
  const int position = engine.AddBlock(own);
  AddStation("S1", 10, 20, 3);
  DrawJobs(false);
  EXPECT_EQ(On<cad::InsertShape>("J_STATIONS").at(0).block, position);
}

// ---- Exploded ----

TEST_F(DisplayOfPoints, ExplodedPointIsAPointWithItsTextsOnLayersOfTheirOwn) {
  AddStation("S1", 10, 20, 3);
  AddPoint("P1", "TREE", 11, 21, 4.126);
  DrawNames(true);
  DrawJobs(true);
  EXPECT_THAT(On<cad::InsertShape>("J_POINTS"), IsEmpty());
  ASSERT_THAT(On<cad::PointShape>("J_POINTS"), SizeIs(1));
  ExpectAt(On<cad::PointShape>("J_POINTS")[0].at, 11, 21, 4.126);
  EXPECT_THAT(TextsOn("J_NAMES"), ElementsAre("S1", "P1"));
  EXPECT_THAT(TextsOn("J_CODES"), ElementsAre("TREE"));
  EXPECT_THAT(TextsOn("J_HEIGHTS"), ElementsAre("3.00", "4.13"));
}

TEST_F(DisplayOfPoints, ExplodedSymbolIsItsLinesAboutThePoint) {
  AddStation("S1", 10, 20, 3);
  DrawJobs(true);
  const auto triangle = On<cad::PolylineShape>("J_STATIONS");
  ASSERT_THAT(triangle, SizeIs(1));
  EXPECT_TRUE(triangle[0].isClosed);
  ASSERT_THAT(triangle[0].points, SizeIs(3));
  const double half = display::kSymbolSize / 2;
  EXPECT_NEAR(triangle[0].points[0].getX(), 10 - half, 1e-9);
  EXPECT_NEAR(triangle[0].points[1].getX(), 10 + half, 1e-9);
  EXPECT_EQ(triangle[0].points[2].getZ(), 3);
}

TEST_F(DisplayOfPoints, TextsStandBesideThePointAtItsElevation) {
  AddStation("S1", 10, 20, 3);
  DrawNames(true);
  const auto names = On<cad::TextShape>("J_NAMES");
  ASSERT_THAT(names, SizeIs(1));
  EXPECT_GT(names[0].at.getX(), 10);
  EXPECT_EQ(names[0].at.getZ(), 3);
  EXPECT_EQ(names[0].height, display::kTextHeight);
}

// ---- Layers ----

TEST_F(DisplayOfPoints, EachJobHasItsLayers) {
  AddStation("S1", 1, 1);
  document.GetLibCmp()->AddJob(false)->SetNome("K");
  Fill(document.GetLibCmp()->AddSta(1, false), "S2", "", 2, 2);
  DrawJobs(false);
  EXPECT_THAT(Layers(), UnorderedElementsAre("J_STATIONS", "K_STATIONS"));
}

TEST_F(DisplayOfPoints, AJobWithoutANameHasLayersOfTheirPartsAlone) {
  document.GetLibCmp()->AddJob(false);
  AddStation("S1", 1, 1);
  DrawJobs(false);
  EXPECT_THAT(Layers(), ElementsAre("STATIONS"));
}

TEST_F(DisplayOfPoints, NamesOfLayersAreInTheUsersLanguage) {
  AddStation("S1", 1, 1);
  SetLanguage("it");
  DrawJobs(false);
  SetLanguage("en");
  EXPECT_THAT(Layers(), ElementsAre("J_STAZIONI"));
}

TEST_F(DisplayOfPoints, ATargetDrawingTakesAllPartsOfAJob) {
  const int target = engine.AddDrawing(0, "PLAN", true, false, false);
  AddStation("S1", 1, 1, 1);
  document.GetLibCmp()->GetJobAt(0)->SetTargetDrawing(target);
  DrawNames(true);
  DrawJobs(true);
  EXPECT_THAT(Layers(), ElementsAre("PLAN"));
  EXPECT_THAT(TextsOn("PLAN"), ElementsAre("S1", "1.00"));
}

TEST_F(DisplayOfPoints, TheTargetOfTheLibraryIsForJobsWithoutOneOfTheirOwn) {
  const int all = engine.AddDrawing(0, "ALL", true, false, false);
  const int own = engine.AddDrawing(0, "OWN", true, false, false);
  document.GetLibCmp()->SetTargetDrawing(all);
  AddStation("S1", 1, 1, 1);
  AddStation("S2", 2, 2, 2, /*job=*/1);
  document.GetLibCmp()->GetJobAt(1)->SetTargetDrawing(own);
  DrawJobs(false);
  EXPECT_THAT(On<cad::InsertShape>("ALL"), SizeIs(1));
  EXPECT_THAT(On<cad::InsertShape>("OWN"), SizeIs(1));
}

// ---- Orientations ----

TEST_F(DisplayOfPoints, SightOfAKnownPointIsALine) {
  AddKnownGroup("K");
  AddKnown("CHURCH", 100, 200);
  AddStation("S1", 10, 20, 3);
  AddPoint("CHURCH", "", 100, 200, 50);
  AddPoint("P1", "", 11, 21, 4);
  DrawJobs(false);
  const auto sights = On<cad::LineShape>("J_ORIENTATIONS");
  ASSERT_THAT(sights, SizeIs(1));
  ExpectAt(sights[0].from, 10, 20, 3);
  ExpectAt(sights[0].to, 100, 200, 50);
}

TEST_F(DisplayOfPoints, SightOfAnotherStationIsALine) {
  AddStation("S1", 10, 20, 3);
  AddPoint("S2", "", 30, 40, 5);
  AddStation("S2", 30, 40, 5);
  DrawJobs(false);
  EXPECT_THAT(On<cad::LineShape>("J_ORIENTATIONS"), SizeIs(1));
}

// ---- What is not there ----

TEST_F(DisplayOfPoints, WithoutPlaneCoordinatesNothingIsDrawn) {
  AddStation("S1", UndefinedValue, 20, 3);
  AddPoint("P1", "TREE", 11, UndefinedValue, 4);
  for (const bool explode : {false, true}) {
    DrawNames(explode);
    DrawJobs(explode);
  }
  EXPECT_THAT(engine.Entities(), IsEmpty());
}

TEST_F(DisplayOfPoints, WithoutAnElevationItIsDrawnAtZeroWithoutAHeight) {
  AddStation("S1", 10, 20);
  DrawJobs(true);
  ExpectAt(On<cad::PointShape>("J_STATIONS").at(0).at, 10, 20, 0);
  EXPECT_THAT(TextsOn("J_HEIGHTS"), IsEmpty());
  DrawJobs(false);
  EXPECT_THAT(TextsOf(On<cad::InsertShape>("J_STATIONS").at(0)), ElementsAre("S1", "", ""));
}

// ---- Deleting ----

TEST_F(DisplayOfPoints, DeletingTakesWhatTheObjectDrewAndNothingElse) {
  AddStation("S1", 10, 20, 3);
  AddKnownGroup("K");
  AddKnown("K1", 1, 2);
  DrawJobs(false);
  DrawKnown(false);
  engine.Add({1, cad::kByLayer, false, cad::Origin::kUser, cad::PointShape{}});
  CDisLibCmp(&engine, &symbols, &document, true).DelAllLibCmp();
  EXPECT_THAT(On<cad::InsertShape>("J_STATIONS"), IsEmpty());
  EXPECT_THAT(On<cad::InsertShape>("K_POINTS"), SizeIs(1));
  EXPECT_THAT(On<cad::PointShape>("0"), SizeIs(1));
  CDisLibPnt(&engine, &symbols, document.GetLibPnt(), true).DelAllLibPnt();
  EXPECT_THAT(engine.Entities(), SizeIs(1));
}

}  // namespace
