// The user interface of the desktop, as exchanges call it.
#pragma once

#include <QElapsedTimer>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

#include "apps/desktop/dialogs/control.h"
#include "services/window.h"

class DialogView;
class MessageView;
class WaitView;

/// Thrown out of work that the user stopped. The module lets nothing through, so there it comes
/// back as a call that ran to nothing.
struct ExchangeStopped {};

/// Shows dialogs and messages as windows, one over the other, and returns when they have closed.
class QtViews : public HostViews {
 public:
  /// `owner`: the window that they belong to; may be null, not owned.
  QtViews(QWidget* owner, const DialogShape& shape);
  ~QtViews() override;

  int ShowDialog(Dialog& dialog) override;
  int ShowMessage(const tdk::WString& caption, const tdk::WString& text, unsigned flags) override;
  void StartWait() override;
  void EndWait() override;
  void ShowProgress(std::uint64_t done, std::uint64_t total) override;
  /// The same, for work that does not know views. Lives as long as they do.
  std::function<void(std::uint64_t done, std::uint64_t total)> Progress() {
    return [this](std::uint64_t done, std::uint64_t total) { ShowProgress(done, total); };
  }
  void TakeNote(const ExchangeNote& note) override { notes_.push_back(note); }

  /// Where layout dialogs get their preview; not owned, may be null.
  void SetPreview(PreviewSource* preview) { preview_ = preview; }
  /// Whether the exchange may be stopped: whoever allows that brings everything back as it was.
  void AllowCancel(bool allow) { mayCancel_ = allow; }
  /// Whether the user stopped it.
  bool WasCancelled() const { return wasCancelled_; }

  /// Milliseconds until work that tells how far it is shows the wait indicator.
  static inline int patience = 400;

  /// Fills a dialog before it is shown. It may close it at once, with the code that it returns.
  std::function<std::optional<int>(Dialog&)> prepare;

  /// The presenters of the dialogs that are open, the last one on top.
  const std::vector<Dialog*>& Open() const { return open_; }
  const std::vector<ExchangeNote>& Notes() const { return notes_; }
  /// What message boxes said that were no questions.
  const std::vector<QString>& Messages() const { return messages_; }
  /// Whether the dialog of a full export wrote its file.
  bool HasWritten() const { return hasWritten_; }
  /// The file that the exchange is about, as far as its dialogs know it; host path.
  const std::string& Path() const { return path_; }

 private:
  // The pointer tells that the program works.
  class Busy;

  int Run(Dialog& dialog);
  void GoOn();
  QWidget* Top() const;
  void KeepPath(Dialog& dialog);
  void ShowWait();

  QWidget* owner_;
  DialogShape shape_;
  PreviewSource* preview_ = nullptr;
  bool mayCancel_ = false;
  bool wasCancelled_ = false;
  bool hasWritten_ = false;
  std::string path_;
  std::vector<Dialog*> open_;
  std::vector<QWidget*> windows_;
  std::vector<ExchangeNote> notes_;
  std::vector<QString> messages_;
  std::unique_ptr<WaitView> wait_;
  std::unique_ptr<Busy> busy_;
  QElapsedTimer working_;  // since it began
  QElapsedTimer told_;     // since it told how far it is
};
