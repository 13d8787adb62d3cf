#include "survey_words.h"

#include <cmath>

#include "console.h"
#include "counts.h"
#include "layout.h"
#include "services/number_text.h"
#include "services/translate.h"

namespace {

using survey::JobResult;
using survey::SetUpResult;
using survey::TargetResidual;
using tdk::WString;

WString Millimetres(double metres) { return StringDaDouble(metres * 1000, 0, 0); }
WString Metres(double value) { return StringDaDouble(value, 0, 3); }
WString Quoted(const std::string& name) { return WString(Printable(name)); }
WString Number(std::size_t count) { return WString(console::Number(count)); }

std::string Sentence(const char* pattern, std::initializer_list<WString> arguments) {
  return Fill(Xlate(pattern), arguments).ToUtf8();
}

void TellResidual(const SetUpResult& setUp, const TargetResidual& it, std::vector<Remark>& lines) {
  const WString station = Quoted(setUp.name);
  const WString target = Quoted(it.name);
  const auto tell = [&](std::string text) { lines.push_back({std::move(text), it.name}); };
  if (it.directionStandsOut) {
    const char* const pattern =
        it.isUsed ? ToXlate("station {1}: the direction to {2} is {3} gon ({4} mm) off")
                  : ToXlate(
                        "station {1}: the direction to {2} is {3} gon ({4} mm) off and was "
                        "left out");
    tell(Sentence(pattern,
                  {station, target, StringDaDouble(it.direction, 0, 4), Millimetres(it.across)}));
  }
  if (it.alongStandsOut) {
    tell(Sentence(ToXlate("station {1}: the distance to {2} is {3} mm off"),
                  {station, target, Millimetres(it.along)}));
  }
  if (it.heightStandsOut) {
    tell(Sentence(ToXlate("station {1}: the height of {2} is {3} mm off"),
                  {station, target, Millimetres(it.height)}));
  }
}

void TellRepeated(const survey::RepeatedPoint& it, std::vector<Remark>& lines) {
  if (it.isAveraged) return;
  lines.push_back(
      {Sentence(ToXlate("point {1} was measured {2} times, {3} m apart in plan and {4} m "
                        "in height: each keeps its own coordinates"),
                {Quoted(it.name), Number(static_cast<std::size_t>(it.sights)), Metres(it.spread),
                 Metres(it.heightSpread)}),
       it.name});
}

void TellClash(const survey::KnownClash& it, std::vector<Remark>& lines) {
  lines.push_back(
      {Sentence(ToXlate("known point {1} has two places: {2} {3} is used, {4} {5} is not"),
                {Quoted(it.name), Metres(it.used.x), Metres(it.used.y), Metres(it.other.x),
                 Metres(it.other.y)}),
       it.name});
}

std::vector<std::string> TextsOf(const std::vector<Remark>& remarks) {
  std::vector<std::string> texts;
  for (const Remark& remark : remarks) texts.push_back(remark.text);
  return texts;
}

// Stations and points that got coordinates.
Counts PlacedBy(const survey::SurveyResult& result) {
  Counts placed;
  for (const JobResult& job : result.jobs) {
    for (const SetUpResult& setUp : job.setUps) {
      const bool isNew =
          setUp.method != survey::SetUpMethod::kNone && setUp.method != survey::SetUpMethod::kKept;
      if (isNew) ++placed.stations;
      placed.points += static_cast<std::uint64_t>(setUp.placed);
    }
  }
  return placed;
}

}  // namespace

