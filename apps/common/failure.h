// How a command ends when it does not end well.
#pragma once

#include <stdexcept>
#include <string>

namespace exit_status {
inline constexpr int kRan = 0;
inline constexpr int kFailed = 1;
inline constexpr int kBadUsage = 2;
inline constexpr int kUnexpectedDialog = 3;
}  // namespace exit_status

/// Ends the command with an exit status and one line on standard error.
class Failure : public std::runtime_error {
 public:
  Failure(int status, const std::string& line) : std::runtime_error(line), status_(status) {}
  int Status() const { return status_; }

 private:
  int status_;
};

inline Failure BadUsage(const std::string& line) { return {exit_status::kBadUsage, line}; }

/// "FILE: reason".
inline Failure Failed(const std::string& file, const std::string& reason) {
  return {exit_status::kFailed, file + ": " + reason};
}
