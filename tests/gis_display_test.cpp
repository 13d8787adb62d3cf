// Themes in a drawing: what is drawn, and on which layer.
#include "services/display/displays.h"
#include "tests/support/shape_sets.h"

namespace {

using namespace shape_sets;
using testing::ElementsAre;

struct GisDisplay : testing::Test {
  CTcadEng engine{0, nullptr, false};
  CDocSymbolManager symbols{&engine};

  void Draw(gis::CLibGis& library) { CDisLibGis(&engine, &symbols, &library, true).RiCreaTutto(); }
  std::string LayerOf(std::size_t i) {
    return engine.GetDrawingName(engine.Entities()[i].drawing).ToUtf8();
  }
};

TEST_F(GisDisplay, PointsLinesAndRingsEachThemeOnItsLayer) {
  ThemeMaker points("TREES", EntityType::kPoint, /*is3D=*/true);
  points.Feature({{{1, 2, 3}}}).Feature({}).Feature({{{4, 5, UndefinedValue}}});
  Draw(points.library);
  ASSERT_EQ(engine.Entities().size(), 2U);
  const auto& point = std::get<cad::PointShape>(engine.Entities()[0].shape);
  EXPECT_EQ(point.at.getZ(), 3);
  EXPECT_EQ(std::get<cad::PointShape>(engine.Entities()[1].shape).at.getZ(), 0);
  EXPECT_EQ(LayerOf(0), "TREES");
  ThemeMaker lake("LAKE", EntityType::kPolygon);
  lake.Feature({Square(0, 0, 10), Square(2, 2, 6)});
  Draw(lake.library);  // anew: the points are gone
  ASSERT_EQ(engine.Entities().size(), 2U);
  const auto& ring = std::get<cad::PolylineShape>(engine.Entities()[0].shape);
  EXPECT_TRUE(ring.isClosed);
  EXPECT_EQ(ring.points.size(), 4U);
  EXPECT_EQ(LayerOf(1), "LAKE");
  ThemeMaker walls("WALLS", EntityType::kLine);
  walls.Feature({{{0, 0}, {1, 1}}, {{5, 5}}});
  Draw(walls.library);
  ASSERT_EQ(engine.Entities().size(), 1U);
  EXPECT_FALSE(std::get<cad::PolylineShape>(engine.Entities()[0].shape).isClosed);
}

TEST_F(GisDisplay, TargetDrawingsOfTheThemeThenOfTheLibraryWin) {
  const int own = engine.AddDrawing(0, "OWN", true, false, false);
  const int all = engine.AddDrawing(0, "ALL", true, false, false);
  ThemeMaker made;
  made.Row({});
  made.library.SetTargetDrawing(all);
  Draw(made.library);
  EXPECT_EQ(LayerOf(0), "ALL");
  made.library.SetThemeTargetDrawing(&made.Theme(), own);
  Draw(made.library);
  EXPECT_EQ(LayerOf(0), "OWN");
}

TEST_F(GisDisplay, WhatOthersDrewStays) {
  engine.Add({1, cad::kByLayer, false, cad::Origin::kUser, cad::PointShape{{1, 1, 1}}});
  ThemeMaker made;
  made.Row({});
  Draw(made.library);
  CDisLibGis(&engine, &symbols, &made.library, true).AnnullaTutto();
  EXPECT_EQ(engine.Entities().size(), 1U);
  CDisLibGis(&engine, &symbols, nullptr, true).RiCreaTutto();
}

}  // namespace
