// The drawing of a job: what each key means, and that nothing changes on the way.
#include <gtest/gtest.h>

#include "support/stored_drawings.h"

namespace {

using stored_drawings::JobWith;
using stored_drawings::kDrawing;
using stored_jobs::JsonOf;
using stored_jobs::Read;

struct StoreDrawing : testing::Test {
  HostDocument document;
  CTcadEng& engine = *document.GetCadEngine();

  void ReadDrawing() { Read(JobWith(kDrawing), document); }
  template <class Shape>
  const Shape& ShapeAt(std::size_t position) {
    return std::get<Shape>(engine.Entities().at(position).shape);
  }
};

void ExpectAt(const cad::Point& place, double x, double y, double z) {
  EXPECT_EQ(place.getX(), x);
  EXPECT_EQ(place.getY(), y);
  EXPECT_EQ(place.getZ(), z);
}

TEST_F(StoreDrawing, IsWrittenAsItWasReadByteForByte) {
  ReadDrawing();
  EXPECT_EQ(JsonOf(document), JobWith(kDrawing));
}

TEST_F(StoreDrawing, ReadsLayers) {
  ReadDrawing();
  ASSERT_EQ(engine.GetNoDrawings(), 3);
  EXPECT_EQ(engine.GetDrawingName(1), "0");
  EXPECT_TRUE(engine.IsDrawingLocked(1));
  EXPECT_TRUE(engine.IsDrawingVisible(1));
  bool isByLayer = true;
  unsigned color = 0;
  engine.GetDrawingColor(1, isByLayer, color);
  EXPECT_FALSE(isByLayer);
  EXPECT_EQ(color, 3u);
  EXPECT_EQ(engine.GetDrawingFromName(0, "Walls"), 2);
  EXPECT_FALSE(engine.IsDrawingVisible(2));
  EXPECT_FALSE(engine.IsDrawingLocked(2));
}

TEST_F(StoreDrawing, ReadsBlocks) {
  ReadDrawing();
  ASSERT_EQ(engine.Blocks().size(), 3u);
  const cad::Block& pillar = engine.Blocks()[0];
  EXPECT_EQ(pillar.name, "Pillar");
  ExpectAt(pillar.base, 1, 2, 3);
  EXPECT_FALSE(pillar.isPrivate);
  ASSERT_EQ(pillar.attributes.size(), 2u);
  EXPECT_EQ(pillar.attributes[0].tag, "NAME");
  ExpectAt(pillar.attributes[0].at, 0.5, 0, 0);
  EXPECT_EQ(pillar.attributes[0].height, 2);
  ASSERT_EQ(pillar.entities.size(), 2u);
  EXPECT_EQ(pillar.entities[0].color, cad::kByBlock);
  EXPECT_EQ(std::get<cad::InsertShape>(pillar.entities[1].shape).block, 1);
  EXPECT_EQ(engine.Blocks()[1].entities.size(), 2u);
  EXPECT_FALSE(IsDefined(engine.Blocks()[2].base.getX()));
}

TEST_F(StoreDrawing, ReadsWhatAllEntitiesHave) {
  ReadDrawing();
  ASSERT_EQ(engine.Entities().size(), 14u);
  EXPECT_EQ(engine.Entities()[0].drawing, 2);
  EXPECT_EQ(engine.Entities()[0].color, 5);
  EXPECT_EQ(engine.Entities()[0].origin, cad::Origin::kUser);
  EXPECT_FALSE(engine.Entities()[0].isPrivate);
  EXPECT_EQ(engine.Entities()[1].drawing, 1);
  EXPECT_EQ(engine.Entities()[1].color, cad::kByLayer);
}

TEST_F(StoreDrawing, ReadsPointsAndLines) {
  ReadDrawing();
  ExpectAt(ShapeAt<cad::PointShape>(0).at, 1, 2, UndefinedValue);
  ExpectAt(ShapeAt<cad::LineShape>(1).from, 1, 2, 3);
  ExpectAt(ShapeAt<cad::LineShape>(1).to, 4, 5, 6);
  const auto& closed = ShapeAt<cad::PolylineShape>(2);
  EXPECT_TRUE(closed.isClosed);
  ASSERT_EQ(closed.points.size(), 3u);
  ExpectAt(closed.points[1], 10, 0, 1);
  EXPECT_EQ(closed.bulges, (std::vector<double>{0, 0.5, -1}));
  const auto& open = ShapeAt<cad::PolylineShape>(3);
  EXPECT_FALSE(open.isClosed);
  EXPECT_EQ(open.points.size(), 2u);
  EXPECT_TRUE(open.bulges.empty());
}

TEST_F(StoreDrawing, ReadsRoundShapes) {
  ReadDrawing();
  ExpectAt(ShapeAt<cad::CircleShape>(5).center, 1, 2, 3);
  EXPECT_EQ(ShapeAt<cad::CircleShape>(5).radius, 4);
  const auto& arc = ShapeAt<cad::ArcShape>(6);
  ExpectAt(arc.center, 1, 2, 3);
  EXPECT_EQ(arc.radius, 4);
  EXPECT_EQ(arc.start, 30);
  EXPECT_EQ(arc.end, 270.5);
  const auto& ellipse = ShapeAt<cad::EllipseShape>(7);
  ExpectAt(ellipse.center, 1, 2, 3);
  ExpectAt(ellipse.major, 4, 3, 0);
  EXPECT_EQ(ellipse.ratio, 0.25);
  EXPECT_EQ(ellipse.start, 90);
  EXPECT_EQ(ellipse.end, 180);
}

TEST_F(StoreDrawing, ReadsTextsAndInserts) {
  ReadDrawing();
  const auto& text = ShapeAt<cad::TextShape>(8);
  ExpectAt(text.at, 1, 2, 3);
  EXPECT_EQ(text.height, 2.5);
  EXPECT_EQ(text.rotation, 30);
  EXPECT_EQ(text.text, "two\nlines \"\xC3\xA0\"");
  const auto& insert = ShapeAt<cad::InsertShape>(9);
  EXPECT_EQ(insert.block, 0);
  ExpectAt(insert.at, 7, 8, 9);
  ExpectAt(insert.scale, 2, -2, 1);
  EXPECT_EQ(insert.rotation, 90);
  ASSERT_EQ(insert.attributes.size(), 2u);
  EXPECT_EQ(insert.attributes[0].tag, "NAME");
  EXPECT_EQ(insert.attributes[0].text, "P1");
  EXPECT_EQ(ShapeAt<cad::InsertShape>(10).block, 1);
  EXPECT_TRUE(ShapeAt<cad::InsertShape>(10).attributes.empty());
}

TEST_F(StoreDrawing, ReadsAreas) {
  ReadDrawing();
  EXPECT_EQ(ShapeAt<cad::FaceShape>(11).points.size(), 3u);
  ASSERT_EQ(ShapeAt<cad::FaceShape>(12).points.size(), 4u);
  ExpectAt(ShapeAt<cad::FaceShape>(12).points[3], 0, 1, 2);
  ASSERT_EQ(ShapeAt<cad::SolidShape>(13).points.size(), 4u);
  ExpectAt(ShapeAt<cad::SolidShape>(13).points[2], 0, 1, 0);
}

TEST_F(StoreDrawing, HasADefaultForWhatIsLeftOut) {
  Read(R"({"drawing":{"layers":[{"name":"0"},{}],"blocks":[{"name":"B","attributes":[{}]}],
           "entities":[{"type":"point"},{"type":"line"},{"type":"polyline"},{"type":"circle"},
           {"type":"arc"},{"type":"ellipse"},{"type":"text"},{"type":"insert","block":"B"}]}})",
       document);
  EXPECT_EQ(JsonOf(document), JobWith(R"(    "layers": [
      {"name": "0", "color": 7, "byLayerColor": true, "visible": true, "locked": false},
      {"name": "", "color": 7, "byLayerColor": true, "visible": true, "locked": false}
    ],
    "blocks": [
      {
        "name": "B",
        "at": [0, 0, 0],
        "attributes": [
          {"tag": "", "at": [0, 0, 0], "height": 1}
        ],
        "entities": []
      }
    ],
    "entities": [
      {"type": "point", "layer": "0", "at": [0, 0, 0]},
      {"type": "line", "layer": "0", "from": [0, 0, 0], "to": [0, 0, 0]},
      {"type": "polyline", "layer": "0", "closed": false, "points": []},
      {"type": "circle", "layer": "0", "center": [0, 0, 0], "radius": 0},
      {"type": "arc", "layer": "0", "center": [0, 0, 0], "radius": 0, "start": 0, "end": 0},
      {"type": "ellipse", "layer": "0", "center": [0, 0, 0], "major": [0, 0, 0], "ratio": 1, "start": 0, "end": 360},
      {"type": "text", "layer": "0", "at": [0, 0, 0], "height": 0, "rotation": 0, "text": ""},
      {"type": "insert", "layer": "0", "block": "B", "at": [0, 0, 0], "scale": [1, 1, 1], "rotation": 0}
    ]
)"));
}

