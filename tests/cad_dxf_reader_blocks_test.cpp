// Blocks of DXF files, and their inserts.
#include "tests/support/dxf_reading.h"

using namespace dxf_test;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

class DxfReaderBlocks : public DxfReading {
 protected:
  void ReadWith(const std::string& blocks, const std::string& entities) {
    Read(Section("BLOCKS", blocks) + Section("ENTITIES", entities));
    EXPECT_TRUE(load.isLoaded) << Error();
  }
  const cad::Block& BlockNamed(const std::string& name) {
    static const cad::Block kNone;
    const int position = engine.FindBlock(name);
    EXPECT_GE(position, 0) << name;
    return position < 0 ? kNone : engine.BlockAt(position);
  }
  /// The names of the blocks that a block inserts.
  std::vector<std::string> InsertedBy(const std::string& name) {
    std::vector<std::string> names;
    for (const cad::Entity& entity : BlockNamed(name).entities) {
      const auto insert = ShapeOf<cad::InsertShape>(entity);
      names.push_back(engine.Blocks().at(static_cast<std::size_t>(insert.block)).name);
    }
    return names;
  }
};

const std::string kPoint = "0 POINT\n8 0\n10 1\n20 2\n";
std::string Insert(const std::string& block) { return "0 INSERT\n8 0\n2 " + block + '\n'; }

TEST_F(DxfReaderBlocks, BlockAndItsInsert) {
  ReadWith(
      "0 BLOCK\n8 0\n2 Tree\n70 0\n10 1\n20 2\n30 3\n0 CIRCLE\n8 A\n62 0\n40 2\n0 ENDBLK\n8 0\n",
      "0 INSERT\n8 B\n2 TREE\n10 4\n20 5\n30 6\n41 2\n42 3\n43 4\n50 45\n");
  ASSERT_EQ(engine.Blocks().size(), 1U);
  const cad::Block& block = BlockNamed("tree");
  EXPECT_EQ(block.name, "Tree");
  ExpectAt(block.base, 1, 2, 3);
  ASSERT_EQ(block.entities.size(), 1U);
  EXPECT_EQ(ShapeOf<cad::CircleShape>(block.entities[0]).radius, 2);
  EXPECT_EQ(block.entities[0].color, cad::kByBlock);
  EXPECT_EQ(engine.GetDrawingName(block.entities[0].drawing).ToUtf8(), "A");
  const auto insert = Only<cad::InsertShape>();
  EXPECT_EQ(insert.block, 0);
  ExpectAt(insert.at, 4, 5, 6);
  ExpectAt(insert.scale, 2, 3, 4);
  EXPECT_EQ(insert.rotation, 45);
  EXPECT_EQ(DrawingOf(0), "B");
}

TEST_F(DxfReaderBlocks, ScaleIsOneWhereItIsNotSaid) {
  ReadWith(Block("B", kPoint), Insert("B"));
  ExpectAt(Only<cad::InsertShape>().scale, 1, 1, 1);
}

TEST_F(DxfReaderBlocks, BlocksMayInsertOthersThatComeLater) {
  ReadWith(Block("A", Insert("B") + Insert("c")) + Block("B", kPoint) + Block("C", kPoint), "");
  EXPECT_THAT(InsertedBy("A"), ElementsAre("B", "C"));
  EXPECT_THAT(Notes(), IsEmpty());
}

TEST_F(DxfReaderBlocks, EntitiesMayComeBeforeTheBlocks) {
  Read(Section("ENTITIES", Insert("B") + kPoint + Insert("none")) +
       Section("BLOCKS", Block("B", kPoint)));
  EXPECT_EQ(Count<cad::InsertShape>(), 1);
  EXPECT_EQ(Count<cad::PointShape>(), 1);
  EXPECT_THAT(Notes(), ElementsAre("inserts of blocks that are not in the file are left out (1)"));
}

TEST_F(DxfReaderBlocks, InsertsOfBlocksThatAreNotThereAreTold) {
  ReadWith(Block("A", Insert("none") + Insert("nor this")), Insert("none") + Insert("A"));
  EXPECT_THAT(InsertedBy("A"), IsEmpty());
  EXPECT_EQ(engine.Blocks().size(), 1U);
  EXPECT_EQ(Count<cad::InsertShape>(), 1);
  EXPECT_THAT(Notes(), ElementsAre("inserts of blocks that are not in the file are left out (3)"));
}

