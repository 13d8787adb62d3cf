#include "apps/desktop/job/node_columns.h"

#include <array>

#include "console.h"
#include "model/gis.h"
#include "services/measure_system.h"
#include "services/number_text.h"
#include "services/translate.h"

namespace {

using Doc = HostDocument;
using Node = JobNode;

std::string Metres(double value) { return StringDaDouble(value, 0, 3).ToUtf8(); }
std::string Gon(double value) { return CMeasureSystem::GetTsAngleString(value).ToUtf8(); }
std::string Whole(std::int64_t value) { return console::Number(static_cast<std::uint64_t>(value)); }
std::string YesNo(bool is) { return Xlate(is ? "yes" : "no").ToUtf8(); }

std::string Name(Doc& d, const Node& n) { return NameOf(d, n).ToUtf8(); }
std::string Count(Doc& d, const Node& n) { return Whole(ChildCount(d, n)); }
std::string Code(Doc& d, const Node& n) { return PointOf(d, n)->GetSecScri().ToUtf8(); }
std::string Comment(Doc& d, const Node& n) { return PointOf(d, n)->GetTerScri().ToUtf8(); }
std::string East(Doc& d, const Node& n) { return Metres(PointOf(d, n)->GetCoordX()); }
std::string North(Doc& d, const Node& n) { return Metres(PointOf(d, n)->GetCoordY()); }
std::string Elev(Doc& d, const Node& n) { return Metres(PointOf(d, n)->GetCoordZ()); }

const CJob& Job(Doc& d, const Node& n) { return *d.GetLibCmp()->GetJobAt(n.a); }
const CSta& Station(Doc& d, const Node& n) { return *d.GetLibCmp()->GetStaAt(n.a, n.b); }
const CPun& Point(Doc& d, const Node& n) { return *d.GetLibCmp()->GetPunAt(n.a, n.b, n.c); }
const CGrpGps& Group(Doc& d, const Node& n) { return *d.GetLibGps()->GetGrpAt(n.a); }
const CPunGps& Gps(Doc& d, const Node& n) { return *d.GetLibGps()->GetPunAt(n.a, n.b); }
const CDtmPrj& Surface(Doc& d, const Node& n) { return *d.GetLibDtm()->GetPrjAt(n.a); }
const CRoad& Road(Doc& d, const Node& n) { return *d.GetLibRoad()->GetRoadAt(n.a); }
const gis::CTheme& Theme(Doc& d, const Node& n) { return *d.GetLibGis()->GetTheme(n.a); }

std::string Degrees(double radians) {
  constexpr double kDegrees = 57.295779513082320877;
  constexpr int kDecimals = 9;
  return StringDaDouble(IsDefined(radians) ? radians * kDegrees : radians, 0, kDecimals).ToUtf8();
}

std::string ThemeType(Doc& d, const Node& n) {
  switch (Theme(d, n).GetType()) {
    case gis::EntityType::kPoint: return Xlate("points").ToUtf8();
    case gis::EntityType::kLine: return Xlate("lines").ToUtf8();
    default: return Xlate("polygons").ToUtf8();
  }
}

constexpr NodeColumn kName{ToXlate("Name"), false, Name};
constexpr NodeColumn kCode{ToXlate("Descr."), false, Code};
constexpr NodeColumn kComment{ToXlate("Comment"), false, Comment};
constexpr NodeColumn kEast{ToXlate("East"), true, East};
constexpr NodeColumn kNorth{ToXlate("North"), true, North};
constexpr NodeColumn kElev{ToXlate("Elev."), true, Elev};

constexpr std::array kSections = {kName, NodeColumn{ToXlate("Number"), true, Count}};
constexpr std::array kJobs = {
    kName, NodeColumn{ToXlate("Stations"), true, Count},
    NodeColumn{ToXlate("Operator"), false,
               [](Doc& d, const Node& n) { return Job(d, n).GetOper().ToUtf8(); }},
    NodeColumn{ToXlate("Instrument"), false,
               [](Doc& d, const Node& n) { return Job(d, n).GetStrum().ToUtf8(); }},
    NodeColumn{ToXlate("Date"), false,
               [](Doc& d, const Node& n) { return Job(d, n).GetData().ToUtf8(); }}};
constexpr std::array kStations = {
    kName,
    NodeColumn{ToXlate("Points"), true, Count},
    NodeColumn{ToXlate("Instrument height"), true,
               [](Doc& d, const Node& n) { return Metres(Station(d, n).GetAltStr()); }},
    kEast,
    kNorth,
    kElev,
    kCode};
constexpr std::array kPoints = {
    kName,
    kCode,
    kEast,
    kNorth,
    kElev,
    NodeColumn{ToXlate("Horiz. Angle"), true,
               [](Doc& d, const Node& n) { return Gon(Point(d, n).GetDato2()); }},
    NodeColumn{ToXlate("Vert. Angle"), true,
               [](Doc& d, const Node& n) { return Gon(Point(d, n).GetDato1()); }},
    NodeColumn{ToXlate("Slope Dist."), true,
               [](Doc& d, const Node& n) { return Metres(Point(d, n).GetDato0()); }},
    NodeColumn{ToXlate("Reflector height"), true,
               [](Doc& d, const Node& n) { return Metres(Point(d, n).GetAltPri()); }},
    kComment};
constexpr std::array kGpsGroups = {
    kName, NodeColumn{ToXlate("Points"), true, Count},
    NodeColumn{ToXlate("Reference system"), false,
               [](Doc& d, const Node& n) { return Group(d, n).GetCrs().ToUtf8(); }},
    NodeColumn{ToXlate("Date"), false,
               [](Doc& d, const Node& n) { return Group(d, n).GetData().ToUtf8(); }}};
constexpr std::array kGpsPoints = {
    kName,
    kCode,
    kEast,
    kNorth,
    kElev,
    NodeColumn{ToXlate("Latitude"), true,
               [](Doc& d, const Node& n) { return Degrees(Gps(d, n).GetLat()); }},
    NodeColumn{ToXlate("Longitude"), true,
               [](Doc& d, const Node& n) { return Degrees(Gps(d, n).GetLong()); }},
    NodeColumn{ToXlate("Ellips. Height"), true,
               [](Doc& d, const Node& n) { return Metres(Gps(d, n).GetElev()); }},
    NodeColumn{ToXlate("RMS Horiz."), true,
               [](Doc& d, const Node& n) { return Metres(Gps(d, n).GetHposRms()); }},
    NodeColumn{ToXlate("RMS Vert."), true,
               [](Doc& d, const Node& n) { return Metres(Gps(d, n).GetVposRms()); }}};
constexpr std::array kKnownGroups = {kName, NodeColumn{ToXlate("Points"), true, Count}};
constexpr std::array kPlainPoints = {kName, kCode, kEast, kNorth, kElev, kComment};
constexpr std::array kSurfaces = {
    kName,
    NodeColumn{ToXlate("Vertices"), true,
               [](Doc& d, const Node& n) { return Whole(Surface(d, n).GetTris().GetNoTriVrts()); }},
    NodeColumn{ToXlate("Triangles"), true,
               [](Doc& d, const Node& n) { return Whole(Surface(d, n).GetTris().GetNoTris()); }},
    NodeColumn{ToXlate("Breaklines"), true,
               [](Doc& d, const Node& n) { return Whole(Surface(d, n).GetVncs().GetNoVncs()); }}};
constexpr std::array kRoads = {
    kName,
    NodeColumn{ToXlate("From chainage"), true,
               [](Doc& d, const Node& n) { return Metres(Road(d, n).GetStartProg()); }},
    NodeColumn{ToXlate("To chainage"), true,
               [](Doc& d, const Node& n) { return Metres(Road(d, n).GetEndProg()); }}};
constexpr std::array kThemes = {kName, NodeColumn{ToXlate("Entities"), false, ThemeType},
                                NodeColumn{ToXlate("Number"), true, Count}};
constexpr std::array kFeatures = {
    kName,
    NodeColumn{ToXlate("Parts"), true,
               [](Doc& d, const Node& n) { return Whole(Theme(d, n).GetNumParts(n.b)); }},
    NodeColumn{ToXlate("Vertices"), true, [](Doc& d, const Node& n) {
                 return Whole(static_cast<std::int64_t>(Theme(d, n).GetFeature(n.b).Size()));
               }}};
constexpr std::array kLayers = {
    kName,
    NodeColumn{
        ToXlate("Shown"), false,
        [](Doc& d, const Node& n) { return YesNo(d.GetCadEngine()->IsDrawingVisible(n.a + 1)); }},
    NodeColumn{ToXlate("Locked"), false, [](Doc& d, const Node& n) {
                 return YesNo(d.GetCadEngine()->IsDrawingLocked(n.a + 1));
               }}};

}  // namespace

std::span<const NodeColumn> ColumnsOf(NodeKind kind) {
  switch (kind) {
    case NodeKind::kJob: return kJobs;
    case NodeKind::kStation: return kStations;
    case NodeKind::kPoint: return kPoints;
    case NodeKind::kGpsGroup: return kGpsGroups;
    case NodeKind::kGpsPoint: return kGpsPoints;
    case NodeKind::kKnownGroup: return kKnownGroups;
    case NodeKind::kKnownPoint:
    case NodeKind::kControl: return kPlainPoints;
    case NodeKind::kSurface: return kSurfaces;
    case NodeKind::kRoad: return kRoads;
    case NodeKind::kTheme: return kThemes;
    case NodeKind::kFeature: return kFeatures;
    case NodeKind::kLayer: return kLayers;
    default: return kSections;
  }
}
