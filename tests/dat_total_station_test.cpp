// Set-ups and observations in the file.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "services/ini_file.h"
#include "support/cadastral_jobs.h"

namespace {

using cadastral_jobs::Records;
using cadastral_jobs::Texts;
using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;

class DatTotalStation : public testing::Test {
 protected:
  DatTotalStation() {
    cadastral_jobs::FillHeading(*document.GetCts());
    library.AddJob(true);
    AddStation("S");
  }
  CSta& AddStation(const char* name) {
    CSta* const station = library.AddSta(0, true);
    station->SetNome(name);
    station->SetAltStr(1.5);
    return *station;
  }
  CPun& Observe(const char* name, double slope, double zenith, double horizontal) {
    CPun* const point = library.AddPun(0, library.GetStaArSize(0) - 1, true);
    point->SetNome(name);
    point->SetDtIntAng(slope, zenith, horizontal, 0);
    return *point;
  }
  std::vector<std::string> Written(char type) {
    return Records(cadastral_jobs::Compose(document).bytes, type);
  }
  std::vector<std::string> Remarks() { return Texts(cadastral_jobs::Compose(document).remarks); }
  std::vector<std::string> Faults() { return Texts(cadastral_jobs::Compose(document).faults); }

  HostDocument document;
  CLibCmp& library = *document.GetLibCmp();
};

TEST_F(DatTotalStation, AnObservationWithAHeightHasSixFields) {
  Observe("P", 38.944, 100.238, 323.5725).SetAltPri(1.6);
  EXPECT_THAT(Written('1'), ElementsAre("1|S|1.500||"));
  EXPECT_THAT(Written('2'), ElementsAre("2|P|323.5725|100.2380|38.944|1.600||"));
  EXPECT_THAT(Faults(), IsEmpty());
}

TEST_F(DatTotalStation, StationsWithoutObservationsStandThereAndAreTold) {
  AddStation("T");
  AddStation("U");
  Observe("P", 10, 100, 0);
  AddStation("V");
  Observe("Q", UndefinedValue, 100, 0);
  EXPECT_THAT(Written('1'),
              ElementsAre("1|S|1.500||", "1|T|1.500||", "1|U|1.500||", "1|V|1.500||"));
  EXPECT_THAT(Remarks(),
              ElementsAre("observations without a distance or a direction are left out (1)",
                          "stations have no observations in the file (3)"));
}

TEST_F(DatTotalStation, ANameOfBlanksIsNone) {
  Observe(" \t", 10, 100, 0);
  AddStation("  ");
  EXPECT_THAT(Faults(), ElementsAre("a point that was observed from station S has no name",
                                    "a station has no name"));
}

TEST_F(DatTotalStation, WithoutAZenithAngleTheDistanceIsHorizontal) {
  Observe("P", 24.6855, UndefinedValue, 359.7077).SetSecScri("EDGE");
  EXPECT_THAT(Written('2'), ElementsAre("2|P|359.7077|24.686|EDGE|"));
}

TEST_F(DatTotalStation, WithoutAPrismHeightItIsZero) {
  Observe("P", 10, 100, 0).SetAltPri(UndefinedValue);
  EXPECT_THAT(Written('2'), ElementsAre("2|P|0.0000|100.0000|10.000|0.000||"));
}

TEST_F(DatTotalStation, AnInstrumentHeightIsAlwaysWritten) {
  library.GetStaAt(0, 0)->SetAltStr(UndefinedValue);
  EXPECT_THAT(Written('1'), ElementsAre("1|S|0.000||"));
}

TEST_F(DatTotalStation, ADirectionStaysWithinTheCircleAlsoWhenRounded) {
  Observe("a", 10, 100, 399.99996);
  Observe("b", 10, 100, -0.00001);
  Observe("c", 10, 100, 400);
  Observe("d", 10, UndefinedValue, -100);
  Observe("e", 10, 100, 1199.99994);
  EXPECT_THAT(
      Written('2'),
      ElementsAre("2|a|0.0000|100.0000|10.000|0.000||", "2|b|0.0000|100.0000|10.000|0.000||",
                  "2|c|0.0000|100.0000|10.000|0.000||", "2|d|300.0000|10.000||",
                  "2|e|399.9999|100.0000|10.000|0.000||"));
}

TEST_F(DatTotalStation, NoZeroHasASign) {
  Observe("a", 10, 100, -0.0).SetAltPri(-0.0004);
  EXPECT_THAT(Written('2'), ElementsAre("2|a|0.0000|100.0000|10.000|0.000||"));
}

TEST_F(DatTotalStation, APrismBelowItsPointHasASign) {
  Observe("a", 10, 100, 0).SetAltPri(-0.25);
  EXPECT_THAT(Written('2'), ElementsAre("2|a|0.0000|100.0000|10.000|-0.250||"));
}

TEST_F(DatTotalStation, AnObservationInFaceTwoIsWrittenAsInFaceOne) {
  Observe("a", 10, 301, 350);
  EXPECT_THAT(Written('2'), ElementsAre("2|a|150.0000|99.0000|10.000|0.000||"));
}

TEST_F(DatTotalStation, WhatWasNotMeasuredIsLeftOutAndTold) {
  Observe("a", UndefinedValue, 100, 1);
  Observe("b", 10, 100, UndefinedValue);
  Observe("c", 0, 100, 1);
  Observe("d", 10, 100, 1);
  EXPECT_EQ(Written('2').size(), 1U);
  EXPECT_THAT(Remarks(),
              ElementsAre("observations without a distance or a direction are left out (3)"));
}

TEST_F(DatTotalStation, APointSeenFromTwoSetUpsStandsUnderBoth) {
  Observe("a", 10, 100, 1);
  AddStation("T");
  Observe("a", 11, 100, 2);
  const std::string bytes = cadastral_jobs::Compose(document).bytes;
  EXPECT_THAT(bytes, testing::HasSubstr("1|S|1.500||\r\n2|a|1.0000|100.0000|10.000|0.000||\r\n"
                                        "1|T|1.500||\r\n2|a|2.0000|100.0000|11.000|0.000||\r\n"));
}

TEST_F(DatTotalStation, AllJobsAreInTheFile) {
  library.AddJob(true);
  library.AddSta(1, true)->SetNome("T");
  EXPECT_THAT(Written('1'), ElementsAre("1|S|1.500||", "1|T|0.000||"));
}

TEST_F(DatTotalStation, ANoteIsBothDescriptions) {
  CPun& point = Observe("a", 10, 100, 1);
  point.SetSecScri("WALL");
  point.SetTerScri("north à");
  EXPECT_THAT(Written('2'), ElementsAre("2|a|1.0000|100.0000|10.000|0.000|WALL north \xE0|"));
}

TEST_F(DatTotalStation, ANoteIsNeverANumber) {
  for (const char* code : {"12", "1.5", "3,4", "-7", " 8 "}) Observe("a", 10, 100, 1).SetCode(code);
  Observe("b", 10, 100, 1).SetCode("12A");
  EXPECT_THAT(Written('2'),
              ElementsAre(testing::EndsWith("|COD 12|"), testing::EndsWith("|COD 1.5|"),
                          testing::EndsWith("|COD 3,4|"), testing::EndsWith("|COD -7|"),
                          testing::EndsWith("|COD 8|"), testing::EndsWith("|12A|")));
  EXPECT_THAT(Remarks(), ElementsAre("notes that are numbers begin with COD (5)"));
}

TEST_F(DatTotalStation, ANameIsNeeded) {
  Observe("", 10, 100, 1);
  AddStation("");
  EXPECT_THAT(Faults(), ElementsAre("a point that was observed from station S has no name",
                                    "a station has no name"));
}

TEST_F(DatTotalStation, ALetterOutsideTheCodePageIsTold) {
  Observe("a\xE2\x88\x82?", 10, 100, 1);
  EXPECT_THAT(Written('2'), ElementsAre(testing::StartsWith("2|a??|")));
  EXPECT_THAT(Remarks(), ElementsAre("letters that the file cannot hold became ? (1)"));
}

TEST_F(DatTotalStation, PrismConstantsAreAddedWhereTheSettingsSaySo) {
  Observe("a", 10, 100, 1).SetPrismOffset(-0.03);
  EXPECT_THAT(Written('2'), ElementsAre("2|a|1.0000|100.0000|10.000|0.000||"));
  document.Settings().Set("Calcolo", "CostantePrisma", "true");
  JobSettings::MakeCurrent(&document.Settings());
  EXPECT_THAT(Written('2'), ElementsAre("2|a|1.0000|100.0000|9.970|0.000||"));
  JobSettings::MakeCurrent(nullptr);
}

}  // namespace
