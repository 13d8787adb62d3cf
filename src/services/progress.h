// How far the work at hand has come.
#pragma once

#include <cstdint>

class HostViews;

/// While it lives, progress is told to `views` (not owned; null: to nobody). Scopes nest: an import
/// for a preview runs within another exchange and tells its own views.
class ProgressScope {
 public:
  explicit ProgressScope(HostViews* views);
  ~ProgressScope();
  ProgressScope(const ProgressScope&) = delete;
  ProgressScope& operator=(const ProgressScope&) = delete;

 private:
  HostViews* viewsBefore_;
};

/// `total` 0: not known. Views end work by throwing from here, so whoever calls this holds nothing
/// that an exception would leave behind.
void TellProgress(std::uint64_t done, std::uint64_t total);

/// Work of several parts. What is told while it lives is the progress of one part, and shown as
/// that of the whole.
class ProgressParts {
 public:
  /// `total`: of the sizes of all parts, whatever they count.
  explicit ProgressParts(std::uint64_t total);
  ~ProgressParts();
  ProgressParts(const ProgressParts&) = delete;
  ProgressParts& operator=(const ProgressParts&) = delete;

  /// The parts before are done, and one of `size` begins.
  void Begin(std::uint64_t size);

 private:
  double firstBefore_;
  double shareBefore_;
  double total_;
  double done_ = 0;
  double size_ = 0;
};

/// Counts the steps of a loop, and tells every few thousand of them.
class ProgressSteps {
 public:
  explicit ProgressSteps(std::uint64_t total) : total_(total) {}

  void Step() {
    if (++done_ % kBetween == 0) TellProgress(done_, total_);
  }

 private:
  static constexpr std::uint64_t kBetween = 4096;

  std::uint64_t total_;
  std::uint64_t done_ = 0;
};
