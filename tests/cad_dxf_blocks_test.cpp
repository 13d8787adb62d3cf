// Blocks and their inserts as DXF.
#include "support/dxf_writing.h"

namespace {

using dxf_writer_test::MakeEntity;
using dxf_writer_test::MakePrivate;

class DxfWriterBlocks : public dxf_writer_test::DxfWriting {
 protected:
  // With a base of (1, 1), and a place for NAME two to the right of it.
  int AddSymbol() {
    cad::Block block;
    block.name = "Symbol";
    block.base = {1, 1, 0};
    block.entities = {MakeEntity(cad::CircleShape{{1, 1, 0}, 0.5}, 1, cad::kByBlock)};
    block.attributes = {{"NAME", {3, 1, 0}, 0.4}};
    return engine.AddBlock(block);
  }
  static cad::InsertShape InsertOf(int block) {
    cad::InsertShape insert;
    insert.block = block;
    return insert;
  }
  // The names of the blocks of an R12 file, in their order.
  std::string NamesInR12() {
    std::string names;
    const std::string blocks = Blocks(TCAD_DXF_R12);
    const std::string start = "0 BLOCK\n8 0\n2 ";
    for (std::size_t at = 0; (at = blocks.find(start, at)) != std::string::npos;) {
      at += start.size();
      names.append(blocks, at, blocks.find('\n', at) - at).append(" ");
    }
    return names;
  }
};

TEST_F(DxfWriterBlocks, ABlockInR12) {
  AddSymbol();
  EXPECT_EQ(Blocks(TCAD_DXF_R12),
            "0 BLOCK\n8 0\n2 SYMBOL\n70 2\n10 1.0\n20 1.0\n30 0.0\n3 SYMBOL\n1 \n"
            "0 ATTDEF\n8 0\n10 3.0\n20 1.0\n30 0.0\n40 0.4\n1 \n3 NAME\n2 NAME\n70 0\n"
            "0 CIRCLE\n8 0\n62 0\n10 1.0\n20 1.0\n30 0.0\n40 0.5\n"
            "0 ENDBLK\n8 0\n");
}

TEST_F(DxfWriterBlocks, ABlockIn2000HasARecord) {
  AddSymbol();
  const std::string text = Write(TCAD_DXF_2000);
  EXPECT_NE(text.find("0 BLOCK_RECORD\n5 21\n330 10\n100 AcDbSymbolTableRecord\n"
                      "100 AcDbBlockTableRecord\n2 Symbol\n340 0\n"),
            std::string::npos)
      << text;
  const std::string owner = "330 21\n100 AcDbEntity\n8 0\n";
  EXPECT_NE(text.find("0 BLOCK\n5 23\n" + owner +
                      "100 AcDbBlockBegin\n2 Symbol\n70 2\n10 1.0\n20 1.0\n30 0.0\n3 Symbol\n1 \n"
                      "0 ATTDEF\n5 24\n" +
                      owner +
                      "100 AcDbText\n10 3.0\n20 1.0\n30 0.0\n40 0.4\n1 \n"
                      "100 AcDbAttributeDefinition\n3 NAME\n2 NAME\n70 0\n"
                      "0 CIRCLE\n5 25\n330 21\n100 AcDbEntity\n8 0\n62 0\n"
                      "100 AcDbCircle\n10 1.0\n20 1.0\n30 0.0\n40 0.5\n"
                      "0 ENDBLK\n5 26\n" +
                      owner + "100 AcDbBlockEnd\n"),
            std::string::npos)
      << text;
}

TEST_F(DxfWriterBlocks, AnInsertAsItIs) {
  Add(InsertOf(AddSymbol()));
  EXPECT_EQ(R12(), "0 INSERT\n8 0\n2 SYMBOL\n10 0.0\n20 0.0\n30 0.0\n");
}

TEST_F(DxfWriterBlocks, AnInsertScaledAndTurned) {
  cad::InsertShape insert = InsertOf(AddSymbol());
  insert.at = {10, 20, 30};
  insert.scale = {2, -3, 0.5};
  insert.rotation = 45;
  Add(insert);
  EXPECT_EQ(V2000(),
            "0 INSERT\n5 27\n330 11\n100 AcDbEntity\n8 0\n100 AcDbBlockReference\n2 Symbol\n"
            "10 10.0\n20 20.0\n30 30.0\n41 2.0\n42 -3.0\n43 0.5\n50 45.0\n");
}

TEST_F(DxfWriterBlocks, AttributesStandWhereTheirBlockHasThem) {
  cad::InsertShape insert = InsertOf(AddSymbol());
  insert.at = {10, 20, 30};
  insert.scale = {5, 5, 5};
  insert.rotation = 90;
  insert.attributes = {{"NAME", "P1"}};
  Add(insert, 1, 4);
  EXPECT_EQ(V2000(),
            "0 INSERT\n5 27\n330 11\n100 AcDbEntity\n8 0\n62 4\n100 AcDbBlockReference\n66 1\n"
            "2 Symbol\n10 10.0\n20 20.0\n30 30.0\n41 5.0\n42 5.0\n43 5.0\n50 90.0\n"
            "0 ATTRIB\n5 28\n330 27\n100 AcDbEntity\n8 0\n62 4\n100 AcDbText\n"
            "10 10.0\n20 30.0\n30 30.0\n40 2.0\n1 P1\n50 90.0\n"
            "100 AcDbAttribute\n2 NAME\n70 0\n"
            "0 SEQEND\n5 29\n330 27\n100 AcDbEntity\n8 0\n62 4\n");
}

TEST_F(DxfWriterBlocks, OtherAttributesStandBelowEachOther) {
  cad::InsertShape insert = InsertOf(AddSymbol());
  insert.at = {10, 20, 30};
  insert.scale = {3, 3, 3};
  insert.attributes = {{"CODE", "wall"}, {"NAME", "P1"}, {"two words", ""}, {"", "x\ny"}};
  Add(insert);
  const std::string text = R12();
  EXPECT_NE(text.find("10 10.0\n20 20.0\n30 30.0\n40 3.0\n1 wall\n2 CODE\n70 0\n"
                      "0 ATTRIB\n8 0\n10 16.0\n20 20.0\n30 30.0\n40 1.2000000000000002\n1 P1\n"
                      "2 NAME\n70 0\n"
                      "0 ATTRIB\n8 0\n10 10.0\n20 15.0\n30 30.0\n40 3.0\n1 \n2 two_words\n70 0\n"
                      "0 ATTRIB\n8 0\n10 10.0\n20 10.0\n30 30.0\n40 3.0\n1 x^Jy\n2 _\n70 0\n"
                      "0 SEQEND\n8 0\n"),
            std::string::npos)
      << text;
}

TEST_F(DxfWriterBlocks, StandAfterThoseThatTheyInsert) {
  const int outer = AddBlock("outer", {});
  const int inner = AddBlock("inner", {});
  engine.BlockAt(outer).entities = {MakeEntity(InsertOf(inner))};
  EXPECT_EQ(NamesInR12(), "INNER OUTER ");
}

TEST_F(DxfWriterBlocks, ThatHoldThemselvesLoseTheInsert) {
  const int one = AddBlock("one", {});
  const int two = AddBlock("two", {});
  engine.BlockAt(one).entities = {MakeEntity(InsertOf(two)), MakeEntity(InsertOf(one))};
  engine.BlockAt(two).entities = {MakeEntity(InsertOf(one)), MakeEntity(cad::PointShape{})};
  Add(InsertOf(one));
  EXPECT_EQ(Blocks(TCAD_DXF_R12),
            "0 BLOCK\n8 0\n2 TWO\n70 0\n10 0.0\n20 0.0\n30 0.0\n3 TWO\n1 \n"
            "0 POINT\n8 0\n10 0.0\n20 0.0\n30 0.0\n"
            "0 ENDBLK\n8 0\n"
            "0 BLOCK\n8 0\n2 ONE\n70 0\n10 0.0\n20 0.0\n30 0.0\n3 ONE\n1 \n"
            "0 INSERT\n8 0\n2 TWO\n10 0.0\n20 0.0\n30 0.0\n"
            "0 ENDBLK\n8 0\n");
  EXPECT_EQ(written.leftOut, 2U);
}

TEST_F(DxfWriterBlocks, NestedDeeplyAreWritten) {
  constexpr int kDepth = 20'000;
  for (int i = 0; i < kDepth; ++i) {
    AddBlock("b" + std::to_string(i), {});
    if (i > 0) engine.BlockAt(i - 1).entities = {MakeEntity(InsertOf(i))};
  }
  engine.BlockAt(kDepth - 1).entities = {MakeEntity(cad::PointShape{{1, 2, 3}})};
  Add(InsertOf(0));
  EXPECT_NE(Write(TCAD_DXF_2000).find("9 $EXTMAX\n10 1.0\n20 2.0\n30 3.0\n"), std::string::npos);
  EXPECT_EQ(written.leftOut, 0U);
}

TEST_F(DxfWriterBlocks, PrivateOnesAreWrittenOnlyWhereInserted) {
  for (const char* const name : {"unused", "used", "hidden", "nested"}) {
    engine.BlockAt(AddBlock(name, {MakePrivate(cad::PointShape{})})).isPrivate = true;
  }
  engine.BlockAt(1).entities.push_back(MakeEntity(InsertOf(3)));
  Add(InsertOf(1));
  engine.Add(MakePrivate(InsertOf(2)));
  EXPECT_EQ(NamesInR12(), "NESTED USED ");
  EXPECT_EQ(Blocks(TCAD_DXF_R12).find("POINT"), std::string::npos);
  EXPECT_EQ(written.leftOut, 0U);
}

TEST_F(DxfWriterBlocks, InsertsOfBlocksThatAreNotThereAreLeftOut) {
  AddSymbol();
  Add(InsertOf(1));
  Add(InsertOf(-1));
  EXPECT_EQ(R12(), "");
  EXPECT_EQ(written.leftOut, 2U);
}

TEST_F(DxfWriterBlocks, WithoutPlaceForTheirBaseAreLeftOutWithTheirInserts) {
  engine.BlockAt(AddSymbol()).base = {1e200, 0, 0};
  Add(InsertOf(0));
  EXPECT_EQ(Blocks(TCAD_DXF_R12), "");
  EXPECT_EQ(R12(), "");
  EXPECT_EQ(written.leftOut, 1U);
}

TEST_F(DxfWriterBlocks, AttributesWithoutPlaceStandAtTheInsert) {
  const int block = AddSymbol();
  engine.BlockAt(block).attributes[0].at = {0, 1.7e200, 0};
  cad::InsertShape insert = InsertOf(block);
  insert.at = {7, 8, 9};
  insert.attributes = {{"NAME", "P1"}};
  Add(insert);
  EXPECT_EQ(Blocks(TCAD_DXF_R12).find("ATTDEF"), std::string::npos);
  EXPECT_NE(R12().find("0 ATTRIB\n8 0\n10 7.0\n20 8.0\n30 9.0\n40 1.0\n"), std::string::npos);
  EXPECT_EQ(written.leftOut, 1U);
}

}  // namespace
