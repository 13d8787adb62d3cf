// How entities of a stored drawing find their layers and blocks, and what of a drawing is stored.
#include <gtest/gtest.h>

#include "support/stored_drawings.h"

namespace {

using stored_jobs::JsonOf;
using stored_jobs::JsonOfStored;
using stored_jobs::Read;

struct StoreDrawingNames : testing::Test {
  HostDocument document;
  CTcadEng& engine = *document.GetCadEngine();

  void ReadDrawing(const std::string& members) {
    Read(R"({"drawing":{)" + members + "}}", document);
  }
  bool HasDrawing() { return JsonOf(document).find("\"drawing\"") != std::string::npos; }
  int BlockAt(std::size_t position) {
    return std::get<cad::InsertShape>(engine.Entities().at(position).shape).block;
  }
};

cad::Entity PointOf(cad::Origin origin, bool isPrivate = false) {
  return {1, cad::kByLayer, isPrivate, origin, cad::PointShape{}};
}

cad::InsertShape InsertOf(int block) {
  cad::InsertShape insert;
  insert.block = block;
  return insert;
}

TEST_F(StoreDrawingNames, TheFirstLayerIsAlwaysThereAndFirst) {
  ReadDrawing(R"("layers":[{"name":"A"},{"name":"0","locked":true},{"name":"B"}])");
  ASSERT_EQ(engine.GetNoDrawings(), 3);
  EXPECT_EQ(engine.GetDrawingName(1), "0");
  EXPECT_TRUE(engine.IsDrawingLocked(1));
  EXPECT_EQ(engine.GetDrawingName(2), "A");
  EXPECT_EQ(engine.GetDrawingName(3), "B");
}

TEST_F(StoreDrawingNames, ALayerMayBeListedAfterItsEntities) {
  ReadDrawing(R"("entities":[{"type":"point","layer":"B"},{"type":"point","layer":"b"},
                             {"type":"point","layer":"0"}],
                 "layers":[{"name":"A"},{"name":"B","visible":false}])");
  ASSERT_EQ(engine.GetNoDrawings(), 3);
  EXPECT_EQ(engine.GetDrawingName(3), "B");
  EXPECT_FALSE(engine.IsDrawingVisible(3));
  EXPECT_EQ(engine.Entities()[0].drawing, 3);
  EXPECT_EQ(engine.Entities()[1].drawing, 3);
  EXPECT_EQ(engine.Entities()[2].drawing, 1);
}

TEST_F(StoreDrawingNames, ALayerThatIsNotListedIsMade) {
  ReadDrawing(R"("blocks":[{"name":"B","entities":[{"type":"point","layer":"inside"}]}],
                 "entities":[{"type":"point","layer":"new"}],"layers":[{"name":"A"}])");
  ASSERT_EQ(engine.GetNoDrawings(), 4);
  EXPECT_EQ(engine.GetDrawingName(3), "inside");
  EXPECT_EQ(engine.GetDrawingName(4), "new");
  EXPECT_TRUE(engine.IsDrawingVisible(4));
  EXPECT_FALSE(engine.IsDrawingLocked(4));
  EXPECT_EQ(engine.Blocks()[0].entities[0].drawing, 3);
  EXPECT_EQ(engine.Entities()[0].drawing, 4);
}

TEST_F(StoreDrawingNames, ABlockMayBeListedAfterItsInserts) {
  ReadDrawing(R"("entities":[{"type":"insert","block":"Second"},{"type":"insert","block":"FIRST"}],
                 "blocks":[{"entities":[{"type":"insert","block":"second"}],"name":"First"},
                           {"name":"Second"}])");
  EXPECT_EQ(BlockAt(0), 1);
  EXPECT_EQ(BlockAt(1), 0);
  EXPECT_EQ(std::get<cad::InsertShape>(engine.Blocks()[0].entities[0].shape).block, 1);
}

TEST_F(StoreDrawingNames, TheDrawingMayComeInTwoMembers) {
  Read(
      R"({"drawing":{"entities":[{"type":"insert","block":"B","layer":"A"}],"layers":[{"name":"C"}]},
           "drawing":{"blocks":[{"name":"B","entities":[{"type":"point","layer":"C"}]}],
                      "entities":[{"type":"insert","block":"B"}],"layers":[{"name":"A"}]}})",
      document);
  ASSERT_EQ(engine.Entities().size(), 2u);
  EXPECT_EQ(BlockAt(0), 0);
  EXPECT_EQ(BlockAt(1), 0);
  EXPECT_EQ(engine.Entities()[0].drawing, 3);
  EXPECT_EQ(engine.Blocks()[0].entities[0].drawing, 2);
}

