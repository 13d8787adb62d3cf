#include <array>

#include "formats/cad/drawing_binding.h"
#include "frame/exchanges.h"
#include "frame/string_table.h"
#include "platform/numbers.h"
#include "services/cloud.h"
#include "services/display/displays.h"
#include "services/jobs_folder.h"
#include "services/message_box.h"
#include "services/progress.h"
#include "services/translate.h"
#include "ui/cad_file_dialog.h"

namespace frame {
namespace {

constexpr const char* kDxf = ".dxf";
constexpr const char* kDwg = ".dwg";

struct Load {
  bool isLoaded = false;
  int errorLine = 0;
  std::array<wchar_t, 2047> errorText{};
};

Load LoadDrawing(CTcadEng& engine, const tdk::WString& path, bool isDxf, CWnd* parent) {
  Load load;
  const int size = static_cast<int>(load.errorText.size());
  load.isLoaded = isDxf ? engine.LoadFileDXF(path, load.errorLine, load.errorText.data(), size) != 0
                        : engine.LoadFileDWG(path, load.errorText.data(), size, parent) != 0;
  return load;
}

void TellFailure(CWnd* parent, const Load& load, bool isDxf) {
  const tdk::WString caption = Xlate(tdk::CStringLoader::Load(kTextError));
  const tdk::WString reason(load.errorText.data());
  std::string line;
  platform::AppendWhole(line, load.errorLine);
  const tdk::WString text =
      isDxf ? Fill(Xlate("Error on line {1}: {2}"), {tdk::WString(line), reason})
            : Fill(Xlate("Error: {1}"), {reason});
  while (CreateMessageBox(parent, caption, text, 0) != kAnswerOk) {
  }
}

void TellNotes(CWnd* parent, const tdk::WString& path, const std::vector<tdk::WString>& notes) {
  if (parent == nullptr || parent->GetViews() == nullptr) return;
  for (const tdk::WString& note : notes) parent->GetViews()->TakeNote({path, 0, note});
}

void TellNotDrawn(CWnd* parent, const tdk::WString& path, std::uint64_t points) {
  if (points == 0) return;
  std::string number;
  platform::AppendWhole(number, static_cast<std::int64_t>(points));
  TellNotes(parent, path,
            {Fill(Xlate("points without plane coordinates are not drawn ({1})"),
                  {tdk::WString(number)})});
}

void Save(CTcadEng& engine, const tdk::WString& path, const cad::ExportOptions& options) {
  const auto version = cad::VersionTable()[static_cast<std::size_t>(options.version)].version;
  const bool onlyVisible = !options.withHidden;
  if (cad::IsDwgVersion(options.version) && cad::EndsWith(path, kDwg)) {
    engine.SaveFileDWG(path, false, onlyVisible, false, false, options.explodesBlocks, version, 0);
  } else {
    engine.SaveFileDXF(path, false, onlyVisible, false, false, options.explodesBlocks, version, 0);
  }
}

// All data of the document in one engine, together with what was drawn by hand.
void ExportThrough(CTcadEng& temporary, ExchangeContext& document, CWnd* parent,
                   const tdk::WString& path, const cad::ExportOptions& options) {
  CTcadEng& own = *document.GetCadEngine();
  const CTcadEventSentinel sentinel(&own);
  const display::OwnDisplaysAside shown(document);
  temporary.CopiaDa(&own, /*withPrivate=*/true);
  CDocSymbolManager symbols(&temporary);
  symbols.CopyUserSymbolsFrom(shown.Symbols());
  const cad::DrawingBinding binding(document, temporary);
  display::MakeTargetsCurrent(document, temporary);
  ProgressParts progress(2);
  progress.Begin(1);
  TellNotDrawn(parent, path,
               display::DrawAll(document, temporary, symbols, options.explodesBlocks));
  temporary.PurgePrivateObjects();
  progress.Begin(1);
  Save(temporary, path, options);
  TellNotes(parent, path, temporary.SaveNotes());
}

}  // namespace

int ImportDrawing(CWnd* parent, ExchangeContext& document) {
  CTcadEng* const engine = document.GetCadEngine();
  if (engine == nullptr) return 0;
  ui::CadFileDialog dialog(CCloudManager::GetInstance(), parent, -1);
  dialog.SetVars(CJobsFolder::GetJobNameFolderWthSlash(), Xlate("Dxf/Dwg file import"), "dxf;dwg",
                 /*isImport=*/true, {});
  dialog.SetOptions(cad::ReadExportOptions());
  if (dialog.DoModal() != Dialog::kOk) return 0;
  tdk::WString path;
  dialog.GetVars(path);
  const bool isDxf = cad::EndsWith(path, kDxf);
  const Load load = LoadDrawing(*engine, path, isDxf, parent);
  TellNotes(parent, path, engine->LoadNotes());
  if (!load.isLoaded) TellFailure(parent, load, isDxf);
  return load.isLoaded ? 1 : 0;
}

int ExportDrawing(CWnd* parent, ExchangeContext& document) {
  if (document.GetCadEngine() == nullptr) return 0;
  ui::CadFileDialog dialog(CCloudManager::GetInstance(), parent, -1);
  dialog.SetVars(CJobsFolder::GetJobNameFolderWthSlash(), Xlate("Dxf/Dwg file export"), "dxf",
                 /*isImport=*/false, {});
  dialog.SetOptions(cad::ReadExportOptions());
  if (dialog.DoModal() != Dialog::kOk) return 0;
  tdk::WString path;
  dialog.GetVars(path);
  const cad::ExportOptions options = dialog.Options();
  cad::WriteExportOptions(options);
  CTcadEng temporary(0, nullptr, /*temporary=*/true);
  temporary.DontSaveTcadVars();
  ExportThrough(temporary, document, parent, cad::ExportPath(path, options.version), options);
  return 1;
}

}  // namespace frame
