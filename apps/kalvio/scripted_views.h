// A user interface that answers from a script and prints all that happens.
#pragma once

#include <deque>
#include <optional>

#include "answers.h"
#include "failure.h"
#include "services/dialog.h"
#include "services/window.h"
#include "tdk/source_event.h"

class ScriptedViews : public HostViews, public tdk::ISourceEventListener {
 public:
  explicit ScriptedViews(std::deque<Answer> answers) : answers_(std::move(answers)) {}

  int ShowDialog(Dialog& dialog) override;
  int ShowMessage(const tdk::WString& caption, const tdk::WString& text, unsigned flags) override;
  void StartWait() override;
  void EndWait() override;
  void TakeNote(const ExchangeNote& note) override;
  void OnBeginEvent() override;
  void OnEndEvent() override;

  /// Prints one event of the transcript, a JSON line; nothing once the call is being ended.
  /// Standard output that cannot be written ends it too.
  void Print(const nlohmann::ordered_json& event);

  /// Why the call was ended before its time, if it was.
  const std::optional<Failure>& Ended() const { return ended_; }
  const std::deque<Answer>& AnswersLeft() const { return answers_; }

 private:
  std::optional<Answer> NextFor(bool isDialog, const std::string& what);
  void Apply(const Answer& answer, Dialog& dialog);
  void CheckButton(const Answer& answer, const Dialog& dialog);
  std::string AnswerTo(const std::string& text, unsigned flags);
  void LeaveIfEnded() const;
  [[noreturn]] void End(int status, const std::string& reason);

  std::deque<Answer> answers_;
  std::optional<Failure> ended_;
};
