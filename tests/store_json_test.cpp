// Jobs as JSON documents: what each key means, and that nothing changes on the way.
#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "support/stored_jobs.h"

namespace {

using stored_jobs::JsonOf;
using stored_jobs::Read;

struct StoreJson : testing::Test {
  HostDocument document;
  CLibCmp& surveys = *document.GetLibCmp();
  CLibGps& gps = *document.GetLibGps();
  CLibPnt& known = *document.GetLibPnt();
};

TEST_F(StoreJson, WritesWhatItReadByteForByte) {
  Read(stored_jobs::kFullJob, document);
  EXPECT_EQ(JsonOf(document), stored_jobs::kFullJob);
}

TEST_F(StoreJson, WritesAnEmptyJob) {
  EXPECT_EQ(JsonOf(document), R"({
  "jobs": [],
  "gpsGroups": [],
  "knownGroups": [],
  "controlPoints": [],
  "current": {},
  "terrain": [],
  "roads": [],
  "targets": {
    "cmp": 0,
    "gps": 0,
    "pnt": 0,
    "cts": 0,
    "gis": 0,
    "profile": 0
  },
  "settings": {}
}
)");
}

TEST_F(StoreJson, ReadsAnObservation) {
  Read(stored_jobs::kFullJob, document);
  const CPun& point = *surveys.GetPunAt(0, 0, 0);
  EXPECT_EQ(point.GetNome(), "P1");
  EXPECT_EQ(point.GetCode(), "TREE");
  EXPECT_EQ(point.GetTerScri(), "oak");
  EXPECT_EQ(point.GetCoordX(), 1);
  EXPECT_EQ(point.GetCoordY(), 2);
  EXPECT_EQ(point.GetCoordZ(), 3);
  EXPECT_TRUE(point.IsValidX() && point.IsValidY() && point.IsValidZ());
  EXPECT_EQ(point.GetDato0(), 12.5);
  EXPECT_EQ(point.GetDato1(), 99.5);
  EXPECT_EQ(point.GetDato2(), 200.25);
  EXPECT_EQ(point.GetAltPri(), 1.75);
  EXPECT_EQ(point.GetDateTime(), 18446744073709551615U);
  EXPECT_EQ(point.GetPrismType(), 4294967295U);
  EXPECT_EQ(point.GetPrismOffset(), -0.0175);
  EXPECT_TRUE(point.IsCode3D());
  EXPECT_FALSE(point.IsCodedNP());
  EXPECT_TRUE(surveys.GetPunAt(0, 0, 1)->IsCodedNP());
}

TEST_F(StoreJson, ReadsJobAndStation) {
  Read(stored_jobs::kFullJob, document);
  const CJob& job = *surveys.GetJobAt(0);
  EXPECT_EQ(job.GetNome(), "Bridge");
  EXPECT_EQ(job.GetOper(), "Rossi");
  EXPECT_EQ(job.GetStrum(), "TS 1");
  EXPECT_EQ(job.GetData(), "01/02/2024");
  EXPECT_EQ(job.GetTargetDrawing(), 1);
  const CSta& station = *surveys.GetStaAt(0, 0);
  EXPECT_EQ(station.GetNome(), "S1");
  EXPECT_EQ(station.GetIden(), "first");
  EXPECT_EQ(station.GetAltStr(), 1.5);
  EXPECT_EQ(station.GetTemper(), -5);
  EXPECT_EQ(station.GetPressi(), 1013.25);
  EXPECT_EQ(surveys.GetCurrSta(), surveys.GetStaAt(0, 1));
}

TEST_F(StoreJson, ReadsAGpsGroup) {
  Read(stored_jobs::kFullJob, document);
  const CGrpGps& group = *gps.GetGrpAt(0);
  EXPECT_EQ(group.GetNome(), "Base");
  EXPECT_EQ(group.GetNomeGrp(), "Day 1");
  EXPECT_EQ(group.GetData(), "02/02/2024");
  EXPECT_EQ(group.GetBaseLat(), 0.75);
  EXPECT_EQ(group.GetBaseLong(), 0.25);
  EXPECT_EQ(group.GetBaseElev(), 150.5);
  EXPECT_EQ(group.GetBaseAltAnt(), 2.5);
  double x = 0;
  double y = 0;
  double z = 0;
  group.GetGeocCeFaMis(x, y, z);
  EXPECT_EQ(x, 4500000.5);
  EXPECT_EQ(y, 900000.25);
  EXPECT_EQ(z, 4300000.125);
  EXPECT_EQ(group.GetTipoRicevitore(), 1);
  EXPECT_EQ(group.GetTipoRilievo(), 255);
  EXPECT_EQ(group.GetCrs(), "EPSG:32632");
  EXPECT_EQ(group.GetTargetDrawing(), 2);
  EXPECT_EQ(gps.GetCurrGrp(), &group);
}