TEST_F(StoreDrawingNames, ManyBlocksMayBeNestedInEachOther) {
  std::string blocks;
  constexpr int kDepth = 20'000;
  for (int i = 0; i < kDepth; ++i) {
    blocks += R"({"name":")" + std::to_string(i) + R"(","entities":[{"type":"insert","block":")" +
              std::to_string(i + 1) + R"("}]},)";
  }
  ReadDrawing(R"("blocks":[)" + blocks + R"({"name":")" + std::to_string(kDepth) + R"("}])");
  ASSERT_EQ(engine.Blocks().size(), 1u + kDepth);
  const TemporaryFolder folder;
  SaveJob(folder.Path(), document);
  EXPECT_EQ(JsonOfStored(folder.Path()), JsonOf(document));
}

TEST_F(StoreDrawingNames, ADrawingAsItIsMadeIsNotWritten) {
  EXPECT_FALSE(HasDrawing());
  Read(R"({"drawing":null})", document);
  ReadDrawing("");
  ReadDrawing(R"("layers":[{"name":"0"}],"blocks":[],"entities":[])");
  EXPECT_FALSE(HasDrawing());
}

TEST_F(StoreDrawingNames, ADrawingIsWrittenForAnythingInIt) {
  engine.SetDrawingVisible(1, false);
  EXPECT_TRUE(HasDrawing());
  engine.SetDrawingVisible(1, true);
  engine.SetDrawingLocked(1, true);
  EXPECT_TRUE(HasDrawing());
  engine.SetDrawingLocked(1, false);
  engine.SetDrawingColor(1, true, 1);
  EXPECT_TRUE(HasDrawing());
  engine.SetDrawingColor(1, false, 7);
  EXPECT_TRUE(HasDrawing());
  engine.SetDrawingColor(1, true, 7);
  EXPECT_FALSE(HasDrawing());
  engine.Add(PointOf(cad::Origin::kUser));
  EXPECT_TRUE(HasDrawing());
  engine.RemoveIf([](const cad::Entity&) { return true; });
  engine.AddBlock({"B", {}, {}, {}});
  EXPECT_TRUE(HasDrawing());
}

TEST_F(StoreDrawingNames, WhatTheHostDrawsIsNotWritten) {
  engine.Add(PointOf(cad::Origin::kTotalStation));
  engine.Add(PointOf(cad::Origin::kUser, /*isPrivate=*/true));
  engine.AddBlock({"hidden", {}, {PointOf(cad::Origin::kUser)}, {}, /*isPrivate=*/true});
  engine.Add({1, cad::kByLayer, false, cad::Origin::kUser, InsertOf(0)});
  EXPECT_FALSE(HasDrawing());
  const TemporaryFolder folder;
  SaveJob(folder.Path(), document);
  HostDocument copy;
  LoadJob(folder.Path(), copy);
  EXPECT_TRUE(copy.GetCadEngine()->Entities().empty());
  EXPECT_TRUE(copy.GetCadEngine()->Blocks().empty());
}

TEST_F(StoreDrawingNames, PositionsOfBlocksAreThoseOfTheStoredOnes) {
  engine.AddBlock({"hidden", {}, {}, {}, /*isPrivate=*/true});
  engine.AddBlock({"shown",
                   {},
                   {PointOf(cad::Origin::kGps), PointOf(cad::Origin::kUser),
                    PointOf(cad::Origin::kUser, /*isPrivate=*/true)},
                   {}});
  engine.Add({1, cad::kByLayer, false, cad::Origin::kUser, InsertOf(1)});
  const TemporaryFolder folder;
  SaveJob(folder.Path(), document);
  HostDocument copy;
  LoadJob(folder.Path(), copy);
  EXPECT_EQ(JsonOf(copy), JsonOf(document));
  ASSERT_EQ(copy.GetCadEngine()->Blocks().size(), 1u);
  EXPECT_EQ(copy.GetCadEngine()->Blocks()[0].entities.size(), 1u);
}

TEST_F(StoreDrawingNames, WhatCannotBeReadIsPutRight) {
  cad::PolylineShape line{{{0, 0, 0}, {1, 0, 0}}, {1, 2, 3}, false};
  engine.Add({9, 300, false, cad::Origin::kUser, line});
  line.bulges = {0, -0.0};
  engine.Add({0, 300, false, cad::Origin::kUser, line});
  engine.Add({1, 0, false, cad::Origin::kUser, InsertOf(-1)});
  engine.Add({1, 0, false, cad::Origin::kUser, cad::FaceShape{{{0, 0, 0}, {1, 0, 0}}}});
  engine.Add({1, 0, false, cad::Origin::kUser, cad::SolidShape{}});
  HostDocument copy;
  Read(JsonOf(document), copy);
  const auto& entities = copy.GetCadEngine()->Entities();
  ASSERT_EQ(entities.size(), 2u);
  EXPECT_EQ(entities[0].drawing, 1);
  EXPECT_EQ(entities[0].color, cad::kByLayer);
  EXPECT_EQ(std::get<cad::PolylineShape>(entities[0].shape).bulges, (std::vector<double>{1, 2}));
  EXPECT_TRUE(std::get<cad::PolylineShape>(entities[1].shape).bulges.empty());
}

}  // namespace
