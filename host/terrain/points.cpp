#include "host/terrain/points.h"

#include <algorithm>
#include <cmath>
#include <unordered_map>

namespace terrain {
namespace {

class Chooser {
 public:
  explicit Chooser(const Choice& choice) : choice_(choice) {}

  void Add(const CEgn& point) {
    const tdk::geom::PNT_3D place(point.GetCoordX(), point.GetCoordY(), point.GetCoordZ());
    if (!IsDefined(place.getX()) || !IsDefined(place.getY()) || !IsDefined(place.getZ())) {
      ++chosen_.incomplete;
      return;
    }
    chosen_.source.points.push_back(place);
    const std::string code = point.GetSecScri().ToUtf8();
    if (IsOfBreakline(code)) AddToBreakline(code);
  }

  Chosen& Result() {
    chosen_.source.longestSide = choice_.longestSide;
    return chosen_;
  }

 private:
  bool IsOfBreakline(std::string_view code) const {
    const auto fits = [&](std::string_view pattern) {
      if (!pattern.ends_with('*')) return code == pattern;
      return code.starts_with(pattern.substr(0, pattern.size() - 1));
    };
    return std::any_of(choice_.breaklineCodes.begin(), choice_.breaklineCodes.end(), fits);
  }

  void AddToBreakline(const std::string& code) {
    const int position = static_cast<int>(chosen_.source.points.size()) - 1;
    const auto [last, isNew] = lastOf_.emplace(code, position);
    if (isNew) {
      ++chosen_.breaklines;
    } else if (choice_.longestSide != 0 && Distance(last->second, position) > choice_.longestSide) {
      ++chosen_.longLegs;
    } else {
      chosen_.source.breaklines.emplace_back(last->second, position);
    }
    last->second = position;
  }

  double Distance(int from, int to) const {
    const auto& a = chosen_.source.points[static_cast<std::size_t>(from)];
    const auto& b = chosen_.source.points[static_cast<std::size_t>(to)];
    return std::hypot(b.getX() - a.getX(), b.getY() - a.getY());
  }

  const Choice& choice_;
  Chosen chosen_;
  std::unordered_map<std::string, int> lastOf_;  // the last point of each breakline's code
};

void AddTotalStation(const CLibCmp& library, Chooser& chooser) {
  for (int job = 0; job < library.GetJobArSize(); ++job) {
    for (int station = 0; station < library.GetStaArSize(job); ++station) {
      chooser.Add(*library.GetStaAt(job, station));
      for (const CPun* const point : library.PointsOf(job, station)) chooser.Add(*point);
    }
  }
}

void AddGps(const CLibGps& library, Chooser& chooser) {
  for (int group = 0; group < library.GetGrpArSize(); ++group) {
    chooser.Add(*library.GetGrpAt(group));
    for (int i = 0; i < library.GetPunArSize(group); ++i) chooser.Add(*library.GetPunAt(group, i));
  }
}

void AddKnown(const CLibPnt& library, Chooser& chooser) {
  for (int group = 0; group < library.GetGrpArSize(); ++group) {
    for (int i = 0; i < library.GetPtnArSize(group); ++i) chooser.Add(*library.GetPtnAt(group, i));
  }
}

}  // namespace

Chosen Choose(HostDocument& document, const Choice& choice) {
  Chooser chooser(choice);
  const CLibCmp& surveys = *document.GetLibCmp();
  if (choice.kinds.totalStation) AddTotalStation(surveys, chooser);
  if (choice.kinds.gps) AddGps(*document.GetLibGps(), chooser);
  if (choice.kinds.known) AddKnown(*document.GetLibPnt(), chooser);
  if (choice.kinds.control) {
    for (int i = 0; i < surveys.GetOriArSize(); ++i) chooser.Add(*surveys.GetOriAt(i));
  }
  return std::move(chooser.Result());
}

}  // namespace terrain
