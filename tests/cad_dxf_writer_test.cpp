// Single entities as DXF.
#include "support/dxf_writing.h"

namespace {

using dxf_writer_test::TextBetween;

class DxfWriterEntities : public dxf_writer_test::DxfWriting {
 protected:
  // What comes after the pairs that every entity of version 2000 starts with.
  std::string In2000(const std::string& name, const std::string& firstClass) {
    return TextBetween(
        V2000() + "END",
        "0 " + name + "\n5 22\n330 11\n100 AcDbEntity\n8 0\n100 " + firstClass + "\n", "END");
  }
  std::string InR12(const std::string& name) {
    return TextBetween(R12() + "END", "0 " + name + "\n8 0\n", "END");
  }
};

TEST_F(DxfWriterEntities, APointInBothVersions) {
  Add(cad::PointShape{{1.5, -2, 300000.125}});
  EXPECT_EQ(R12(), "0 POINT\n8 0\n10 1.5\n20 -2.0\n30 300000.125\n");
  EXPECT_EQ(V2000(),
            "0 POINT\n5 22\n330 11\n100 AcDbEntity\n8 0\n100 AcDbPoint\n"
            "10 1.5\n20 -2.0\n30 300000.125\n");
}

TEST_F(DxfWriterEntities, NumbersAreWholeOnlyWithDecimalsAndZeroHasNoSign) {
  Add(cad::PointShape{{-0.0, 100000, 0.1}});
  Add(cad::PointShape{{123456789, 5e-324, -1e22}});
  EXPECT_EQ(R12(),
            "0 POINT\n8 0\n10 0.0\n20 1e+05\n30 0.1\n"
            "0 POINT\n8 0\n10 123456789.0\n20 5e-324\n30 -1e+22\n");
}

TEST_F(DxfWriterEntities, ColoursUnlessOfTheLayer) {
  Add(cad::PointShape{}, 1, 5);
  Add(cad::PointShape{}, 1, cad::kByBlock);
  Add(cad::PointShape{}, 1, 300);
  EXPECT_EQ(R12(),
            "0 POINT\n8 0\n62 5\n10 0.0\n20 0.0\n30 0.0\n"
            "0 POINT\n8 0\n62 0\n10 0.0\n20 0.0\n30 0.0\n"
            "0 POINT\n8 0\n10 0.0\n20 0.0\n30 0.0\n");
}

TEST_F(DxfWriterEntities, ALine) {
  Add(cad::LineShape{{1, 2, 3}, {4, 5, 6}});
  const std::string ends = "10 1.0\n20 2.0\n30 3.0\n11 4.0\n21 5.0\n31 6.0\n";
  EXPECT_EQ(InR12("LINE"), ends);
  EXPECT_EQ(In2000("LINE", "AcDbLine"), ends);
}

TEST_F(DxfWriterEntities, ACircle) {
  Add(cad::CircleShape{{1, 2, 3}, 0.5});
  const std::string circle = "10 1.0\n20 2.0\n30 3.0\n40 0.5\n";
  EXPECT_EQ(InR12("CIRCLE"), circle);
  EXPECT_EQ(In2000("CIRCLE", "AcDbCircle"), circle);
}

TEST_F(DxfWriterEntities, AnArcInDegrees) {
  Add(cad::ArcShape{{1, 2, 3}, 0.5, 350, 20.5});
  const std::string circle = "10 1.0\n20 2.0\n30 3.0\n40 0.5\n";
  const std::string arc = "50 350.0\n51 20.5\n";
  EXPECT_EQ(InR12("ARC"), circle + arc);
  EXPECT_EQ(In2000("ARC", "AcDbCircle"), circle + "100 AcDbArc\n" + arc);
}

TEST_F(DxfWriterEntities, AnEllipseInRadians) {
  Add(cad::EllipseShape{{1, 2, 3}, {4, 0, 0}, 0.25, 0, 360});
  EXPECT_EQ(In2000("ELLIPSE", "AcDbEllipse"),
            "10 1.0\n20 2.0\n30 3.0\n11 4.0\n21 0.0\n31 0.0\n40 0.25\n41 0.0\n"
            "42 6.283185307179586\n");
}

TEST_F(DxfWriterEntities, FacesOfThreeCornersHaveTheLastTwice) {
  Add(cad::FaceShape{{{0, 0, 1}, {1, 0, 2}, {1, 1, 3}}});
  const std::string corners =
      "10 0.0\n20 0.0\n30 1.0\n11 1.0\n21 0.0\n31 2.0\n"
      "12 1.0\n22 1.0\n32 3.0\n13 1.0\n23 1.0\n33 3.0\n";
  EXPECT_EQ(InR12("3DFACE"), corners);
  EXPECT_EQ(In2000("3DFACE", "AcDbFace"), corners);
}

TEST_F(DxfWriterEntities, SolidsHaveTheirLastCornersCrossed) {
  Add(cad::SolidShape{{{0, 0, 0}, {1, 0, 0}, {1, 1, 0}, {0, 1, 0}}});
  const std::string corners =
      "10 0.0\n20 0.0\n30 0.0\n11 1.0\n21 0.0\n31 0.0\n"
      "12 0.0\n22 1.0\n32 0.0\n13 1.0\n23 1.0\n33 0.0\n";
  EXPECT_EQ(InR12("SOLID"), corners);
  EXPECT_EQ(In2000("SOLID", "AcDbTrace"), corners);
}

TEST_F(DxfWriterEntities, ASolidOfThreeCorners) {
  Add(cad::SolidShape{{{0, 0, 0}, {1, 0, 0}, {1, 1, 0}}});
  EXPECT_EQ(InR12("SOLID"),
            "10 0.0\n20 0.0\n30 0.0\n11 1.0\n21 0.0\n31 0.0\n"
            "12 1.0\n22 1.0\n32 0.0\n13 1.0\n23 1.0\n33 0.0\n");
}

TEST_F(DxfWriterEntities, TextFromItsLowerLeftCorner) {
  Add(cad::TextShape{{1, 2, 3}, 0.5, 0, "wall"});
  const std::string text = "10 1.0\n20 2.0\n30 3.0\n40 0.5\n1 wall\n";
  EXPECT_EQ(InR12("TEXT"), text);
  EXPECT_EQ(In2000("TEXT", "AcDbText"), text + "100 AcDbText\n");
}

TEST_F(DxfWriterEntities, TurnedAndEmptyText) {
  Add(cad::TextShape{{1, 2, 3}, 0.5, -30, ""});
  EXPECT_EQ(InR12("TEXT"), "10 1.0\n20 2.0\n30 3.0\n40 0.5\n1 \n50 -30.0\n");
}

TEST_F(DxfWriterEntities, LinesOfTextBelowEachOtherInR12) {
  Add(cad::TextShape{{1, 20, 3}, 3, 0, "one\r\n\nthree"});
  EXPECT_EQ(R12(),
            "0 TEXT\n8 0\n10 1.0\n20 20.0\n30 3.0\n40 3.0\n1 one\n"
            "0 TEXT\n8 0\n10 1.0\n20 10.0\n30 3.0\n40 3.0\n1 three\n");
}

TEST_F(DxfWriterEntities, LinesOfTextThatGoesUpStandToItsRight) {
  Add(cad::TextShape{{1, 2, 3}, 3, 90, "one\ntwo"});
  EXPECT_EQ(R12(),
            "0 TEXT\n8 0\n10 1.0\n20 2.0\n30 3.0\n40 3.0\n1 one\n50 90.0\n"
            "0 TEXT\n8 0\n10 6.0\n20 2.0\n30 3.0\n40 3.0\n1 two\n50 90.0\n");
}

TEST_F(DxfWriterEntities, LinesOfTextAreOneMultiLineTextIn2000) {
  Add(cad::TextShape{{1, 2, 3}, 3, 0, "one\n{two}\\\n"});
  EXPECT_EQ(In2000("MTEXT", "AcDbMText"),
            "10 1.0\n20 5.0\n30 3.0\n40 3.0\n41 0.0\n71 1\n72 1\n"
            "1 one\\P\\{two\\}\\\\\\P\n73 2\n44 1.0\n");
}

TEST_F(DxfWriterEntities, TurnedMultiLineTextHasItsDirection) {
  Add(cad::TextShape{{1, 2, 3}, 3, 90, "one\ntwo"});
  EXPECT_EQ(In2000("MTEXT", "AcDbMText"),
            "10 -2.0\n20 2.0\n30 3.0\n40 3.0\n41 0.0\n71 1\n72 1\n1 one\\Ptwo\n"
            "11 0.0\n21 1.0\n31 0.0\n73 2\n44 1.0\n");
}

TEST_F(DxfWriterEntities, LongMultiLineTextGoesOnInFurtherLines) {
  const std::string words(1000, 'x');
  Add(cad::TextShape{{}, 1, 0, "a\n" + words});
  const std::string text = TextBetween(In2000("MTEXT", "AcDbMText"), "72 1\n3 ", "\n73 2\n");
  std::string joined;
  std::string_view rest = text;
  for (std::size_t end = 0; (end = rest.find('\n')) != std::string_view::npos;) {
    EXPECT_LE(end, 252U);
    joined += rest.substr(0, end);
    EXPECT_TRUE(rest.substr(end + 1, 2) == "3 " || rest.find('\n', end + 1) == rest.npos);
    rest.remove_prefix(end + 3);
  }
  EXPECT_EQ(joined.append(rest), "a\\P" + words);
}

TEST_F(DxfWriterEntities, LinesOfMultiLineTextDoNotEndAtBlanks) {
  Add(cad::TextShape{{}, 1, 0, std::string(200, 'x') + " aa bb\n"});
  EXPECT_NE(V2000().find("xx a\n1 a bb\\P\n"), std::string::npos) << V2000();
}

}  // namespace
