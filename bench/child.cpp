#include "child.h"

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace bench {
namespace {

constexpr double kBytesPerUnit = 1024;  // of ru_maxrss

double Seconds(const timeval& time) {
  return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) * 1e-6;
}

[[noreturn]] void Become(const std::vector<std::string>& command) {
  std::vector<char*> words;
  for (const std::string& word : command) words.push_back(const_cast<char*>(word.c_str()));
  words.push_back(nullptr);
  const int nothing = open("/dev/null", O_RDWR);
  for (const int file : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) dup2(nothing, file);
  execvp(words[0], words.data());
  _exit(127);
}

}  // namespace

ChildUse RunChild(const std::vector<std::string>& command) {
  const pid_t child = fork();
  if (child < 0) return {};
  if (child == 0) Become(command);
  int status = 0;
  rusage use{};
  if (wait4(child, &status, 0, &use) != child) return {};
  return {WIFEXITED(status) && WEXITSTATUS(status) == 0,
          Seconds(use.ru_utime) + Seconds(use.ru_stime),
          static_cast<double>(use.ru_maxrss) * kBytesPerUnit};
}

double OwnPeakResidentBytes() {
  rusage use{};
  getrusage(RUSAGE_SELF, &use);
  return static_cast<double>(use.ru_maxrss) * kBytesPerUnit;
}

}  // namespace bench
