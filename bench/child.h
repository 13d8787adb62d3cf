// Runs another program and says what it took.
#pragma once

#include <string>
#include <vector>

namespace bench {

struct ChildUse {
  bool succeeded = false;        ///< ended with status 0
  double processorSeconds = 0;   ///< its own and the system's for it
  double peakResidentBytes = 0;  ///< of the program, when that is more than this process ever had
};

/// Runs `command` (found through PATH) with no input and no output, and waits for it.
ChildUse RunChild(const std::vector<std::string>& command);

/// The most memory that this process has had resident: the floor of what can be measured of a
/// child, which begins as a copy of it.
double OwnPeakResidentBytes();

}  // namespace bench