TEST_F(StoreJson, ReadsAGpsPoint) {
  Read(stored_jobs::kFullJob, document);
  const CPunGps& point = *gps.GetPunAt(0, 0);
  EXPECT_EQ(point.GetLat(), 0.76);
  EXPECT_EQ(point.GetLong(), 0.26);
  EXPECT_EQ(point.GetElev(), 151.5);
  EXPECT_EQ(point.GetAltAnt(), 2);
  EXPECT_EQ(point.GetGdop(), 2.5);
  EXPECT_EQ(point.GetPdop(), 1.5);
  EXPECT_EQ(point.GetHposRms(), 0.01);
  EXPECT_EQ(point.GetVposRms(), 0.02);
  EXPECT_EQ(point.GetPosCov_xx(), 1);
  EXPECT_EQ(point.GetPosCov_xy(), 2);
  EXPECT_EQ(point.GetPosCov_xz(), 3);
  EXPECT_EQ(point.GetPosCov_yy(), 4);
  EXPECT_EQ(point.GetPosCov_yz(), 5);
  EXPECT_EQ(point.GetPosCov_zz(), 6);
  EXPECT_EQ(point.GetNuGpsUsed(), 9);
  EXPECT_EQ(point.GetNuGloUsed(), 255);
  EXPECT_EQ(point.GetYear(), 65535);
  EXPECT_EQ(point.GetMonth(), 12);
  EXPECT_EQ(point.GetDay(), 31);
  EXPECT_EQ(point.GetTod(), 86399999U);
  EXPECT_EQ(point.GetQua(), -1);
  EXPECT_TRUE(point.IsCodedNP());
}

TEST_F(StoreJson, ReadsKnownPointsControlsTargetsAndSettings) {
  Read(stored_jobs::kFullJob, document);
  tdk::WString labels[4];
  known.GetGrpAt(0)->GetLabels(labels[0], labels[1], labels[2], labels[3]);
  EXPECT_EQ(labels[0] + labels[1] + labels[2] + labels[3], "Fixedbcd");
  EXPECT_EQ(known.GetGrpAt(0)->GetTargetDrawing(), 3);
  EXPECT_EQ(known.GetPtnAt(0, 0)->GetTerScri(), "church");
  EXPECT_EQ(surveys.GetOriAt(0)->GetCoordZ(), 19);
  EXPECT_EQ(surveys.GetTargetDrawing(), 1);
  EXPECT_EQ(gps.GetTargetDrawing(), 2);
  EXPECT_EQ(known.GetTargetDrawing(), 3);
  EXPECT_EQ(document.GetCts()->GetTargetDrawing(), 4);
  EXPECT_EQ(document.GetLibGis()->GetTargetDrawing(), 5);
  EXPECT_EQ(document.GetLibProfile()->GetTargetDrawing(), 6);
  EXPECT_EQ(document.Settings().Get("Misure", "UnitaAngoli", ""), "2");
  EXPECT_EQ(document.Settings().Get("Misure", "Flag", ""), "true");
  EXPECT_EQ(document.Settings().Get("Importazione", "Folder", ""), "C:\\data");
}

