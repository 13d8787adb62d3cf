// DXF files that cannot be read: why, and on which line.
#include "tests/support/dxf_reading.h"
#include "tests/support/trouble_log.h"

using namespace dxf_test;

namespace {

class DxfReaderErrors : public DxfReading {
 protected:
  /// "line: reason" of the file that is refused.
  std::string Refusal() const {
    return load.isLoaded ? "not refused" : std::to_string(load.errorLine) + ": " + Error();
  }
  std::string RefusalOf(std::string_view bytes) {
    ReadBytes(bytes);
    return Refusal();
  }
  /// Of a file with these lines in its entities, which begin on line 5.
  std::string RefusalOfEntities(const std::string& lines) {
    Read(Section("ENTITIES", lines));
    return Refusal();
  }
};

TEST_F(DxfReaderErrors, MissingFile) {
  const TroubleLog log;
  load = ReadDxf(tdk::WString(Path()), engine);
  EXPECT_EQ(Refusal(), "0: cannot be opened");
  EXPECT_EQ(log.Troubles().size(), 1U);
}

TEST_F(DxfReaderErrors, FolderIsNoFile) {
  const TroubleLog log;
  load = ReadDxf(tdk::WString(folder.Path()), engine);
  EXPECT_EQ(Refusal(), "0: cannot be opened");
}

TEST_F(DxfReaderErrors, FilesThatAreNoDxf) {
  for (const std::string bytes :
       {"", "\n", "hello", "hello\nworld\n", "PK\x03\x04", "AC1015", "<xml/>\n1\n", "12\nabc\n",
        "0\n", "0", "0\nLINE\n", "1\nSECTION\n",
        "\xFF\xFE"
        "0\n"}) {
    EXPECT_EQ(RefusalOf(bytes), "1: this is no DXF file") << bytes;
  }
  EXPECT_EQ(RefusalOf(std::string(1000, '\0')), "1: this is no DXF file");
}

TEST_F(DxfReaderErrors, HugeFileOfOneLineIsNotReadWhole) {
  EXPECT_EQ(RefusalOf(std::string(40'000'000, 'x')), "1: a line is too long");
}

TEST_F(DxfReaderErrors, CodeThatIsNoNumber) {
  EXPECT_EQ(RefusalOfEntities("0 POINT\nabc 1\n"), "7: \"abc\" is no group code");
  EXPECT_EQ(RefusalOfEntities("0 POINT\n10 1\n2O 1\n"), "9: \"2O\" is no group code");
  EXPECT_EQ(RefusalOfEntities("0 POINT\n10.0 1\n"), "7: \"10.0\" is no group code");
  EXPECT_EQ(RefusalOfEntities("0 POINT\n99999999999 1\n"), "7: \"99999999999\" is no group code");
  EXPECT_EQ(RefusalOfEntities("0 POINT\n 1\n"), "7: \"\" is no group code");
}

TEST_F(DxfReaderErrors, LineThatIsMissingIsFoundWhereTheCodesGoWrong) {
  EXPECT_EQ(RefusalOf("0\nSECTION\n2\nENTITIES\n0\nPOINT\n8\n10\n1.5\n20\n2\n0\nENDSEC\n"),
            "9: \"1.5\" is no group code");
}

TEST_F(DxfReaderErrors, ValueThatIsNoNumber) {
  EXPECT_EQ(RefusalOfEntities("0 POINT\n8 0\n10 1,5\n"), "10: \"1,5\" is no number");
  EXPECT_EQ(RefusalOfEntities("0 POINT\n10 abc\n"), "8: \"abc\" is no number");
  EXPECT_EQ(RefusalOfEntities("0 POINT\n10 1.5x\n"), "8: \"1.5x\" is no number");
  EXPECT_EQ(RefusalOfEntities("0 POINT\n10 1 5\n"), "8: \"1 5\" is no number");
  EXPECT_EQ(RefusalOfEntities("0 POINT\n10 \n"), "8: \"\" is no number");
  EXPECT_EQ(RefusalOfEntities("0 POINT\n62 red\n"), "8: \"red\" is no number");
  EXPECT_EQ(RefusalOfEntities("0 POINT\n62 1.5\n"), "8: \"1.5\" is no number");
}

TEST_F(DxfReaderErrors, WordsOfNumbersAreNone) {
  for (const std::string word : {"nan", "inf", "-inf", "1e999", "0x10", "1.#QNAN"}) {
    EXPECT_EQ(RefusalOfEntities("0 POINT\n10 " + word + '\n'), "8: \"" + word + "\" is no number");
  }
}

TEST_F(DxfReaderErrors, LongValueIsShortened) {
  EXPECT_EQ(RefusalOfEntities("0 POINT\n10 " + std::string(100, 'x') + '\n'),
            "8: \"" + std::string(40, 'x') + "...\" is no number");
}

TEST_F(DxfReaderErrors, LinesAreCountedWhateverTheyEndWith) {
  EXPECT_EQ(RefusalOf("0\r\nSECTION\r\n2\r\nENTITIES\r\n999\r\nc\r\n0\r\nPOINT\r\n10\r\nx\r\n"),
            "10: \"x\" is no number");
  EXPECT_EQ(RefusalOf("0\rSECTION\r2\rENTITIES\r999\rc\r0\rPOINT\r10\rx\r"),
            "10: \"x\" is no number");
}

TEST_F(DxfReaderErrors, LinesAreCountedInLargeFiles) {
  std::string lines;
  for (int i = 0; i < 100'000; ++i) lines += "0 POINT\n10 1\n";
  EXPECT_EQ(RefusalOfEntities(lines + "0 POINT\n10 x\n"), "400008: \"x\" is no number");
}

TEST_F(DxfReaderErrors, FileThatEndsInsideASection) {
  EXPECT_EQ(RefusalOf(Pairs("0 SECTION\n2 ENTITIES\n0 POINT\n10 1\n")),
            "8: the file ends too early");
  EXPECT_EQ(RefusalOf(Pairs("0 SECTION\n2 HEADER\n")), "4: the file ends too early");
  EXPECT_EQ(RefusalOf(Pairs("0 SECTION\n2 CLASSES\n0 CLASS\n")), "6: the file ends too early");
  EXPECT_EQ(RefusalOf(Pairs("0 SECTION\n")), "2: the file ends too early");
  EXPECT_EQ(RefusalOf(Pairs("0 SECTION\n2 ENTITIES\n") + "0"), "5: the file ends too early");
}

TEST_F(DxfReaderErrors, SectionWithoutName) {
  EXPECT_EQ(RefusalOf(Pairs("0 SECTION\n0 POINT\n0 EOF\n")), "4: the section has no name");
}

TEST_F(DxfReaderErrors, EntityOutsideASection) {
  EXPECT_EQ(RefusalOf(Pairs(Section("ENTITIES", "") + "0 POINT\n10 1\n")),
            "8: a section must begin here");
}

TEST_F(DxfReaderErrors, WhatCameBeforeTheErrorStays) {
  EXPECT_EQ(RefusalOfEntities("0 POINT\n10 1\n0 HATCH\n0 POINT\n10 x\n"), "14: \"x\" is no number");
  EXPECT_EQ(engine.Entities().size(), 1U);
  EXPECT_EQ(Notes().size(), 1U);
}

}  // namespace
