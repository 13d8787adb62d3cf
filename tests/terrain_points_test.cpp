// Which points of a job a terrain model is made of, and its breaklines by codes.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "host/terrain/points.h"

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;

namespace {

void AddKnown(HostDocument& document, const char* code, double x, double y, double z) {
  CLibPnt& known = *document.GetLibPnt();
  if (known.GetGrpArSize() == 0) known.AddGrp(false);
  known.AddPtn(0, false)->SetNomCoord("p", code, x, y, z);
}

std::vector<double> Eastings(const terrain::Chosen& chosen) {
  std::vector<double> eastings;
  for (const auto& point : chosen.source.points) eastings.push_back(point.getX());
  return eastings;
}

// One point of each kind; the easting tells which.
void FillAllKinds(HostDocument& document) {
  CLibCmp& surveys = *document.GetLibCmp();
  surveys.AddJob(false);
  surveys.AddSta(0, false)->SetNomCoord("S", "", 1, 0, 0);
  surveys.AddPun(0, 0, false)->SetNomCoord("P", "", 2, 0, 0);
  CLibGps& gps = *document.GetLibGps();
  gps.AddGrp(false)->SetNomCoord("B", "", 3, 0, 0);
  gps.AddPun(0, false)->SetNomCoord("G", "", 4, 0, 0);
  AddKnown(document, "", 5, 0, 0);
  surveys.AddOri(false)->SetNomCoord("C", "", 6, 0, 0);
}

}  // namespace

TEST(TerrainPoints, AreOfAllKindsInTheOrderOfTheLibraries) {
  HostDocument document;
  FillAllKinds(document);
  EXPECT_THAT(Eastings(terrain::Choose(document, {})), ElementsAre(1, 2, 3, 4, 5, 6));
}

TEST(TerrainPoints, AreOfTheChosenKinds) {
  HostDocument document;
  FillAllKinds(document);
  terrain::Choice choice;
  choice.kinds = {.totalStation = true, .gps = false, .known = false, .control = false};
  EXPECT_THAT(Eastings(terrain::Choose(document, choice)), ElementsAre(1, 2));
  choice.kinds = {.totalStation = false, .gps = true, .known = false, .control = false};
  EXPECT_THAT(Eastings(terrain::Choose(document, choice)), ElementsAre(3, 4));
  choice.kinds = {.totalStation = false, .gps = false, .known = true, .control = false};
  EXPECT_THAT(Eastings(terrain::Choose(document, choice)), ElementsAre(5));
  choice.kinds = {.totalStation = false, .gps = false, .known = false, .control = true};
  EXPECT_THAT(Eastings(terrain::Choose(document, choice)), ElementsAre(6));
}

TEST(TerrainPoints, WithoutACoordinateAreLeftOutAndCounted) {
  HostDocument document;
  AddKnown(document, "", 1, 2, UndefinedValue);
  AddKnown(document, "", UndefinedValue, 2, 3);
  AddKnown(document, "", 1, UndefinedValue, 3);
  AddKnown(document, "", 7, 2, 3);
  const terrain::Chosen chosen = terrain::Choose(document, {});
  EXPECT_EQ(chosen.incomplete, 3U);
  EXPECT_THAT(Eastings(chosen), ElementsAre(7));
}

TEST(TerrainPoints, OfACodeFormABreaklineInTheirOrder) {
  HostDocument document;
  AddKnown(document, "EDGE", 0, 0, 0);
  AddKnown(document, "TREE", 1, 0, 0);
  AddKnown(document, "EDGE", 2, 0, 0);
  AddKnown(document, "EDGE", 3, 0, 0);
  terrain::Choice choice;
  choice.breaklineCodes = {"EDGE"};
  const terrain::Chosen chosen = terrain::Choose(document, choice);
  EXPECT_THAT(chosen.source.breaklines, ElementsAre(Pair(0, 2), Pair(2, 3)));
  EXPECT_EQ(chosen.breaklines, 1U);
}

TEST(TerrainPoints, EachCodeOfAPatternIsALineOfItsOwn) {
  HostDocument document;
  AddKnown(document, "EDGE1", 0, 0, 0);
  AddKnown(document, "EDGE2", 1, 0, 0);
  AddKnown(document, "EDGE1", 2, 0, 0);
  AddKnown(document, "EDGE2", 3, 0, 0);
  AddKnown(document, "WALL", 4, 0, 0);
  terrain::Choice choice;
  choice.breaklineCodes = {"EDGE*"};
  const terrain::Chosen chosen = terrain::Choose(document, choice);
  EXPECT_THAT(chosen.source.breaklines, ElementsAre(Pair(0, 2), Pair(1, 3)));
  EXPECT_EQ(chosen.breaklines, 2U);
}

TEST(TerrainPoints, WithoutCodesThereAreNoBreaklines) {
  HostDocument document;
  AddKnown(document, "", 0, 0, 0);
  AddKnown(document, "", 1, 0, 0);
  EXPECT_THAT(terrain::Choose(document, {}).source.breaklines, IsEmpty());
}

TEST(TerrainPoints, LegsLongerThanTheLimitAreNotMade) {
  HostDocument document;
  AddKnown(document, "EDGE", 0, 0, 0);
  AddKnown(document, "EDGE", 3, 4, 100);
  AddKnown(document, "EDGE", 30, 4, 100);
  AddKnown(document, "EDGE", 31, 4, 100);
  terrain::Choice choice;
  choice.breaklineCodes = {"EDGE"};
  choice.longestSide = 5;
  const terrain::Chosen chosen = terrain::Choose(document, choice);
  EXPECT_THAT(chosen.source.breaklines, ElementsAre(Pair(0, 1), Pair(2, 3)));
  EXPECT_EQ(chosen.longLegs, 1U);
  EXPECT_EQ(chosen.source.longestSide, 5);
}
