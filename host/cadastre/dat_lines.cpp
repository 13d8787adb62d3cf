#include "host/cadastre/dat_lines.h"

#include <algorithm>
#include <array>
#include <limits>
#include <set>
#include <span>
#include <string_view>

#include "platform/numbers.h"
#include "services/ini_file.h"
#include "services/translate.h"

namespace dat {
namespace {

constexpr int kLengthDecimals = 3;
constexpr int kBestReliability = 1;
constexpr int kWorstReliability = 12;

// Drawn in black, then in red, dashed and dotted ones included; the last is a vertex alone.
constexpr std::string_view kLoneVertex = "PV";
constexpr auto kLineTypes =
    std::to_array<std::string_view>({"NC", "NT", "NP", "RC", "RT", "RP", kLoneVertex});

tdk::WString Number(std::int64_t value) {
  std::string text;
  platform::AppendWhole(text, value);
  return tdk::WString(text);
}

using Names = std::span<const std::string>;

void WriteVertices(DatLine& line, std::size_t count, Names points) {
  line.Whole(static_cast<std::int64_t>(count));
  for (const std::string& point : points) line.Named(point);
}

// How many vertices a line may have; no one tells what readers take, so all of them at first.
std::size_t MostVertices() {
  const std::int32_t most = CIniFile().ReadLong("Catasto", "VerticiPerRiga", 0);
  return most > 0 ? static_cast<std::size_t>(most) : std::numeric_limits<std::size_t>::max();
}

// The first line tells how many vertices there are in all, and those that continue it tell 0.
void WriteContour(const cadastre::Contour& contour, std::size_t most, DatDraft& draft) {
  std::size_t count = contour.points.size();
  Names rest = contour.points;
  do {
    const Names points = rest.first(std::min(most, rest.size()));
    DatLine line(draft, '7');
    WriteVertices(line, count, points);
    line.Put(contour.type);
    rest = rest.subspan(points.size());
    count = 0;
  } while (!rest.empty());
}

void CheckContour(const cadastre::Contour& contour, std::int64_t number, DatDraft& draft) {
  const bool isKnown =
      std::find(kLineTypes.begin(), kLineTypes.end(), contour.type) != kLineTypes.end();
  if (!isKnown) {
    draft.Fault(Fill(Xlate("contour {1}: \"{2}\" is no type of line (NC, NT, NP, RC, RT, RP, PV)"),
                     {Number(number), tdk::WString(contour.type)}));
  }
  const std::size_t least = contour.type == kLoneVertex ? 1 : 2;
  if (contour.points.size() < least) {
    draft.Fault(Fill(Xlate("contour {1} has too few points"), {Number(number)}));
  }
  if (std::any_of(contour.points.begin(), contour.points.end(), IsNameless)) {
    draft.Fault(Fill(Xlate("contour {1} has a point without a name"), {Number(number)}));
  }
}

void CheckFiducial(const cadastre::Fiducial& point, DatDraft& draft) {
  const auto tell = [&](const tdk::WString& pattern) {
    draft.Fault(Fill(pattern, {tdk::WString(point.name)}));
  };
  if (IsNameless(point.name)) draft.Fault(Xlate("a fiducial point has no name"));
  if (!IsDefined(point.north) || !IsDefined(point.east)) {
    tell(Xlate("fiducial point {1} has no north or no east"));
  }
  if (point.reliability < kBestReliability || point.reliability > kWorstReliability) {
    tell(Xlate("fiducial point {1}: its reliability is not between 1 and 12"));
  }
}

}  // namespace

void WriteTraverses(const cadastre::Survey& survey, DatDraft& draft) {
  if (!CIniFile().ReadBool("Catasto", "Poligonali", false)) {
    draft.RemarkOf(survey.traverses.size(),
                   Xlate("traverses are left out, for the layout of their record is not certain; "
                         "the setting Poligonali of [Catasto] writes them ({1})"));
    return;
  }
  for (const std::vector<std::string>& traverse : survey.traverses) {
    DatLine line(draft, '3');
    WriteVertices(line, traverse.size(), traverse);
  }
}

void WriteContours(const cadastre::Survey& survey, DatDraft& draft) {
  const std::size_t most = MostVertices();
  std::int64_t number = 0;
  for (const cadastre::Contour& contour : survey.contours) {
    CheckContour(contour, ++number, draft);
    WriteContour(contour, most, draft);
  }
}

void WriteFiducials(const cadastre::Survey& survey, DatDraft& draft) {
  for (const cadastre::Fiducial& point : survey.fiducials) {
    CheckFiducial(point, draft);
    DatLine(draft, '8')
        .Named(point.name)
        .Fixed(point.north, kLengthDecimals)
        .Fixed(point.east, kLengthDecimals)
        .Whole(point.reliability)
        .Text(point.description);
  }
}

void CheckNames(DatDraft& draft) {
  constexpr std::size_t kShown = 10;
  std::set<std::string_view> unknown;
  std::string list;
  for (const std::string& name : draft.named) {
    if (draft.surveyed.contains(name) || !unknown.insert(name).second) continue;
    if (unknown.size() <= kShown) list.append(list.empty() ? "" : ", ").append(name);
  }
  if (unknown.size() > kShown) list += ", …";
  if (unknown.empty()) return;
  draft.Remark(Fill(Xlate("named but not surveyed: {1}"), {tdk::WString(list)}));
}

}  // namespace dat
