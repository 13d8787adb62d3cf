// The JB3 reader: which Job is what, where its stations go, and what an element without all its
// attributes leaves.
#include "tests/support/current_settings.h"
#include "tests/support/jb3_documents.h"

using namespace exchange_test;
using tdk::WString;

namespace {

class Jb3ReaderJobs : public Jb3Test {
 protected:
  /// Adds a job with that many stations, each with no points.
  void HaveJob(int stations) {
    Jobs().AddJob(true);
    for (int i = 0; i < stations; ++i) Jobs().AddSta(Jobs().GetJobArSize() - 1, true);
  }
  /// "job(station[point point]station[])" for all that the library holds.
  std::string Outline() {
    std::string text;
    for (int job = 0; job < Jobs().GetJobArSize(); ++job) {
      text += Jobs().GetJobAt(job)->GetNome().ToUtf8() + '(';
      for (int sta = 0; sta < Jobs().GetStaArSize(job); ++sta) {
        text += Jobs().GetStaAt(job, sta)->GetNome().ToUtf8() + '[';
        for (int pun = 0; pun < Jobs().GetPunArSize(job, sta); ++pun) {
          text += (pun > 0 ? " " : "") + Jobs().GetPunAt(job, sta, pun)->GetNome().ToUtf8();
        }
        text += ']';
      }
      text += ')';
    }
    return text;
  }
};

// ---- Jobs ----

TEST_F(Jb3ReaderJobs, KeepsJobsStationsAndPointsInTheOrderOfTheFile) {
  Read(
      "<Job name=\"A\"><Station name=\"S\"><Pnts><Pnt name=\"1\"/><Pnt name=\"2\"/></Pnts>"
      "</Station><Station name=\"T\"/></Job>"
      "<Job name=\"B\"><Station name=\"U\"><Pnts><Pnt name=\"3\"/></Pnts></Station></Job>");
  EXPECT_EQ(Outline(), "A(S[1 2]T[])B(U[3])");
}

TEST_F(Jb3ReaderJobs, FindsNoJobUnderANameOfSmallLetters) {
  Read("<job name=\"J\"><Station name=\"S\"/></job>");
  EXPECT_EQ(Outline(), "");
}

TEST_F(Jb3ReaderJobs, FindsNoLabelUnderANameOfCapitals) {
  Read("<Job Name=\"J\" OPERATOR=\"O\"><Station/></Job>");
  EXPECT_TRUE(Jobs().GetJobAt(0)->GetNome().IsEmpty());
  EXPECT_TRUE(Jobs().GetJobAt(0)->GetOper().IsEmpty());
}

TEST_F(Jb3ReaderJobs, KeepsEmptyLabelsEmpty) {
  Read("<Job name=\"\" operator=\"\" date=\"\"><Station name=\"\"/></Job>");
  EXPECT_EQ(Outline(), "([])");
  EXPECT_TRUE(Jobs().GetJobAt(0)->GetData().IsEmpty());
}

TEST_F(Jb3ReaderJobs, JobThatHoldsNothingButACommentIsNone) {
  Read("<Job name=\"J\"><!-- later --></Job>");
  EXPECT_EQ(Jobs().GetJobArSize(), 0);
}

TEST_F(Jb3ReaderJobs, JobThatBeginsWithTextHasNoStationFirst) {
  Read("<Job name=\"J\">text<Station name=\"S\"/></Job>");
  EXPECT_EQ(Outline(), "");
}

TEST_F(Jb3ReaderJobs, JobThatBeginsWithAnUnknownElementHasNoStationFirst) {
  HaveJob(0);
  Read("<Job name=\"J\"><Weather/><Station name=\"S\"/></Job>");
  EXPECT_EQ(Outline(), "(S[])");
}

TEST_F(Jb3ReaderJobs, StationOfNoJobIsLostWhenThereIsNoJob) {
  Read("<Job name=\"J\"><GpsBase/><Station name=\"S\"><Pnts><Pnt/></Pnts></Station></Job>");
  EXPECT_EQ(Outline(), "");
}

TEST_F(Jb3ReaderJobs, PointsOfAStationThatGoesToAnOlderJobLandInThatStation) {
  HaveJob(2);
  Read(
      "<Job name=\"X\"><GpsBase/><Station name=\"T\"><Pnts><Pnt name=\"1\"/><Pnt name=\"2\"/>"
      "</Pnts></Station></Job>");
  EXPECT_EQ(Outline(), "([][]T[1 2])");
}

TEST_F(Jb3ReaderJobs, StationOfAGpsJobGoesToTheJobReadLast) {
  Read(
      "<Job name=\"A\"><Station name=\"S\"/></Job><Job name=\"B\"><Station name=\"T\"/></Job>"
      "<Job name=\"X\"><GpsBase/><Station name=\"U\"><Pnts><Pnt name=\"1\"/></Pnts></Station>"
      "</Job>");
  EXPECT_EQ(Outline(), "A(S[])B(T[]U[1])");
}

TEST_F(Jb3ReaderJobs, GpsBaseAfterAStationMakesAGroupToo) {
  Read("<Job name=\"J\"><Station name=\"S\"/><GpsBase name=\"B\"/></Job>");
  EXPECT_EQ(Outline(), "J(S[])");
  ASSERT_EQ(Gps().GetGrpArSize(), 1);
  EXPECT_EQ(Gps().GetGrpAt(0)->GetNomeGrp(), WString("B"));
}

TEST_F(Jb3ReaderJobs, JobReadTwiceIsThereTwice) {
  const std::string job = "<Job name=\"J\"><Station name=\"S\"/></Job>";
  Read(job);
  Read(job);
  EXPECT_EQ(Outline(), "J(S[])J(S[])");
}

// ---- Stations ----

TEST_F(Jb3ReaderJobs, EveryListOfAStationIsRead) {
  Read(
      "<Job name=\"J\"><Station name=\"S\"><Pnts><Pnt name=\"1\"/></Pnts>"
      "<Pnts><Pnt name=\"2\"/></Pnts></Station></Job>");
  EXPECT_EQ(Outline(), "J(S[1 2])");
}

TEST_F(Jb3ReaderJobs, ListHoldsNoPointsOfAnotherName) {
  Read(
      "<Job name=\"J\"><Station name=\"S\"><Pnts><GpsPnt name=\"1\"/><pnt name=\"2\"/>"
      "<Pnt name=\"3\"/></Pnts><Pnt name=\"4\"/></Station></Job>");
  EXPECT_EQ(Outline(), "J(S[3])");
}

TEST_F(Jb3ReaderJobs, EmptyInstrumentHeightIsZero) {
  Read("<Job><Station instrument_height=\"\"/></Job>");
  EXPECT_EQ(Jobs().GetStaAt(0, 0)->GetAltStr(), 0);
}

TEST_F(Jb3ReaderJobs, CoordinatesBelowTheUndefinedLimitAreSet) {
  Read(
      "<Job><Station><PlaniCoords north=\"8.4e199\" east=\"-1e300\" "
      "elevation=\"0\"/></Station></Job>");
  EXPECT_EQ(Jobs().GetStaAt(0, 0)->GetCoordY(), 8.4e199);
  EXPECT_EQ(Jobs().GetStaAt(0, 0)->GetCoordX(), -1e300);
}

TEST_F(Jb3ReaderJobs, CoordinatesAtTheUndefinedLimitAreNotSet) {
  Read("<Job><Station><PlaniCoords north=\"8.5e199\" east=\"1\" elevation=\"2\"/></Station></Job>");
  EXPECT_FALSE(IsDefined(Jobs().GetStaAt(0, 0)->GetCoordX()));
}

TEST_F(Jb3ReaderJobs, CoordinatesThatAreNoNumbersAreZero) {
  Read("<Job><Station><PlaniCoords north=\"\" east=\"x\" elevation=\"7\"/></Station></Job>");
  EXPECT_EQ(Jobs().GetStaAt(0, 0)->GetCoordX(), 0);
  EXPECT_EQ(Jobs().GetStaAt(0, 0)->GetCoordY(), 0);
  EXPECT_EQ(Jobs().GetStaAt(0, 0)->GetCoordZ(), 7);
}

TEST_F(Jb3ReaderJobs, IncompleteCoordinatesLeaveThoseReadBefore) {
  const CPun& point = ReadPoint(
      "<PlaniCoords north=\"2\" east=\"1\" elevation=\"3\"/><PlaniCoords north=\"5\" east=\"4\"/>");
  EXPECT_EQ(point.GetCoordX(), 1);
  EXPECT_EQ(point.GetCoordY(), 2);
  EXPECT_EQ(point.GetCoordZ(), 3);
}

// ---- Observed points ----

TEST_F(Jb3ReaderJobs, DescriptionOfAPointIsItsCode) {
  Read("<Job><Station><Pnts><Pnt desc=\"WALL\"/></Pnts></Station></Job>");
  EXPECT_EQ(Jobs().GetPunAt(0, 0, 0)->GetCode(), WString("WALL"));
  EXPECT_TRUE(Jobs().GetPunAt(0, 0, 0)->GetNome().IsEmpty());
}

TEST_F(Jb3ReaderJobs, PointWithoutAnObservationHasNone) {
  const CPun& point = ReadPoint("<PlaniCoords north=\"2\" east=\"1\" elevation=\"3\"/>");
  EXPECT_FALSE(IsDefined(point.GetDato0()));
  EXPECT_FALSE(IsDefined(point.GetDato1()));
  EXPECT_FALSE(IsDefined(point.GetDato2()));
  EXPECT_FALSE(point.IsCode3D());
}

TEST_F(Jb3ReaderJobs, EmptyZenithIsUndefinedButMarksThePointAll) {
  const CPun& point = ReadPoint("<RawObservation zenit_angle=\"\" horiz_angle=\"5\"/>");
  EXPECT_EQ(point.GetDato1(), UndefinedValue);
  EXPECT_TRUE(point.IsCode3D());
}

TEST_F(Jb3ReaderJobs, ZenithUnderItsProperSpellingIsUnknown) {
  const CPun& point = ReadPoint("<RawObservation zenith_angle=\"99\" horiz_angle=\"5\"/>");
  EXPECT_EQ(point.GetDato1(), UndefinedValue);
}

TEST_F(Jb3ReaderJobs, SecondObservationReplacesTheWholeReading) {
  const CPun& point = ReadPoint(
      "<RawObservation horiz_angle=\"1\" zenit_angle=\"2\" slope_distance=\"3\"/>"
      "<RawObservation horiz_angle=\"4\"/>");
  EXPECT_EQ(point.GetDato2(), 4);
  EXPECT_EQ(point.GetDato1(), UndefinedValue);
  EXPECT_EQ(point.GetDato0(), UndefinedValue);
  EXPECT_TRUE(point.IsCode3D()) << "once 3D, it stays so";
}

TEST_F(Jb3ReaderJobs, EmptyDistanceIsZero) {
  const CPun& point =
      ReadPoint("<RawObservation horiz_angle=\"1\" zenit_angle=\"2\" slope_distance=\"\"/>");
  EXPECT_EQ(point.GetDato0(), 0);
}

TEST_F(Jb3ReaderJobs, EmptyTargetTypeTakesAnEarlierOneBack) {
  const CPun& point =
      ReadPoint("<RawObservation target_type=\"Sheet\"/><RawObservation target_type=\"\"/>");
  EXPECT_EQ(point.GetPrismType(), 0u);
}

TEST_F(Jb3ReaderJobs, MissingTargetTypeAndConstantLeaveEarlierOnes) {
  const CPun& point = ReadPoint(
      "<RawObservation target_type=\"Sheet\" prism_constant=\"-0.03\" target_height=\"2\"/>"
      "<RawObservation horiz_angle=\"1\"/>");
  EXPECT_EQ(point.GetPrismType(), 5u);
  EXPECT_EQ(point.GetPrismOffset(), -0.03);
  EXPECT_EQ(point.GetAltPri(), 2);
}

TEST_F(Jb3ReaderJobs, TargetTypeWithABlankMoreIsAnotherWord) {
  const CPun& point =
      ReadPoint("<RawObservation target_type=\"Sheet\"/><RawObservation target_type=\"Prism \"/>");
  EXPECT_EQ(point.GetPrismType(), 5u);
}

// The angle texts are those of the host's measure system; the file does not say their unit.
TEST_F(Jb3ReaderJobs, FileWrittenInDegreesIsReadWronglyInGon) {
  const CurrentSettings current;
  CIniFile().WriteShort("Misure", "UnitaAngoli", 1);
  AddPoint().SetDtIntAng(10, 100, 200, 0);
  const std::string inDegrees = Written();
  CIniFile().WriteShort("Misure", "UnitaAngoli", 0);
  ReadBytes(inDegrees);
  EXPECT_EQ(Jobs().GetPunAt(1, 0, 0)->GetDato1(), 90);
  EXPECT_EQ(Jobs().GetPunAt(1, 0, 0)->GetDato2(), 180);
  EXPECT_EQ(Jobs().GetPunAt(1, 0, 0)->GetDato0(), 10) << "lengths have no unit to mistake";
}

}  // namespace
