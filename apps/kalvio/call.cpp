#include "commands.h"
#include "console.h"
#include "failure.h"
#include "host/gis/shape_files.h"
#include "job_session.h"
#include "module.h"
#include "nearest_word.h"
#include "platform/window_registry.h"
#include "scripted_views.h"
#include "services/translate.h"
#include "told_cad_files.h"

namespace {

CallOptions ReadOptions(const std::vector<std::string>& words) {
  CallOptions options;
  for (const std::string& word : words) {
    const std::size_t equals = word.find('=');
    const std::string key = word.substr(0, equals);
    if (equals == std::string::npos || (key != "app-name" && key != "app-version")) {
      throw BadUsage(Fill(Xlate("--option knows app-name=… and app-version=…, not \"{1}\""),
                          {tdk::WString(word)})
                         .ToUtf8());
    }
    (key == "app-name" ? options.applicationName : options.applicationVersion) =
        tdk::WString(word.substr(equals + 1));
  }
  return options;
}

// Top-level windows of the script's. They are there before the module is loaded: it looks for them
// while that happens.
class Windows {
 public:
  Windows(const std::vector<std::string>& names, ScriptedViews& views) : names_(names) {
    for (const std::string& name : names_) {
      platform::RegisterWindow(name, [&name, &views](const platform::WindowMessage& message) {
        views.Print({{"event", "window-message"},
                     {"window", name},
                     {"message", message.message},
                     {"wparam", message.wparam},
                     {"lparam", message.lparam}});
      });
    }
  }
  ~Windows() {
    for (const std::string& name : names_) platform::UnregisterWindow(name);
  }
  Windows(const Windows&) = delete;
  Windows& operator=(const Windows&) = delete;

 private:
  const std::vector<std::string>& names_;
};

// Tells of trouble with files that the module keeps to itself, and of changes, as long as it lives.
class Listening {
 public:
  Listening(ScriptedViews& views, HostDocument& document)
      : source_(document.GetLibCmp()->GetCmpContext()),
        previous_(platform::SetFileTroubleListener([](const platform::FileTrouble& trouble) {
          console::Complain(trouble.path + ": " + console::InWords(trouble));
        })) {
    if (source_ != nullptr) source_->SetListener(&views);
  }
  ~Listening() {
    if (source_ != nullptr) source_->SetListener(nullptr);
    platform::SetFileTroubleListener(previous_);
  }
  Listening(const Listening&) = delete;
  Listening& operator=(const Listening&) = delete;

 private:
  tdk::CSourceEvent* source_;
  platform::FileTroubleListener previous_;
};

nlohmann::ordered_json Returned(const CallResult& result) {
  nlohmann::ordered_json event = {{"event", "returned"}, {"value", nullptr}};
  if (result.value) event["value"] = *result.value;
  if (result.path) event["path"] = result.path->ToUtf8();
  return event;
}

void TellAnswersLeft(const std::deque<Answer>& left) {
  if (left.empty()) return;
  console::Complain(left.front().where + ": " +
                    console::Count(left.size(), Xlate("{1} answer was not needed"),
                                   Xlate("{1} answers were not needed")));
}

void CheckFunction(const std::string& name) {
  if (IsModuleFunction(name)) return;
  throw BadUsage(Fill(Xlate("the module has no function \"{1}\""), {tdk::WString(name)}).ToUtf8() +
                 SuggestedWord(name, ModuleFunctions()));
}

}  // namespace

int RunCall(const Arguments& arguments) {
  const std::string& function = arguments.words.front();
  CheckFunction(function);
  const CallOptions options = ReadOptions(arguments.All("--option"));
  const auto answers = arguments.Value("--answers");
  ScriptedViews views(answers ? ReadAnswers(*answers) : std::deque<Answer>());
  JobSession session(arguments.Value("--job"));
  const Windows windows(arguments.All("--window"), views);
  const Module module;
  CWnd parent(&views);
  CallResult result;
  {
    const Listening listening(views, session.Document());
    const ToldCadFiles told(views);
    result = module.Call(function, parent, session.Document(), options);
  }
  for (const ShapeFiles::Note& note : ShapeFiles::Install().TakeNotes()) {
    console::Complain(note.Line());
  }
  // A call that was ended or could not be told leaves the job as it was.
  if (!views.Ended()) views.Print(Returned(result));
  if (views.Ended()) throw Failure(*views.Ended());
  TellAnswersLeft(views.AnswersLeft());
  session.Keep(arguments.Value("--save"), result.value == 1);
  return exit_status::kRan;
}
