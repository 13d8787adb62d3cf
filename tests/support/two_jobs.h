// A small library for the tests of the total-station survey.
#pragma once

#include <gtest/gtest.h>

#include "model/total_station.h"

/// Two jobs; the first has stations A and B, the second C; A has two points.
struct TwoJobs : testing::Test {
  TwoJobs() {
    first = library.AddJob(true);
    second = library.AddJob(true);
    a = library.AddSta(0, true);
    b = library.AddSta(0, true);
    c = library.AddSta(1, true);
    firstPoint = library.AddPun(0, 0, true);
    secondPoint = library.AddPun(0, 0, true);
  }

  CLibCmp library;
  CJob* first;
  CJob* second;
  CSta* a;
  CSta* b;
  CSta* c;
  CPun* firstPoint;
  CPun* secondPoint;
  int job = -7;
  int sta = -8;
};
