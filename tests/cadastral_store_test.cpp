// The cadastral survey in the job store.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sqlite3.h>

#include "support/cadastral_jobs.h"

namespace {

using stored_jobs::ComplaintOfJson;
using stored_jobs::ComplaintOfLoad;
using stored_jobs::JsonOf;
using stored_jobs::JsonOfStored;
using testing::HasSubstr;
using testing::Not;

constexpr std::string_view kMember = R"(  "cadastral": {
    "year": "2025",
    "protocol": "12",
    "date": "20112025",
    "municipality": "H223",
    "sheet": "17",
    "technician": "Rossi Mario",
    "qualification": "geometra",
    "province": "Modena",
    "elevation": 52.5,
    "linearPrecision": 10,
    "angularPrecision": 20,
    "meanEast": 1632940,
    "version": "10.00-G",
    "actType": "FR",
    "note": "due \"stazioni\"",
    "parcels": ["64", "65/a"],
    "traverses": [
      ["100", "200", "300"],
      [],
      ["300"]
    ],
    "contours": [
      {"type": "RC", "points": ["101", "103"]},
      {"type": "PV", "points": []}
    ],
    "fiducials": [
      {"name": "PF01/0170/H223", "north": 4952426.214, "east": null, "reliability": 11, "description": "tetto"}
    ]
  },
)";

std::string JobWith(std::string_view member) {
  return stored_jobs::JobWith(std::string(stored_jobs::kNoDesign) + std::string(member));
}

TEST(CadastralStore, ASurveyComesBackFromJsonAsItWas) {
  HostDocument document;
  stored_jobs::Read(JobWith(kMember), document);
  EXPECT_EQ(JsonOf(document), JobWith(kMember));
  EXPECT_EQ(document.GetCts()->GetAnno(), "2025");
  EXPECT_EQ(document.GetCts()->GetProt(), "12");
}

TEST(CadastralStore, ASurveyComesBackFromAFolderAsItWas) {
  const TemporaryFolder folder;
  HostDocument document;
  stored_jobs::Read(JobWith(kMember), document);
  SaveJob(folder.Path(), document);
  EXPECT_EQ(JsonOfStored(folder.Path()), JobWith(kMember));
}

TEST(CadastralStore, AJobWithoutOneHasNoMember) {
  HostDocument document;
  stored_jobs::Read(R"({"cadastral":null})", document);
  EXPECT_TRUE(document.GetCts()->IsEmpty());
  EXPECT_THAT(JsonOf(document), Not(HasSubstr("cadastral")));
}

TEST(CadastralStore, WhatIsLeftOutIsNotGiven) {
  HostDocument document;
  stored_jobs::Read(R"({"cadastral":{"fiducials":[{}],"contours":[{}]}})", document);
  const cadastre::Survey& survey = document.GetCts()->Survey();
  EXPECT_EQ(survey.heading, cadastre::Heading{});
  EXPECT_FALSE(IsDefined(survey.fiducials[0].north));
  EXPECT_EQ(survey.fiducials[0].reliability, 0);
  EXPECT_TRUE(survey.contours[0].points.empty());
}

TEST(CadastralStore, OneContourDoesNotReachTheNext) {
  HostDocument document;
  stored_jobs::Read(R"({"cadastral":{"contours":[{"points":["a"],"type":"NC"},{"points":["b"]}]}})",
                    document);
  EXPECT_EQ(document.GetCts()->Survey().contours[1], (cadastre::Contour{{"b"}, ""}));
}

TEST(CadastralStore, RefusesWhatDoesNotBelongThere) {
  EXPECT_EQ(ComplaintOfJson(R"({"cadastral":{"year":2024}})"),
            "cadastral.year: expected a text, found 2024");
  EXPECT_EQ(ComplaintOfJson(R"({"cadastral":{"anno":"2024"}})"), "cadastral: unknown key \"anno\"");
  EXPECT_EQ(ComplaintOfJson(R"({"cadastral":[]})"), "cadastral: a list does not belong here");
  EXPECT_EQ(ComplaintOfJson(R"({"cadastral":5})"), "cadastral: expected an object, found 5");
  EXPECT_EQ(ComplaintOfJson(R"({"cadastral":{"parcels":"64"}})"),
            "cadastral.parcels: expected a list, found \"64\"");
  EXPECT_EQ(ComplaintOfJson(R"({"cadastral":{"parcels":["64",65]}})"),
            "cadastral.parcels[1]: expected a text, found 65");
  EXPECT_EQ(ComplaintOfJson(R"({"cadastral":{"parcels":[["64"]]}})"),
            "cadastral.parcels[0]: a list does not belong here");
  EXPECT_EQ(ComplaintOfJson(R"({"cadastral":{"traverses":["100"]}})"),
            "cadastral.traverses[0]: expected a list, found \"100\"");
  EXPECT_EQ(ComplaintOfJson(R"({"cadastral":{"contours":[{"points":[null]}]}})"),
            "cadastral.contours[0].points[0]: expected a text, found null");
  EXPECT_EQ(ComplaintOfJson(R"({"cadastral":{"linearPrecision":1.5}})"),
            "cadastral.linearPrecision: expected a whole number from -2147483648 to 2147483647, "
            "found 1.5");
}

class CadastralFolder : public testing::Test {
 protected:
  CadastralFolder() {
    HostDocument document;
    stored_jobs::Read(JobWith(kMember), document);
    SaveJob(folder.Path(), document);
  }
  void RunSql(const std::string& sql) {
    sqlite3* database = nullptr;
    ASSERT_EQ(sqlite3_open(folder.File(kJobDatabaseName).c_str(), &database), SQLITE_OK);
    EXPECT_EQ(sqlite3_exec(database, sql.c_str(), nullptr, nullptr, nullptr), SQLITE_OK) << sql;
    sqlite3_close(database);
  }
  const TemporaryFolder folder;
};

TEST_F(CadastralFolder, AJobOfAnOlderVersionHasNone) {
  for (const char* table : {"", "_parcels", "_traverses", "_traverse_vertices", "_contours",
                            "_contour_vertices", "_fiducials"}) {
    RunSql(std::string("DROP TABLE cadastre") + table);
  }
  RunSql("PRAGMA user_version = 3");
  EXPECT_EQ(JsonOfStored(folder.Path()), JobWith(""));
}

TEST_F(CadastralFolder, TellsOfPointsThatBelongToNothing) {
  const std::string reason = "the job is damaged: a cadastral record does not fit there";
  RunSql("INSERT INTO cadastre_contour_vertices VALUES (9, 'x')");
  EXPECT_THAT(ComplaintOfLoad(folder.Path()), HasSubstr(reason));
  RunSql("DELETE FROM cadastre_contour_vertices WHERE name = 'x'");
  EXPECT_EQ(ComplaintOfLoad(folder.Path()), "");
  RunSql("UPDATE cadastre_traverses SET vertices = 7");
  EXPECT_THAT(ComplaintOfLoad(folder.Path()), HasSubstr(reason));
}

}  // namespace
