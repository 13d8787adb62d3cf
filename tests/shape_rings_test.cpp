// Which rings are holes, and that files say so by the way they run.
#include <chrono>
#include <cmath>

#include "host/gis/ring_order.h"
#include "tests/support/shape_sets.h"

namespace {

using namespace shape_sets;
using testing::ElementsAre;

using ShapeRings = Sets;

// Rings as the writer has them.
class RingList {
 public:
  void Add(const std::vector<gis::Vertex>& ring) {
    auto& [x, y] = coordinates_.emplace_back();
    for (const gis::Vertex& vertex : ring) {
      x.push_back(vertex.x);
      y.push_back(vertex.y);
    }
  }
  std::vector<bool> Holes() const {
    std::vector<shape::Ring> rings;
    for (const auto& [x, y] : coordinates_) rings.push_back({x, y});
    return shape::AreHoles(rings);
  }

 private:
  std::vector<std::pair<std::vector<double>, std::vector<double>>> coordinates_;
};

TEST_F(ShapeRings, AHoleIsWhatLiesWithinAnOddNumberOfLargerOnes) {
  RingList rings;
  rings.Add(Square(2, 2, 6));   // a hole
  rings.Add(Square(0, 0, 10));  // the border around it
  rings.Add(Square(4, 4, 2));   // an island in the hole
  rings.Add(Square(20, 0, 5));  // a border elsewhere
  rings.Add(Square(21, 1, 1));  // its hole
  EXPECT_THAT(rings.Holes(), ElementsAre(true, false, false, false, true));
}

TEST_F(ShapeRings, TheWayARingRunsDoesNotMatter) {
  RingList rings;
  rings.Add(Square(0, 0, 10, /*isClockwise=*/false));
  rings.Add(Square(2, 2, 6, /*isClockwise=*/false));
  EXPECT_THAT(rings.Holes(), ElementsAre(false, true));
}

TEST_F(ShapeRings, AHoleMayTouchItsBorder) {
  RingList rings;
  rings.Add(Square(0, 0, 10));
  rings.Add({{0, 0}, {5, 1}, {1, 5}, {0, 0}});    // at a corner
  rings.Add({{10, 5}, {8, 6}, {8, 4}, {10, 5}});  // in the middle of a side
  EXPECT_THAT(rings.Holes(), ElementsAre(false, true, true));
}

TEST_F(ShapeRings, NeighboursAreNoHoles) {
  RingList rings;
  rings.Add(Square(0, 0, 10));
  rings.Add(Square(10, 0, 10));
  rings.Add(Square(0, 10, 10));
  EXPECT_THAT(rings.Holes(), ElementsAre(false, false, false));
}

TEST_F(ShapeRings, ABorderAroundItsLargestHoleIsNone) {
  RingList rings;
  rings.Add(Square(0, 0, 10));
  rings.Add(Square(0.5, 0.5, 9));
  EXPECT_THAT(rings.Holes(), ElementsAre(false, true));
}

TEST_F(ShapeRings, RingsWithoutAnAreaAreNoHoles) {
  RingList rings;
  rings.Add(Square(0, 0, 10));
  rings.Add({{1, 1}, {2, 2}, {1, 1}});
  rings.Add({});
  rings.Add({{3, 3}});
  EXPECT_THAT(rings.Holes(), ElementsAre(false, false, false, false));
}

TEST_F(ShapeRings, FarFromTheOriginNothingChanges) {
  RingList rings;
  rings.Add(Square(6'294'338, 51'978'444, 0.1));
  rings.Add(Square(6'294'338.02, 51'978'444.02, 0.05));
  EXPECT_THAT(rings.Holes(), ElementsAre(false, true));
}

TEST_F(ShapeRings, TensOfThousandsOfThemTakeNoTime) {
  RingList rings;
  constexpr int kSide = 150;
  rings.Add(Square(-1, -1, 2 * kSide + 2));
  for (int i = 0; i < kSide * kSide; ++i) rings.Add(Square(2 * (i % kSide), 2 * (i / kSide), 1));
  const auto start = std::chrono::steady_clock::now();
  const std::vector<bool> holes = rings.Holes();
  const std::chrono::duration<double> took = std::chrono::steady_clock::now() - start;
  EXPECT_FALSE(holes[0]);
  EXPECT_EQ(std::count(holes.begin(), holes.end(), true), kSide * kSide);
  EXPECT_LT(took.count(), 20);  // a pair at a time it would be minutes
}

TEST_F(ShapeRings, FilesHaveBordersClockwiseAndHolesTheOtherWay) {
  ThemeMaker made("lake", EntityType::kPolygon);
  made.Feature({Square(2, 2, 6), Square(0, 0, 10, /*isClockwise=*/false)});
  const gis::CTheme& again = Again(made);
  const auto area = [&](int part) {
    const gis::VertexRange ring = again.GetPart(0, part);
    const std::span x(again.Xs());
    const std::span y(again.Ys());
    return shape::TwiceArea(
        {x.subspan(ring.first, ring.Size()), y.subspan(ring.first, ring.Size())});
  };
  EXPECT_GT(area(0), 0);  // the hole
  EXPECT_LT(area(1), 0);
}

TEST_F(ShapeRings, PartsThatAreNoLinesAndNoRingsAreTold) {
  ThemeMaker lake("lake", EntityType::kPolygon);
  lake.Feature({{{1, 1}}, {{1, 1}, {2, 2}, {1, 1}}, {{0, 0}, {0, 1}, {1, 1}, {0, 0}}});
  EXPECT_THAT(Texts(Export(lake).notes),
              testing::Contains(testing::EndsWith("which other programs may refuse: 2")));
  ThemeMaker wall("wall", EntityType::kLine);
  wall.Feature({{{1, 1}}, {{1, 1}, {2, 2}}});
  EXPECT_THAT(Texts(Export(wall).notes),
              testing::Contains(testing::EndsWith("which other programs may refuse: 1")));
}

TEST_F(ShapeRings, RingsThatAreOpenAreClosed) {
  ThemeMaker made("open", EntityType::kPolygon);
  made.Feature({{{0, 0}, {0, 4}, {4, 4}}});
  EXPECT_THAT(Again(made).Xs(), ElementsAre(0, 0, 4, 0));
}

}  // namespace