TEST_F(DxfReaderBlocks, BlockWhoseNameIsTakenStaysAsItIs) {
  engine.AddBlock({"other", {}, {}, {}, false});
  engine.AddBlock({"TREE", {}, {}, {}, false});
  ReadWith(Block("Tree", kPoint), Insert("tree"));
  ASSERT_EQ(engine.Blocks().size(), 2U);
  EXPECT_EQ(engine.Blocks()[1].entities.size(), 0U);
  EXPECT_EQ(Only<cad::InsertShape>().block, 1);
  EXPECT_THAT(Notes(),
              ElementsAre("blocks whose names are taken stay as they are in the drawing (1)"));
}

TEST_F(DxfReaderBlocks, FirstBlockOfANameHolds) {
  ReadWith(Block("B", kPoint) + Block("b", kPoint + kPoint), "");
  ASSERT_EQ(engine.Blocks().size(), 1U);
  EXPECT_EQ(BlockNamed("B").entities.size(), 1U);
}

TEST_F(DxfReaderBlocks, EndOfABlockMayBeMissing) {
  ReadWith("0 BLOCK\n2 A\n" + kPoint + "0 BLOCK\n2 B\n" + kPoint + kPoint, "");
  EXPECT_EQ(BlockNamed("A").entities.size(), 1U);
  EXPECT_EQ(BlockNamed("B").entities.size(), 2U);
}

TEST_F(DxfReaderBlocks, BlockInAnotherFileIsTold) {
  ReadWith("0 BLOCK\n2 X\n70 4\n1 other.dwg\n0 ENDBLK\n", Insert("X"));
  EXPECT_EQ(Count<cad::InsertShape>(), 1);
  EXPECT_THAT(Notes(), ElementsAre("XREF is not read (1)"));
}

// ---- Attributes ----

TEST_F(DxfReaderBlocks, AttributesOfBlocksAndInserts) {
  ReadWith(Block("B", "0 ATTDEF\n8 0\n10 1\n20 2\n40 2.5\n1 default\n3 prompt\n2 NUM\n70 0\n"),
           "0 INSERT\n66 1\n2 B\n10 1\n20 2\n"
           "0 ATTRIB\n8 0\n10 1\n20 2\n40 2\n1 4%%d\n2 NUM\n70 0\n"
           "0 ATTRIB\n8 0\n1 second\n2 MORE\n70 1\n0 SEQEND\n8 0\n" +
               kPoint);
  ASSERT_EQ(BlockNamed("B").attributes.size(), 1U);
  EXPECT_EQ(BlockNamed("B").attributes[0].tag, "NUM");
  EXPECT_EQ(BlockNamed("B").attributes[0].height, 2.5);
  ExpectAt(BlockNamed("B").attributes[0].at, 1, 2, 0);
  const auto insert = ShapeOf<cad::InsertShape>(engine.Entities().at(0));
  ASSERT_EQ(insert.attributes.size(), 2U);
  EXPECT_EQ(insert.attributes[0].tag, "NUM");
  EXPECT_EQ(insert.attributes[0].text, "4°");
  EXPECT_EQ(insert.attributes[1].tag, "MORE");
  EXPECT_EQ(insert.attributes[1].text, "second");
  EXPECT_EQ(Count<cad::PointShape>(), 1);
  EXPECT_THAT(Notes(), IsEmpty());
}

TEST_F(DxfReaderBlocks, AttributesAreThereWhetherOrNotTheInsertSaysSo) {
  ReadWith(Block("B", kPoint), Insert("B") + "0 ATTRIB\n1 v\n2 T\n" + kPoint);
  EXPECT_EQ(ShapeOf<cad::InsertShape>(engine.Entities().at(0)).attributes.size(), 1U);
  EXPECT_EQ(Count<cad::PointShape>(), 1);
}

TEST_F(DxfReaderBlocks, AttributeThatIsTheSameEverywhereIsAText) {
  ReadWith(Block("B", "0 ATTDEF\n10 1\n40 2\n1 same\n2 T\n70 2\n0 ATTDEF\n1 no\n2 U\n70 3\n"), "");
  EXPECT_THAT(BlockNamed("B").attributes, IsEmpty());
  ASSERT_EQ(BlockNamed("B").entities.size(), 1U);
  EXPECT_EQ(ShapeOf<cad::TextShape>(BlockNamed("B").entities[0]).text, "same");
}

