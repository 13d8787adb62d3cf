#include "host/terrain/points.h"

#include <cmath>
#include <unordered_map>
#include <utility>

namespace terrain {
namespace {

class Chooser {
 public:
  explicit Chooser(const Choice& choice)
      : choice_(choice), isUsed_(choice.breaklineCodes.size(), false) {}

  void Add(const CEgn& point) {
    const tdk::geom::PNT_3D place(point.GetCoordX(), point.GetCoordY(), point.GetCoordZ());
    if (!IsDefined(place.getX()) || !IsDefined(place.getY()) || !IsDefined(place.getZ())) {
      ++chosen_.incomplete;
      return;
    }
    chosen_.source.points.push_back(place);
    if (choice_.breaklineCodes.empty()) return;
    Line& line = LineOf(point.GetSecScri().ToUtf8());
    if (line.isBreakline) AddTo(line);
  }

  Chosen& Result() {
    chosen_.source.longestSide = choice_.longestSide;
    for (std::size_t i = 0; i < isUsed_.size(); ++i) {
      if (!isUsed_[i]) chosen_.unusedCodes.push_back(choice_.breaklineCodes[i]);
    }
    return chosen_;
  }

 private:
  static constexpr int kNone = -1;
  struct Line {
    bool isBreakline = false;
    bool isOpen = false;  // it has a leg that ends at its last point
    int last = kNone;
  };

  // Whether a code is one of a breakline is found out once.
  Line& LineOf(const std::string& code) {
    const auto [found, isNew] = lines_.try_emplace(code);
    if (isNew) found->second.isBreakline = !code.empty() && Fits(code);
    return found->second;
  }

  bool Fits(std::string_view code) {
    bool fits = false;
    for (std::size_t i = 0; i < choice_.breaklineCodes.size(); ++i) {
      const std::string_view pattern = choice_.breaklineCodes[i];
      const bool isFamily = pattern.ends_with('*');
      const bool fitsThis =
          isFamily ? code.starts_with(pattern.substr(0, pattern.size() - 1)) : code == pattern;
      if (fitsThis) isUsed_[i] = fits = true;
    }
    return fits;
  }

  void AddTo(Line& line) {
    const int position = static_cast<int>(chosen_.source.points.size()) - 1;
    const int last = std::exchange(line.last, position);
    if (last == kNone) return;
    if (choice_.longestSide != 0 && Distance(last, position) > choice_.longestSide) {
      ++chosen_.longLegs;
      line.isOpen = false;
      return;
    }
    if (!std::exchange(line.isOpen, true)) ++chosen_.breaklines;
    chosen_.source.breaklines.emplace_back(last, position);
  }

  double Distance(int from, int to) const {
    const auto& a = chosen_.source.points[static_cast<std::size_t>(from)];
    const auto& b = chosen_.source.points[static_cast<std::size_t>(to)];
    return std::hypot(b.getX() - a.getX(), b.getY() - a.getY());
  }

  const Choice& choice_;
  Chosen chosen_;
  std::vector<bool> isUsed_;                     // of the codes
  std::unordered_map<std::string, Line> lines_;  // by their codes
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
