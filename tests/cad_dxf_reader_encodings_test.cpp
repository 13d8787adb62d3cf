// Code pages of DXF files.
#include "tests/support/dxf_reading.h"

using namespace dxf_test;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

class DxfReaderEncodings : public DxfReading {
 protected:
  /// A text of these bytes in a file of that version and code page ("": names none).
  std::string TextOf(const std::string& bytes, const std::string& version,
                     const std::string& codePage = "") {
    Read(Header(version, codePage) + Section("ENTITIES", "0 TEXT\n10 1\n1 " + bytes + '\n'));
    EXPECT_TRUE(load.isLoaded) << Error();
    if (engine.Entities().empty()) return "no text";
    return ShapeOf<cad::TextShape>(engine.Entities().back()).text;
  }
};

TEST_F(DxfReaderEncodings, Windows1252WhereNoneIsNamed) {
  EXPECT_EQ(TextOf("Citt\xE0 \x80", "AC1009"), "Città €");
  EXPECT_EQ(TextOf("Citt\xE0 \x80", "AC1015", "ANSI_1252"), "Città €");
}

TEST_F(DxfReaderEncodings, OtherCodePagesOfOneByte) {
  EXPECT_EQ(TextOf("\xE8\x9A", "AC1015", "ANSI_1250"), "čš");
  EXPECT_EQ(TextOf("\xCF\xF0\xE8", "AC1015", "ansi_1251"), "При");
  EXPECT_EQ(TextOf("\xE1", "AC1015", "ANSI_1253"), "α");
  EXPECT_EQ(TextOf("\x84\x85", "AC1009", "dos850"), "äà");
  EXPECT_EQ(TextOf("\x84\x85", "AC1009", "DOS437"), "äà");
  EXPECT_EQ(TextOf("\xE0", "AC1009", "ISO8859-1"), "à");
}

TEST_F(DxfReaderEncodings, CodePagesOfSeveralBytes) {
  EXPECT_EQ(TextOf("\x93\xFA\x96\x7B", "AC1015", "ANSI_932"), "日本");
  EXPECT_EQ(TextOf("\xD6\xD0\xB9\xFA", "AC1015", "ANSI_936"), "中国");
  EXPECT_EQ(TextOf("\xC7\xD1", "AC1015", "ANSI_949"), "한");
  EXPECT_EQ(TextOf("\xA4\xA4", "AC1015", "ANSI_950"), "中");
  EXPECT_EQ(TextOf("\xA4\xA4", "AC1015", "big5"), "中");
}

TEST_F(DxfReaderEncodings, SecondByteOfACharacterIsNoBackslash) {
  EXPECT_EQ(TextOf("\x95\x5CU+0041", "AC1015", "ANSI_932"), "表U+0041");
}

TEST_F(DxfReaderEncodings, BytesThatAreNoCharacterAreReplaced) {
  EXPECT_EQ(TextOf("a\xFF\xFF"
                   "b",
                   "AC1015", "ANSI_932"),
            "a\xEF\xBF\xBD\xEF\xBF\xBD"
            "b");
}

TEST_F(DxfReaderEncodings, LongTextsAreConvertedWhole) {
  std::string bytes;
  std::string text;
  for (int i = 0; i < 1000; ++i) {
    bytes += '\xE8';
    text += "č";
  }
  EXPECT_EQ(TextOf(bytes, "AC1015", "ANSI_1250"), text);
}

TEST_F(DxfReaderEncodings, UnknownCodePageIsTold) {
  EXPECT_EQ(TextOf("\xE0", "AC1015", "ANSI_99999"), "à");
  EXPECT_THAT(Notes(),
              ElementsAre("code page \"ANSI_99999\" is not known; Windows-1252 is assumed"));
  EXPECT_EQ(TextOf("\xE0", "AC1015", "UTF-16"), "à");
  EXPECT_EQ(Notes().size(), 1U);
}

TEST_F(DxfReaderEncodings, Utf8FromThe2007FormatOn) {
  for (const std::string version : {"AC1021", "AC1024", "AC1027", "AC1032"}) {
    EXPECT_EQ(TextOf("Città 日本", version, "ANSI_1252"), "Città 日本") << version;
  }
  EXPECT_THAT(Notes(), IsEmpty());
}

TEST_F(DxfReaderEncodings, BytesAreOfTheCodePageBefore) {
  for (const std::string version : {"AC1006", "AC1009", "AC1012", "AC1014", "AC1015", "AC1018",
                                    "AC2.10", "AC1.50", "MC0.0", ""}) {
    EXPECT_EQ(TextOf("\xC3\xA0", version), "Ã\xC2\xA0") << version;
  }
}

TEST_F(DxfReaderEncodings, TextThatIsNoUtf8IsOfTheCodePage) {
  EXPECT_EQ(TextOf("Citt\xE0", "AC1021", "ANSI_1252"), "Città");
}

TEST_F(DxfReaderEncodings, ByteOrderMarkMeansUtf8) {
  ReadBytes("\xEF\xBB\xBF" + Pairs(Section("ENTITIES", "0 TEXT\n10 1\n1 à\n") + kEnd));
  EXPECT_EQ(Only<cad::TextShape>().text, "à");
}

TEST_F(DxfReaderEncodings, NamesAreConvertedToo) {
  Read(Header("AC1015", "ANSI_1250") +
       Section("TABLES", "0 TABLE\n2 LAYER\n0 LAYER\n2 \xE8\\U+03A9\n62 3\n0 ENDTAB\n") +
       Section("BLOCKS", Block("\xE8", "0 POINT\n8 \xE8\\U+03A9\n10 1\n")) +
       Section("ENTITIES", "0 INSERT\n8 \xE8\\U+03A9\n2 \xE8\n"));
  EXPECT_EQ(engine.GetNoDrawings(), 2);
  EXPECT_EQ(engine.GetDrawingName(2).ToUtf8(), "čΩ");
  ASSERT_EQ(engine.Blocks().size(), 1U);
  EXPECT_EQ(engine.Blocks()[0].name, "č");
  EXPECT_EQ(Only<cad::InsertShape>().block, 0);
}

TEST_F(DxfReaderEncodings, PiecesOfALongTextMayEndWithinACharacter) {
  Read(Header("AC1021") + Section("ENTITIES", "0 MTEXT\n10 1\n40 1\n3 Citt\xC3\n1 \xA0\n"));
  EXPECT_EQ(Only<cad::TextShape>().text, "Città");
}

}  // namespace
