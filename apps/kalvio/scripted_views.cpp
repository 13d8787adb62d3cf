#include "scripted_views.h"

#include <algorithm>

#include "console.h"
#include "platform/paths.h"
#include "services/message_box.h"
#include "services/translate.h"

namespace {

using Json = nlohmann::ordered_json;

// Thrown out of a dialog to end the call. The module lets nothing through, so it comes back as a
// call that ran to nothing; Ended tells the difference.
struct EndOfCall {};

std::string Dump(const Json& json) {
  return json.dump(-1, ' ', false, Json::error_handler_t::replace);
}

std::string List(const std::vector<std::string_view>& buttons) {
  std::string names;
  for (const std::string_view button : buttons) {
    names.append(names.empty() ? "\"" : ", \"").append(button).append("\"");
  }
  return names;
}

}  // namespace

void ScriptedViews::Print(const Json& event) {
  if (ended_) return;
  console::Out(Dump(event) + "\n");
  if (!console::FinishOutput()) ended_.emplace(exit_status::kFailed, console::OutputTrouble());
}

int ScriptedViews::ShowDialog(Dialog& dialog) {
  const std::string name(dialog.Name());
  for (;;) {
    const Json state = dialog.State();
    Print({{"event", "dialog"},
           {"dialog", name},
           {"title", dialog.Title().ToUtf8()},
           {"state", state.is_null() ? Json::object() : state}});
    LeaveIfEnded();
    const auto answer = NextFor(true, name);
    if (!answer) return dialog.Press("Cancel").value_or(Dialog::kCancel);
    Apply(*answer, dialog);
    CheckButton(*answer, dialog);
    if (const auto code = dialog.Press(answer->press)) return *code;
  }
}

void ScriptedViews::Apply(const Answer& answer, Dialog& dialog) {
  for (const auto& [key, value] : answer.set.items()) {
    const DialogSet outcome = dialog.Set(key, value);
    if (outcome == DialogSet::kDone) continue;
    const auto pattern = outcome == DialogSet::kUnknownKey
                             ? Xlate("dialog \"{1}\" has no key \"{2}\"")
                             : Xlate("dialog \"{1}\" cannot set \"{2}\" to {3}");
    const auto reason =
        Fill(pattern, {tdk::WString(answer.what), tdk::WString(key), tdk::WString(Dump(value))});
    End(exit_status::kBadUsage, answer.where + ": " + reason.ToUtf8());
  }
}

void ScriptedViews::CheckButton(const Answer& answer, const Dialog& dialog) {
  const auto buttons = dialog.Buttons();
  if (std::find(buttons.begin(), buttons.end(), answer.press) != buttons.end()) return;
  const auto reason =
      Fill(Xlate("dialog \"{1}\" has no button \"{2}\"; it has {3}"),
           {tdk::WString(answer.what), tdk::WString(answer.press), tdk::WString(List(buttons))});
  End(exit_status::kBadUsage, answer.where + ": " + reason.ToUtf8());
}

int ScriptedViews::ShowMessage(const tdk::WString& caption, const tdk::WString& text,
                               unsigned flags) {
  LeaveIfEnded();
  const std::string answer = AnswerTo(text.ToUtf8(), flags);
  Print({{"event", "message"},
         {"caption", caption.ToUtf8()},
         {"text", text.ToUtf8()},
         {"flags", flags},
         {"answer", answer}});
  LeaveIfEnded();
  if (answer == "OK") return kAnswerOk;
  return answer == "Yes" ? kAnswerYes : kAnswerNo;
}

std::string ScriptedViews::AnswerTo(const std::string& text, unsigned flags) {
  if ((flags & kBoxYesNo) == 0) return "OK";
  const auto answer = NextFor(false, text);
  if (!answer) return "No";
  if (answer->press != "Yes" && answer->press != "No") {
    const auto reason = Fill(Xlate("a question is answered \"Yes\" or \"No\", not \"{1}\""),
                             {tdk::WString(answer->press)});
    End(exit_status::kBadUsage, answer->where + ": " + reason.ToUtf8());
  }
  return answer->press;
}

std::optional<Answer> ScriptedViews::NextFor(bool isDialog, const std::string& what) {
  if (answers_.empty()) return std::nullopt;
  Answer answer = std::move(answers_.front());
  answers_.pop_front();
  if (answer.isDialog == isDialog && answer.what == what) return answer;
  const auto came = isDialog ? Xlate("dialog \"{1}\" came, but {2} was next")
                             : Xlate("message \"{1}\" came, but {2} was next");
  const auto expected = answer.isDialog ? Xlate("an answer for dialog \"{1}\"")
                                        : Xlate("an answer for message \"{1}\"");
  const auto reason = Fill(came, {tdk::WString(what), Fill(expected, {tdk::WString(answer.what)})});
  End(exit_status::kUnexpectedDialog, answer.where + ": " + reason.ToUtf8());
}

void ScriptedViews::LeaveIfEnded() const {
  if (ended_) throw EndOfCall{};
}

void ScriptedViews::End(int status, const std::string& reason) {
  ended_.emplace(status, reason);
  throw EndOfCall{};
}

void ScriptedViews::StartWait() { Print({{"event", "wait"}, {"what", "start"}}); }
void ScriptedViews::EndWait() { Print({{"event", "wait"}, {"what", "end"}}); }
void ScriptedViews::OnBeginEvent() { Print({{"event", "begin-change"}}); }
void ScriptedViews::OnEndEvent() { Print({{"event", "end-change"}}); }

void ScriptedViews::TakeNote(const ExchangeNote& note) {
  const std::string file = platform::NativePath(note.path.ToUtf8());
  console::Complain((file.empty() ? "" : file + ": ") + note.text.ToUtf8());
}
