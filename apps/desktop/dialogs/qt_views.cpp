#include "apps/desktop/dialogs/qt_views.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <nlohmann/json.hpp>

#include "apps/desktop/dialogs/dialog_view.h"
#include "apps/desktop/dialogs/file_name_dialog.h"
#include "apps/desktop/dialogs/message_view.h"
#include "apps/desktop/dialogs/wait_view.h"
#include "apps/desktop/qt_text.h"
#include "platform/paths.h"
#include "services/message_box.h"

namespace {

constexpr int kPause = 1000;  // milliseconds without a word, and what comes then is new work

// Shows a window and returns when it has closed.
template <class View>
void RunModally(View& view) {
  QEventLoop loop;
  view.onClosed = [&loop] { loop.quit(); };
  view.open();
  loop.exec(QEventLoop::DialogExec);
}

}  // namespace

class QtViews::Busy {
 public:
  Busy() { QGuiApplication::setOverrideCursor(Qt::WaitCursor); }
  ~Busy() { QGuiApplication::restoreOverrideCursor(); }
  Busy(const Busy&) = delete;
  Busy& operator=(const Busy&) = delete;
};

QtViews::QtViews(QWidget* owner, const DialogShape& shape) : owner_(owner), shape_(shape) {}
QtViews::~QtViews() = default;

QWidget* QtViews::Top() const { return windows_.empty() ? owner_ : windows_.back(); }

int QtViews::ShowDialog(Dialog& dialog) {
  wait_.reset();
  if (!FileNameDialog::IsFor(dialog)) return Run(dialog);
  CWnd window(this);
  FileNameDialog named(dialog, &window);
  return Run(named);
}

// A window has closed, and the work begins or goes on.
void QtViews::GoOn() {
  working_.start();
  if (windows_.empty()) busy_ = std::make_unique<Busy>();
}

int QtViews::Run(Dialog& dialog) {
  busy_.reset();
  if (prepare) {
    if (const auto code = prepare(dialog)) {
      KeepPath(dialog);
      return *code;
    }
  }
  open_.push_back(&dialog);
  DialogView view(dialog, shape_, preview_, Top());
  windows_.push_back(&view);
  RunModally(view);
  windows_.pop_back();
  open_.pop_back();
  if (view.Failure()) std::rethrow_exception(view.Failure());
  const int code = view.Code().value_or(Dialog::kCancel);
  if (code == Dialog::kOk) KeepPath(dialog);
  GoOn();
  return code;
}

// The dialog of a full export has written the file of the dialog below it.
void QtViews::KeepPath(Dialog& dialog) {
  const std::string_view name = dialog.Name();
  if (name == "gps-export" || name == "ts-export") {
    hasWritten_ = true;
    if (!open_.empty()) KeepPath(*open_.back());
    return;
  }
  const DialogState state = dialog.State();
  const char* const key = name == "text-main" || name == "shape-import" ? "file" : "path";
  const auto file = state.find(key);
  if (file == state.end() || !file->is_string()) return;
  const auto text = file->get<std::string>();
  path_ = platform::IsAbsolutePath(text)
              ? text
              : platform::JoinPath(state.value("folder", std::string()), text);
}

int QtViews::ShowMessage(const tdk::WString& caption, const tdk::WString& text, unsigned flags) {
  wait_.reset();
  busy_.reset();
  MessageView view(ToQt(caption), ToQt(text), flags, shape_, Top());
  windows_.push_back(&view);
  RunModally(view);
  windows_.pop_back();
  if (!view.IsQuestion()) messages_.push_back(ToQt(text));
  GoOn();
  return view.Answer();
}

void QtViews::StartWait() { ShowWait(); }

void QtViews::EndWait() { wait_.reset(); }

void QtViews::ShowWait() {
  if (wait_ != nullptr) return;
  wait_ = std::make_unique<WaitView>(shape_, mayCancel_, Top());
  wait_->open();
  wait_->repaint();
  QCoreApplication::processEvents();
}

void QtViews::ShowProgress(std::uint64_t done, std::uint64_t total) {
  if (!working_.isValid() || (told_.isValid() && told_.elapsed() > kPause)) working_.start();
  told_.start();
  if (wait_ == nullptr && working_.elapsed() < patience) return;
  ShowWait();
  wait_->ShowProgress(done, total);
  if (!wait_->IsCancelled()) return;
  wasCancelled_ = true;
  wait_.reset();
  throw ExchangeStopped();
}
