#include "progress_line.h"

#include <algorithm>

#include "console.h"
#include "layout.h"

namespace {

constexpr std::chrono::milliseconds kBetweenLines(100);

std::string HowFar(std::uint64_t done, std::uint64_t total) {
  if (total == 0) return console::Number(done);
  constexpr long double kWhole = 100;
  const long double percent =
      kWhole * static_cast<long double>(done) / static_cast<long double>(total);
  return console::Number(static_cast<std::uint64_t>(std::min(percent, kWhole))) + " %";
}

}  // namespace

void ProgressLine::Show(std::uint64_t done, std::uint64_t total) {
  const auto now = std::chrono::steady_clock::now();
  if (!isWanted_ || (width_ > 0 && now - lastShown_ < kBetweenLines)) return;
  lastShown_ = now;
  const std::string line = what_ + ": " + HowFar(done, total);
  const std::size_t width = DisplayWidth(line);
  const std::string rest(width_ > width ? width_ - width : 0, ' ');
  console::Err("\r" + line + rest);
  width_ = std::max(width, width_);
}

void ProgressLine::Clear() {
  if (width_ > 0) console::Err("\r" + std::string(width_, ' ') + "\r");
  width_ = 0;
}
