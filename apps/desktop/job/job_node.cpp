#include "apps/desktop/job/job_node.h"

#include <array>

#include "console.h"
#include "model/gis.h"
#include "services/translate.h"

namespace {

using enum NodeKind;

// What is below a kind of node, how deep it lies, how many there are and what they are called.
struct KindRow {
  NodeKind kind;
  NodeKind parent;
  NodeKind child;  // the kind itself: none
  int depth;       // indices that it has
  int (*count)(HostDocument& document, const JobNode& node);
  tdk::WString (*name)(HostDocument& document, const JobNode& node);
};

int None(HostDocument& /*document*/, const JobNode& /*node*/) { return 0; }

template <const char* const& text>
tdk::WString Fixed(HostDocument& /*document*/, const JobNode& /*node*/) {
  return Xlate(text);
}
tdk::WString PointName(HostDocument& document, const JobNode& node) {
  const CEgn* const point = PointOf(document, node);
  return point == nullptr ? tdk::WString() : point->GetNome();
}
tdk::WString Number(int index) {
  return tdk::WString(console::Number(static_cast<std::uint64_t>(index) + 1));
}

constexpr const char* kJobsText = ToXlate("Jobs");
constexpr const char* kGpsText = ToXlate("Gps groups");
constexpr const char* kKnownText = ToXlate("Known Points");
constexpr const char* kControlsText = ToXlate("Control points");
constexpr const char* kSurfacesText = ToXlate("Terrain models");
constexpr const char* kRoadsText = ToXlate("Roads");
constexpr const char* kThemesText = ToXlate("Themes");
constexpr const char* kLayersText = ToXlate("Drawing layers");
constexpr int kSections = 8;

using Doc = HostDocument;
using Node = JobNode;

// In the order of NodeKind.
constexpr std::array kKinds = {
    KindRow{kRoot, kRoot, kJobs, 0, [](Doc&, const Node&) { return kSections; },
            [](Doc&, const Node&) { return tdk::WString(); }},
    KindRow{kJobs, kRoot, kJob, 0,
            [](Doc& d, const Node&) { return d.GetLibCmp()->GetJobArSize(); }, Fixed<kJobsText>},
    KindRow{kGpsGroups, kRoot, kGpsGroup, 0,
            [](Doc& d, const Node&) { return d.GetLibGps()->GetGrpArSize(); }, Fixed<kGpsText>},
    KindRow{kKnownGroups, kRoot, kKnownGroup, 0,
            [](Doc& d, const Node&) { return d.GetLibPnt()->GetGrpArSize(); }, Fixed<kKnownText>},
    KindRow{kControls, kRoot, kControl, 0,
            [](Doc& d, const Node&) { return d.GetLibCmp()->GetOriArSize(); },
            Fixed<kControlsText>},
    KindRow{kSurfaces, kRoot, kSurface, 0,
            [](Doc& d, const Node&) { return d.GetLibDtm()->GetPrjArSize(); },
            Fixed<kSurfacesText>},
    KindRow{kRoads, kRoot, kRoad, 0,
            [](Doc& d, const Node&) { return d.GetLibRoad()->GetRoadArSize(); }, Fixed<kRoadsText>},
    KindRow{kThemes, kRoot, kTheme, 0,
            [](Doc& d, const Node&) { return d.GetLibGis()->GetNumThemes(); }, Fixed<kThemesText>},
    KindRow{kLayers, kRoot, kLayer, 0,
            [](Doc& d, const Node&) { return d.GetCadEngine()->GetNoDrawings(); },
            Fixed<kLayersText>},
    KindRow{kJob, kJobs, kStation, 1,
            [](Doc& d, const Node& n) { return d.GetLibCmp()->GetStaArSize(n.a); },
            [](Doc& d, const Node& n) { return d.GetLibCmp()->GetJobAt(n.a)->GetNome(); }},
    KindRow{kStation, kJob, kPoint, 2,
            [](Doc& d, const Node& n) { return d.GetLibCmp()->GetPunArSize(n.a, n.b); }, PointName},
    KindRow{kPoint, kStation, kPoint, 3, None, PointName},
    KindRow{kGpsGroup, kGpsGroups, kGpsPoint, 1,
            [](Doc& d, const Node& n) { return d.GetLibGps()->GetPunArSize(n.a); },
            [](Doc& d, const Node& n) { return d.GetLibGps()->GetGrpAt(n.a)->GetNomeGrp(); }},
    KindRow{kGpsPoint, kGpsGroup, kGpsPoint, 2, None, PointName},
    KindRow{kKnownGroup, kKnownGroups, kKnownPoint, 1,
            [](Doc& d, const Node& n) { return d.GetLibPnt()->GetPtnArSize(n.a); },
            [](Doc& d, const Node& n) { return d.GetLibPnt()->GetGrpAt(n.a)->GetNome(); }},
    KindRow{kKnownPoint, kKnownGroup, kKnownPoint, 2, None, PointName},
    KindRow{kControl, kControls, kControl, 1, None, PointName},
    KindRow{kSurface, kSurfaces, kSurface, 1, None,
            [](Doc& d, const Node& n) { return d.GetLibDtm()->GetPrjAt(n.a)->GetName(); }},
    KindRow{kRoad, kRoads, kRoad, 1, None,
            [](Doc& d, const Node& n) { return d.GetLibRoad()->GetRoadAt(n.a)->GetName(); }},
    KindRow{kTheme, kThemes, kFeature, 1,
            [](Doc& d, const Node& n) { return d.GetLibGis()->GetTheme(n.a)->GetNumFeatures(); },
            [](Doc& d, const Node& n) { return d.GetLibGis()->GetTheme(n.a)->GetName(); }},
    KindRow{kFeature, kTheme, kFeature, 2, None, [](Doc&, const Node& n) { return Number(n.b); }},
    // Drawings are numbered from 1.
    KindRow{kLayer, kLayers, kLayer, 1, None,
            [](Doc& d, const Node& n) { return d.GetCadEngine()->GetDrawingName(n.a + 1); }},
};

constexpr bool IsInOrder() {
  for (std::size_t i = 0; i < kKinds.size(); ++i) {
    if (static_cast<std::size_t>(kKinds[i].kind) != i) return false;
  }
  return true;
}
static_assert(IsInOrder());

const KindRow& RowFor(NodeKind kind) { return kKinds[static_cast<std::size_t>(kind)]; }

// The child of `parent` that is `point`; the root when none is.
JobNode ChildThatIs(HostDocument& document, const JobNode& parent, const CEgn& point) {
  for (int row = 0; row < ChildCount(document, parent); ++row) {
    const JobNode child = ChildAt(parent, row);
    if (PointOf(document, child) == &point) return child;
  }
  return {};
}

JobNode GrandchildThatIs(HostDocument& document, NodeKind section, const CEgn& point) {
  const JobNode parent{section};
  for (int row = 0; row < ChildCount(document, parent); ++row) {
    const JobNode group = ChildAt(parent, row);
    if (PointOf(document, group) == &point) return group;
    const JobNode found = ChildThatIs(document, group, point);
    if (found.kind != kRoot) return found;
  }
  return {};
}

bool IsCalled(HostDocument& document, const JobNode& node, std::string_view name) {
  const CEgn* const point = PointOf(document, node);
  if (point != nullptr && point->NameUtf8() == name) return true;
  // A group of GPS points has a name of its own besides that of its base.
  const bool isPoint = point != nullptr && node.kind != kGpsGroup;
  return !isPoint && NameOf(document, node).ToUtf8() == name;
}

JobNode ChildNamed(HostDocument& document, const JobNode& parent, std::string_view name) {
  for (int row = 0; row < ChildCount(document, parent); ++row) {
    const JobNode child = ChildAt(parent, row);
    if (IsCalled(document, child, name)) return child;
  }
  return {};
}

JobNode GrandchildNamed(HostDocument& document, const JobNode& parent, std::string_view name) {
  for (int row = 0; row < ChildCount(document, parent); ++row) {
    const JobNode found = ChildNamed(document, ChildAt(parent, row), name);
    if (found.kind != kRoot) return found;
  }
  return {};
}

}  // namespace

