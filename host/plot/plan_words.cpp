#include "host/plot/plan_words.h"

#include <array>

#include "host/plot/nice_numbers.h"
#include "services/translate.h"

namespace plot {
namespace {

constexpr int kMillimetres = 3;

struct Counted {
  std::uint64_t count;
  const char* one;
  const char* many;
};

std::string RangeInWords(const char* pattern, double least, double most) {
  return Fill(Xlate(pattern), {tdk::WString(FixedText(least, kMillimetres)),
                               tdk::WString(FixedText(most, kMillimetres))})
      .ToUtf8();
}

}  // namespace

std::string CountsInWords(const PlanContent& content) {
  std::array<std::uint64_t, kMarkKinds> marks{};
  for (const Mark& mark : content.marks) ++marks[static_cast<std::size_t>(mark.kind)];
  const auto of = [&](MarkKind kind) { return marks[static_cast<std::size_t>(kind)]; };
  const std::array<Counted, 9> all = {
      {{of(MarkKind::kStation), ToXlate("{1} station"), ToXlate("{1} stations")},
       {of(MarkKind::kMeasured), ToXlate("{1} point"), ToXlate("{1} points")},
       {of(MarkKind::kGps) + of(MarkKind::kGpsBase), ToXlate("{1} GPS point"),
        ToXlate("{1} GPS points")},
       {of(MarkKind::kKnown) + of(MarkKind::kManyKnown), ToXlate("{1} known point"),
        ToXlate("{1} known points")},
       {of(MarkKind::kControl), ToXlate("{1} control point"), ToXlate("{1} control points")},
       {content.models.size(), ToXlate("{1} terrain model"), ToXlate("{1} terrain models")},
       {content.roads.size(), ToXlate("{1} road"), ToXlate("{1} roads")},
       {content.themes.size(), ToXlate("{1} theme"), ToXlate("{1} themes")},
       {EntityCount(content), ToXlate("{1} drawn entity"), ToXlate("{1} drawn entities")}}};
  std::string text;
  for (const Counted& counted : all) {
    if (counted.count == 0) continue;
    if (!text.empty()) text += ", ";
    text += Fill(Xlate(counted.count == 1 ? counted.one : counted.many),
                 {tdk::WString(CountText(counted.count))})
                .ToUtf8();
  }
  return text;
}

std::string ExtentInWords(const PlanContent& content) {
  const Box extent = ExtentOf(content);
  std::string text = RangeInWords(ToXlate("easting {1} to {2} m"), extent.left, extent.right) +
                     ", " + RangeInWords(ToXlate("northing {1} to {2} m"), extent.low, extent.high);
  const Elevations elevations = ElevationsOf(content);
  if (elevations.IsThere()) {
    text +=
        ", " + RangeInWords(ToXlate("elevation {1} to {2} m"), elevations.least, elevations.most);
  }
  return text;
}

std::string NameOfKind(MarkKind kind) {
  switch (kind) {
    case MarkKind::kStation: return Xlate("station").ToUtf8();
    case MarkKind::kGpsBase: return Xlate("GPS base").ToUtf8();
    case MarkKind::kKnown:
    case MarkKind::kManyKnown: return Xlate("known point").ToUtf8();
    case MarkKind::kControl: return Xlate("control point").ToUtf8();
    case MarkKind::kGps: return Xlate("GPS point").ToUtf8();
    case MarkKind::kMeasured: break;
  }
  return Xlate("measured point").ToUtf8();
}

}  // namespace plot
