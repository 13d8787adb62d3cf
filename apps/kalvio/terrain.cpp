#include "commands.h"
#include "console.h"
#include "failure.h"
#include "file_import.h"
#include "job_computation.h"
#include "job_session.h"
#include "services/translate.h"
#include "sources.h"
#include "terrain_model.h"

// Points that have no coordinates yet get them first, as in every conversion.
int RunTerrain(const Arguments& arguments) {
  const auto name = arguments.Value("--name");
  if (!name || name->find_first_not_of(' ') == std::string::npos) {
    throw BadUsage(Xlate("--name says what the terrain model is called").ToUtf8());
  }
  const terrain::Choice choice = TerrainChoice(arguments);
  const Sources sources = CheckedSources(arguments);
  TextOptions layout = ReadTextOptions(arguments);
  if (!layout.kind) layout.kind = PointKind::kKnown;
  ProgressLine progress(console::IsErrorATerminal());
  progress.Begin(sources.First());
  JobSession session(sources.job,
                     [&](std::uint64_t done, std::uint64_t total) { progress.Show(done, total); });
  progress.Clear();
  const auto save = arguments.Value("--save");
  if (!save && (!sources.job || IsJsonJob(*sources.job))) {
    throw BadUsage(Xlate("only a job folder keeps the model; --save says where to").ToUtf8());
  }
  HostDocument& document = session.Document();
  ReadFiles(sources, document, layout, progress);
  CompletePositions(*document.GetLibGps(), {});
  ComputeJob(document, {});
  const TerrainReport report = MakeTerrain(document, *name, choice);
  console::Out(*name + ": " + InWords(report) + "\n");
  TellRemarks(*name, report.Remarks());
  session.Keep(save, /*succeeded=*/true);
  return exit_status::kRan;
}
