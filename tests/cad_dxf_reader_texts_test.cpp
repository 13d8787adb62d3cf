// Texts of DXF files: where they stand, and what they say.
#include "tests/support/dxf_reading.h"

using namespace dxf_test;
using testing::IsEmpty;

namespace {

class DxfReaderTexts : public DxfReading {
 protected:
  /// What a line of text in the file says.
  std::string LineSays(const std::string& value) {
    ReadEntities("0 TEXT\n10 1\n20 2\n40 1\n1 " + value + '\n');
    return engine.Entities().empty() ? "" : ShapeOf<cad::TextShape>(engine.Entities().back()).text;
  }
  std::string LinesSay(const std::string& value) {
    ReadEntities("0 MTEXT\n10 1\n20 2\n40 1\n1 " + value + '\n');
    return engine.Entities().empty() ? "" : ShapeOf<cad::TextShape>(engine.Entities().back()).text;
  }
  cad::Point PlaceOf(const std::string& lines) {
    ReadEntities("0 TEXT\n40 1\n1 t\n" + lines);
    return ShapeOf<cad::TextShape>(engine.Entities().back()).at;
  }
};

TEST_F(DxfReaderTexts, Text) {
  ReadEntities("0 TEXT\n8 T\n10 1\n20 2\n30 3\n40 2.5\n50 30\n1 Hello world\n7 STANDARD\n");
  const auto text = Only<cad::TextShape>();
  ExpectAt(text.at, 1, 2, 3);
  EXPECT_EQ(text.height, 2.5);
  EXPECT_EQ(text.rotation, 30);
  EXPECT_EQ(text.text, "Hello world");
  EXPECT_EQ(DrawingOf(0), "T");
}

TEST_F(DxfReaderTexts, BlanksOfATextAreKept) { EXPECT_EQ(LineSays("  a b  "), "  a b  "); }
TEST_F(DxfReaderTexts, TextMayBeEmpty) { EXPECT_EQ(LineSays(""), ""); }

// ---- Where it stands ----

TEST_F(DxfReaderTexts, FirstPointIsThePlace) {
  ExpectAt(PlaceOf("10 1\n20 2\n30 3\n11 4\n21 5\n31 6\n72 1\n73 2\n"), 1, 2, 3);
}
TEST_F(DxfReaderTexts, SecondPointIsThePlaceWhereThereIsNoFirst) {
  ExpectAt(PlaceOf("11 4\n21 5\n31 6\n72 1\n"), 4, 5, 6);
}
TEST_F(DxfReaderTexts, FirstPointOfAnAlignedTextMayBeLeftAsZeros) {
  ExpectAt(PlaceOf("10 0\n20 0\n30 0\n11 4\n21 5\n31 6\n72 4\n"), 4, 5, 6);
}
TEST_F(DxfReaderTexts, TextBetweenTwoPointsMayBeginAtTheOrigin) {
  ExpectAt(PlaceOf("10 0\n20 0\n30 0\n11 4\n21 5\n72 5\n"), 0, 0, 0);
}
TEST_F(DxfReaderTexts, TextToTheRightOfItsPlaceMayBeginAtTheOrigin) {
  ExpectAt(PlaceOf("10 0\n20 0\n30 0\n11 4\n21 5\n"), 0, 0, 0);
}

// ---- Codes in a line ----

TEST_F(DxfReaderTexts, PercentCodes) {
  EXPECT_EQ(LineSays("45%%d %%P0.1 %%c20"), "45° ±0.1 Ø20");
  EXPECT_EQ(LineSays("100%%%"), "100%");
  EXPECT_EQ(LineSays("%%uunder%%U %%oover%%o %%kthrough"), "under over through");
  EXPECT_EQ(LineSays("%%065%%176%%128"), "A°€");
}

TEST_F(DxfReaderTexts, WhatIsNoPercentCodeStays) {
  EXPECT_EQ(LineSays("5% %%"), "5% %%");
  EXPECT_EQ(LineSays("%%x %%12"), "%%x %%12");
  EXPECT_EQ(LineSays("%%999"), "%%999");
}

TEST_F(DxfReaderTexts, CaretCodes) {
  EXPECT_EQ(LineSays("a^Jb^Ic"), "a\nb\tc");
  EXPECT_EQ(LineSays("a^M^Jb"), "a\nb");
  EXPECT_EQ(LineSays("2^ 3"), "2^3");
  EXPECT_EQ(LineSays("2^3 ^"), "2^3 ^");
}

TEST_F(DxfReaderTexts, UnicodeCodes) {
  EXPECT_EQ(LineSays("\\U+00E0 \\U+20ac"), "à €");
  EXPECT_EQ(LineSays("\\U+D83D\\U+DE00"), "😀");
  EXPECT_EQ(LineSays("\\U+D83D!"), "\xEF\xBF\xBD!");
  EXPECT_EQ(LineSays("\\U+00G0 \\U+12"), "\\U+00G0 \\U+12");
}

TEST_F(DxfReaderTexts, CodesOfOtherCodePages) {
  EXPECT_EQ(LineSays("\\M+182A0"), "あ");
  EXPECT_EQ(LineSays("\\M+982A0"), "\\M+982A0");
}

TEST_F(DxfReaderTexts, FormatCodesAreOnlyThoseOfSeveralLines) {
  EXPECT_EQ(LineSays("{a}\\Pb\\H2;"), "{a}\\Pb\\H2;");
}

TEST_F(DxfReaderTexts, WhatACodeStandsForIsNoCodeAgain) {
  EXPECT_EQ(LineSays("\\U+0025%%d"), "%°");
  EXPECT_EQ(LineSays("\\U+005CU+0041"), "\\U+0041");
}

// ---- Texts of several lines ----

TEST_F(DxfReaderTexts, LineEndsOfSeveralLines) {
  EXPECT_EQ(LinesSay("one\\Ptwo^Jthree"), "one\ntwo\nthree");
}

TEST_F(DxfReaderTexts, FormatCodesAreTakenOff) {
  EXPECT_EQ(LinesSay("\\A1;{\\fArial|b1|i0|c0|p34;Bold} \\H0.7x;small\\C1;red\\c255;"),
            "Bold smallred");
  EXPECT_EQ(LinesSay("\\Lunder\\l \\Oover\\o \\Kout\\k \\W0.8;\\T1.1;\\Q15;end"),
            "under over out end");
  EXPECT_EQ(LinesSay("\\pxqc;centred \\Ftxt.shx;old"), "centred old");
}

TEST_F(DxfReaderTexts, EscapedCharactersAreThemselves) {
  EXPECT_EQ(LinesSay("\\{a\\} C:\\\\dir a\\~b ~"), "{a} C:\\dir a b ~");
}

TEST_F(DxfReaderTexts, StackedTextStandsBesideEachOther) {
  EXPECT_EQ(LinesSay("1\\S1/2; \\S3#4; \\S+0.1^-0.2;"), "11/2 3/4 +0.1/-0.2");
  EXPECT_EQ(LinesSay("m\\S2^ ; x\\S^ 3; \\Sall;"), "m2 x3 all");
}

TEST_F(DxfReaderTexts, WhatIsNoFormatCodeStays) {
  EXPECT_EQ(LinesSay("C:\\Hello \\z 5\\"), "C:\\Hello \\z 5\\");
}

TEST_F(DxfReaderTexts, OtherCodesCountInSeveralLinesToo) {
  EXPECT_EQ(LinesSay("5%%d \\U+00E0 ^ \\\\U+0041"), "5° à ^\\U+0041");
}

TEST_F(DxfReaderTexts, LongTextComesInPieces) {
  ReadEntities("0 MTEXT\n10 1\n20 2\n40 1\n3 one\\\n3 P two \n1 three\n");
  EXPECT_EQ(Only<cad::TextShape>().text, "one\n two three");
}

TEST_F(DxfReaderTexts, LongTextOfCodesIsReadInTime) {
  std::string codes;
  for (int i = 0; i < 200'000; ++i) codes += "\\H\\S";
  EXPECT_EQ(LinesSay(codes), codes);
}

// ---- Where several lines stand ----

TEST_F(DxfReaderTexts, TopOfTheLinesIsTheTopOfTheFirst) {
  ReadEntities("0 MTEXT\n10 1\n20 2\n30 3\n40 3\n71 1\n1 a\\Pb\n");
  ExpectAt(Only<cad::TextShape>().at, 1, -1, 3);
}
TEST_F(DxfReaderTexts, MiddleOfTheLines) {
  ReadEntities("0 MTEXT\n10 1\n20 2\n40 3\n71 4\n1 a\\Pb\n");
  // From the bottom to the top 5 and 3; the first line stands on 5 of 8.
  ExpectAt(Only<cad::TextShape>().at, 1, 2 + 1, 0);
}
TEST_F(DxfReaderTexts, BottomOfTheLines) {
  ReadEntities("0 MTEXT\n10 1\n20 2\n40 3\n44 2\n71 9\n1 a\\Pb\n");
  ExpectAt(Only<cad::TextShape>().at, 1, 2 + 10, 0);
}

TEST_F(DxfReaderTexts, DirectionOfTheLinesIsAVectorOrAnAngle) {
  ReadEntities("0 MTEXT\n10 1\n20 2\n40 3\n71 7\n11 0\n21 2\n31 0\n50 20\n1 a\n");
  EXPECT_NEAR(Only<cad::TextShape>().rotation, 90, 1e-9);
  ReadEntities("0 MTEXT\n10 1\n20 2\n40 3\n71 1\n50 90\n1 a\n");
  const auto text = ShapeOf<cad::TextShape>(engine.Entities().at(1));
  EXPECT_EQ(text.rotation, 90);
  ExpectAt(text.at, 4, 2, 0);
}

TEST_F(DxfReaderTexts, WhatIsInsideAnotherObjectIsNotTheText) {
  ReadEntities("0 MTEXT\n10 1\n20 2\n40 3\n71 7\n1 a\n101 Embedded Object\n10 9\n20 9\n40 9\n");
  const auto text = Only<cad::TextShape>();
  ExpectAt(text.at, 1, 2, 0);
  EXPECT_EQ(text.height, 3);
  EXPECT_THAT(Notes(), IsEmpty());
}

}  // namespace
