// Files that belong together, replaced together.
#pragma once

#include <cstddef>
#include <span>
#include <string>

#include "platform/output_file.h"

namespace platform {

/// Lets each of the files, which must be complete, take its target's place; `obsolete` files
/// (native paths) go away with them. How many were placed: when it is not all of them, the next one
/// could not be, and every old file is as it was. Whoever is killed meanwhile leaves all of the old
/// files or all of the new ones.
std::size_t PlaceTogether(std::span<OutputFile* const> files,
                          std::span<const std::string> obsolete);

}  // namespace platform
