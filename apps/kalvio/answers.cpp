#include "answers.h"

#include <algorithm>

#include "console.h"
#include "failure.h"
#include "platform/text_reader.h"
#include "services/translate.h"

namespace {

using Json = nlohmann::ordered_json;

std::string ReadWhole(const std::string& path) {
  platform::TextReader file;
  std::optional<platform::FileTrouble> trouble;
  const auto previous =
      platform::SetFileTroubleListener([&](const platform::FileTrouble& each) { trouble = each; });
  std::string text;
  if (file.Open(path)) {
    constexpr std::size_t kPiece = 32768;
    while (const auto piece = file.NextPiece(kPiece)) text += *piece;
  }
  platform::SetFileTroubleListener(previous);
  if (trouble) throw BadUsage(path + ": " + console::InWords(*trouble));
  return text;
}

std::string LinePlace(const std::string& path, std::size_t line) {
  return path + ":" + console::Number(line);
}

std::size_t LineAt(std::string_view text, std::size_t offset) {
  const std::string_view before = text.substr(0, offset);
  return static_cast<std::size_t>(std::count(before.begin(), before.end(), '\n')) + 1;
}

Json Parse(const std::string& path, const std::string& text) {
  try {
    return Json::parse(text);
  } catch (const Json::parse_error& error) {
    throw BadUsage(LinePlace(path, LineAt(text, error.byte)) + ": " +
                   Xlate("this is no JSON").ToUtf8());
  }
}

// Steps through JSON text that is known to be right.
class ElementFinder {
 public:
  explicit ElementFinder(std::string_view text) : text_(text) {}

  /// The lines on which the elements of the outermost list begin.
  std::vector<std::size_t> Lines() {
    for (; at_ < text_.size(); ++at_) Step();
    return std::move(lines_);
  }

 private:
  void Step() {
    const char c = text_[at_];
    if (c == '\n') ++line_;
    if (c == ',' && depth_ == 1) expected_ = true;
    if (c == ']' || c == '}') --depth_;
    if (std::string_view(" \t\r\n,]}:").find(c) != std::string_view::npos) return;
    if (expected_ && depth_ == 1) lines_.push_back(line_);
    expected_ = depth_ == 0;
    if (c == '[' || c == '{') ++depth_;
    if (c == '"') SkipText();
  }
  void SkipText() {
    for (++at_; at_ < text_.size() && text_[at_] != '"'; ++at_) {
      if (text_[at_] == '\\') ++at_;
    }
  }

  std::string_view text_;
  std::size_t at_ = 0;
  std::size_t line_ = 1;
  int depth_ = 0;
  bool expected_ = false;  // an element of the outermost list is next
  std::vector<std::size_t> lines_;
};

[[noreturn]] void Refuse(const std::string& where, const tdk::WString& reason) {
  throw BadUsage(where + ": " + reason.ToUtf8());
}

std::string TextOf(const std::string& where, const Json& answer, const char* key) {
  if (!answer.contains(key) || !answer[key].is_string()) {
    Refuse(where, Fill(Xlate("\"{1}\" must be a text"), {key}));
  }
  return answer[key];
}

void CheckKeys(const std::string& where, const Json& answer) {
  for (const auto& [key, value] : answer.items()) {
    const bool known = key == "dialog" || key == "message" || key == "set" || key == "press";
    if (!known) Refuse(where, Fill(Xlate("unknown key \"{1}\""), {tdk::WString(key)}));
  }
  if (answer.contains("dialog") == answer.contains("message")) {
    Refuse(where, Xlate("it needs one of \"dialog\" and \"message\""));
  }
}

Answer Read(const std::string& where, const Json& answer) {
  if (!answer.is_object()) Refuse(where, Xlate("an answer must be an object"));
  CheckKeys(where, answer);
  Answer read;
  read.where = where;
  read.isDialog = answer.contains("dialog");
  read.what = TextOf(where, answer, read.isDialog ? "dialog" : "message");
  read.press = TextOf(where, answer, "press");
  if (!answer.contains("set")) return read;
  if (!read.isDialog || !answer["set"].is_object()) {
    Refuse(where, Xlate("\"set\" must be an object, and of a dialog"));
  }
  read.set = answer["set"];
  return read;
}

}  // namespace

std::deque<Answer> ReadAnswers(const std::string& path) {
  const std::string text = ReadWhole(path);
  const Json list = Parse(path, text);
  if (!list.is_array()) Refuse(LinePlace(path, 1), Xlate("it is no list of answers"));
  const auto lines = ElementFinder(text).Lines();
  std::deque<Answer> answers;
  for (std::size_t i = 0; i < list.size(); ++i) {
    answers.push_back(Read(LinePlace(path, i < lines.size() ? lines[i] : 1), list[i]));
  }
  return answers;
}
