// Progress of a long load or save.
#pragma once

#include "host/store/job_store.h"

/// Counts points and tells the caller every some thousand of them.
class PointProgress {
 public:
  PointProgress(const JobProgress& told, std::uint64_t total) : told_(told), total_(total) {}

  void Step() {
    if (IsDue()) told_(done_, total_);
  }
  /// Counts a point without telling; true when it is time to tell something.
  bool IsDue() { return ++done_ % kStride == 0 && told_; }
  void Tell(std::uint64_t done, std::uint64_t total) const { told_(done, total); }

 private:
  static constexpr std::uint64_t kStride = 4096;

  const JobProgress& told_;
  std::uint64_t total_;
  std::uint64_t done_ = 0;
};
