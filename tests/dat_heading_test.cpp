// The first records of the file, and what must be there before one is written.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/cadastral_jobs.h"

namespace {

using cadastral_jobs::Records;
using cadastral_jobs::Texts;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

class DatHeading : public testing::Test {
 protected:
  DatHeading() { cadastral_jobs::FillHeading(*document.GetCts()); }
  std::vector<std::string> Faults() { return Texts(cadastral_jobs::Compose(document).faults); }
  std::vector<std::string> Remarks() { return Texts(cadastral_jobs::Compose(document).remarks); }
  std::string Record(char type) {
    const auto records = Records(cadastral_jobs::Compose(document).bytes, type);
    return records.size() == 1 ? records[0] : "not one record";
  }

  HostDocument document;
  cadastre::Survey& survey = document.GetCts()->Survey();
  cadastre::Heading& heading = survey.heading;
};

TEST_F(DatHeading, HasItsFieldsInOrder) {
  survey.parcels = {"64", "65"};
  EXPECT_EQ(Record('0'), "0|20112025|12|H223|0170|64,65|ROSSI MARIO|GEOMETRA|MODENA|");
  EXPECT_EQ(Record('9'), "9|0|10|20|0|10.00-G|FR||");
  EXPECT_THAT(Faults(), IsEmpty());
}

TEST_F(DatHeading, PrecisionsThatAreGivenAreWritten) {
  heading.linearPrecision = 5;
  heading.angularPrecision = 7;
  heading.elevation = 51.7;
  heading.meanEast = 1632940.2;
  heading.note = "a note";
  EXPECT_EQ(Record('9'), "9|52|5|7|1632940|10.00-G|FR|A NOTE|");
}

TEST_F(DatHeading, MeansThatAreUndefinedAreNotGiven) {
  heading.elevation = UndefinedValue;
  heading.meanEast = UndefinedValue;
  EXPECT_EQ(Record('9'), "9|0|10|20|0|10.00-G|FR||");
}

TEST_F(DatHeading, EverythingThatIsMissingIsNamedAtOnce) {
  survey = {};
  EXPECT_THAT(Faults(), ElementsAre("missing in the cadastral data: date, municipality, sheet, "
                                    "technician, qualification, province, version, actType, "
                                    "parcels"));
  cadastral_jobs::FillHeading(*document.GetCts());
  heading.province.clear();
  EXPECT_THAT(Faults(), ElementsAre("missing in the cadastral data: province"));
}

TEST_F(DatHeading, AProtocolNumberMayBeMissing) {
  heading.protocol.clear();
  EXPECT_THAT(Faults(), IsEmpty());
  EXPECT_THAT(Record('0'), HasSubstr("0|20112025||H223|"));
  heading.protocol = "12/B";
  EXPECT_THAT(Faults(), ElementsAre("protocol: \"12/B\" is no number"));
}

TEST_F(DatHeading, ADateIsOneOfTheCalendar) {
  for (const char* date : {"29022024", "31122025", "01012000", "29022000"}) {
    heading.date = date;
    EXPECT_THAT(Faults(), IsEmpty()) << date;
  }
  for (const char* date : {"29022025", "31042025", "00012025", "32012025", "01132025", "20251120",
                           "2011202", "201120255", "20/11/25", "29021900"}) {
    heading.date = date;
    EXPECT_THAT(Faults(),
                ElementsAre("date: \"" + std::string(date) + "\" is no date of the form DDMMYYYY"));
  }
}

TEST_F(DatHeading, TheYearIsThatOfTheDate) {
  for (const char* year : {"2025", "25", ""}) {
    heading.year = year;
    EXPECT_THAT(Remarks(), ElementsAre("there are no observations")) << year;
  }
  heading.year = "2024";
  EXPECT_THAT(Remarks(), Contains("the year is 2024, but the date is 20112025"));
}

TEST_F(DatHeading, ASheetHasThreeDigitsAndItsAnnex) {
  const std::pair<const char*, const char*> sheets[] = {{"7", "0070"},    {"17", "0170"},
                                                        {"170", "1700"},  {"0170", "0170"},
                                                        {"017a", "017A"}, {"A230", "A230"}};
  for (const auto& [given, written] : sheets) {
    heading.sheet = given;
    EXPECT_THAT(Faults(), IsEmpty()) << given;
    EXPECT_THAT(Record('0'), HasSubstr(std::string("|H223|") + written + "|64|"));
  }
  for (const char* sheet : {"01700", "a", "1a", "AB30", "17 0"}) {
    heading.sheet = sheet;
    EXPECT_THAT(Faults(), Contains(HasSubstr("sheet: \""))) << sheet;
  }
}

TEST_F(DatHeading, CodesHaveTheirForm) {
  heading.municipality = "223H";
  heading.actType = "XY";
  EXPECT_THAT(Faults(),
              ElementsAre("municipality: \"223H\" is no code of a letter and three digits",
                          "actType: \"XY\" is none of FR, TM, MC, MA, FM, PA and no number"));
  heading.municipality = "h223";
  heading.actType = "7";
  EXPECT_THAT(Faults(), IsEmpty());
}

TEST_F(DatHeading, TextsAreInCapitalsWithoutAccents) {
  heading.technician = "D’Amì Nicolò";
  heading.province = "Forlì-Cesena";
  heading.qualification = "perito ½ €";
  EXPECT_EQ(Record('0'), "0|20112025|12|H223|0170|64|D'AMI NICOLO|PERITO ? EUR|FORLI-CESENA|");
  EXPECT_THAT(Remarks(), Contains("letters that the file cannot hold became ? (1)"));
}

TEST_F(DatHeading, NothingEndsAFieldOrTheLineBeforeItsTime) {
  heading.note = " a|b\r\nc\t ";
  EXPECT_EQ(Record('9'), "9|0|10|20|0|10.00-G|FR|A/B  C|");
  EXPECT_THAT(Remarks(), Contains("| in a text became / (1)"));
}

TEST_F(DatHeading, TheWordOfTheReportIsCutShort) {
  heading.note = "relazione tecnica, Tecnica";
  EXPECT_EQ(Record('9'), "9|0|10|20|0|10.00-G|FR|RELAZIONE TECN., TECN.|");
  EXPECT_THAT(Remarks(), Contains("the word TECNICA, which begins the report, became TECN. (2)"));
}

}  // namespace
