// The user interface of a test: notes what is shown and answers as it was told.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "services/dialog.h"
#include "services/window.h"

class FakeViews : public HostViews {
 public:
  struct Message {
    std::string caption;
    std::string text;
    unsigned flags;
    friend bool operator==(const Message&, const Message&) = default;
  };

  int ShowDialog(Dialog& dialog) override {
    shownDialogs.emplace_back(dialog.Name());
    return onDialog ? onDialog(dialog) : Dialog::kCancel;
  }
  int ShowMessage(const tdk::WString& caption, const tdk::WString& text, unsigned flags) override {
    messages.push_back({caption.ToUtf8(), text.ToUtf8(), flags});
    return messageAnswer;
  }
  void StartWait() override { waits += "start "; }
  void EndWait() override { waits += "end "; }
  void TakeNote(const ExchangeNote& note) override { notes.push_back(note); }

  /// Drives each dialog; without it, every dialog is cancelled.
  std::function<int(Dialog&)> onDialog;
  int messageAnswer = 1;

  std::vector<std::string> shownDialogs;
  std::vector<Message> messages;
  std::vector<ExchangeNote> notes;
  std::string waits;  ///< "start end " and so on, in the order of the calls
};
