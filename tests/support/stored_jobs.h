// Jobs for the tests of the store: as text, in memory, full of everything or at random.
#pragma once

#include <gtest/gtest.h>

#include <cstring>
#include <iterator>
#include <string>
#include <string_view>
#include <system_error>

#include "host/document/host_document.h"
#include "host/store/job_store.h"
#include "support/random.h"
#include "support/temporary_folder.h"

namespace stored_jobs {

/// The JSON document of a job.
inline std::string JsonOf(HostDocument& document) {
  std::string text;
  WriteJobJson(document, [&](std::string_view piece) { text += piece; });
  return text;
}

/// The same of a job on disk.
inline std::string JsonOfStored(const std::string& path) {
  HostDocument document;
  LoadJob(path, document);
  return JsonOf(document);
}

/// Reads `json` into `document`.
inline void Read(std::string_view json, HostDocument& document) {
  const TemporaryFolder folder;
  LoadJob(folder.Write("job.json", json), document);
}

/// What a load of `path` complains of; empty: nothing.
inline std::string ComplaintOfLoad(const std::string& path) {
  HostDocument document;
  try {
    LoadJob(path, document);
  } catch (const JobError& error) {
    return error.what();
  }
  return {};
}

/// What a load of this document complains of, without the path of its file, which it must begin
/// with; "none": nothing.
template <class Error = JobError>
std::string ComplaintOfJson(std::string_view json) {
  const TemporaryFolder folder;
  const std::string path = folder.Write("job.json", json);
  HostDocument document;
  try {
    LoadJob(path, document);
  } catch (const Error& error) {
    const std::string text = error.what();
    EXPECT_EQ(text.substr(0, path.size() + 2), path + ": ");
    return text.substr(path.size() + 2);
  }
  return "none";
}

/// What a save complains of; empty: nothing.
inline std::string ComplaintOfSave(const std::string& path, HostDocument& document) {
  try {
    SaveJob(path, document);
  } catch (const JobError& error) {
    return error.what();
  }
  return {};
}

/// What the system says of an error, in the language of the process.
inline std::string InWords(std::errc error) { return std::make_error_code(error).message(); }

/// A job with no more in it than `members`, as it is written: two blanks before each of its lines.
inline std::string JobWith(std::string_view members) {
  return R"({
  "jobs": [],
  "gpsGroups": [],
  "knownGroups": [],
  "controlPoints": [],
  "current": {},
)" + std::string(members) +
         R"(  "targets": {
    "cmp": 0,
    "gps": 0,
    "pnt": 0,
    "cts": 0,
    "gis": 0,
    "profile": 0
  },
  "settings": {}
}
)";
}

/// What a job without terrain and roads has of them.
inline constexpr std::string_view kNoDesign = R"(  "terrain": [],
  "roads": [],
)";

