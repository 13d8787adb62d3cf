// Total-station jobs for computing coordinates.
#pragma once

#include <gtest/gtest.h>

#include <cmath>
#include <string>

#include "host/document/host_document.h"
#include "host/survey/compute.h"
#include "tests/support/current_settings.h"

namespace survey_test {

struct Observed {
  double slope;
  double zenith;
  double direction;
};

/// One job, filled by hand.
class SurveyTest : public testing::Test {
 protected:
  SurveyTest() { Jobs().AddJob(true)->SetNome("JOB"); }

  CLibCmp& Jobs() { return *document.GetLibCmp(); }

  void Known(const char* name, double east, double north, double elev = UndefinedValue) {
    CLibPnt& library = *document.GetLibPnt();
    if (library.GetGrpArSize() == 0) library.AddGrp(true);
    library.AddPtn(0, true)->SetNomCoord(name, "", east, north, elev);
  }
  void Control(const char* name, double east, double north, double elev = UndefinedValue) {
    Jobs().AddOri(true)->SetNomCoord(name, "", east, north, elev);
  }
  CSta& Station(const std::string& name, double height = 0, int job = 0) {
    CSta& station = *Jobs().AddSta(job, true);
    station.SetNome(tdk::WString(name));
    station.SetAltStr(height);
    return station;
  }
  CPun& Sight(CSta& from, const std::string& name, const Observed& seen, double prism = 0) {
    CPun& point = *Jobs().AddPun(&from, true);
    point.SetNome(tdk::WString(name));
    point.SetAltPri(prism);
    point.SetDtIntAng(seen.slope, seen.zenith, seen.direction, 0);
    return point;
  }
  /// A sight without errors, `turn` gon off (the azimuth of the zero direction).
  static Observed Exact(const Place& from, const Place& to, double turn = 0,
                        double instrumentHeight = 0) {
    const Observation it = Observe({from, instrumentHeight}, to, 0, turn);
    return {it.slopeDistance, it.zenith, it.horizontal};
  }
  static Observed FaceTwo(const Observed& seen) {
    return {seen.slope, 400 - seen.zenith, FullCircle(seen.direction + 200)};
  }

  const survey::JobResult& Compute() {
    result = survey::ComputeCoordinates(Jobs(), *document.GetLibPnt(), settings);
    return result.jobs[0];
  }
  static void ExpectAt(const CEgn& point, double east, double north, double elev,
                       double tolerance = 1e-9) {
    EXPECT_NEAR(point.GetCoordX(), east, tolerance) << point.NameUtf8();
    EXPECT_NEAR(point.GetCoordY(), north, tolerance) << point.NameUtf8();
    EXPECT_NEAR(point.GetCoordZ(), elev, tolerance) << point.NameUtf8();
  }
  static void ExpectNowhere(const CEgn& point) {
    EXPECT_FALSE(point.IsValidX() || point.IsValidY() || point.IsValidZ()) << point.NameUtf8();
  }
  /// How a target fitted; null when the set-up has no residual of that name.
  static const survey::TargetResidual* Residual(const survey::SetUpResult& setUp,
                                                std::string_view name) {
    for (const survey::TargetResidual& it : setUp.residuals) {
      if (it.name == name) return &it;
    }
    return nullptr;
  }

  HostDocument document;
  survey::ComputationSettings settings;
  survey::SurveyResult result;
};

}  // namespace survey_test
