#include "frame/exchanges.h"
#include "frame/string_table.h"
#include "model/shape_files.h"
#include "services/message_box.h"
#include "services/progress.h"
#include "services/translate.h"
#include "services/wait_thread.h"
#include "ui/shape_export_dialog.h"
#include "ui/shape_import_dialog.h"

namespace frame {
namespace {

// ---- Export ----

class OverwriteQuestion : public IExportFileCallback {
 public:
  explicit OverwriteQuestion(CWnd* parent) : parent_(parent) {}

  bool OnOverwriteFile(const tdk::WString& path) override {
    const tdk::WString text =
        Fill(Xlate("The Shape file {1}.shp already exists!\r\nOverwrite it?"), {path});
    return CreateMessageBox(parent_, Xlate("Warning"), text, kBoxYesNo | kBoxExclamation) ==
           kAnswerYes;
  }

 private:
  CWnd* parent_;
};

struct FailedFile {
  int bit;
  const char* extension;
};
constexpr FailedFile kFailedFiles[] = {{kShapeFileFailed, ".shp"}, {kShapeTableFailed, ".dbf"}};

void TellFailures(CWnd* parent, const tdk::WString& path, int failed) {
  for (const FailedFile& file : kFailedFiles) {
    if ((failed & file.bit) == 0) continue;
    const tdk::WString text =
        Fill(Xlate("Impossible to write the file \"{1}\"!\nCheck if the path is valid and not "
                   "proteced"),
             {path + file.extension});
    CreateMessageBox(parent, Xlate("Warning"), text, kBoxExclamation);
  }
}

std::uint64_t FeatureCount(const std::vector<gis::CTheme*>& themes) {
  std::uint64_t features = 0;
  for (const gis::CTheme* const theme : themes) {
    features += static_cast<std::uint64_t>(theme->GetNumFeatures());
  }
  return features;
}

// ---- Import ----

// What becomes of names that are taken is the host's to decide.
class Merger : public gis::CGisMerger {
 public:
  using gis::CGisMerger::CGisMerger;
  ~Merger() override = default;
};

class WaitScope {
 public:
  explicit WaitScope(CWnd* parent) { CWaitThread::GetInstance()->StartWait(parent, 0); }
  ~WaitScope() { CWaitThread::GetInstance()->EndWait(); }
  WaitScope(const WaitScope&) = delete;
  WaitScope& operator=(const WaitScope&) = delete;
};

struct ImportMessage {
  bool isDone;
  int result;
  unsigned caption;
  unsigned text;
  unsigned flags;
};
constexpr ImportMessage kImportMessages[] = {
    {true, kShapeImported, kTextShapeFile, kTextShapeImported, kBoxInformation},
    {true, kShapeTableRenamed, kTextWarning, kTextShapeTableRenamed, kBoxExclamation},
    {false, kShapeFileNotFound, kTextWarning, kTextShapeNotFound, kBoxExclamation},
    {false, kShapeInconsistent, kTextWarning, kTextShapeInconsistent, kBoxExclamation},
    {false, kShapeTablePresent, kTextWarning, kTextShapeTablePresent, kBoxExclamation},
    {false, kShapeThemePresent, kTextWarning, kTextShapeThemePresent, kBoxExclamation}};

void TellImport(CWnd* parent, bool isDone, int result, const tdk::WString& name) {
  for (const ImportMessage& message : kImportMessages) {
    if (message.isDone != isDone || message.result != result) continue;
    CreateMessageBox(parent, Xlate(tdk::CStringLoader::Load(message.caption)),
                     Fill(Xlate(tdk::CStringLoader::Load(message.text)), {name}), message.flags);
  }
}

}  // namespace

int ExportShape(CWnd* parent, gis::CLibGis& library) {
  ui::ShapeExportDialog dialog(parent, library);
  if (ShowDialog(parent, dialog) != Dialog::kOk) return 0;
  const ui::ShapeExportChoice choice = dialog.Choice();
  const tdk::WString folder = choice.folder + "\\";
  OverwriteQuestion question(parent);
  ProgressParts progress(FeatureCount(choice.themes));
  for (gis::CTheme* const theme : choice.themes) {
    progress.Begin(static_cast<std::uint64_t>(theme->GetNumFeatures()));
    int failed = 0;
    if (FExportFileShape(&library, theme, folder, choice.maximumCharacters, choice.coordinateType,
                         &question, failed)) {
      continue;
    }
    TellFailures(parent, folder + library.GetThemeName(theme), failed);
  }
  return 1;
}

void ImportShape(CWnd* parent, gis::CLibGis& library, gis::ILinkImportedEnt* link) {
  TOpzImportShape options;
  ui::ShapeImportDialog dialog(parent, &library, options);
  if (ShowDialog(parent, dialog) == Dialog::kCancel) return;
  Merger merger(&library);
  tdk::WString path = dialog.Path();
  tdk::WString name;
  int result = 0;
  bool isDone = false;
  {
    const WaitScope wait(parent);
    isDone = FImportFileShape(&library, path, name, &result, link, &merger, options);
  }
  TellImport(parent, isDone, result, name);
}

}  // namespace frame
