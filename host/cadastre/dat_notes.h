// The note of a point.
#pragma once

#include <string>

#include "model/egn.h"

namespace dat {

/// Its second and third description, with a blank between.
inline std::string NotesOf(const CEgn& point) {
  std::string notes = point.GetSecScri().ToUtf8();
  const std::string more = point.GetTerScri().ToUtf8();
  if (!notes.empty() && !more.empty()) notes += ' ';
  return notes + more;
}

}  // namespace dat
