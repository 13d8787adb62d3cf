#include "file_import.h"

#include <cerrno>
#include <filesystem>
#include <optional>

#include "console.h"
#include "convert_views.h"
#include "export_remarks.h"
#include "failure.h"
#include "formats.h"
#include "host/document/host_document.h"
#include "host/gis/link_points.h"
#include "host/gis/shape_files.h"
#include "host/landxml/load.h"
#include "job_session.h"
#include "platform/letters.h"
#include "platform/paths.h"
#include "services/translate.h"
#include "shape_set.h"
#include "trouble_scope.h"

namespace {

constexpr std::size_t kRemarksShown = 10;

// What message boxes said, on one line.
std::string OnOneLine(const std::vector<std::string>& messages) {
  std::string line;
  for (const std::string& message : messages) {
    if (!line.empty()) line += "; ";
    for (const char c : message) line += c == '\n' ? std::string("; ") : std::string(1, c);
  }
  return line;
}

std::string NameOf(const std::string& path) { return std::string(platform::FileName(path)); }

// What the host's Shape files remarked, with the file where it is another than the one asked for.
std::vector<std::string> ShapeNotes(const std::string& path) {
  std::vector<std::string> notes;
  for (const ShapeFiles::Note& note : ShapeFiles::Install().TakeNotes()) {
    notes.push_back(note.file == NameOf(path) ? note.text.ToUtf8() : note.Line());
  }
  return notes;
}

// Runs one function of the module on one file and gives back what it said; throws Failure when it
// did not succeed.
std::vector<std::string> Run(const Module& module, const char* function, const std::string& path,
                             HostDocument& document, const TextOptions& options,
                             const OutputOptions& output, ProgressLine& progress) {
  const TroubleScope trouble;
  const std::string absolute = AbsolutePath(path);
  ConvertViews views(absolute, options, output, progress);
  CWnd window(&views);
  progress.Begin(NameOf(path));
  const CallResult result = module.Call(function, window, document, {"kalvio", KALVIO_VERSION});
  progress.Clear();
  std::vector<std::string> said = views.Messages();
  if (const std::string reason = trouble.Reason(absolute); !reason.empty()) {
    throw Failed(path, reason);
  }
  const FormatRow& format = FormatOf(path);
  const bool isExport = function == format.exportFunction;
  const std::vector<std::string> notes = ShapeNotes(path);
  if (isExport && format.messageIsFailure && !said.empty()) {
    said.insert(said.end(), notes.begin(), notes.end());
    throw Failed(path, OnOneLine(said));
  }
  said.insert(said.end(), notes.begin(), notes.end());
  said.insert(said.end(), views.Notes().begin(), views.Notes().end());
  if (result.value == 1 || views.HasWritten()) return said;
  throw Failed(path, said.empty() ? Xlate("the module refused it").ToUtf8() : said.front());
}

// What the host reads itself.
std::vector<std::string> LoadRoadsAndTerrain(const std::string& path, HostDocument& document,
                                             ProgressLine& progress) {
  const TroubleScope trouble;
  progress.Begin(NameOf(path));
  try {
    std::vector<std::string> remarks =
        LoadLandXml(platform::NativePath(path), document,
                    [&](std::uint64_t done, std::uint64_t total) { progress.Show(done, total); });
    progress.Clear();
    return remarks;
  } catch (const landxml_load::LoadError& error) {
    progress.Clear();
    const std::string reason = trouble.Reason(path);
    throw reason.empty() ? Failure(exit_status::kFailed, error.what()) : Failed(path, reason);
  }
}

// What the module would not tell: it takes a file that is not there, or holds nothing, for one
// without records.
void CheckInput(const std::string& path) {
  const std::string file = platform::NativePath(path);
  std::error_code error;
  const auto status = std::filesystem::status(file, error);
  if (!std::filesystem::exists(status)) {
    throw Failed(path, Xlate("cannot be opened").ToUtf8() + ": " + console::Reason(error.value()));
  }
  if (std::filesystem::is_directory(status)) {
    throw Failed(path, Xlate("cannot be opened").ToUtf8() + ": " + console::Reason(EISDIR));
  }
  if (std::filesystem::is_regular_file(status) && std::filesystem::file_size(file, error) == 0 &&
      !error) {
    throw Failed(path, Xlate("the file is empty").ToUtf8());
  }
}

// The dialog lists a Shape file by its name before the first ".shp" in it, which may be another
// file's.
void CheckShapeName(const std::string& path) {
  constexpr std::string_view kShape = ".shp";
  const std::string name = platform::Small(NameOf(path));
  if (name.find(kShape) + kShape.size() == name.size()) return;
  throw Failed(path,
               Xlate("rename it: such a file is known by its name before the first .shp").ToUtf8());
}

std::string WhyNothing(const FormatRow& format, const std::vector<std::string>& remarks) {
  const bool isShape = format.extension == std::string_view("shp");
  const bool tellsWhy = format.isPointList || format.importFunction == nullptr || isShape;
  if (tellsWhy && !remarks.empty()) {
    const std::string why = isShape ? OnOneLine(remarks) : remarks.front();
    return Fill(Xlate("nothing was imported: {1}"), {tdk::WString(why)}).ToUtf8();
  }
  return Fill(Xlate("nothing was imported: no {1} record in it"), {format.name}).ToUtf8();
}

// A text file makes a group before its first point. A drawing that was read may well be empty: it
// has its layers and perhaps blocks.
bool BroughtNothing(const FormatRow& format, const Counts& counts) {
  if (format.carried.drawing) return false;
  return format.isPointList ? !FirstKindWithPoints(counts) : counts.IsNothing();
}

// The kind of points to write, and that the module, which puts the extension there itself, will
// write that very file.
TextOptions WithKind(TextOptions options, const Counts& counts, const std::string& path) {
  if (!options.kind) options.kind = FirstKindWithPoints(counts);
  if (!options.kind) throw Failed(path, Xlate("the job holds no points").ToUtf8());
  if (!path.ends_with(platform::Extension(path))) {
    throw Failed(path, Xlate("write the extension in small letters").ToUtf8());
  }
  return options;
}

// The module's dialog offers points only where there is a table.
void MakePointsWithoutTable(HostDocument& document, const Counts& before) {
  const Counts now = CountsOf(document);
  if (now.themes == before.themes || now.knownGroups != before.knownGroups) return;
  const gis::CTheme& theme = *document.GetLibGis()->GetTheme(static_cast<int>(now.themes) - 1);
  KnownPointLink link(*document.GetLibPnt());
  shape::Remarks unused;
  shape::LinkPointsOf(theme, theme.GetName(), {}, link, unused);
}

Exchange ExportShapes(const Module& module, const std::string& path, HostDocument& document,
                      const TextOptions& options, const OutputOptions& output,
                      ProgressLine& progress) {
  const ShapeSet set(document, path, output.crs);
  if (set.IsEmpty()) {
    throw Failed(path,
                 Xlate("the job holds no points with plane coordinates and no themes").ToUtf8());
  }
  Exchange exchange;
  exchange.remarks = set.Remarks();
  const std::vector<std::string> said =
      Run(module, FormatOf(path).exportFunction, path, document, options, output, progress);
  exchange.remarks.insert(exchange.remarks.end(), said.begin(), said.end());
  std::error_code error;
  for (const std::string& file : set.Files()) {
    if (!std::filesystem::exists(file, error)) {
      throw Failed(file, Xlate("it was not written").ToUtf8());
    }
  }
  if (set.Files().size() > 1 || set.Files().front() != platform::NativePath(path)) {
    for (const std::string& file : set.Files()) {
      exchange.remarks.push_back(Fill(Xlate("wrote {1}"), {tdk::WString(file)}).ToUtf8());
    }
  }
  return exchange;
}

}  // namespace

