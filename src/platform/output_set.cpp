#include "platform/output_set.h"

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <optional>
#include <vector>

#include "platform/numbers.h"
#include "platform/paths.h"

namespace platform {
namespace {

std::string SpareName(const std::string& target) {
  const std::string_view name = FileName(target);
  std::string spare = target.substr(0, target.size() - name.size());
  spare.append(".").append(name.substr(0, 100)).append(".old-");
  AppendWhole(spare, getpid());
  return spare;
}

/// One file on its way to its place. All but making it are system calls and nothing else.
class Move {
 public:
  explicit Move(const OutputFile& file)
      : from_(file.Temporary()), to_(file.Target()), spare_(SpareName(to_)) {}

  /// Gives the old file a second name as long as it may be needed again.
  void Keep() {
    isKept_ = link(to_.c_str(), spare_.c_str()) == 0;
    wasNothing_ = !isKept_ && access(to_.c_str(), F_OK) != 0;
  }
  /// 0, or the error.
  int Go() const {
    if (from_.empty()) return 0;  // the target itself was written
    return std::rename(from_.c_str(), to_.c_str()) == 0 ? 0 : errno;
  }
  /// Puts the old file back where it was, or nothing where there was none. On a file system without
  /// second names the new file stays.
  void Restore() {
    if (isKept_) {
      isKept_ = std::rename(spare_.c_str(), to_.c_str()) != 0;
    } else if (wasNothing_) {
      unlink(to_.c_str());
    }
  }
  void Drop() const {
    if (isKept_) unlink(spare_.c_str());
  }

 private:
  std::string from_;
  std::string to_;
  std::string spare_;
  bool isKept_ = false;
  bool wasNothing_ = false;
};

struct Outcome {
  std::size_t placed = 0;
  int error = 0;  // of the next one
};

Outcome MoveAll(std::vector<Move>& moves, std::span<const std::string> obsolete) {
  for (Move& move : moves) move.Keep();
  Outcome outcome;
  for (; outcome.placed < moves.size(); ++outcome.placed) {
    outcome.error = moves[outcome.placed].Go();
    if (outcome.error != 0) break;
  }
  const bool areAll = outcome.placed == moves.size();
  for (std::size_t i = 0; i < outcome.placed && !areAll; ++i) moves[i].Restore();
  for (const Move& move : moves) move.Drop();
  for (const std::string& path : obsolete) {
    if (areAll) unlink(path.c_str());
  }
  return outcome;
}

/// Signals wait as long as it lives.
class SignalsWait {
 public:
  SignalsWait() {
    sigset_t all;
    sigfillset(&all);
    pthread_sigmask(SIG_BLOCK, &all, &before_);
  }
  ~SignalsWait() { pthread_sigmask(SIG_SETMASK, &before_, nullptr); }
  SignalsWait(const SignalsWait&) = delete;
  SignalsWait& operator=(const SignalsWait&) = delete;

 private:
  sigset_t before_{};
};

// Nothing when the process that was to tell ended before.
std::optional<Outcome> Told(int pipe) {
  Outcome outcome;
  ssize_t size = 0;
  do {
    size = read(pipe, &outcome, sizeof outcome);
  } while (size < 0 && errno == EINTR);
  return size == sizeof outcome ? std::optional(outcome) : std::nullopt;
}

// Several renames are no single step for the system: who is killed between two of them, in a busy
// machine, would leave some new files among the old ones. A process of its own finishes them.
template <class Action>
Outcome InOwnProcess(const Action& action) {
  std::array<int, 2> ends{};
  if (pipe2(ends.data(), O_CLOEXEC) != 0) return action();
  const SignalsWait wait;
  const pid_t child = fork();
  if (child == 0) {
    setsid();  // no member of a group that is killed
    const Outcome outcome = action();
    _exit(write(ends[1], &outcome, sizeof outcome) == sizeof outcome ? 0 : 1);
  }
  close(ends[1]);
  const std::optional<Outcome> told = child > 0 ? Told(ends[0]) : std::nullopt;
  close(ends[0]);
  if (child < 0) return action();
  while (waitpid(child, nullptr, 0) < 0 && errno == EINTR) {
  }
  return told.value_or(Outcome{0, EIO});
}

}  // namespace

std::size_t PlaceTogether(std::span<OutputFile* const> files,
                          std::span<const std::string> obsolete) {
  std::vector<Move> moves;
  for (const OutputFile* const file : files) moves.emplace_back(*file);
  const Outcome outcome = InOwnProcess([&] { return MoveAll(moves, obsolete); });
  for (std::size_t i = 0; i < outcome.placed; ++i) files[i]->Placed(0);
  if (outcome.placed < files.size()) files[outcome.placed]->Placed(outcome.error);
  return outcome.placed;
}

}  // namespace platform
