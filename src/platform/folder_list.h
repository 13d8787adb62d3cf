// What lies in a folder.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace platform {

/// The names of the files in `folder` (backslashes allowed) with that extension (small letters,
/// without the dot; letter case of the names ignored), in order of their bytes. Empty when the
/// folder cannot be read.
std::vector<std::string> FilesWithExtension(std::string_view folder, std::string_view extension);

/// Whether there is a file or anything else of that name.
bool IsThere(std::string_view path);

}  // namespace platform
