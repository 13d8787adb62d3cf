// The JB3 reader: known points and control records.
#include "tests/support/jb3_documents.h"

using namespace exchange_test;
using tdk::WString;

namespace {

class Jb3ReaderKnown : public Jb3Test {
 protected:
  /// "Grp01[1 2]Grp02[3]" for all known points.
  std::string Groups() {
    std::string text;
    for (int group = 0; group < Known().GetGrpArSize(); ++group) {
      text += Known().GetGrpAt(group)->GetNome().ToUtf8() + '[';
      for (int i = 0; i < Known().GetPtnArSize(group); ++i) {
        text += (i > 0 ? " " : "") + Known().GetPtnAt(group, i)->GetNome().ToUtf8();
      }
      text += ']';
    }
    return text;
  }
  std::string Records() {
    std::string text;
    for (int i = 0; i < Jobs().GetOriArSize(); ++i) {
      text += Jobs().GetOriAt(i)->GetNome().ToUtf8() + ' ';
    }
    return text;
  }
};

std::string Generic(const std::string& name, const std::string& children = "") {
  return "<KnownPoint name=\"" + name + "\" type=\"generic\">" + children + "</KnownPoint>";
}
std::string Control(const std::string& name) {
  return "<KnownPoint name=\"" + name + "\" type=\"ctrl\"/>";
}

TEST_F(Jb3ReaderKnown, GenericPointsAroundAControlRecordShareOneGroup) {
  Read("<KnownPoints>" + Control("A") + Generic("1") + Control("B") + Generic("2") +
       "</KnownPoints>");
  EXPECT_EQ(Groups(), "Grp01[1 2]");
  EXPECT_EQ(Records(), "A B ");
}

TEST_F(Jb3ReaderKnown, EmptyElementMakesNoGroup) {
  Read("<KnownPoints/><KnownPoints></KnownPoints>");
  EXPECT_EQ(Groups(), "");
}

TEST_F(Jb3ReaderKnown, PointsThatAreSkippedMakeNoGroup) {
  Read("<KnownPoints><KnownPoint name=\"1\" type=\"fixed\"/></KnownPoints><KnownPoints>" +
       Generic("2") + "</KnownPoints>");
  EXPECT_EQ(Groups(), "Grp01[2]");
}

TEST_F(Jb3ReaderKnown, GroupsCountFromThoseOfTheLibraryAndNotOfTheFile) {
  Known().AddGrp(true)->SetLabels("mine", "", "", "");
  Known().AddPtn(0, true)->SetNome("0");
  Read("<KnownPoints>" + Generic("1") + "</KnownPoints><KnownPoints>" + Control("A") +
       "</KnownPoints><KnownPoints>" + Generic("2") + "</KnownPoints>");
  EXPECT_EQ(Groups(), "mine[0]Grp02[1]Grp03[2]");
}

TEST_F(Jb3ReaderKnown, HundredthGroupHasThreeDigits) {
  for (int i = 0; i < 98; ++i) Known().AddGrp(true);
  Read("<KnownPoints>" + Generic("1") + "</KnownPoints><KnownPoints>" + Generic("2") +
       "</KnownPoints>");
  EXPECT_EQ(Known().GetGrpAt(98)->GetNome(), WString("Grp99"));
  EXPECT_EQ(Known().GetGrpAt(99)->GetNome(), WString("Grp100"));
}

TEST_F(Jb3ReaderKnown, GroupOfTheSameNameIsNotLookedUp) {
  Known().AddGrp(true);
  Known().GetGrpAt(0)->SetLabels("Grp02", "", "", "");
  Read("<KnownPoints>" + Generic("1") + "</KnownPoints>");
  EXPECT_EQ(Groups(), "Grp02[]Grp02[1]");
}

TEST_F(Jb3ReaderKnown, ElementWithinAJobIsNotRead) {
  Read("<Job><Station/><KnownPoints>" + Generic("1") + Control("A") + "</KnownPoints></Job>");
  EXPECT_EQ(Groups() + Records(), "");
}

TEST_F(Jb3ReaderKnown, PointOutsideAnElementIsNotRead) {
  Read(Generic("1") + Control("A"));
  EXPECT_EQ(Groups() + Records(), "");
}

TEST_F(Jb3ReaderKnown, TypeInCapitalsIsAnotherType) {
  Read("<KnownPoints><KnownPoint type=\"CTRL\"/><KnownPoint type=\"GENERIC\"/></KnownPoints>");
  EXPECT_EQ(Groups() + Records(), "");
}

TEST_F(Jb3ReaderKnown, GenericPointDoesNotInheritTheCoordinatesBeforeIt) {
  Read("<KnownPoints>" + Generic("1", "<PlaniCoords north=\"1\" east=\"2\" elevation=\"3\"/>") +
       Generic("2", "<PlaniCoords north=\"4\"/>") + "</KnownPoints>");
  EXPECT_EQ(Known().GetPtnAt(0, 0)->GetCoordX(), 2);
  EXPECT_FALSE(IsDefined(Known().GetPtnAt(0, 1)->GetCoordX()));
  EXPECT_FALSE(IsDefined(Known().GetPtnAt(0, 1)->GetCoordY()));
}

TEST_F(Jb3ReaderKnown, SkippedPointsCoordinatesGoToNoOther) {
  Read(
      "<KnownPoints><KnownPoint type=\"x\"><PlaniCoords north=\"1\" east=\"2\" elevation=\"3\"/>"
      "</KnownPoint>" +
      Generic("2") + "</KnownPoints>");
  EXPECT_FALSE(IsDefined(Known().GetPtnAt(0, 0)->GetCoordX()));
}

TEST_F(Jb3ReaderKnown, CoordinatesAreValidOnceRead) {
  Read("<KnownPoints>" + Generic("1", "<PlaniCoords north=\"1\" east=\"2\" elevation=\"3\"/>") +
       Generic("2") + "</KnownPoints>");
  const CPunPnt& with = *Known().GetPtnAt(0, 0);
  EXPECT_TRUE(with.IsValidX() && with.IsValidY() && with.IsValidZ());
  EXPECT_FALSE(Known().GetPtnAt(0, 1)->IsValidX());
}

TEST_F(Jb3ReaderKnown, ControlRecordsAreAppended) {
  Jobs().AddOri(true)->SetNome("before");
  Read("<KnownPoints>" + Control("A") + "</KnownPoints><KnownPoints>" + Control("B") +
       "</KnownPoints>");
  EXPECT_EQ(Records(), "before A B ");
}

TEST_F(Jb3ReaderKnown, KnownPointsBeforeTheJobsAreReadToo) {
  Read("<KnownPoints>" + Generic("1") + "</KnownPoints><Job name=\"J\"><Station/></Job>");
  EXPECT_EQ(Groups(), "Grp01[1]");
  EXPECT_EQ(Jobs().GetJobArSize(), 1);
}

}  // namespace