// Undefined are coordinates, observations, positions and qualities; any other number is 0.
TEST_F(StoreJson, WhatIsLeftOutHasItsDefault) {
  Read(R"({"jobs":[{"stations":[{"points":[{}]}]}],"gpsGroups":[{"points":[{}]}],
           "knownGroups":[{"points":[{}]}],"controlPoints":[{}]})",
       document);
  EXPECT_EQ(JsonOf(document), R"({
  "jobs": [
    {
      "name": "",
      "operator": "",
      "instrument": "",
      "date": "",
      "targetDrawing": 0,
      "stations": [
        {
          "name": "",
          "desc2": "",
          "desc3": "",
          "x": null,
          "y": null,
          "z": null,
          "iden": "",
          "instrumentHeight": 0,
          "temperature": 0,
          "pressure": 0,
          "points": [
            {"name": "", "desc2": "", "desc3": "", "x": null, "y": null, "z": null, "slopeDistance": null, "zenith": null, "horizontal": null, "prismHeight": 0, "dateTime": 0, "prismType": 0, "prismOffset": 0, "code3D": false, "codedNP": false}
          ]
        }
      ]
    }
  ],
  "gpsGroups": [
    {
      "name": "",
      "desc2": "",
      "desc3": "",
      "x": null,
      "y": null,
      "z": null,
      "groupName": "",
      "date": "",
      "baseLat": null,
      "baseLong": null,
      "baseElev": null,
      "baseAntennaHeight": 0,
      "geocentric": null,
      "receiverType": 0,
      "surveyType": 0,
      "crs": "",
      "targetDrawing": 0,
      "points": [
        {"name": "", "desc2": "", "desc3": "", "x": null, "y": null, "z": null, "lat": null, "long": null, "elev": null, "antennaHeight": 0, "gdop": null, "pdop": null, "hrms": null, "vrms": null, "cov": null, "gpsUsed": 0, "glonassUsed": 0, "year": 0, "month": 0, "day": 0, "tod": 0, "quality": 0, "geocentric": null, "codedNP": false}
      ]
    }
  ],
  "knownGroups": [
    {
      "labels": ["", "", "", ""],
      "targetDrawing": 0,
      "points": [
        {"name": "", "desc2": "", "desc3": "", "x": null, "y": null, "z": null}
      ]
    }
  ],
  "controlPoints": [
    {"name": "", "desc2": "", "desc3": "", "x": null, "y": null, "z": null}
  ],
  "current": {},
  "terrain": [],
  "roads": [],
  "targets": {
    "cmp": 0,
    "gps": 0,
    "pnt": 0,
    "cts": 0,
    "gis": 0,
    "profile": 0
  },
  "settings": {}
}
)");
}

TEST_F(StoreJson, WhatAnObjectHoldsDoesNotReachTheNextOne) {
  Read(
      R"({"gpsGroups":[{"groupName":"a","geocentric":[1,2,3],"points":[{"cov":[1,2,3,4,5,6]},{}]},{}]})",
      document);
  EXPECT_EQ(gps.GetGrpAt(1)->GetNomeGrp(), "");
  EXPECT_EQ(gps.GetPunAt(0, 1)->GetPosCov_xx(), UndefinedFloat);
}

TEST_F(StoreJson, NullIsUndefinedWhereverANumberWithDecimalsStands) {
  Read(
      R"({"controlPoints":[{"x":null}],"gpsGroups":[{"baseAntennaHeight":null,"geocentric":[1,null,3],
           "points":[{"cov":null,"geocentric":null},{"cov":[null,2,null,4,5,6]}]}]})",
      document);
  EXPECT_FALSE(surveys.GetOriAt(0)->IsValidX());
  EXPECT_EQ(gps.GetGrpAt(0)->GetBaseAltAnt(), UndefinedValue);
  EXPECT_NE(JsonOf(document).find(R"("geocentric": [1, null, 3])"), std::string::npos);
  EXPECT_NE(JsonOf(document).find(R"("cov": [null, 2, null, 4, 5, 6])"), std::string::npos);
}

TEST_F(StoreJson, NumbersThatAreNoneBecomeNull) {
  const double values[] = {std::nan(""), HUGE_VAL, -HUGE_VAL, 8.5e199, UndefinedValue};
  for (const double value : values) surveys.AddOri(true)->SetCoord(value, -UndefinedValue, 1);
  const std::string json = JsonOf(document);
  std::size_t found = 0;
  const std::string line = R"("x": null, "y": -1.7e+200, "z": 1})";
  for (auto at = json.find(line); at != std::string::npos; at = json.find(line, at + 1)) ++found;
  EXPECT_EQ(found, std::size(values)) << json;
}

TEST_F(StoreJson, KeepsEveryBitOfANumber) {
  const double values[] = {-0.0,
                           5e-324,
                           -5e-324,
                           2.2250738585072014e-308,
                           -1e308,
                           0.1,
                           1.0 / 3,
                           1e22,
                           1e23,
                           9007199254740993.0,
                           std::nextafter(8.5e199, 0)};
  for (const double value : values) surveys.AddOri(true)->SetCoord(value, -value, 0.5);
  HostDocument copy;
  Read(JsonOf(document), copy);
  for (int i = 0; i < static_cast<int>(std::size(values)); ++i) {
    const double read = copy.GetLibCmp()->GetOriAt(i)->GetCoordX();
    EXPECT_EQ(std::memcmp(&read, &values[i], sizeof read), 0) << values[i] << " became " << read;
  }
}

