#include "option_table.h"

#include <algorithm>
#include <array>
#include <limits>

#include "failure.h"
#include "services/translate.h"

namespace {

constexpr std::size_t kAny = std::numeric_limits<std::size_t>::max();

// What has no effect on the formats of this version: no help shows it.
constexpr const char* kNotShown = nullptr;
constexpr const char* kNoFallback = nullptr;
constexpr const char* kWithTextFiles = "convert compute plot show terrain";
constexpr const char* kWithTerrain = "convert terrain";

constexpr auto kOptions = std::to_array<OptionRow>({
    {"convert", "INPUT", "", ToXlate("input files, read in this order; with --job none is needed"),
     kNoFallback, true},
    {"convert", "OUTPUT", "", ToXlate("output file; an older one is written over"), kNoFallback},
    {"compute", "JOB|FILE", "",
     ToXlate("job folder or .json document, and files with observations or known points"),
     kNoFallback, true},
    {"compute", "--report", "FILE",
     ToXlate("write the whole report into a file, as JSON when its name ends in .json"),
     kNoFallback},
    {"compute", "--json", nullptr, ToXlate("print the report as a JSON document"), kNoFallback},
    {"terrain", "JOB|FILE", "",
     ToXlate("job folder or .json document, and files with observations or points"), kNoFallback,
     true},
    {"terrain", "--name", "N", ToXlate("what the terrain model is called"), kNoFallback},
    {"cadastral", "JOB", "", ToXlate("job folder or .json document"), kNoFallback},
    {"cadastral", "--set", "KEY=VALUE",
     ToXlate("a value of the data, by its key in the job's JSON document: date=20112025, "
             "parcels=64,65, contours=RC,101,103 (type, points), "
             "fiducials=NAME,NORTH,EAST,RELIABILITY,DESCRIPTION"),
     kNoFallback, true},
    {"plot", "JOB|FILE", "",
     ToXlate("job folder or .json document, and files with observations or points"), kNoFallback,
     true},
    {"plot", "OUTPUT", "",
     ToXlate("the picture, of the kind that its extension says: svg, pdf, png; an older one is "
             "written over"),
     kNoFallback},
    {"plot", "--size", "WxH", ToXlate("size of the sheet in millimetres, of a PNG in pixels"),
     ToXlate("A4, upright or across; a PNG 2000 pixels wide")},
    {"plot", "--scale", "1:N", ToXlate("scale of the plan on paper"),
     ToXlate("the largest at which everything fits")},
    {"plot", "--no-names", nullptr, ToXlate("leave out the names of points"), kNoFallback},
    {"plot", "--no-codes", nullptr, ToXlate("leave out the codes of points"), kNoFallback},
    {"plot", "--no-terrain", nullptr, ToXlate("leave out terrain models"), kNoFallback},
    {"show", "JOB|FILE", "", ToXlate("job folder, .json document or a file that can be read"),
     kNoFallback},
    {"show", "--json", nullptr, ToXlate("the whole job as a JSON document"), kNoFallback},
    {"compute show", "--all", nullptr, ToXlate("lists in full, however long they are"),
     kNoFallback},

    {"convert", "--kind", "known|control|ts|gps",
     ToXlate("kind of the points of a text or CSV file"),
     ToXlate("known; written: the first that has points")},
    {"compute plot show terrain", "--kind", "known|control",
     ToXlate("kind of the points of a text or CSV file"), "known"},
    {kWithTextFiles, "--columns", "LIST",
     ToXlate("up to six of name,north,east,elev,descr,date,time,- in a text or CSV file"),
     "name,east,north,elev,descr"},
    {kWithTextFiles, "--separator", "space|comma|tab",
     ToXlate("between the columns of a .txt file; a .csv file has semicolons"), "comma"},
    {kWithTextFiles, "--widths", "LIST", ToXlate("columns of these widths instead, in a .txt file"),
     kNoFallback},
    {kWithTextFiles, "--header-rows", "N", ToXlate("lines before the points"), "0"},
    {kWithTextFiles, "--quote-names", nullptr,
     ToXlate("quotes around names: written, or taken off"), kNoFallback},
    {"convert", "--dwg-version", "2000|r14", ToXlate("version of a DWG file that is written"),
     "2000"},
    {"convert", "--dxf-version", "2000|r12", ToXlate("version of a DXF file that is written"),
     "2000"},
    {"convert", "--explode", nullptr,
     ToXlate("in a drawing, points and texts in place of blocks with attributes"), kNoFallback},
    {"convert", "--hidden", nullptr, ToXlate("in a drawing, also what lies on hidden layers"),
     kNoFallback},

    {"convert", "--no-compute", nullptr,
     ToXlate("leave points as they are; else coordinates are worked out from observations"),
     kNoFallback},
    {"convert compute", "--again", nullptr,
     ToXlate("work out also the coordinates that stations and points have"), kNoFallback},
    {"convert compute", "--refraction", "K",
     ToXlate("reckon with the earth's curvature and this refraction coefficient"),
     ToXlate("as the job's settings say; none")},
    {"convert compute", "--add-prism-constant", nullptr,
     ToXlate("prism constants are not in the distances yet"), kNoFallback},
    {"convert compute plot", "--crs", "AUTH:CODE",
     ToXlate("reference system of the plane coordinates of GPS groups and Shape files, such as "
             "EPSG:32632"),
     kNoFallback},
    {"convert", "--terrain", nullptr,
     ToXlate("make a terrain model of the points, and write it where the format has such"),
     kNoFallback},
    {kWithTerrain, "--points", "LIST",
     ToXlate("points of the terrain: some of ts,gps,known,control"), ToXlate("all of them")},
    {kWithTerrain, "--codes", "LIST",
     ToXlate("codes whose points form breaklines, each in the order of its points; EDGE* is every "
             "code that begins so"),
     kNoFallback},
    {kWithTerrain, "--max-edge", "M",
     ToXlate("leave out triangles with a side longer than this, in metres"), kNoFallback},
    {"convert", "--select", "LIST",
     ToXlate("what a LandXML file gets: some of roads,jobs,gps,points,surfaces"),
     ToXlate("everything")},
    {"convert", "--job", "JOB", ToXlate("import into and export from this job"),
     ToXlate("a new one")},
    {"cadastral compute terrain", "--save", "JOB", ToXlate("where the job is written"),
     ToXlate("the job folder, if it is one")},
    {"convert", "--quiet", nullptr, ToXlate("no summary"), kNoFallback},
    {"convert", "--progress", "auto|always|never", ToXlate("show how far it has come"),
     ToXlate("auto, which is on a terminal only")},

    {"call", "FUNCTION", "", ToXlate("name of the exported function"), kNoFallback},
    {"call", "--job", "JOB", ToXlate("job folder or .json document to work on"),
     ToXlate("an empty job in the current directory")},
    {"call", "--save", "JOB", ToXlate("where the job is written after the call"),
     ToXlate("a job folder, after a call that returned 1")},
    {"call", "--answers", "FILE", ToXlate("JSON list of answers to dialogs and questions"),
     ToXlate("every dialog is cancelled")},
    {"call", "--window", "NAME", ToXlate("have a top-level window of that name"), kNoFallback,
     true},
    {"call", "--option", "KEY=VALUE", ToXlate("app-name=… or app-version=… (JB3 export)"),
     kNoFallback, true},

    {"*", "--lang", "en|it", ToXlate("language of all texts"), ToXlate("from the environment")},
    {"*", "--help", nullptr, ToXlate("this help"), kNoFallback},
    {"", "--version", nullptr, ToXlate("the version"), kNoFallback},
    {"", "--generate", "man|bash", kNotShown, kNoFallback},
});

constexpr std::array kConvertExamples = {
    "kalvio convert rilievo.jb2 rilievo.xml",
    "kalvio convert --crs EPSG:32632 gps.jb3 gps.xml",
    "kalvio convert rilievo.jb2 known.csv plan.csv",
    "kalvio convert --terrain --max-edge 50 points.csv ground.xml",
    "kalvio convert --select roads project.xml roads.xml",
    "kalvio convert --job survey/ rilievo.jb2 libretto.dat",
};
constexpr std::array kComputeExamples = {
    "kalvio compute survey/ --report survey.txt",
    "kalvio compute rilievo.jb2 known.csv",
    "kalvio compute rilievo.jb2 known.csv --json --save survey/",
};
constexpr std::array kTerrainExamples = {
    "kalvio terrain survey/ --name ground",
    "kalvio terrain survey/ --name ground --codes 'EDGE*,WALL' --max-edge 40",
    "kalvio terrain points.csv --name ground --save survey/",
};
constexpr std::array kCadastralExamples = {
    "kalvio cadastral survey/",
    "kalvio cadastral survey/ --set date=20112025 --set parcels=64,65",
    "kalvio cadastral survey/ --set contours=RC,1,2,3,1 --set contours=NC,4,5",
};
constexpr std::array kPlotExamples = {
    "kalvio plot survey/ plan.pdf",
    "kalvio plot rilievo.jb2 known.csv plan.svg --size 420x297 --scale 1:500",
    "kalvio plot points.csv plan.png --no-codes",
};
constexpr std::array kShowExamples = {
    "kalvio show rilievo.jb2",
    "kalvio show --columns name,north,east,elev points.csv",
    "kalvio show rilievo.jb2 --json > rilievo.json",
};
constexpr std::array kCallExamples = {
    "kalvio call FImportJB2File --job survey/ --answers answers.json",
    "kalvio call FExportLandXMLFile --job survey.json --answers answers.json",
    "kalvio call FImportJB2File --answers answers.json --save survey.json",
};
constexpr std::array kFormatsExamples = {"kalvio formats"};
constexpr std::array kProgramExamples = {
    "kalvio convert rilievo.jb2 rilievo.xml",
    "kalvio show rilievo.jb2",
    "kalvio convert --job survey/ monday.jb2 tuesday.jb2 both.jb2",
};

constexpr std::array kUsualStatuses = {exit_status::kRan, exit_status::kFailed,
                                       exit_status::kBadUsage};
constexpr std::array kCallStatuses = {exit_status::kRan, exit_status::kFailed,
                                      exit_status::kBadUsage, exit_status::kUnexpectedDialog};

constexpr auto kStatuses = std::to_array<StatusRow>({
    {exit_status::kRan, ToXlate("it ran")},
    {exit_status::kFailed, ToXlate("it ran and failed; standard error says why")},
    {exit_status::kBadUsage, ToXlate("bad usage")},
    {exit_status::kUnexpectedDialog, ToXlate("a dialog came that the answers did not expect")},
});

constexpr auto kCommands = std::to_array<CommandRow>({
    {"convert", "[OPTION]... INPUT... OUTPUT",
     ToXlate("Converts survey files into another format."),
     ToXlate("Reads every input into one job and writes the output; extensions say the formats."),
     kConvertExamples, kUsualStatuses, 2, kAny},
    {"compute", "[OPTION]... JOB|FILE...",
     ToXlate("Works out coordinates from observations and reports on it."),
     ToXlate("Works out the coordinates of stations and points from observations and known points, "
             "and of GPS points through their reference system; reports what was found. A job "
             "folder keeps the result."),
     kComputeExamples, kUsualStatuses, 1, kAny},
    {"terrain", "[OPTION]... --name N JOB|FILE...",
     ToXlate("Makes a terrain model of a job's points."),
     ToXlate("Triangulates the points of a job that have plane coordinates and an elevation, with "
             "breaklines by their codes, and adds the terrain model to the job."),
     kTerrainExamples, kUsualStatuses, 1, kAny},
    {"cadastral", "[OPTION]... JOB", ToXlate("Shows or changes the cadastral data of a job."),
     ToXlate(
         "Shows the cadastral data of a job and what a DAT file still needs, or changes them. A "
         "job folder keeps the result."),
     kCadastralExamples, kUsualStatuses, 1, 1},
    {"plot", "[OPTION]... JOB|FILE... OUTPUT", ToXlate("Draws the plan of a job as a picture."),
     ToXlate("Draws the plan of a job as an SVG, PDF or PNG picture: points with their names, "
             "terrain models with contours, roads, a grid, a scale bar."),
     kPlotExamples, kUsualStatuses, 2, kAny},
    {"show", "[OPTION]... JOB|FILE", ToXlate("Shows what a job or a survey file holds."),
     ToXlate("Shows what a job or a file holds: jobs, stations, points, extents."), kShowExamples,
     kUsualStatuses, 1, 1},
    {"call", "FUNCTION [OPTION]...",
     ToXlate("Runs one function of the exchange module with scripted answers."),
     ToXlate("Runs one function of the exchange module and prints all that it asks, tells and "
             "changes."),
     kCallExamples, kCallStatuses, 1, 1},
    {"formats", "[OPTION]...", ToXlate("Lists the formats and what can be done with each."),
     ToXlate("Lists the formats and what can be done with each."), kFormatsExamples, kUsualStatuses,
     0, 0},
});

}  // namespace

bool OptionRow::BelongsTo(std::string_view which) const {
  std::string_view rest = commands;
  if (IsOfAll() || rest == which) return true;
  while (!rest.empty() && !which.empty()) {
    const std::string_view one = rest.substr(0, rest.find(' '));
    if (one == which) return true;
    rest.remove_prefix(std::min(rest.size(), one.size() + 1));
  }
  return false;
}

std::span<const OptionRow> OptionTable() { return kOptions; }
std::span<const CommandRow> CommandTable() { return kCommands; }
std::span<const StatusRow> StatusTable() { return kStatuses; }
std::span<const char* const> ProgramExamples() { return kProgramExamples; }

const CommandRow* FindCommand(std::string_view name) {
  const auto* const found = std::find_if(kCommands.begin(), kCommands.end(),
                                         [&](const CommandRow& row) { return row.name == name; });
  return found == kCommands.end() ? nullptr : &*found;
}