Exchange ImportFile(const Module& module, const std::string& path, HostDocument& document,
                    const TextOptions& options, ProgressLine& progress, bool makesPoints) {
  CheckReadable(path);
  CheckInput(path);
  const FormatRow& format = FormatOf(path);
  if (format.extension == std::string_view("shp")) CheckShapeName(path);
  const Counts before = CountsOf(document);
  Exchange exchange;
  exchange.remarks =
      format.importFunction == nullptr
          ? LoadRoadsAndTerrain(path, document, progress)
          : Run(module, format.importFunction, path, document, options,
                {.parts = {}, .drawing = {}, .crs = {}, .makesPoints = makesPoints}, progress);
  if (makesPoints) MakePointsWithoutTable(document, before);
  exchange.counts = CountsOf(document) - before;
  if (BroughtNothing(format, exchange.counts)) {
    throw Failed(path, WhyNothing(format, exchange.remarks));
  }
  return exchange;
}

Exchange ExportFile(const Module& module, const std::string& path, HostDocument& document,
                    const TextOptions& options, const OutputOptions& output,
                    ProgressLine& progress) {
  CheckWritable(path);
  const FormatRow& format = FormatOf(path);
  Exchange exchange;
  const Counts all = CountsOf(document);
  const TextOptions chosen = format.isPointList ? WithKind(options, all, path) : options;
  if (format.extension == std::string_view("shp")) {
    exchange = ExportShapes(module, path, document, options, output, progress);
    exchange.counts = Within(all, format.carried);
    exchange.leftBack = all - exchange.counts;
    return exchange;
  }
  exchange.remarks = Run(module, format.exportFunction, path, document, chosen, output, progress);
  if (format.carried.design) AddExportRemarks(document, format, output.parts, exchange.remarks);
  std::error_code error;
  if (!std::filesystem::exists(platform::NativePath(path), error)) {
    throw Failed(path, exchange.remarks.empty() ? Xlate("it was not written").ToUtf8()
                                                : exchange.remarks.front());
  }
  exchange.counts = format.isPointList ? OfKind(all, *chosen.kind) : Within(all, format.carried);
  exchange.leftBack = all - exchange.counts;
  if (format.extension == std::string_view("xml")) {
    exchange.counts = OfParts(exchange.counts, output.parts);
  }
  return exchange;
}

void RefuseOneForBoth(const std::string& input, const std::string& output) {
  const std::string one = platform::NativePath(AbsolutePath(input));
  const std::string other = platform::NativePath(AbsolutePath(output));
  std::error_code error;
  if (one != other && !std::filesystem::equivalent(one, other, error)) return;
  throw BadUsage(output + ": " + Xlate("it is an input and the output").ToUtf8());
}

void TellRemarks(const std::string& path, const std::vector<std::string>& remarks) {
  for (std::size_t i = 0; i < remarks.size() && i < kRemarksShown; ++i) {
    console::Complain(path + ": " + remarks[i]);
  }
  if (remarks.size() <= kRemarksShown) return;
  const std::uint64_t more = remarks.size() - kRemarksShown;
  console::Complain(path + ": " +
                    Fill(Xlate("and {1} more"), {tdk::WString(console::Number(more))}).ToUtf8());
}
