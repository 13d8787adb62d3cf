// Adds that a host refuses.
#pragma once

enum class AddedKind {
  kJob,
  kStation,
  kPoint,
  kGpsGroup,
  kGpsPoint,
  kKnownGroup,
  kKnownPoint,
  kControlRecord,
  kTerrainModel,
  kRoad,
  kGisTable,
  kGisTheme
};

/// Asked before every add: a host may refuse (a licence's limit, a job that is locked), and the add
/// operation then returns null. A library without a policy refuses nothing.
class AddPolicy {
 public:
  virtual ~AddPolicy();
  virtual bool MayAdd(AddedKind kind) = 0;
};
