// The symbols of points as the lines and texts that they show.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "host/cad/cad_files.h"
#include "host/cad/dxf/dxf_reader.h"
#include "host/cad/field_book_blocks.h"
#include "tests/support/exchange_files.h"

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

namespace {

class FieldBookBlocks : public testing::Test {
 protected:
  FieldBookBlocks() {
    layer_ = engine.AddDrawing(0, "SURVEY", true, false, false);
    cad::Block block;
    block.name = "FB_POINT";
    block.base = {1, 1, 0};
    block.attributes = {{"NAME", {2, 1, 0}, 0.5}};
    block_ = engine.AddBlock(block);
    insert_.block = block_;
    insert_.at = {100, 200, 10};
    insert_.scale = {2, 2, 2};
    insert_.rotation = 90;
  }

  void AddToBlock(cad::Shape shape, int drawing = 1, std::uint16_t color = cad::kByLayer) {
    engine.BlockAt(block_).entities.push_back(
        {drawing, color, false, cad::Origin::kUser, std::move(shape)});
  }
  void Insert(std::uint16_t color = cad::kByLayer) {
    engine.Add({layer_, color, false, cad::Origin::kUser, insert_});
  }
  /// The only shape that stands for the insert.
  template <class Shape>
  Shape Exploded() {
    if (engine.Entities().empty()) Insert();
    copy_ = WithoutFieldBookBlocks(engine);
    EXPECT_NE(copy_, nullptr);
    if (copy_ == nullptr || copy_->Entities().size() != 1) {
      ADD_FAILURE() << "not one entity";
      return {};
    }
    return std::get<Shape>(copy_->Entities()[0].shape);
  }
  static void ExpectAt(const cad::Point& point, double x, double y, double z) {
    EXPECT_NEAR(point.getX(), x, 1e-9);
    EXPECT_NEAR(point.getY(), y, 1e-9);
    EXPECT_NEAR(point.getZ(), z, 1e-9);
  }

  CTcadEng engine{0, nullptr, false};
  std::unique_ptr<CTcadEng> copy_;
  int layer_ = 0;
  int block_ = 0;
  cad::InsertShape insert_;
};

TEST_F(FieldBookBlocks, PointIsWhereTheInsertShowsIt) {
  AddToBlock(cad::PointShape{{4, 1, 3}});
  ExpectAt(Exploded<cad::PointShape>().at, 100, 206, 16);
}

TEST_F(FieldBookBlocks, LineAndPolylineAre) {
  AddToBlock(cad::LineShape{{1, 1, 0}, {2, 1, 0}});
  const auto line = Exploded<cad::LineShape>();
  ExpectAt(line.from, 100, 200, 10);
  ExpectAt(line.to, 100, 202, 10);
  engine.BlockAt(block_).entities.clear();
  AddToBlock(cad::PolylineShape{{{1, 1, 0}, {2, 1, 0}}, {0.5, 0}, true});
  const auto polyline = Exploded<cad::PolylineShape>();
  ExpectAt(polyline.points.at(1), 100, 202, 10);
  EXPECT_THAT(polyline.bulges, ElementsAre(0.5, 0));
  EXPECT_TRUE(polyline.isClosed);
}

TEST_F(FieldBookBlocks, RoundShapesAreTurnedAndScaled) {
  AddToBlock(cad::ArcShape{{1, 1, 0}, 3, 350, 20});
  const auto arc = Exploded<cad::ArcShape>();
  ExpectAt(arc.center, 100, 200, 10);
  EXPECT_NEAR(arc.radius, 6, 1e-9);
  EXPECT_NEAR(arc.start, 80, 1e-9);
  EXPECT_NEAR(std::fmod(arc.end + 360, 360), 110, 1e-9);
  engine.BlockAt(block_).entities.clear();
  AddToBlock(cad::EllipseShape{{1, 1, 0}, {5, 0, 0}, 0.5});
  const auto ellipse = Exploded<cad::EllipseShape>();
  ExpectAt(ellipse.major, 0, 10, 0);
  EXPECT_EQ(ellipse.ratio, 0.5);
}

TEST_F(FieldBookBlocks, TextOfTheBlockIsTurnedAndScaled) {
  AddToBlock(cad::TextShape{{1, 1, 0}, 0.5, 300, "T"});
  const auto text = Exploded<cad::TextShape>();
  EXPECT_NEAR(text.height, 1, 1e-9);
  EXPECT_NEAR(text.rotation, 30, 1e-9);
}

TEST_F(FieldBookBlocks, AttributeIsATextWhereTheBlockHasIt) {
  insert_.attributes = {{"NAME", "P1"}};
  const auto text = Exploded<cad::TextShape>();
  EXPECT_EQ(text.text, "P1");
  ExpectAt(text.at, 100, 202, 10);
  EXPECT_NEAR(text.height, 1, 1e-9);
  EXPECT_NEAR(text.rotation, 90, 1e-9);
}

TEST_F(FieldBookBlocks, AttributeThatTheBlockDoesNotPlaceIsAtTheInsert) {
  insert_.attributes = {{"OTHER", "x"}, {"NAME", ""}};
  ExpectAt(Exploded<cad::TextShape>().at, 100, 200, 10);
}

TEST_F(FieldBookBlocks, WhatTheBlockLeavesOpenIsTheInserts) {
  const int own = engine.AddDrawing(0, "OWN", true, false, false);
  AddToBlock(cad::PointShape{}, 1, cad::kByBlock);
  AddToBlock(cad::PointShape{}, own, 3);
  Insert(5);
  copy_ = WithoutFieldBookBlocks(engine);
  ASSERT_NE(copy_, nullptr);
  ASSERT_THAT(copy_->Entities(), SizeIs(2));
  EXPECT_EQ(copy_->Entities()[0].drawing, layer_);
  EXPECT_EQ(copy_->Entities()[0].color, 5);
  EXPECT_EQ(copy_->Entities()[1].drawing, own);
  EXPECT_EQ(copy_->Entities()[1].color, 3);
}

TEST_F(FieldBookBlocks, OtherBlocksStay) {
  insert_.block = engine.AddBlock({"TREE", {}, {}, {}, false});
  Insert();
  EXPECT_EQ(WithoutFieldBookBlocks(engine), nullptr);
}

TEST_F(FieldBookBlocks, InsertThatIsMirroredOrStretchedStays) {
  for (const cad::Point& scale : {cad::Point(-2, 2, 2), cad::Point(2, 3, 2)}) {
    insert_.scale = scale;
    Insert();
  }
  EXPECT_EQ(WithoutFieldBookBlocks(engine), nullptr);
}

TEST_F(FieldBookBlocks, InsertInAnotherOneStaysAnInsert) {
  cad::InsertShape inner;
  inner.block = engine.AddBlock({"TREE", {}, {}, {}, false});
  inner.at = {2, 1, 0};
  inner.scale = {1, 2, 3};
  AddToBlock(inner);
  const auto placed = Exploded<cad::InsertShape>();
  ExpectAt(placed.at, 100, 202, 10);
  ExpectAt(placed.scale, 2, 4, 6);
  EXPECT_NEAR(placed.rotation, 90, 1e-9);
}

TEST_F(FieldBookBlocks, TheDrawingItselfStaysAsItIs) {
  AddToBlock(cad::PointShape{});
  Insert();
  engine.Add({1, cad::kByLayer, false, cad::Origin::kUser, cad::CircleShape{{}, 1}});
  copy_ = WithoutFieldBookBlocks(engine);
  EXPECT_TRUE(std::holds_alternative<cad::InsertShape>(engine.Entities()[0].shape));
  EXPECT_THAT(copy_->Entities(), SizeIs(2));
  EXPECT_EQ(copy_->GetDrawingName(2), "SURVEY");
}

// ---- In the files ----

class FieldBookBlocksInFiles : public FieldBookBlocks {
 protected:
  CTcadEng& SaveAndLoad(bool explode) {
    CadSave how;
    how.path = tdk::WString(folder.Path("plan.dxf"));
    how.flags[4] = explode;
    EXPECT_TRUE(files.SaveDxf(how, engine));
    EXPECT_TRUE(ReadDxf(how.path, read).isLoaded);
    return read;
  }

