#include "model/profile.h"

#include <algorithm>

namespace {

// The slope of the line from one vertex to the next; 0 when they lie above each other.
double Slope(const TAltiVrt& from, const TAltiVrt& to) {
  const double run = to.distance - from.distance;
  return run == 0 ? 0 : (to.height - from.height) / run;
}

// The principal vertices of a line, which are all that shape it.
std::vector<const TAltiVrt*> PrincipalVertices(const CProfileAlti& line) {
  std::vector<const TAltiVrt*> vertices;
  for (int i = line.FindNextPrincVrt(-1); i >= 0; i = line.FindNextPrincVrt(i)) {
    vertices.push_back(&line.GetVrt(i));
  }
  return vertices;
}

// How far the vertical curve at `vertex` lies from the two straights that it joins: two parabolas
// that meet at the vertex, one and the same where it stands in the middle.
double OffsetInCurve(const TAltiVrt& vertex, double bend, double prog) {
  const double before = vertex.distance - vertex.curve->start;
  const double after = vertex.curve->end - vertex.distance;
  if (before <= 0 || after <= 0) return 0;
  const double atVertex = before * after * bend / (2 * (before + after));
  const double part = prog <= vertex.distance ? (prog - vertex.curve->start) / before
                                              : (vertex.curve->end - prog) / after;
  return atVertex * part * part;
}

}  // namespace

bool IsPrincAltiVrt(const TAltiVrt& vertex) { return vertex.isPrincipal; }
bool IsRaccVertAltiVrt(const TAltiVrt& vertex) { return vertex.curve.has_value(); }

int CProfileAlti::FindNextPrincVrt(int i) const {
  for (int next = i + 1; next < GetNumVrts(); ++next) {
    if (IsPrincAltiVrt(GetVrt(next))) return next;
  }
  return -1;
}

double CalcQuoteAtAltiProg(const CProfileAlti& line, double prog, bool& ok) {
  const std::vector<const TAltiVrt*> vertices = PrincipalVertices(line);
  ok = vertices.size() >= 2 && prog >= vertices.front()->distance &&
       prog <= vertices.back()->distance;
  if (!ok) return 0;
  const auto after = std::find_if(vertices.begin() + 1, vertices.end() - 1,
                                  [&](const TAltiVrt* it) { return prog <= it->distance; });
  const auto at = static_cast<std::size_t>(after - vertices.begin());
  const TAltiVrt& from = *vertices[at - 1];
  double height = from.height + Slope(from, *vertices[at]) * (prog - from.distance);
  for (const std::size_t i : {at - 1, at}) {
    if (i == 0 || i + 1 == vertices.size() || !vertices[i]->curve) continue;
    if (prog <= vertices[i]->curve->start || prog >= vertices[i]->curve->end) continue;
    const double bend =
        Slope(*vertices[i], *vertices[i + 1]) - Slope(*vertices[i - 1], *vertices[i]);
    height += OffsetInCurve(*vertices[i], bend, prog);
  }
  return height;
}

CProfileAlti& CProfile::MakeMainPrjAlti() {
  main_ = std::make_unique<CProfileAlti>(this, 0, /*terrain=*/false);
  return *main_;
}

CProfile& CProfile::AddSection() {
  return *sections_.emplace_back(std::make_unique<CProfile>(library_));
}

CProfileAlti& CProfile::AddProfileAlti(int code, bool terrain) {
  return *lines_.emplace_back(std::make_unique<CProfileAlti>(this, code, terrain));
}

const TProfileAltiCode* CLibProfile::FindSectionAltiCode(int code) const {
  const auto found = positions_.find(code);
  return found == positions_.end() ? nullptr : &codes_[found->second];
}

void CLibProfile::AddSectionAltiCode(int code, const tdk::WString& name) {
  if (positions_.emplace(code, codes_.size()).second) codes_.push_back({code, name});
}
