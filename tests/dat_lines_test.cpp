// Traverses, contours and fiducial points in the file.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "services/ini_file.h"
#include "support/cadastral_jobs.h"
#include "support/dat_reader.h"

namespace {

using cadastral_jobs::Records;
using cadastral_jobs::Texts;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

class DatLines : public testing::Test {
 protected:
  DatLines() {
    cadastral_jobs::FillHeading(*document.GetCts());
    CLibCmp& library = *document.GetLibCmp();
    library.AddJob(true);
    for (const char* name : {"S", "T", "U"}) {
      library.AddSta(0, true)->SetNome(name);
      CPun* const point = library.AddPun(0, library.GetStaArSize(0) - 1, true);
      point->SetNome("P");
      point->SetDtIntAng(10, 100, 0, 0);
    }
  }
  std::vector<std::string> Written(char type) {
    return Records(cadastral_jobs::Compose(document).bytes, type);
  }
  std::vector<std::string> Remarks() { return Texts(cadastral_jobs::Compose(document).remarks); }
  std::vector<std::string> Faults() { return Texts(cadastral_jobs::Compose(document).faults); }

  HostDocument document;
  cadastre::Survey& survey = document.GetCts()->Survey();
};

TEST_F(DatLines, AContourHasItsPointsAndItsType) {
  survey.contours = {{{"S", "T", "S"}, "NC"}, {{"U"}, "PV"}};
  EXPECT_THAT(Written('7'), ElementsAre("7|3|S|T|S|NC|", "7|1|U|PV|"));
  EXPECT_THAT(Faults(), IsEmpty());
  EXPECT_THAT(Remarks(), IsEmpty());
}

TEST_F(DatLines, EveryTypeOfLineIsTaken) {
  for (const char* type : {"NC", "NT", "NP", "RC", "RT", "RP"}) {
    survey.contours = {{{"S", "T"}, type}};
    EXPECT_THAT(Faults(), IsEmpty()) << type;
  }
}

TEST_F(DatLines, AContourThatCannotBeDrawnIsNamedByItsNumber) {
  survey.contours = {{{"S", "T"}, "NC"}, {{"S", "T"}, "XX"}, {{"S"}, "RC"}, {{}, "PV"}};
  EXPECT_THAT(Faults(),
              ElementsAre("contour 2: \"XX\" is no type of line (NC, NT, NP, RC, RT, RP, PV)",
                          "contour 3 has too few points", "contour 4 has too few points"));
}

TEST_F(DatLines, AContourGoesOnInFurtherLinesWhereTheSettingsLimitThem) {
  document.Settings().Set("Catasto", "VerticiPerRiga", "2");
  JobSettings::MakeCurrent(&document.Settings());
  survey.contours = {{{"S", "T", "U", "P", "S"}, "NC"}, {{"S", "T"}, "RC"}};
  const std::string bytes = cadastral_jobs::Compose(document).bytes;
  JobSettings::MakeCurrent(nullptr);
  EXPECT_THAT(Records(bytes, '7'),
              ElementsAre("7|5|S|T|NC|", "7|0|U|P|NC|", "7|0|S|NC|", "7|2|S|T|RC|"));
  EXPECT_THAT(dat_reader::Read(bytes).contours,
              ElementsAre(dat_reader::Fields{"5", "S", "T", "U", "P", "S", "NC"},
                          dat_reader::Fields{"2", "S", "T", "RC"}));
}

TEST_F(DatLines, AContourIsOneLineWhereTheyDoNot) {
  cadastre::Contour contour{{}, "RC"};
  contour.points.assign(200, "S");
  survey.contours = {contour};
  EXPECT_EQ(Written('7').size(), 1U);
}

TEST_F(DatLines, APointOfAContourNeedsAName) {
  survey.contours = {{{"S", " ", "T"}, "NC"}};
  EXPECT_THAT(Faults(), ElementsAre("contour 1 has a point without a name"));
}

TEST_F(DatLines, PointsThatWouldHaveOneNameInTheFileAreNamed) {
  document.GetLibCmp()->GetStaAt(0, 0)->SetNome("\xCE\xB1");  // two Greek letters
  document.GetLibCmp()->GetStaAt(0, 1)->SetNome("\xCE\xB2");
  survey.contours = {{{"\xCE\xB1", "\xCE\xB2", " U "}, "NC"}};
  EXPECT_THAT(Faults(), ElementsAre("points \"\xCE\xB1\" and \"\xCE\xB2\" would have one name in "
                                    "the file"));
}

TEST_F(DatLines, AFiducialPointHasItsNorthFirst) {
  survey.fiducials = {{"S", 4952426.2144, 1632365.5224, 11, "roof"}};
  EXPECT_THAT(Written('8'), ElementsAre("8|S|4952426.214|1632365.522|11|roof|"));
  EXPECT_THAT(Faults(), IsEmpty());
}

TEST_F(DatLines, AFiducialPointWithoutPlaceOrReliabilityIsNamed) {
  survey.fiducials = {{"PF1", UndefinedValue, 1, 1, ""},
                      {"PF2", 1, 1, 13, ""},
                      {"", 1, 1, 12, ""},
                      {"PF3", 1, 1, 0, ""}};
  EXPECT_THAT(Faults(), ElementsAre("fiducial point PF1 has no north or no east",
                                    "fiducial point PF2: its reliability is not between 1 and 12",
                                    "a fiducial point has no name",
                                    "fiducial point PF3: its reliability is not between 1 and 12"));
}

TEST_F(DatLines, PointsThatNobodySurveyedAreNamedOnce) {
  survey.contours = {{{"S", "X", "Y", "X"}, "NC"}};
  survey.fiducials = {{"PF1", 1, 1, 1, ""}};
  EXPECT_THAT(Remarks(), ElementsAre("named but not surveyed: X, Y, PF1"));
}

TEST_F(DatLines, OfManyMissingPointsTheFirstAreNamed) {
  cadastre::Contour contour{{}, "NC"};
  for (char c = 'a'; c <= 'z'; ++c) contour.points.emplace_back(1, c);
  survey.contours = {contour};
  EXPECT_THAT(Remarks(), ElementsAre("named but not surveyed: a, b, c, d, e, f, g, h, i, j, …"));
}

TEST_F(DatLines, TraversesAreLeftOutAndTold) {
  survey.traverses = {{"S", "T"}, {"T", "U"}};
  EXPECT_THAT(Written('3'), IsEmpty());
  EXPECT_THAT(Remarks(), ElementsAre(HasSubstr("traverses are left out")));
}

TEST_F(DatLines, TraversesAreWrittenBeforeTheSurveyWhereTheSettingsAskForThem) {
  survey.traverses = {{"S", "T"}, {"T", "X"}};
  document.Settings().Set("Catasto", "Poligonali", "true");
  JobSettings::MakeCurrent(&document.Settings());
  EXPECT_THAT(cadastral_jobs::Compose(document).bytes,
              HasSubstr("|\r\n3|2|S|T|\r\n3|2|T|X|\r\n1|S|"));
  EXPECT_THAT(Remarks(), ElementsAre("named but not surveyed: X"));
  JobSettings::MakeCurrent(nullptr);
}

TEST_F(DatLines, ASeparatorInANameIsTheSameEverywhere) {
  document.GetLibCmp()->GetStaAt(0, 0)->SetNome("A|1");
  survey.contours = {{{"A|1", "T"}, "NC"}};
  EXPECT_THAT(Written('1'), Contains("1|A/1|0.000||"));
  EXPECT_THAT(Written('7'), ElementsAre("7|2|A/1|T|NC|"));
  EXPECT_THAT(Remarks(), ElementsAre("| in a text became / (2)"));
}

}  // namespace