/// A job in which no key, terrain, roads and the drawing aside, has the value that it has when left
/// out, as it is written.
inline constexpr std::string_view kFullJob = R"({
  "jobs": [
    {
      "name": "Bridge",
      "operator": "Rossi",
      "instrument": "TS 1",
      "date": "01/02/2024",
      "targetDrawing": 1,
      "stations": [
        {
          "name": "S1",
          "desc2": "nail",
          "desc3": "north side",
          "x": 1000.5,
          "y": 2000.25,
          "z": 300.125,
          "iden": "first",
          "instrumentHeight": 1.5,
          "temperature": -5,
          "pressure": 1013.25,
          "points": [
            {"name": "P1", "desc2": "TREE", "desc3": "oak", "x": 1, "y": 2, "z": 3, "slopeDistance": 12.5, "zenith": 99.5, "horizontal": 200.25, "prismHeight": 1.75, "dateTime": 18446744073709551615, "prismType": 4294967295, "prismOffset": -0.0175, "code3D": true, "codedNP": false},
            {"name": "P2", "desc2": "TREE", "desc3": "elm", "x": 4, "y": 5, "z": 6, "slopeDistance": 22.5, "zenith": 98.5, "horizontal": 201.25, "prismHeight": 1.25, "dateTime": 1700000000000, "prismType": 2, "prismOffset": 0.03, "code3D": false, "codedNP": true}
          ]
        },
        {
          "name": "S2",
          "desc2": "",
          "desc3": "",
          "x": null,
          "y": null,
          "z": null,
          "iden": "",
          "instrumentHeight": 0,
          "temperature": 0,
          "pressure": 0,
          "points": []
        }
      ]
    }
  ],
  "gpsGroups": [
    {
      "name": "Base",
      "desc2": "pillar",
      "desc3": "roof",
      "x": 10,
      "y": 20,
      "z": 30,
      "groupName": "Day 1",
      "date": "02/02/2024",
      "baseLat": 0.75,
      "baseLong": 0.25,
      "baseElev": 150.5,
      "baseAntennaHeight": 2.5,
      "geocentric": [4500000.5, 900000.25, 4300000.125],
      "receiverType": 1,
      "surveyType": 255,
      "crs": "EPSG:32632",
      "targetDrawing": 2,
      "points": [
        {"name": "G1", "desc2": "WALL", "desc3": "corner", "x": 11, "y": 21, "z": 31, "lat": 0.76, "long": 0.26, "elev": 151.5, "antennaHeight": 2, "gdop": 2.5, "pdop": 1.5, "hrms": 0.01, "vrms": 0.02, "cov": [1, 2, 3, 4, 5, 6], "gpsUsed": 9, "glonassUsed": 255, "year": 65535, "month": 12, "day": 31, "tod": 86399999, "quality": -1, "geocentric": [4500001.5, 900001.25, 4300001.125], "codedNP": true}
      ]
    }
  ],
  "knownGroups": [
    {
      "labels": ["Fixed", "b", "c", "d"],
      "targetDrawing": 3,
      "points": [
        {"name": "K1", "desc2": "BM", "desc3": "church", "x": 7, "y": 8, "z": 9}
      ]
    }
  ],
  "controlPoints": [
    {"name": "C1", "desc2": "AX", "desc3": "axis", "x": 17, "y": 18, "z": 19}
  ],
  "current": {
    "station": [0, 1],
    "gpsGroup": 0
  },
  "terrain": [],
  "roads": [],
  "targets": {
    "cmp": 1,
    "gps": 2,
    "pnt": 3,
    "cts": 4,
    "gis": 5,
    "profile": 6
  },
  "settings": {
    "Misure": {
      "UnitaAngoli": 2,
      "Flag": true,
      "Other": false
    },
    "Importazione": {
      "Folder": "C:\\data",
      "Negative": -7
    }
  }
}
)";

/// Any finite double, sign, zeros and denormals included; one in eight is undefined.
inline double AnyNumber(Random& random) {
  if (random.OneIn(8)) return UndefinedValue;
  const double usual[] = {0.0,    -0.0, 5e-324, -5e-324,           2.2250738585072009e-308,
                          -1e308, 0.1,  1e22,   9007199254740993.0};
  if (random.OneIn(4)) return usual[random.Whole<std::size_t>(0, std::size(usual) - 1)];
  const std::uint64_t bits = random.Bits();
  double number = 0;
  static_assert(sizeof number == sizeof bits);
  std::memcpy(&number, &bits, sizeof number);
  return IsDefined(number) ? number : random.Real(-1e7, 1e7);
}

inline tdk::WString AnyText(Random& random) {
  const std::string_view characters("aB1 \t\n\"\\/{}[]:,'\x01\x7f", 19);
  std::string text = random.Text(characters, random.Whole<std::size_t>(0, 20));
  if (random.OneIn(4))
    text += "\xC3\xA0\xE2\x82\xAC\xF0\x9F\x8C\xB2";  // of two, three and four bytes
  if (random.OneIn(8)) text += std::string("\0x", 2);
  return tdk::WString(text);
}

inline void FillPoint(CEgn& point, Random& random) {
  point.SetNomCoord(AnyText(random), AnyText(random), AnyNumber(random), AnyNumber(random),
                    AnyNumber(random));
  point.SetTerScri(AnyText(random));
}

