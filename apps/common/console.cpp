#include "console.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <system_error>

#include "platform/numbers.h"
#include "services/translate.h"

namespace console {
namespace {

constexpr std::size_t kFlushSize = 64 * 1024;

struct Output {
  std::string buffer;
  int error = 0;  // of the first write that failed
};

Output& StandardOutput() {
  static Output output;
  return output;
}

// 0, or the errno of a write that failed.
int WriteAll(int file, std::string_view text) {
  while (!text.empty()) {
    const ssize_t written = write(file, text.data(), text.size());
    if (written < 0 && errno == EINTR) continue;
    if (written < 0) return errno;
    text.remove_prefix(static_cast<std::size_t>(written));
  }
  return 0;
}

void Flush(Output& output) {
  if (output.error == 0) output.error = WriteAll(STDOUT_FILENO, output.buffer);
  output.buffer.clear();
}

}  // namespace

void SecureStreams() {
  // The place holder of an output is open for reading, so writing to it fails as it would have
  // without it.
  for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
    if (fcntl(stream, F_GETFD) == -1 && errno == EBADF) {
      static_cast<void>(open("/dev/null", O_RDONLY));
    }
  }
  std::signal(SIGPIPE, SIG_IGN);
}

void Out(std::string_view text) {
  Output& output = StandardOutput();
  output.buffer += text;
  if (output.buffer.size() >= kFlushSize) Flush(output);
}

bool FinishOutput() {
  Flush(StandardOutput());
  return StandardOutput().error == 0;
}

std::string OutputTrouble() {
  return Xlate("standard output cannot be written").ToUtf8() + ": " +
         Reason(StandardOutput().error);
}

void Complain(std::string_view line) {
  std::string text("kalvio: ");
  Err(text.append(line).append("\n"));
}

// There is nobody left to tell when this fails.
void Err(std::string_view text) { static_cast<void>(WriteAll(STDERR_FILENO, text)); }

bool IsErrorATerminal() { return isatty(STDERR_FILENO) == 1; }

std::string Number(std::uint64_t value) {
  std::string text;
  platform::AppendWhole(text, static_cast<std::int64_t>(value));
  return text;
}

std::string Count(std::uint64_t value, const tdk::WString& one, const tdk::WString& many) {
  return Fill(value == 1 ? one : many, {tdk::WString(Number(value))}).ToUtf8();
}

std::string Reason(int error) { return std::generic_category().message(error); }

std::string InWords(const platform::FileTrouble& trouble) {
  using Action = platform::FileTrouble::Action;
  const auto say = [&](const tdk::WString& what) {
    return what.ToUtf8() + ": " + Reason(trouble.error);
  };
  switch (trouble.action) {
    case Action::kOpen: return say(Xlate("cannot be opened"));
    case Action::kRead: return say(Xlate("cannot be read"));
    case Action::kCreate: return say(Xlate("cannot be created"));
    case Action::kWrite: break;
  }
  return say(Xlate("cannot be written"));
}

}  // namespace console