std::vector<std::string> SummaryLines(const survey::SurveyResult& result) {
  std::vector<std::string> lines;
  const Counts placed = PlacedBy(result);
  if (!placed.IsNothing()) {
    lines.push_back(
        Sentence(ToXlate("worked out the coordinates of {1}"), {WString(InWords(placed))}));
  }
  std::uint64_t missing = 0;
  for (const JobResult& job : result.jobs) missing += job.missing.size();
  if (missing != 0) {
    lines.push_back(console::Count(missing, Xlate("{1} point has no coordinates"),
                                   Xlate("{1} points have no coordinates")));
  }
  for (const JobResult& job : result.jobs) {
    if (!job.isAssumed) continue;
    for (const SetUpResult& setUp : job.setUps) {
      if (setUp.method != survey::SetUpMethod::kAssumed) continue;
      lines.push_back(Sentence(ToXlate("nothing is known of job {1}: station {2} stands at (0, 0, "
                                       "0) with orientation 0"),
                               {Quoted(job.name), Quoted(setUp.name)}));
      break;
    }
  }
  return lines;
}

std::vector<Remark> StrandedStations(const survey::SurveyResult& result) {
  std::vector<Remark> lines;
  for (const JobResult& job : result.jobs) {
    for (const SetUpResult& setUp : job.setUps) {
      if (setUp.trouble == survey::SetUpTrouble::kNone || setUp.missing == 0) continue;
      lines.push_back({Sentence(ToXlate("station {1} places no points: {2}"),
                                {Quoted(setUp.name), WString(InWords(setUp.trouble))}),
                       setUp.name});
    }
  }
  return lines;
}

std::vector<Remark> WhatStandsOut(const survey::SurveyResult& result) {
  std::vector<Remark> lines;
  for (const survey::KnownClash& it : result.clashes) TellClash(it, lines);
  for (const JobResult& job : result.jobs) {
    for (const SetUpResult& setUp : job.setUps) {
      for (const TargetResidual& it : setUp.residuals) TellResidual(setUp, it, lines);
    }
    for (const survey::RepeatedPoint& it : job.repeated) TellRepeated(it, lines);
  }
  return lines;
}

std::vector<std::string> Stranded(const survey::SurveyResult& result) {
  return TextsOf(StrandedStations(result));
}

std::vector<std::string> Findings(const survey::SurveyResult& result) {
  return TextsOf(WhatStandsOut(result));
}

std::string InWords(survey::SetUpMethod method) {
  using enum survey::SetUpMethod;
  switch (method) {
    case kKept: return Xlate("as it was").ToUtf8();
    case kKnown: return Xlate("known point").ToUtf8();
    case kSighted: return Xlate("sighted").ToUtf8();
    case kResected: return Xlate("resected").ToUtf8();
    case kAssumed: return Xlate("assumed").ToUtf8();
    case kNone: break;
  }
  return Xlate("none").ToUtf8();
}

std::string InWords(survey::SetUpTrouble trouble) {
  using enum survey::SetUpTrouble;
  switch (trouble) {
    case kNotTied: return Xlate("nothing ties it to what has coordinates").ToUtf8();
    case kTooFewSights:
      return Xlate(
                 "it saw too few points with coordinates: two with distances or three directions "
                 "are needed")
          .ToUtf8();
    case kUndetermined:
      return Xlate("it lies on one circle or line with the points that it saw").ToUtf8();
    case kDoesNotFit: return Xlate("what it saw does not fit together").ToUtf8();
    case kNoOrientation:
      return Xlate("it saw no other point that has coordinates, so its orientation is unknown")
          .ToUtf8();
    case kNone: break;
  }
  return {};
}

std::string InWords(survey::PointTrouble trouble) {
  using enum survey::PointTrouble;
  switch (trouble) {
    case kStation: return Xlate("its station has no coordinates or no orientation").ToUtf8();
    case kNoDistance: return Xlate("no distance").ToUtf8();
    case kNoAngle: break;
  }
  return Xlate("no angle").ToUtf8();
}

std::string InWords(NoPlane why) {
  using enum NoPlane;
  switch (why) {
    case kNoSystem: return Xlate("its group has no reference system (--crs)").ToUtf8();
    case kUnknownSystem: return Xlate("the reference system of its group is not known").ToUtf8();
    case kNoPosition: return Xlate("it has no GPS position").ToUtf8();
    case kOutside: break;
  }
  return Xlate("its position is not within the reference system").ToUtf8();
}