  exchange_test::TempFolder folder;
  CadFiles files;
  CTcadEng read{0, nullptr, false};
};

TEST_F(FieldBookBlocksInFiles, FlagOfTheSaveTakesThemApart) {
  AddToBlock(cad::PointShape{});
  Insert();
  SaveAndLoad(true);
  ASSERT_THAT(read.Entities(), SizeIs(1));
  EXPECT_TRUE(std::holds_alternative<cad::PointShape>(read.Entities()[0].shape));
}

TEST_F(FieldBookBlocksInFiles, WithoutTheFlagTheyAreWrittenAsBlocks) {
  Insert();
  SaveAndLoad(false);
  ASSERT_THAT(read.Entities(), SizeIs(1));
  EXPECT_TRUE(std::holds_alternative<cad::InsertShape>(read.Entities()[0].shape));
}

TEST_F(FieldBookBlocksInFiles, SaveTellsWhatItLeftOut) {
  engine.Add({1, cad::kByLayer, false, cad::Origin::kUser, cad::CircleShape{{}, 0}});
  SaveAndLoad(false);
  ASSERT_THAT(files.SaveNotes(), SizeIs(1));
  EXPECT_THAT(files.SaveNotes()[0].ToUtf8(), HasSubstr("(1)"));
  engine.RemoveIf([](const cad::Entity&) { return true; });
  SaveAndLoad(false);
  EXPECT_THAT(files.SaveNotes(), IsEmpty());
}

TEST_F(FieldBookBlocksInFiles, SaveTellsOfWhatIsNotDisplayed) {
  const int hidden = engine.AddDrawing(0, "HIDDEN", /*visible=*/false, false, false);
  engine.Add({hidden, cad::kByLayer, false, cad::Origin::kUser, cad::PointShape{}});
  SaveAndLoad(false);
  EXPECT_THAT(files.SaveNotes(), IsEmpty());
  CadSave how;
  how.path = tdk::WString(folder.Path("plan.dxf"));
  how.flags[1] = true;
  ASSERT_TRUE(files.SaveDxf(how, engine));
  ASSERT_THAT(files.SaveNotes(), SizeIs(1));
  EXPECT_THAT(files.SaveNotes()[0].ToUtf8(), HasSubstr("not displayed are left out (1)"));
}

TEST_F(FieldBookBlocksInFiles, SaveTellsOfArcsThatItMadeStraight) {
  engine.Add({1, cad::kByLayer, false, cad::Origin::kUser,
              cad::PolylineShape{{{0, 0, 1}, {1, 0, 2}}, {0.5}, false}});
  engine.Add({1, cad::kByLayer, false, cad::Origin::kUser,
              cad::PolylineShape{{{0, 0, 1}, {1, 0, 1}}, {0.5}, false}});
  SaveAndLoad(false);
  ASSERT_THAT(files.SaveNotes(), SizeIs(1));
  EXPECT_THAT(files.SaveNotes()[0].ToUtf8(), HasSubstr("straight legs in place of arcs (1)"));
}

}  // namespace
