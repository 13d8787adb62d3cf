// A user interface for tests: answers dialogs from a script and keeps all that was shown.
#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <deque>
#include <functional>
#include <nlohmann/json.hpp>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "services/dialog.h"
#include "services/message_box.h"
#include "services/window.h"

namespace exchange_test {

struct ShownDialog {
  std::string name;
  std::string title;
  DialogState state;
};

struct ShownMessage {
  std::string caption;
  std::string text;
  unsigned flags;
  friend bool operator==(const ShownMessage&, const ShownMessage&) = default;
};
inline void PrintTo(const ShownMessage& message, std::ostream* out) {
  *out << '[' << message.caption << "] " << message.text << " (" << message.flags << ')';
}

/// Dialogs take the answers in turn; when there are none left a dialog is cancelled.
class ScriptedViews : public HostViews {
 public:
  /// Drives a dialog and returns the code that it closes with.
  using Answer = std::function<int(Dialog&)>;

  void Then(Answer answer) { answers_.push_back(std::move(answer)); }

  int ShowDialog(Dialog& dialog) override {
    dialogs.push_back({std::string(dialog.Name()), dialog.Title().ToUtf8(), dialog.State()});
    if (answers_.empty()) return Dialog::kCancel;
    const Answer answer = std::move(answers_.front());
    answers_.pop_front();
    return answer(dialog);
  }

  int ShowMessage(const tdk::WString& caption, const tdk::WString& text, unsigned flags) override {
    messages.push_back({caption.ToUtf8(), text.ToUtf8(), flags});
    if (onMessage) onMessage();
    return kAnswerOk;
  }

  void StartWait() override { ++waitsStarted; }
  void EndWait() override { ++waitsEnded; }

  void ShowProgress(std::uint64_t done, std::uint64_t total) override {
    progress.emplace_back(done, total);
  }
  void TakeNote(const ExchangeNote& note) override {
    notes.push_back(note);
    if (onNote) onNote();
  }

  /// The names of the dialogs that were shown, one after the other.
  std::vector<std::string> DialogNames() const {
    std::vector<std::string> names;
    for (const ShownDialog& dialog : dialogs) names.push_back(dialog.name);
    return names;
  }
  bool HasAnswersLeft() const { return !answers_.empty(); }

  std::vector<ShownDialog> dialogs;
  std::vector<ShownMessage> messages;
  std::vector<ExchangeNote> notes;
  std::vector<std::pair<std::uint64_t, std::uint64_t>> progress;
  std::function<void()> onMessage;
  std::function<void()> onNote;
  int waitsStarted = 0;
  int waitsEnded = 0;

 private:
  std::deque<Answer> answers_;
};

/// Presses a button that closes the dialog.
inline ScriptedViews::Answer Press(std::string button) {
  return [button = std::move(button)](Dialog& dialog) {
    const std::optional<int> code = dialog.Press(button);
    EXPECT_TRUE(code.has_value()) << button << " left the dialog open";
    return code.value_or(Dialog::kCancel);
  };
}

/// Chooses a file and confirms.
inline ScriptedViews::Answer Choose(std::string path) {
  return [path = std::move(path)](Dialog& dialog) {
    EXPECT_EQ(dialog.Set("path", path), DialogSet::kDone);
    return dialog.Press("OK").value_or(Dialog::kCancel);
  };
}

/// Sets a value and presses a button.
inline ScriptedViews::Answer SetAndPress(std::string key, DialogState value, std::string button) {
  return [=](Dialog& dialog) {
    EXPECT_EQ(dialog.Set(key, value), DialogSet::kDone);
    return Press(button)(dialog);
  };
}

/// Closes the dialog with a code of the test's own.
inline ScriptedViews::Answer CloseWith(int code) {
  return [code](Dialog&) { return code; };
}

}  // namespace exchange_test