int ChildCount(HostDocument& document, const JobNode& node) {
  return RowFor(node.kind).count(document, node);
}

NodeKind ChildKind(NodeKind kind) { return RowFor(kind).child; }

JobNode ChildAt(const JobNode& node, int row) {
  if (node.kind == kRoot) {
    return {static_cast<NodeKind>(static_cast<int>(kJobs) + row)};
  }
  JobNode child = node;
  child.kind = RowFor(node.kind).child;
  const int depth = RowFor(child.kind).depth;
  (depth == 1 ? child.a : depth == 2 ? child.b : child.c) = row;
  return child;
}

JobNode ParentOf(const JobNode& node) {
  JobNode parent = node;
  const KindRow& row = RowFor(node.kind);
  parent.kind = row.parent;
  if (row.depth == 1) parent.a = 0;
  if (row.depth == 2) parent.b = 0;
  if (row.depth == 3) parent.c = 0;
  return parent;
}

int RowOf(const JobNode& node) {
  const int depth = RowFor(node.kind).depth;
  if (depth == 0) return static_cast<int>(node.kind) - static_cast<int>(kJobs);
  return depth == 1 ? node.a : depth == 2 ? node.b : node.c;
}

tdk::WString NameOf(HostDocument& document, const JobNode& node) {
  return RowFor(node.kind).name(document, node);
}

