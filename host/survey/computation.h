// What a computation of coordinates is told, and what it tells.
#pragma once

#include <string>
#include <vector>

#include "host/survey/known_places.h"
#include "model/polar.h"

namespace survey {

struct ComputationSettings {
  Reduction reduction{};
  /// Whether prism constants are still to be added to the slope distances.
  bool addPrismOffset = false;
  /// Whether the coordinates that stations and points have are worked out anew.
  bool isAnew = false;
};

/// From the open job's settings, section "Calcolo".
ComputationSettings ReadComputationSettings();

/// How a set-up got its coordinates.
enum class SetUpMethod {
  kNone,
  kKept,      ///< it had them
  kKnown,     ///< its name is a known or control point
  kSighted,   ///< from set-ups that sighted it
  kResected,  ///< from known points that it sighted
  kAssumed,   ///< (0, 0, 0), for nothing is known
};

/// Why a set-up places no points.
enum class SetUpTrouble {
  kNone,
  kNotTied,        ///< nothing with coordinates sighted it or was sighted from it
  kTooFewSights,   ///< it sighted too few points with coordinates for a resection
  kUndetermined,   ///< it lies on one circle or line with the points that it sighted
  kDoesNotFit,     ///< its sights contradict each other
  kNoOrientation,  ///< it has coordinates but sighted no other point that has
};

/// A target with coordinates, as a set-up sighted it: sighted less computed.
struct TargetResidual {
  std::string name;
  double direction = 0;            ///< gon
  double across = 0;               ///< metres
  double along = UndefinedValue;   ///< metres; undefined without a distance
  double height = UndefinedValue;  ///< metres; undefined without elevations
  bool isUsed = false;             ///< for the orientation or the resection
  bool directionStandsOut = false;
  bool alongStandsOut = false;
  bool heightStandsOut = false;

  bool StandsOut() const { return directionStandsOut || alongStandsOut || heightStandsOut; }
};

/// Where a set-up stands and how it is oriented.
struct SetUpFix {
  SetUpMethod method = SetUpMethod::kNone;
  SetUpTrouble trouble = SetUpTrouble::kNotTied;
  Place mark;
  /// Azimuth of the zero direction, gon; undefined when there is none.
  double orientation = UndefinedValue;
  /// Standard deviation of a direction in the orientation, gon; 0 for a single target.
  double orientationSpread = 0;
  /// Standard deviation of a resected mark, metres; 0 when nothing is left over.
  double markSigma = 0;
};

struct SetUpResult : SetUpFix {
  int station = 0;  ///< index in its job
  std::string name;
  std::vector<TargetResidual> residuals;
  int placed = 0;   ///< points that got coordinates
  int kept = 0;     ///< points that had them
  int missing = 0;  ///< points that have none
};

enum class PointTrouble { kStation, kNoDistance, kNoAngle };

struct MissingPoint {
  int station = 0;
  int point = 0;
  PointTrouble trouble = PointTrouble::kStation;
};

/// A name that was sighted more than once, other than that of a set-up or a known point.
struct RepeatedPoint {
  std::string name;
  int sights = 0;
  Place mean;
  double spread = 0;        ///< metres: the largest distance of a sight from the mean, in plan
  double heightSpread = 0;  ///< metres
  /// Whether the points got the mean. Sights too far apart keep their own coordinates.
  bool isAveraged = false;
};

struct JobResult {
  int job = 0;
  std::string name;
  bool isAssumed = false;  ///< it was begun at (0, 0, 0)
  std::vector<SetUpResult> setUps;
  std::vector<RepeatedPoint> repeated;
  std::vector<MissingPoint> missing;
};

struct SurveyResult {
  std::vector<KnownClash> clashes;
  std::vector<JobResult> jobs;
};

}  // namespace survey
