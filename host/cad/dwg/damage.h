// What is wrong with a file.
#pragma once

#include <cstdint>

#include "services/translate.h"

namespace dwg {

/// Thrown when a record cannot be understood.
struct Damage {
  const char* reason;  ///< a text for Xlate
};

/// Thrown when a file cannot be read on.
struct Failure {
  tdk::WString reason;
};

}  // namespace dwg
