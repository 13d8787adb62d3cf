// The module's texts that are known by a number.
#pragma once

#include <span>

#include "tdk/string_loader.h"

namespace frame {

/// "{1} files cannot be exchanged by this version yet." with {1} the name of the format.
inline constexpr unsigned kTextNotBuiltYet = 1;
/// The caption of a message about a failure.
inline constexpr unsigned kTextError = 1800;

std::span<const tdk::StringEntry> StringTable();

}  // namespace frame
