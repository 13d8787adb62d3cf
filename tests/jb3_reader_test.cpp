// The JB3 reader: the document, total-station jobs, stations and points.
#include "tests/support/add_policies.h"
#include "tests/support/current_settings.h"
#include "tests/support/exchange_jb2.h"
#include "tests/support/jb3_documents.h"

using namespace exchange_test;
using tdk::WString;

namespace {

using Jb3Reader = Jb3Test;

const std::string kStation = "<Station name=\"S\"/>";

// ---- The document ----

struct NoDocument {
  const char* name;
  std::string text;
};

class Jb3NoDocument : public Jb3Test, public testing::WithParamInterface<NoDocument> {};

TEST_P(Jb3NoDocument, IsRefusedAndChangesNothing) {
  EXPECT_FALSE(ReadBytes(GetParam().text));
  EXPECT_EQ(Jobs().GetJobArSize() + Gps().GetGrpArSize() + Known().GetGrpArSize(), 0);
  ASSERT_EQ(views.notes.size(), 1u);
  EXPECT_TRUE(views.messages.empty());
}

const std::string kRoot = "<JB3><Job>" + kStation + "</Job></JB3>";
INSTANTIATE_TEST_SUITE_P(
    Each, Jb3NoDocument,
    testing::Values(NoDocument{"WithoutDeclaration", kRoot},
                    NoDocument{"WithACommentAfterTheDeclaration",
                               kJb3Declaration + "<!-- made by hand -->" + kRoot},
                    NoDocument{"WithAnotherRoot", kJb3Declaration + "<JB2><Job/></JB2>"},
                    NoDocument{"WithTheRootInSmallLetters", kJb3Declaration + "<jb3/>"},
                    NoDocument{"WithoutARoot", kJb3Declaration}, NoDocument{"Empty", ""},
                    NoDocument{"WithAnElementBeforeTheRoot", kJb3Declaration + "<a/>" + kRoot}),
    [](const auto& each) { return std::string(each.param.name); });

TEST_F(Jb3Reader, TakesADeclarationOfAnySort) {
  EXPECT_TRUE(ReadBytes("<?xml version=\"1.0\"?>" + kRoot));
  EXPECT_EQ(Jobs().GetJobArSize(), 1);
}

TEST_F(Jb3Reader, ReturnsTrueAndChangesNothingForAnEmptyPath) {
  EXPECT_TRUE(jb3::Jb3Reader(&parent, document, "").Read());
  EXPECT_EQ(Jobs().GetJobArSize(), 0);
}

TEST_F(Jb3Reader, ReturnsTrueAndChangesNothingForAFileThatIsNotThere) {
  EXPECT_TRUE(jb3::Jb3Reader(&parent, document, WString(folder.Path("none"))).Read());
  EXPECT_EQ(Jobs().GetJobArSize(), 0);
  EXPECT_TRUE(views.messages.empty());
}

TEST_F(Jb3Reader, IgnoresUnknownElementsAndAttributes) {
  Read(
      "<Weather sun=\"1\"/><Job name=\"J\" colour=\"red\"><Station name=\"S\" tilt=\"2\">"
      "<Photo/><Pnts><Note/><Pnt name=\"P\" mood=\"good\"/></Pnts></Station><Rest/></Job>");
  EXPECT_EQ(Jobs().GetJobArSize(), 1);
  EXPECT_EQ(Jobs().GetPunArSize(0, 0), 1);
}

TEST_F(Jb3Reader, TellsTheHostOfOneBatchOfChanges) {
  BatchCounter batches;
  Jobs().GetCmpContext()->SetListener(&batches);
  Read("<Job>" + kStation + "</Job><Job>" + kStation + "</Job>");
  EXPECT_EQ(batches.begun, 1);
  EXPECT_EQ(batches.ended, 1);
}

TEST_F(Jb3Reader, WidensTextsFromTheCodePage) {
  Read("<Job name=\"Perch\xE8 \x80\">" + kStation + "</Job>");
  EXPECT_EQ(Jobs().GetJobAt(0)->GetNome(), WString("Perchè €"));
}

TEST_F(Jb3Reader, UnderstandsEntities) {
  Read("<Job name=\"a&amp;b &lt;&gt; &quot;&apos; &#65;\">" + kStation + "</Job>");
  EXPECT_EQ(Jobs().GetJobAt(0)->GetNome(), WString("a&b <> \"' A"));
}

TEST_F(Jb3Reader, ReadsLinesLongerThanItsPieces) {
  const std::string name(10'000, 'n');
  Read("<Job name=\"" + name + "\">" + kStation + "</Job>");
  EXPECT_EQ(Jobs().GetJobAt(0)->GetNome(), WString(name));
}

// ---- Jobs ----

TEST_F(Jb3Reader, ReadsTheLabelsOfAJob) {
  Read("<Job name=\"N\" operator=\"O\" instrument=\"I\" date=\"5 March\" time=\"now\">" + kStation +
       "</Job>");
  const CJob& job = *Jobs().GetJobAt(0);
  EXPECT_EQ(job.GetNome(), WString("N"));
  EXPECT_EQ(job.GetOper(), WString("O"));
  EXPECT_EQ(job.GetStrum(), WString("I"));
  EXPECT_EQ(job.GetData(), WString("5 March"));
}

TEST_F(Jb3Reader, DoesNotMakeAJobWithoutStationsAgain) {
  Read("<Job name=\"empty\"/>");
  EXPECT_EQ(Jobs().GetJobArSize(), 0);
}

TEST_F(Jb3Reader, MakesNoJobOfAGpsJobAndDoesNotUseItsName) {
  Read("<Job name=\"J\">" + kStation + "</Job><Job name=\"GPS\"><GpsBase name=\"B\"/></Job>");
  EXPECT_EQ(Jobs().GetJobArSize(), 1);
  EXPECT_EQ(Jobs().GetJobAt(0)->GetNome(), WString("J"));
  EXPECT_EQ(Gps().GetGrpArSize(), 1);
}

TEST_F(Jb3Reader, AddsAStationOfAJobThatBeginsOtherwiseToTheLastJob) {
  Read("<Job name=\"J\">" + kStation +
       "</Job><Job name=\"X\"><GpsBase/><Station name=\"T\"/></Job>");
  ASSERT_EQ(Jobs().GetJobArSize(), 1);
  ASSERT_EQ(Jobs().GetStaArSize(0), 2);
  EXPECT_EQ(Jobs().GetStaAt(0, 1)->GetNome(), WString("T"));
}

TEST_F(Jb3Reader, TakesACommentForAFirstChildThatIsNoStation) {
  Read("<Job name=\"X\"><!-- x -->" + kStation + "</Job>");
  EXPECT_EQ(Jobs().GetJobArSize(), 0);
}

TEST_F(Jb3Reader, AppendsToWhatIsThere) {
  Jobs().AddJob(true)->SetNome("before");
  Jobs().AddSta(0, true);
  Read("<Job name=\"J\"><Station name=\"S\"><Pnts><Pnt name=\"P\"/></Pnts></Station></Job>");
  ASSERT_EQ(Jobs().GetJobArSize(), 2);
  EXPECT_EQ(Jobs().GetPunArSize(0, 0), 0);
  EXPECT_EQ(Jobs().GetPunArSize(1, 0), 1);
}

// ---- Stations ----

TEST_F(Jb3Reader, ReadsAStation) {
  Read(
      "<Job><Station name=\"S\" desc=\"D\" instrument_height=\"1,582\">"
      "<PlaniCoords north=\"2\" east=\"1\" elevation=\"3\"/></Station></Job>");
  const CSta& station = *Jobs().GetStaAt(0, 0);
  EXPECT_EQ(station.GetNome(), WString("S"));
  EXPECT_EQ(station.GetSecScri(), WString("D"));
  EXPECT_EQ(station.GetAltStr(), 1.582);
  EXPECT_EQ(station.GetCoordX(), 1);
  EXPECT_EQ(station.GetCoordY(), 2);
  EXPECT_EQ(station.GetCoordZ(), 3);
  EXPECT_TRUE(station.IsValidX() && station.IsValidY() && station.IsValidZ());
}

TEST_F(Jb3Reader, LeavesIncompleteCoordinatesUndefined) {
  for (const char* place : {"north=\"1\" east=\"2\"", "", "north=\"1\" elevation=\"2\"",
                            "north=\"1\" east=\"2\" elevation=\"1e+200\""}) {
    const CPun& point = ReadPoint(std::string("<PlaniCoords ") + place + "/>");
    EXPECT_FALSE(IsDefined(point.GetCoordX())) << place;
    EXPECT_FALSE(IsDefined(point.GetCoordY())) << place;
    EXPECT_FALSE(point.IsValidX()) << place;
  }
}

// ---- Observed points ----

TEST_F(Jb3Reader, ReadsAnObservation) {
  const CPun& point = ReadPoint(
      "<RawObservation target_height=\"1.5\" horiz_angle=\"100.25\" zenit_angle=\"99.5\" "
      "slope_distance=\"12.3456\" target_type=\"Sheet\" prism_constant=\"0.034\"/>");
  EXPECT_EQ(point.GetAltPri(), 1.5);
  EXPECT_EQ(point.GetDato2(), 100.25);
  EXPECT_EQ(point.GetDato1(), 99.5);
  EXPECT_EQ(point.GetDato0(), 12.3456);
  EXPECT_EQ(point.GetPrismType(), 5u);
  EXPECT_EQ(point.GetPrismOffset(), 0.034);
  EXPECT_TRUE(point.IsCode3D());
  EXPECT_EQ(point.GetDateTime(), 0u);
}

TEST_F(Jb3Reader, LeavesWhatAnObservationLacksUndefined) {
  const CPun& point = ReadPoint("<RawObservation horiz_angle=\"10\"/>");
  EXPECT_EQ(point.GetDato2(), 10);
  EXPECT_EQ(point.GetDato1(), UndefinedValue);
  EXPECT_EQ(point.GetDato0(), UndefinedValue);
  EXPECT_FALSE(point.IsCode3D());
}

struct TargetWord {
  const char* word;
  unsigned type;
};

class Jb3TargetType : public Jb3Test, public testing::WithParamInterface<TargetWord> {};

TEST_P(Jb3TargetType, IsReadFromItsWord) {
  const CPun& point =
      ReadPoint("<RawObservation target_type=\"" + std::string(GetParam().word) + "\"/>");
  EXPECT_EQ(point.GetPrismType(), GetParam().type) << GetParam().word;
}

INSTANTIATE_TEST_SUITE_P(Each, Jb3TargetType,
                         testing::Values(TargetWord{"", 0}, TargetWord{"Prism", 1},
                                         TargetWord{"360 Prism", 2}, TargetWord{"Reflectorless", 3},
                                         TargetWord{"Sheet", 5}, TargetWord{"SMR", 6}));

TEST_F(Jb3Reader, LeavesTheTargetTypeForAnyOtherWord) {
  EXPECT_EQ(
      ReadPoint("<RawObservation target_type=\"SMR\"/><RawObservation target_type=\"prism\"/>")
          .GetPrismType(),
      6u);
}

TEST_F(Jb3Reader, ReadsAnglesInTheUnitOfTheHost) {
  const CurrentSettings current;
  CIniFile().WriteShort("Misure", "UnitaAngoli", 1);
  const CPun& degrees = ReadPoint("<RawObservation horiz_angle=\"90\" zenit_angle=\"45\"/>");
  EXPECT_NEAR(degrees.GetDato2(), 100, 1e-12);
  CIniFile().WriteShort("Misure", "UnitaAngoli", 2);
  const CPun& sexagesimal = ReadPoint(
      "<RawObservation horiz_angle=\"90\xB0"
      "30'00.0\"/>");
  EXPECT_NEAR(sexagesimal.GetDato2(), 90.5 / 0.9, 1e-9);
}

TEST_F(Jb3Reader, ReadsAFileOfAnotherAngleUnitWrongly) {
  const CurrentSettings current;
  AddPoint().SetDtIntAng(10, 100, 200, 0);
  const std::string inGon = Written();
  CIniFile().WriteShort("Misure", "UnitaAngoli", 1);
  ReadBytes(inGon);
  EXPECT_NEAR(Jobs().GetPunAt(1, 0, 0)->GetDato1(), 100 / 0.9, 1e-9);
}

// ---- A host that refuses ----

TEST_F(Jb3Reader, SkipsAJobThatTheHostRefuses) {
  RefuseAfter none(0);
  Jobs().SetAddPolicy(&none);
  Read("<Job>" + kStation + "</Job>");
  EXPECT_EQ(Jobs().GetJobArSize(), 0);
}

TEST_F(Jb3Reader, SkipsAStationThatTheHostRefusesAndReadsOn) {
  RefuseKinds stations({AddedKind::kStation});
  Jobs().SetAddPolicy(&stations);
  Read("<Job><Station/><Station/></Job><Job><Station/></Job>");
  EXPECT_EQ(Jobs().GetJobArSize(), 2);
  EXPECT_EQ(Jobs().GetStaArSize(0), 0);
}

TEST_F(Jb3Reader, SkipsTheRestOfAListAtTheFirstPointThatTheHostRefuses) {
  RefuseAfter three(3);  // job, station, one point
  Jobs().SetAddPolicy(&three);
  Read(
      "<Job><Station><Pnts><Pnt name=\"1\"/><Pnt name=\"2\"/><Pnt name=\"3\"/></Pnts>"
      "<PlaniCoords north=\"1\" east=\"2\" elevation=\"3\"/></Station></Job>");
  EXPECT_EQ(Jobs().GetPunArSize(0, 0), 1);
  EXPECT_EQ(Jobs().GetStaAt(0, 0)->GetCoordX(), 2) << "later children are still read";
}

}  // namespace