TEST_F(StoreJson, ReadsNumbersHoweverTheyAreWritten) {
  Read(
      R"({"controlPoints":[{"x":1e2,"y":1.50,"z":-3},{"x":18446744073709551616,"y":1E-400,"z":1e250}]})",
      document);
  EXPECT_EQ(surveys.GetOriAt(0)->GetCoordX(), 100);
  EXPECT_EQ(surveys.GetOriAt(0)->GetCoordY(), 1.5);
  EXPECT_EQ(surveys.GetOriAt(0)->GetCoordZ(), -3);
  EXPECT_EQ(surveys.GetOriAt(1)->GetCoordX(), 18446744073709551616.0);
  EXPECT_EQ(surveys.GetOriAt(1)->GetCoordY(), 0);
  EXPECT_FALSE(surveys.GetOriAt(1)->IsValidZ());
}

TEST_F(StoreJson, RandomJobsComeBackAsTheyWere) {
  Random random;
  for (int i = 0; i < 50; ++i) {
    HostDocument job;
    stored_jobs::FillAtRandom(job, random);
    HostDocument copy;
    Read(JsonOf(job), copy);
    ASSERT_EQ(JsonOf(copy), JsonOf(job));
    ASSERT_EQ(copy.GetLibCmp()->GetJobArSize(), job.GetLibCmp()->GetJobArSize());
  }
}

TEST_F(StoreJson, BytesThatAreNoUtf8BecomeReplacementCharacters) {
  surveys.AddJob(true)->SetNome(tdk::WString(std::string("a\xFF")));
  HostDocument copy;
  Read(JsonOf(document), copy);
  EXPECT_EQ(copy.GetLibCmp()->GetJobAt(0)->GetNome(), "a\xEF\xBF\xBD");
}

TEST_F(StoreJson, SettingsAreNumbersFlagsOrTexts) {
  JobSettings& settings = document.Settings();
  for (const char* text :
       {"12", "-3", "007", "+5", "-0", "99999999999999999999", "1.5", "", "a\"b"}) {
    settings.Set("S", text, text);
  }
  settings.Set("Flags", "on", "true");
  settings.Set("Flags", "off", "false");
  settings.Set("Flags", "none", "True");
  EXPECT_NE(JsonOf(document).find(R"("settings": {
    "S": {
      "12": 12,
      "-3": -3,
      "007": "007",
      "+5": "+5",
      "-0": "-0",
      "99999999999999999999": "99999999999999999999",
      "1.5": "1.5",
      "": "",
      "a\"b": "a\"b"
    },
    "Flags": {
      "on": true,
      "off": false,
      "none": "True"
    }
  })"),
            std::string::npos)
      << JsonOf(document);
}

TEST_F(StoreJson, SectionsMayBeEmptyOrNull) {
  Read(R"({"gis":{},"cadastral":null})", document);
  Read(
      R"({"gis":null,"cadastral":{},"drawing":null,"current":null,"targets":null,
           "settings":null})",
      document);
  EXPECT_EQ(surveys.GetJobArSize(), 0);
}

TEST_F(StoreJson, WhatIsCurrentMayComeFirst) {
  Read(
      R"({"current":{"station":[0,0]},"jobs":[{"stations":[{"name":"S"}],"name":"after its stations"}]})",
      document);
  EXPECT_EQ(surveys.GetCurrSta(), surveys.GetStaAt(0, 0));
  EXPECT_EQ(surveys.GetJobAt(0)->GetNome(), "after its stations");
  EXPECT_EQ(gps.GetCurrGrp(), nullptr);
}

TEST_F(StoreJson, SkipsAByteOrderMarkAndTakesWindowsLineEnds) {
  Read("\xEF\xBB\xBF{\r\n\"jobs\": [{\r\n\"name\": \"J\"}]}\r\n", document);
  EXPECT_EQ(surveys.GetJobAt(0)->GetNome(), "J");
}

TEST_F(StoreJson, TellsHowFarItIs) {
  const TemporaryFolder folder;
  const std::string path = folder.File("job.json");
  stored_jobs::FillWithPoints(document, 10'000);
  std::vector<std::uint64_t> steps;
  SaveJob(path, document, [&](std::uint64_t done, std::uint64_t total) {
    EXPECT_EQ(total, 10'000U);
    steps.push_back(done);
  });
  EXPECT_EQ(steps, (std::vector<std::uint64_t>{4096, 8192}));
  HostDocument copy;
  int calls = 0;
  LoadJob(path, copy, [&](std::uint64_t done, std::uint64_t total) {
    EXPECT_LE(done, total);
    EXPECT_EQ(total, std::filesystem::file_size(path));
    ++calls;
  });
  EXPECT_EQ(calls, 2);
}

}  // namespace