const CEgn* PointOf(HostDocument& document, const JobNode& node) {
  switch (node.kind) {
    case kStation: return document.GetLibCmp()->GetStaAt(node.a, node.b);
    case kPoint: return document.GetLibCmp()->GetPunAt(node.a, node.b, node.c);
    case kGpsGroup: return document.GetLibGps()->GetGrpAt(node.a);
    case kGpsPoint: return document.GetLibGps()->GetPunAt(node.a, node.b);
    case kKnownPoint: return document.GetLibPnt()->GetPtnAt(node.a, node.b);
    case kControl: return document.GetLibCmp()->GetOriAt(node.a);
    default: return nullptr;
  }
}

JobNode NodeOf(HostDocument& document, const CEgn& point) {
  JobNode node{kStation};
  if (const auto* const measured = dynamic_cast<const CPun*>(&point)) {
    if (!document.GetLibCmp()->GetIndiciDiSta(measured->GetSta(), node.a, node.b)) return {};
    return ChildThatIs(document, node, point);
  }
  if (const auto* const station = dynamic_cast<const CSta*>(&point)) {
    return document.GetLibCmp()->GetIndiciDiSta(station, node.a, node.b) ? node : JobNode{};
  }
  for (const NodeKind section : {kGpsGroups, kKnownGroups}) {
    const JobNode found = GrandchildThatIs(document, section, point);
    if (found.kind != kRoot) return found;
  }
  return ChildThatIs(document, {kControls}, point);
}

JobNode FindNamed(HostDocument& document, std::string_view name) {
  for (int section = 0; section < kSections; ++section) {
    const JobNode found = ChildNamed(document, ChildAt({}, section), name);
    if (found.kind != kRoot) return found;
  }
  const int jobs = document.GetLibCmp()->GetJobArSize();
  for (int job = 0; job < jobs; ++job) {
    const JobNode found = ChildNamed(document, {kJob, job}, name);
    if (found.kind != kRoot) return found;
  }
  for (int job = 0; job < jobs; ++job) {
    const JobNode found = GrandchildNamed(document, {kJob, job}, name);
    if (found.kind != kRoot) return found;
  }
  const JobNode known = GrandchildNamed(document, {kKnownGroups}, name);
  return known.kind != kRoot ? known : GrandchildNamed(document, {kGpsGroups}, name);
}