TEST_F(DxfReaderBlocks, AttributeDefinitionOutsideABlockIsTold) {
  ReadWith("", "0 ATTDEF\n10 1\n2 T\n");
  EXPECT_THAT(Notes(), ElementsAre("ATTDEF is not read (1)"));
}

// ---- Rows and columns ----

TEST_F(DxfReaderBlocks, ArrayBecomesSingleInserts) {
  ReadWith(Block("B", kPoint),
           "0 INSERT\n2 B\n10 1\n20 2\n30 3\n50 90\n70 3\n71 2\n44 10\n45 5\n"
           "0 ATTRIB\n1 v\n2 T\n0 SEQEND\n");
  ASSERT_EQ(Count<cad::InsertShape>(), 6);
  const auto insert = [&](std::size_t i) {
    return ShapeOf<cad::InsertShape>(engine.Entities()[i]);
  };
  ExpectAt(insert(0).at, 1, 2, 3);
  ExpectAt(insert(2).at, 1, 22, 3);
  ExpectAt(insert(5).at, -4, 22, 3);
  EXPECT_EQ(insert(5).rotation, 90);
  EXPECT_EQ(insert(0).attributes.size(), 1U);
  EXPECT_EQ(insert(1).attributes.size(), 0U);
}

TEST_F(DxfReaderBlocks, HugeArrayIsOneInsertAndTold) {
  ReadWith(Block("B", kPoint), "0 INSERT\n2 B\n70 32767\n71 32767\n" + Insert("B"));
  EXPECT_EQ(Count<cad::InsertShape>(), 2);
  EXPECT_THAT(Notes(), ElementsAre("inserts in rows and columns beyond the largest number are left "
                                   "out (1073676288)"));
}

TEST_F(DxfReaderBlocks, ManyArraysMakeNoMoreThanTheLargestNumber) {
  std::string inserts;
  for (int i = 0; i < 200; ++i) inserts += "0 INSERT\n2 B\n70 1000\n71 1\n";
  ReadWith(Block("B", kPoint), inserts);
  EXPECT_LE(Count<cad::InsertShape>(), 100'200);
  EXPECT_GT(Count<cad::InsertShape>(), 99'000);
}

// ---- Blocks that contain themselves ----

TEST_F(DxfReaderBlocks, BlockInItselfIsLeftOut) {
  ReadWith(Block("A", Insert("a") + Insert("B") + Insert("A")) + Block("B", kPoint), Insert("A"));
  EXPECT_THAT(InsertedBy("A"), ElementsAre("B"));
  EXPECT_EQ(Count<cad::InsertShape>(), 1);
  EXPECT_THAT(Notes(), ElementsAre("inserts of blocks that contain themselves are left out (2)"));
}

TEST_F(DxfReaderBlocks, BlockInItselfThroughOthersIsLeftOut) {
  ReadWith(Block("A", Insert("B")) + Block("B", Insert("D") + Insert("C")) +
               Block("C", Insert("D") + Insert("A")) + Block("D", kPoint),
           "");
  // Which insert of the ring is cut is no matter; the others stay.
  EXPECT_EQ(InsertedBy("A").size() + InsertedBy("B").size() + InsertedBy("C").size(), 4U);
  EXPECT_THAT(InsertedBy("B"), testing::Contains("D"));
  EXPECT_THAT(InsertedBy("C"), testing::Contains("D"));
  EXPECT_THAT(Notes(), ElementsAre("inserts of blocks that contain themselves are left out (1)"));
}

TEST_F(DxfReaderBlocks, LongChainOfBlocksIsCutWhereItIsTooDeep) {
  std::string blocks;
  for (int i = 0; i < 20'000; ++i) {
    blocks += Block("B" + std::to_string(i), Insert("B" + std::to_string(i + 1)));
  }
  ReadWith(blocks, Insert("B0"));
  EXPECT_EQ(engine.Blocks().size(), 20'000U);
  EXPECT_EQ(Notes().size(), 2U);
  int depth = 0;
  for (int block = 0; !engine.BlockAt(block).entities.empty(); ++depth) {
    block = ShapeOf<cad::InsertShape>(engine.BlockAt(block).entities[0]).block;
  }
  EXPECT_LE(depth, 100);
}

}  // namespace
