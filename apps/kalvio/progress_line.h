// How far a long exchange has come, on standard error.
#pragma once

#include <chrono>
#include <cstdint>
#include <string>

/// One line that is rewritten in place, ten times a second at most.
class ProgressLine {
 public:
  /// `isWanted`: false shows nothing at all.
  explicit ProgressLine(bool isWanted) : isWanted_(isWanted) {}
  ~ProgressLine() { Clear(); }
  ProgressLine(const ProgressLine&) = delete;
  ProgressLine& operator=(const ProgressLine&) = delete;

  /// What goes on from now on, as "wall.jb2".
  void Begin(std::string what) { what_ = std::move(what); }
  /// `total` 0: not known.
  void Show(std::uint64_t done, std::uint64_t total);
  /// To be called before anything else is written.
  void Clear();

 private:
  bool isWanted_;
  std::string what_;
  std::size_t width_ = 0;  // columns of the line that is shown
  std::chrono::steady_clock::time_point lastShown_;
};
