// Names and texts as DXF has them.
#include <set>

#include "host/cad/dxf/write_text.h"
#include "host/cad/writing/names.h"
#include "support/dxf_writing.h"

namespace {

using cad_writer::NameRule;
using cad_writer::NameTable;
using dxf_writer::TextOf;

std::string MultiLine(std::string_view utf8) {
  std::string bytes;
  dxf_writer::AppendMultiLineText(bytes, utf8);
  return bytes;
}

TEST(DxfWriterText, PlainTextIsItself) {
  EXPECT_EQ(TextOf(""), "");
  EXPECT_EQ(TextOf(" A b{c}\\P~?"), " A b{c}\\P~?");
}

TEST(DxfWriterText, LettersOfTheCodePage) {
  EXPECT_EQ(TextOf("\xC3\xA9\xE2\x82\xAC\xC5\xA1"), "\xE9\x80\x9A");
}

TEST(DxfWriterText, OtherCharactersAreEscapes) {
  EXPECT_EQ(TextOf("\xD0\x96x"), "\\U+0416x");
  EXPECT_EQ(TextOf("\xE6\x9D\xB1?"), "\\U+6771?");
  EXPECT_EQ(TextOf("\xF0\x9F\x8C\xB2"), "\\U+D83C\\U+DF32");
}

TEST(DxfWriterText, BytesThatThePageDoesNotAssignAreEscapes) {
  EXPECT_EQ(TextOf("\xC2\x81\xC2\x80"), "\\U+0081\\U+0080");
}

TEST(DxfWriterText, BytesThatAreNoUtf8AreMarked) { EXPECT_EQ(TextOf("a\xFF"), "a\\U+FFFD"); }

TEST(DxfWriterText, ControlCharactersAndCaretsStayInTheLine) {
  EXPECT_EQ(TextOf("a\nb\tc\rd^e"), "a^Jb^Ic^Md^ e");
  EXPECT_EQ(TextOf(std::string_view("\0\x1F", 2)), "^@^_");
}

TEST(DxfWriterText, WhatOnlyLooksLikeAnEscapeIsNone) {
  EXPECT_EQ(TextOf("C:\\U+0041\\M+1"), "C:\\\\U+0055+0041\\\\U+004D+1");
}

TEST(DxfWriterText, MultiLineTextEscapesItsOwnMarks) {
  EXPECT_EQ(MultiLine("a\\b{c}\nd\r\n^"), "1\na\\\\b\\{c\\}\\Pd\\P^ \n");
}

TEST(DxfWriterText, EscapesAreNotParted) {
  std::string cyrillic;
  for (int i = 0; i < 500; ++i) cyrillic += "\xD0\x96";
  std::string text = MultiLine(cyrillic);
  EXPECT_EQ(text.substr(0, 2), "3\n");
  std::size_t escapes = 0;
  for (std::size_t at = 0; (at = text.find("\\U+0416", at)) != std::string::npos; ++at) ++escapes;
  EXPECT_EQ(escapes, 500U);
}

TEST(DxfWriterNames, OfR12AreInCapitals) {
  NameTable names(NameRule::kShort);
  EXPECT_EQ(names.Add("Wall-1_$"), "WALL-1_$");
  EXPECT_EQ(names.Add("a b/\xC3\xA9\xE6\x9D\xB1.x"), "A_B____X");
  EXPECT_EQ(names.Add(""), "_");
}

TEST(DxfWriterNames, OfR12AreShort) {
  NameTable names(NameRule::kShort);
  const std::string common = "A23456789012345678901234567890";
  EXPECT_EQ(names.Add(common + "X"), common + "X");
  EXPECT_EQ(names.Add(common + "XY"), "A2345678901234567890123456789_2");
  EXPECT_EQ(names.Add(common + "XZ"), "A2345678901234567890123456789_3");
  EXPECT_EQ(names.Add("a2345678901234567890123456789_2"), "A2345678901234567890123456789_4");
}

TEST(DxfWriterNames, ThatClashAreAllDifferent) {
  for (const NameRule rule : {NameRule::kShort, NameRule::kLong}) {
    NameTable names(rule);
    std::set<std::string> different;
    for (int i = 0; i < 20'000; ++i) different.insert(names.Add(i % 2 == 0 ? "?" : "_2"));
    EXPECT_EQ(different.size(), 20'000U);
  }
}

TEST(DxfWriterNames, Of2000KeepTheirLetters) {
  NameTable names(NameRule::kLong);
  EXPECT_EQ(names.Add("Wall \xC3\xA9 (1)"), "Wall \xC3\xA9 (1)");
  EXPECT_EQ(names.Add("\xD0\x96^"), "\xD0\x96^");
}

TEST(DxfWriterNames, Of2000LoseWhatIsNotAllowed) {
  NameTable names(NameRule::kLong);
  EXPECT_EQ(names.Add("a<b>c/d\\e\"f:g;h?i*j|k,l=m`n\no"), "a_b_c_d_e_f_g_h_i_j_k_l_m_n_o");
  EXPECT_EQ(names.Add(" x "), "_x_");
  EXPECT_EQ(names.Add(""), "_");
}

TEST(DxfWriterNames, Of2000DifferByMoreThanCapitals) {
  NameTable names(NameRule::kLong);
  EXPECT_EQ(names.Add("Wall"), "Wall");
  EXPECT_EQ(names.Add("WALL"), "WALL_2");
  EXPECT_EQ(names.Add("\xC3\x89t\xC3\xA9"), "\xC3\x89t\xC3\xA9");
  EXPECT_EQ(names.Add("\xC3\xA9t\xC3\x89"), "\xC3\xA9t\xC3\x89_2");
  EXPECT_EQ(names.Add("\xD0\x96"), "\xD0\x96");
  EXPECT_EQ(names.Add("\xD0\xB6"), "\xD0\xB6_2");
}

TEST(DxfWriterNames, Of2000EndSomewhere) {
  NameTable names(NameRule::kLong);
  EXPECT_EQ(names.Add(std::string(300, 'x')), std::string(255, 'x'));
  std::string numbered(253, 'x');
  numbered += "_2";
  EXPECT_EQ(names.Add(std::string(301, 'x')), numbered);
}

using DxfWriterNamesInFiles = dxf_writer_test::DxfWriting;

TEST_F(DxfWriterNamesInFiles, EntitiesNameTheLayerAsItsTableDoes) {
  AddLayer("a b");
  Add(cad::PointShape{}, AddLayer("a?b"));
  EXPECT_EQ(R12(), "0 POINT\n8 A_B_2\n10 0.0\n20 0.0\n30 0.0\n");
  EXPECT_NE(
      Table(TCAD_DXF_R12, "LAYER").find("2 A_B\n70 0\n62 7\n6 CONTINUOUS\n0 LAYER\n2 A_B_2\n"),
      std::string::npos);
}

TEST_F(DxfWriterNamesInFiles, BlocksAreNotTakenForModelAndPaper) {
  AddBlock("*Model_Space", {});
  AddBlock("$MODEL_SPACE", {});
  const std::string blocks = Blocks(TCAD_DXF_R12);
  EXPECT_NE(blocks.find("2 _MODEL_SPACE\n"), std::string::npos) << blocks;
  EXPECT_NE(blocks.find("2 $MODEL_SPACE_2\n"), std::string::npos) << blocks;
}

TEST_F(DxfWriterNamesInFiles, LayersAndBlocksMayHaveTheSameName) {
  AddLayer("same");
  AddBlock("same", {});
  EXPECT_NE(Blocks(TCAD_DXF_R12).find("2 SAME\n"), std::string::npos);
  EXPECT_NE(Table(TCAD_DXF_R12, "LAYER").find("2 SAME\n"), std::string::npos);
}

}  // namespace