inline void FillObservation(CPun& point, Random& random) {
  FillPoint(point, random);
  point.SetDtIntAng(AnyNumber(random), AnyNumber(random), AnyNumber(random), random.Bits());
  point.SetAltPri(AnyNumber(random));
  point.SetPrismOffset(AnyNumber(random));
  point.SetPrismType(static_cast<unsigned>(random.Bits()));
  point.SetCode3D(random.OneIn(2));
  point.SetCodedNP(random.OneIn(2));
}

inline float AnySingle(Random& random) { return ToSingle(AnyNumber(random)); }

inline void FillGpsPoint(CPunGps& point, Random& random) {
  FillPoint(point, random);
  point.SetLat(AnyNumber(random));
  point.SetLong(AnyNumber(random));
  point.SetElev(AnyNumber(random));
  point.SetAltAnt(AnyNumber(random));
  point.SetGdop(AnyNumber(random));
  point.SetVposRms(AnyNumber(random));
  point.SetPosCov_xx(AnySingle(random));
  point.SetPosCov_yz(AnySingle(random));
  point.SetNuGpsUsed(static_cast<std::uint8_t>(random.Bits()));
  point.SetYear(static_cast<std::uint16_t>(random.Bits()));
  point.SetTod(static_cast<std::uint32_t>(random.Bits()));
  point.SetQua(random.Whole(-1, 4));
  point.SetGeocCeFaMis(AnyNumber(random), AnyNumber(random), AnyNumber(random));
}

inline void FillTotalStation(CLibCmp& library, Random& random) {
  for (int job = random.Whole(0, 3); job > 0; --job) {
    CJob* const added = library.AddJob(true);
    added->SetLabels(AnyText(random), AnyText(random), AnyText(random), AnyText(random));
    added->SetTargetDrawing(random.Whole(0, 9));
    for (int sta = random.Whole(0, 3); sta > 0; --sta) {
      CSta* const station = library.AddSta(library.GetJobArSize() - 1, true);
      FillPoint(*station, random);
      station->SetIden(AnyText(random));
      station->SetTemper(AnyNumber(random));
      if (random.OneIn(3)) library.SetCurrSta(station);
      for (int pun = random.Whole(0, 5); pun > 0; --pun)
        FillObservation(*library.AddPun(station, true), random);
    }
  }
  for (int ori = random.Whole(0, 3); ori > 0; --ori) FillPoint(*library.AddOri(true), random);
}

/// Fills an empty document at random, its settings aside.
inline void FillAtRandom(HostDocument& document, Random& random) {
  FillTotalStation(*document.GetLibCmp(), random);
  CLibGps& gps = *document.GetLibGps();
  for (int grp = 0; grp < random.Whole(0, 3); ++grp) {
    CGrpGps* const group = gps.AddGrp(true);
    FillPoint(*group, random);
    group->SetNomeGrp(AnyText(random));
    group->SetBaseLong(AnyNumber(random));
    group->SetTipoRilievo(static_cast<std::uint8_t>(random.Bits()));
    if (random.OneIn(2)) gps.SetCurrGrp(group);
    for (int pun = random.Whole(0, 5); pun > 0; --pun)
      FillGpsPoint(*gps.AddPun(gps.GetGrpArSize() - 1, true), random);
  }
  CLibPnt& known = *document.GetLibPnt();
  for (int grp = 0; grp < random.Whole(0, 3); ++grp) {
    known.AddGrp(true)->SetLabels(AnyText(random), AnyText(random), AnyText(random),
                                  AnyText(random));
    for (int ptn = random.Whole(0, 5); ptn > 0; --ptn)
      FillPoint(*known.AddPtn(known.GetGrpArSize() - 1, true), random);
  }
}

/// A job with `points` points from one station.
inline void FillWithPoints(HostDocument& document, int points) {
  CLibCmp& library = *document.GetLibCmp();
  library.AddJob(true);
  CSta* const station = library.AddSta(0, true);
  for (int i = 0; i < points; ++i) library.AddPun(station, true)->SetDtIntAng(i, 100, i, 0);
}

}  // namespace stored_jobs
