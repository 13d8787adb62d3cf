// The files of a set, and what may lie beside them.
#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace shape {

/// The native path without its extension, where that is ".shp" or another one of a set.
std::string BaseOf(std::string_view path);

/// The file of the set with that extension (small letters): as it is there, in whatever letters, or
/// as it would be called.
std::string Sibling(const std::string& base, std::string_view extension);

/// All bytes of a file of the set; nothing when it is not there, cannot be read or has more than
/// `most` of them.
std::optional<std::string> ReadSibling(const std::string& base, std::string_view extension,
                                       std::uint64_t most);

/// A theme's name as the name of a file: what no name of a file may have becomes "_".
std::string FileNameOf(const std::string& themeName);

/// Indexes and the like that belong to the old shapes and would be wrong beside new ones.
std::vector<std::string> ObsoleteFiles(const std::string& base);

}  // namespace shape
