// A module for the tests of the program: its functions ask, wait, tell and fail as no exchange of
// this version does. Those that the tests do not need are left out, so that the program can be seen
// to miss one.
#include <nlohmann/json.hpp>
#include <stdexcept>

#include "frame/exports.h"
#include "platform/file_trouble.h"
#include "platform/window_registry.h"
#include "services/dialog.h"
#include "services/ini_file.h"
#include "services/message_box.h"
#include "services/wait_thread.h"

namespace {

using Json = nlohmann::ordered_json;

// Keeps what is set, in the order in which it was set, and stays open until "OK" or "Cancel".
class Notebook : public Dialog {
 public:
  explicit Notebook(CWnd* parent) : parent_(parent) {}

  std::string_view Name() const override { return "notebook"; }
  tdk::WString Title() const override { return "Taccuino però"; }
  DialogState State() const override {
    return {{"entries", entries_},
            {"strange",
             "a\xff"
             "b"}};
  }
  DialogSet Set(std::string_view key, const DialogState& value) override {
    if (key.starts_with("unknown")) return DialogSet::kUnknownKey;
    if (value.is_null()) return DialogSet::kWrongValue;
    entries_.push_back(std::string(key) + "=" + value.dump());
    return DialogSet::kDone;
  }
  std::vector<std::string_view> Buttons() const override {
    return {"Again", "Ask", "OK", "Cancel"};
  }
  std::optional<int> Press(std::string_view button) override {
    if (button == "Ask") CreateMessageBox(parent_, "Question", "Inside?", kBoxYesNo);
    if (button == "Again" || button == "Ask") return std::nullopt;
    return button == "OK" ? kOk : kCancel;
  }

 private:
  CWnd* parent_;
  Json entries_ = Json::array();
};

int Guarded(int (*exchange)(CWnd*, ExchangeContext*), CWnd* parent, ExchangeContext* document) {
  try {
    return exchange(parent, document);
  } catch (...) {
    return 0;
  }
}

// The guard of a wait indicator that outlives an exception, as the module's own has one.
struct Waiting {
  explicit Waiting(CWnd* parent) { CWaitThread::GetInstance()->StartWait(parent, 0); }
  ~Waiting() { CWaitThread::GetInstance()->EndWait(); }
  Waiting(const Waiting&) = delete;
  Waiting& operator=(const Waiting&) = delete;
};

int ShowNotebook(CWnd* parent, ExchangeContext* /*document*/) {
  const Waiting waiting(parent);
  Notebook notebook(parent);
  return ShowDialog(parent, notebook);
}

// 1 for Yes, 2 for No, after a plain box.
int AskQuestion(CWnd* parent, ExchangeContext* /*document*/) {
  CreateMessageBox(parent, "Plain", "Only OK here.", kBoxInformation);
  return CreateMessageBox(parent, "Question", "Go on?", kBoxYesNo | kBoxExclamation) == kAnswerYes
             ? 1
             : 2;
}

int ChangeJob(CWnd* /*parent*/, ExchangeContext* document) {
  document->GetLibCmp()->AddJob(true)->SetNome("added");
  CIniFile().WriteShort("Section", "Key", 7);
  return 1;
}

int ChangeSettings(CWnd* /*parent*/, ExchangeContext* /*document*/) {
  CIniFile().WriteShort("Section", "Key", 7);
  return 0;
}

// Everything that an import can say without a dialog, for "convert" too.
int TellMuch(CWnd* parent, ExchangeContext* document) {
  document->GetLibCmp()->AddJob(true)->SetNome("told");
  for (int i = 1; i <= 12; ++i) {
    parent->GetViews()->TakeNote(
        {"/folder\\file.jb2", 3, tdk::WString("note " + std::to_string(i))});
  }
  platform::ReportFileTrouble(platform::FileTrouble::Action::kCreate, "/folder/other", ENOSPC);
  return 1;
}

int TellNotes(CWnd* parent, ExchangeContext* document) {
  document->GetLibCmp()->AddJob(true)->SetNome("told");
  CreateMessageBox(parent, "Warning", "Said in a box.", kBoxExclamation);
  for (int i = 1; i <= 12; ++i) {
    parent->GetViews()->TakeNote({{}, 0, tdk::WString("note " + std::to_string(i))});
  }
  return 1;
}

struct Loaded {
  Loaded() { platform::SendToWindow("Listener", {2000, 5, -6}); }
};
const Loaded loaded;

}  // namespace

int FImportTXTFile(CWnd* parent, ExchangeContext* document, int) {
  return Guarded(ShowNotebook, parent, document);
}
int FExportTXTFile(CWnd* parent, ExchangeContext* document, int) {
  return Guarded(AskQuestion, parent, document);
}
int FImportCSVFile(CWnd* parent, ExchangeContext* document, int) {
  return Guarded(ChangeJob, parent, document);
}
int FExportCSVFile(CWnd* parent, ExchangeContext* document, int) {
  return Guarded(ChangeSettings, parent, document);
}
int FExportDATFile(CWnd* parent, ExchangeContext* document, int) {
  return Guarded(TellMuch, parent, document);
}
// What the program's options bring.
int FExportJB3File(CWnd* parent, ExchangeContext*, const tdk::WString* name,
                   const tdk::WString* version) {
  CreateMessageBox(parent, *name, *version, 0);
  return 1;
}
int FImportJB2File(CWnd* parent, ExchangeContext* document, int) {
  return Guarded(TellNotes, parent, document);
}
// Shows a dialog that "convert" does not know.
int FExportJB2File(CWnd* parent, ExchangeContext* document, int) {
  return Guarded(ShowNotebook, parent, document) == Dialog::kOk ? 1 : 0;
}
bool FImportEntFromFileShape(CWnd*, gis::CLibGis*, gis::ILinkImportedEnt*, bool) { return true; }
