#include "services/progress.h"

#include <algorithm>

#include "services/window.h"

namespace {

thread_local HostViews* currentViews = nullptr;
// Of the whole work: where the part at hand begins, and how much of it that is.
thread_local double firstOfPart = 0;
thread_local double shareOfPart = 1;

}  // namespace

ProgressScope::ProgressScope(HostViews* views) : viewsBefore_(currentViews) {
  currentViews = views;
}

ProgressScope::~ProgressScope() { currentViews = viewsBefore_; }

void TellProgress(std::uint64_t done, std::uint64_t total) {
  if (currentViews == nullptr) return;
  if (shareOfPart == 1) return currentViews->ShowProgress(done, total);
  constexpr std::uint64_t kWhole = 10000;
  const double part = total == 0 ? 0 : static_cast<double>(done) / static_cast<double>(total);
  const double whole = firstOfPart + shareOfPart * std::min(part, 1.0);
  currentViews->ShowProgress(static_cast<std::uint64_t>(whole * kWhole), kWhole);
}

ProgressParts::ProgressParts(std::uint64_t total)
    : firstBefore_(firstOfPart),
      shareBefore_(shareOfPart),
      total_(static_cast<double>(std::max<std::uint64_t>(total, 1))) {}

ProgressParts::~ProgressParts() {
  firstOfPart = firstBefore_;
  shareOfPart = shareBefore_;
}

void ProgressParts::Begin(std::uint64_t size) {
  done_ += size_;
  size_ = static_cast<double>(size);
  firstOfPart = firstBefore_ + shareBefore_ * done_ / total_;
  shareOfPart = shareBefore_ * size_ / total_;
}
