#include "landxml_parts.h"

#include <algorithm>
#include <array>

#include "failure.h"
#include "services/translate.h"
#include "word_list.h"

namespace {

struct PartRow {
  std::string_view word;  // of the option
  std::string_view list;  // of the dialogs
  bool LandXmlParts::*member;
};
constexpr std::array kParts = {PartRow{"roads", "roads", &LandXmlParts::roads},
                               PartRow{"jobs", "jobs", &LandXmlParts::jobs},
                               PartRow{"gps", "gpsGroups", &LandXmlParts::gps},
                               PartRow{"points", "pointGroups", &LandXmlParts::points},
                               PartRow{"surfaces", "surfaces", &LandXmlParts::surfaces}};

}  // namespace

bool LandXmlParts::Has(std::string_view list) const {
  const auto* const row = std::find_if(kParts.begin(), kParts.end(),
                                       [&](const PartRow& each) { return each.list == list; });
  return row != kParts.end() && this->*row->member;
}

LandXmlParts ReadLandXmlParts(const Arguments& arguments) {
  if (!arguments.Has("--select")) return {};
  LandXmlParts parts{false, false, false, false, false};
  const std::vector<std::string> words = WordList(arguments.All("--select"));
  for (const std::string& word : words) {
    const auto* const row = std::find_if(kParts.begin(), kParts.end(),
                                         [&](const PartRow& each) { return each.word == word; });
    if (row == kParts.end()) {
      throw BadUsage(Fill(Xlate("--select: \"{1}\" is none of roads, jobs, gps, points, surfaces"),
                          {tdk::WString(word)})
                         .ToUtf8());
    }
    parts.*row->member = true;
  }
  if (words.empty()) throw BadUsage(Xlate("--select: nothing is named").ToUtf8());
  return parts;
}

Counts OfParts(Counts counts, const LandXmlParts& parts) {
  if (!parts.roads) counts.roads = 0;
  if (!parts.jobs) counts.jobs = counts.stations = counts.points = 0;
  if (!parts.gps) counts.gpsGroups = counts.gpsPoints = 0;
  if (!parts.points) counts.knownGroups = counts.knownPoints = 0;
  if (!parts.surfaces) counts.surfaces = counts.triangles = 0;
  return counts;
}