TEST_F(StoreDrawing, KeepsWhatOneObjectHoldsFromTheNext) {
  Read(R"({"drawing":{"layers":[{"name":"A","color":1,"visible":false},{"name":"B"}],
           "blocks":[{"name":"C","at":[1,1,1],"attributes":[{"tag":"t","height":3},{}],
                      "entities":[{"type":"point"}]},{"name":"D"}],
           "entities":[{"type":"ellipse","end":5},{"type":"ellipse"},
                       {"type":"polyline","layer":"A","color":3,"points":[[1,1,1]],"bulges":[1]},
                       {"type":"polyline"},
                       {"type":"insert","block":"C","attributes":{"t":"x"}},
                       {"type":"insert","block":"D"}]}})",
       document);
  EXPECT_TRUE(engine.IsDrawingVisible(3));
  EXPECT_EQ(engine.Blocks()[0].attributes[1].tag, "");
  EXPECT_EQ(engine.Blocks()[0].attributes[1].height, 1);
  EXPECT_TRUE(engine.Blocks()[1].entities.empty());
  EXPECT_TRUE(engine.Blocks()[1].attributes.empty());
  ExpectAt(engine.Blocks()[1].base, 0, 0, 0);
  EXPECT_EQ(ShapeAt<cad::EllipseShape>(1).end, 360);
  EXPECT_EQ(engine.Entities()[3].drawing, 1);
  EXPECT_EQ(engine.Entities()[3].color, cad::kByLayer);
  EXPECT_TRUE(ShapeAt<cad::PolylineShape>(3).points.empty());
  EXPECT_TRUE(ShapeAt<cad::PolylineShape>(3).bulges.empty());
  EXPECT_TRUE(ShapeAt<cad::InsertShape>(5).attributes.empty());
}

TEST_F(StoreDrawing, AtRandomComesBackAsItWas) {
  const TemporaryFolder folder;
  Random random;
  for (int i = 0; i < 60; ++i) {
    HostDocument job;
    stored_drawings::FillAtRandom(*job.GetCadEngine(), random);
    HostDocument copy;
    Read(JsonOf(job), copy);
    ASSERT_EQ(JsonOf(copy), JsonOf(job));
    SaveJob(folder.Path(), job);
    ASSERT_EQ(stored_jobs::JsonOfStored(folder.Path()), JsonOf(job));
  }
}

}  // namespace
