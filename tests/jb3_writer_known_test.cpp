// The JB3 writer: known points and control records.
#include "tests/support/jb3_documents.h"

using namespace exchange_test;

namespace {

class Jb3WriterKnown : public Jb3Test {
 protected:
  /// What is written from the KnownPoints element on.
  std::string Body() {
    const std::string text = Written();
    const std::size_t start = text.find("    <KnownPoints");
    return start == std::string::npos ? "" : text.substr(start);
  }
};

TEST_F(Jb3WriterKnown, GroupsInOrderThenRecordsStandInOneElement) {
  for (const char* group : {"G", "empty group", "H"})
    Known().AddGrp(true)->SetLabels(group, "b", "c", "d");
  Known().AddPtn(0, true)->SetNome("1");
  Known().AddPtn(0, true)->SetNome("2");
  CPunPnt& third = *Known().AddPtn(2, true);
  third.SetNome("3");
  third.SetSecScri("nail");
  third.SetCoord(1.5, -2.25, 0);
  COri& first = *Jobs().AddOri(true);
  first.SetNome("A");
  first.SetSecScri("tower");
  first.SetCoord(10, 20, 30);
  Jobs().AddOri(true)->SetNome("B");
  EXPECT_EQ(Body(),
            "    <KnownPoints>\n"
            "        <KnownPoint name=\"1\" type=\"generic\" />\n"
            "        <KnownPoint name=\"2\" type=\"generic\" />\n"
            "        <KnownPoint name=\"3\" desc=\"nail\" type=\"generic\">\n"
            "            <PlaniCoords north=\"-2.250\" east=\"1.500\" elevation=\"0.000\" />\n"
            "        </KnownPoint>\n"
            "        <KnownPoint name=\"A\" desc=\"tower\" type=\"ctrl\">\n"
            "            <PlaniCoords north=\"20.000\" east=\"10.000\" elevation=\"30.000\" />\n"
            "        </KnownPoint>\n"
            "        <KnownPoint name=\"B\" type=\"ctrl\" />\n"
            "    </KnownPoints>\n"
            "</JB3>\n");
}

TEST_F(Jb3WriterKnown, RecordsAloneMakeTheElement) {
  Jobs().AddOri(true)->SetNome("A");
  EXPECT_EQ(Body(),
            "    <KnownPoints>\n"
            "        <KnownPoint name=\"A\" type=\"ctrl\" />\n"
            "    </KnownPoints>\n"
            "</JB3>\n");
}

TEST_F(Jb3WriterKnown, ElementIsTheLastOfTheRoot) {
  Known().AddGrp(true);
  Known().AddPtn(0, true);
  AddPoint();
  AddGpsPoint();
  const std::string text = Written();
  EXPECT_GT(text.find("<KnownPoints>"), text.rfind("</Job>"));
}

TEST_F(Jb3WriterKnown, CoordinatesAreLeftOutUnlessAllThreeAreDefined) {
  Known().AddGrp(true);
  Known().AddPtn(0, true)->SetCoord(1, UndefinedValue, 3);
  Jobs().AddOri(true)->SetCoord(UndefinedValue, 2, 3);
  EXPECT_FALSE(IsWritten("PlaniCoords"));
}

TEST_F(Jb3WriterKnown, PointsOfSeveralGroupsAreReadIntoOne) {
  for (int group = 0; group < 3; ++group) {
    Known().AddGrp(true);
    Known().AddPtn(group, true);
  }
  Written();
  HostDocument again;
  jb3::Jb3Reader(&parent, again, tdk::WString(folder.Path("out.jb3"))).Read();
  ASSERT_EQ(again.GetLibPnt()->GetGrpArSize(), 1);
  EXPECT_EQ(again.GetLibPnt()->GetPtnArSize(0), 3);
  EXPECT_EQ(again.GetLibPnt()->GetGrpAt(0)->GetNome(), tdk::WString("Grp01"));
}

TEST_F(Jb3WriterKnown, GroupsWithoutPointsAreNotReadAgain) {
  Known().AddGrp(true);
  Written();
  HostDocument again;
  jb3::Jb3Reader(&parent, again, tdk::WString(folder.Path("out.jb3"))).Read();
  EXPECT_EQ(again.GetLibPnt()->GetGrpArSize(), 0);
}

}  // namespace
