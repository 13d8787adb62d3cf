// Binary DXF files.
#include <filesystem>

#include "tests/support/dxf_binary.h"
#include "tests/support/dxf_full_document.h"

using namespace dxf_test;
using testing::StartsWith;

namespace {

class DxfReaderBinary : public DxfReading, public testing::WithParamInterface<Codes> {
 protected:
  void ReadBinary(const std::string& lines) { ReadBytes(Binary(lines, GetParam())); }
};

TEST_P(DxfReaderBinary, EntitiesAreAsInATextFile) {
  ReadBinary(Section("ENTITIES",
                     "0 LINE\n8 A\n62 -5\n10 1.5\n20 2\n30 3e100\n11 4\n21 5\n31 6\n"
                     "1070 3\n1004 FF\n1000 x\n0 TEXT\n10 1\n1 Citt\xE0  \n") +
             kEnd);
  ASSERT_TRUE(load.isLoaded) << Error();
  ASSERT_EQ(engine.Entities().size(), 2U);
  const auto line = ShapeOf<cad::LineShape>(engine.Entities()[0]);
  ExpectAt(line.from, 1.5, 2, 3e100);
  ExpectAt(line.to, 4, 5, 6);
  EXPECT_EQ(DrawingOf(0), "A");
  EXPECT_EQ(engine.Entities()[0].color, 5);
  EXPECT_EQ(ShapeOf<cad::TextShape>(engine.Entities()[1]).text, "Città  ");
}

TEST_P(DxfReaderBinary, DocumentWithEverythingIsAsTheTextFile) {
  ReadBinary(FullDocument());
  ASSERT_TRUE(load.isLoaded) << Error();
  CTcadEng other(0, nullptr, false);
  exchange_test::WriteFile(Path(), Pairs(FullDocument()));
  const CadLoad text = ReadDxf(tdk::WString(Path()), other);
  ASSERT_TRUE(text.isLoaded) << text.errorText.ToUtf8();
  EXPECT_EQ(load.notes, text.notes);
  EXPECT_EQ(engine.GetNoDrawings(), other.GetNoDrawings());
  EXPECT_EQ(engine.Blocks().size(), other.Blocks().size());
  ASSERT_EQ(engine.Entities().size(), other.Entities().size());
  for (std::size_t i = 0; i < other.Entities().size(); ++i) {
    EXPECT_EQ(engine.Entities()[i].shape.index(), other.Entities()[i].shape.index()) << i;
    EXPECT_EQ(engine.Entities()[i].drawing, other.Entities()[i].drawing) << i;
    EXPECT_EQ(engine.Entities()[i].color, other.Entities()[i].color) << i;
  }
}

TEST_P(DxfReaderBinary, CommentMayComeFirst) {
  ReadBinary("999 made by hand\n" + Section("ENTITIES", "0 POINT\n10 1\n") + kEnd);
  EXPECT_EQ(Count<cad::PointShape>(), 1) << Error();
}

TEST_P(DxfReaderBinary, LargeFilesAreReadWhole) {
  std::string lines;
  for (int i = 0; i < 50'000; ++i) lines += "0 POINT\n8 0\n10 " + std::to_string(i) + '\n';
  ReadBinary(Section("ENTITIES", lines) + kEnd);
  ASSERT_EQ(Count<cad::PointShape>(), 50'000) << Error();
  ExpectAt(ShapeOf<cad::PointShape>(engine.Entities().back()).at, 49'999, 0, 0);
}

TEST_P(DxfReaderBinary, LongTextsAreRead) {
  const std::string value(1'000'000, 'x');
  ReadBinary(Section("ENTITIES", "0 TEXT\n10 1\n1 " + value + '\n') + kEnd);
  EXPECT_EQ(Only<cad::TextShape>().text, value);
}

TEST_P(DxfReaderBinary, ComplaintsCountBytes) {
  std::string bytes = Binary(Section("ENTITIES", "0 POINT\n10 1\n") + kEnd, GetParam());
  const std::string one = LittleEndian(1.0);
  bytes.replace(bytes.find(one), one.size(), "\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF");
  ReadBytes(bytes);
  EXPECT_FALSE(load.isLoaded);
  EXPECT_EQ(load.errorLine, 0);
  EXPECT_THAT(Error(), StartsWith("byte "));
  EXPECT_THAT(Error(), testing::EndsWith(": a value is no number"));
}

TEST_P(DxfReaderBinary, CodesThatNobodyKnowsHaveTexts) {
  ReadBinary(Section("ENTITIES", "0 POINT\n80 x\n10 1\n") + kEnd);
  ExpectAt(Only<cad::PointShape>().at, 1, 0, 0);
}

TEST_P(DxfReaderBinary, FileThatBeginsWithNoSectionIsNoDxf) {
  ReadBinary("0 POINT\n10 1\n");
  EXPECT_EQ(Error(), "this is no DXF file");
}

TEST_P(DxfReaderBinary, FileCutAnywhereIsRefusedOrToldOf) {
  const std::string bytes = Binary(FullDocument(), GetParam());
  exchange_test::WriteFile(Path(), bytes);
  for (std::size_t length = bytes.size() - 1; length > 0; --length) {
    std::filesystem::resize_file(Path(), length);
    CTcadEng cut(0, nullptr, false);
    const CadLoad loaded = ReadDxf(tdk::WString(Path()), cut);
    if (loaded.isLoaded) {
      // It ends between two sections.
      ASSERT_FALSE(loaded.notes.empty()) << length;
      EXPECT_THAT(loaded.notes[0].ToUtf8(), StartsWith("the file has no end mark")) << length;
    } else {
      EXPECT_FALSE(loaded.errorText.IsEmpty()) << length;
    }
  }
}

INSTANTIATE_TEST_SUITE_P(Of, DxfReaderBinary, testing::Values(Codes::kOneByte, Codes::kTwoBytes),
                         [](const auto& it) {
                           return it.param == Codes::kOneByte ? "CodesOfOneByte"
                                                              : "CodesOfTwoBytes";
                         });

}  // namespace
