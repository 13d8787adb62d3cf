// Keeps XML text within the depth that a recursive parser survives.
#pragma once

#include <string>

namespace jb3 {

/// Elements of a JB3 document lie six deep. The parser and its tree call themselves once for each
/// level, so a file that is made to nest a million of them would end the program.
inline constexpr int kDeepestNesting = 1000;

/// Cuts `xml` before the first start tag that lies deeper than `limit` levels; what comes before it
/// is read as from a file that ends there. True when something was cut.
bool CutTooDeepNesting(std::string& xml, int limit = kDeepestNesting);

}  // namespace jb3
