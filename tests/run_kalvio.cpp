#include "tests/run_kalvio.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <sstream>

extern char** environ;

namespace e2e {
namespace {

using Variables = std::map<std::string, std::string>;

Variables OwnVariables() {
  Variables variables;
  for (char** each = environ; *each != nullptr; ++each) {
    const std::string line = *each;
    const std::size_t equals = line.find('=');
    if (equals != std::string::npos) variables[line.substr(0, equals)] = line.substr(equals + 1);
  }
  return variables;
}

// Numbers and letters as in the test's locale, messages in English.
void SpeakEnglish(Variables& variables) {
  if (const auto all = variables.find("LC_ALL"); all != variables.end()) {
    variables["LC_NUMERIC"] = all->second;
    variables["LC_CTYPE"] = all->second;
    variables.erase(all);
  }
  variables["LC_MESSAGES"] = "C";
  variables.erase("KALVIO_MODULE");
}

std::vector<std::string> Environment(const Surroundings& where) {
  Variables variables = OwnVariables();
  SpeakEnglish(variables);
  for (const auto& [name, value] : where.variables) {
    if (value) {
      variables[name] = *value;
    } else {
      variables.erase(name);
    }
  }
  std::vector<std::string> lines;
  for (const auto& [name, value] : variables) lines.push_back(name + "=" + value);
  return lines;
}

std::vector<char*> Pointers(std::vector<std::string>& words) {
  std::vector<char*> pointers;
  for (std::string& word : words) pointers.push_back(word.data());
  pointers.push_back(nullptr);
  return pointers;
}

// Where the streams of the program go: files, so that it can never wait for its reader.
class Redirection {
 public:
  Redirection(const Surroundings& where, const TemporaryFolder& streams) {
    posix_spawn_file_actions_init(&actions_);
    posix_spawn_file_actions_addchdir_np(&actions_, where.folder.c_str());
    Open(STDIN_FILENO, "/dev/null", O_RDONLY);
    Open(STDOUT_FILENO, where.output.value_or(streams.File("out")), O_WRONLY | O_CREAT);
    Open(STDERR_FILENO, streams.File("err"), O_WRONLY | O_CREAT);
    if (where.closedOutput) posix_spawn_file_actions_addclose(&actions_, STDOUT_FILENO);
  }
  ~Redirection() { posix_spawn_file_actions_destroy(&actions_); }
  Redirection(const Redirection&) = delete;
  Redirection& operator=(const Redirection&) = delete;

  const posix_spawn_file_actions_t* Actions() const { return &actions_; }

 private:
  void Open(int stream, const std::string& path, int flags) {
    posix_spawn_file_actions_addopen(&actions_, stream, path.c_str(), flags, 0600);
  }

  posix_spawn_file_actions_t actions_{};
};

int WaitFor(pid_t child) {
  int state = 0;
  if (waitpid(child, &state, 0) != child) return -1;
  return WIFEXITED(state) ? WEXITSTATUS(state) : 128 + WTERMSIG(state);
}

}  // namespace

Outcome RunProgram(const std::string& program, const std::vector<std::string>& words,
                   const Surroundings& where) {
  const TemporaryFolder streams;
  const Redirection redirection(where, streams);
  std::vector<std::string> arguments{program};
  arguments.insert(arguments.end(), words.begin(), words.end());
  std::vector<std::string> environment = Environment(where);
  pid_t child = 0;
  const int error = posix_spawnp(&child, program.c_str(), redirection.Actions(), nullptr,
                                 Pointers(arguments).data(), Pointers(environment).data());
  EXPECT_EQ(error, 0) << program << " could not be started";
  if (error != 0) return {};
  Outcome outcome;
  outcome.status = WaitFor(child);
  if (!where.output) outcome.out = ReadBytes(streams.File("out"));
  outcome.err = ReadBytes(streams.File("err"));
  return outcome;
}

Outcome RunKalvio(const std::vector<std::string>& words, const Surroundings& where) {
  return RunProgram(KALVIO_PROGRAM, words, where);
}

std::string Jb2Line(char letter, std::initializer_list<std::string_view> fields) {
  std::string line = {letter, '|', '\x1d'};
  for (const std::string_view field : fields) line.append(field).append("\x1d");
  return line + "\n";
}

std::string SmallJb2() {
  return Jb2Line('L', {"SITE", "Rossi", "TS 5", " ", "01-02-2026"}) +
         Jb2Line('S', {"S1", "nail", "1.500", "20.0", "1013", " ", " ", " ", " "}) +
         Jb2Line('P', {"1", "WALL", "1.500", "100.0000", "99.5000", "12.345"}) +
         Jb2Line('P', {"2", "ROAD", "1.500", "200.0000", "100.5000", "34.567"}) +
         Jb2Line('S', {"S2", "peg", "1.600", "20.0", "1013", " ", " ", " ", " "}) +
         Jb2Line('P', {"3", "WALL", "1.500", "300.0000", "99.0000", "23.456"});
}

std::string PointWithoutDistance() {
  return Jb2Line('P', {"TOWER", "", "0.000", "50.0000", "90.0000", "0.000"});
}

std::string Jb2WithStations(int count) {
  std::string text = Jb2Line('L', {"LONG", "", "", " ", ""});
  for (int i = 1; i <= count; ++i) {
    text += Jb2Line('S', {"S" + std::to_string(i), "", "1.500", "20.0", "1013"});
    text += Jb2Line('P', {"1", "", "1.500", "100.0000", "99.5000", "12.345"});
  }
  return text;
}

std::vector<std::string> Lines(const std::string& text) {
  std::vector<std::string> lines;
  std::istringstream stream(text);
  for (std::string line; std::getline(stream, line);) lines.push_back(line);
  return lines;
}

std::vector<nlohmann::ordered_json> Events(const std::string& transcript) {
  std::vector<nlohmann::ordered_json> events;
  for (const std::string& line : Lines(transcript)) {
    const auto event = nlohmann::ordered_json::parse(line, nullptr, /*allow_exceptions=*/false);
    EXPECT_TRUE(event.is_object()) << line;
    events.push_back(event);
  }
  return events;
}

std::vector<std::string> EventNames(const std::string& transcript) {
  std::vector<std::string> names;
  for (const auto& event : Events(transcript)) names.push_back(event.value("event", "no event"));
  return names;
}

std::string LastEvent(const std::string& transcript) {
  const auto lines = Lines(transcript);
  return lines.empty() ? "" : lines.back();
}

std::string ChoosePaths(const std::vector<std::string>& paths) {
  auto answers = nlohmann::ordered_json::array();
  for (const std::string& path : paths) {
    answers.push_back({{"dialog", "file"}, {"set", {{"path", path}}}, {"press", "OK"}});
  }
  return answers.dump();
}

std::string AskingModule() {
  const std::string program = KALVIO_PROGRAM;
  return program.substr(0, program.rfind('/')) + "/libkalvio_asking_module.so";
}

}  // namespace e2e
