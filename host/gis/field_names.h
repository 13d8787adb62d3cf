// Names of fields as dBASE can have them.
#pragma once

#include <string>
#include <vector>

namespace shape {

/// Names that dBASE can have: ten bytes, cut at a character, unlike each other in more than letter
/// case. Those that can stay as they are do.
std::vector<std::string> ShortNames(const std::vector<std::string>& names);

}  // namespace shape
