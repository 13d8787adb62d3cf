// The module's texts that are known by a number.
#pragma once

#include <span>

#include "tdk/string_loader.h"

namespace frame {

/// Captions and texts of the Shape import; {1} is the name that the host quotes.
inline constexpr unsigned kTextWarning = 1;
inline constexpr unsigned kTextShapeFile = 2;
inline constexpr unsigned kTextShapeImported = 3;
inline constexpr unsigned kTextShapeTableRenamed = 4;
inline constexpr unsigned kTextShapeNotFound = 5;
inline constexpr unsigned kTextShapeInconsistent = 6;
inline constexpr unsigned kTextShapeTablePresent = 7;
inline constexpr unsigned kTextShapeThemePresent = 8;
/// The caption of a message about a failure.
inline constexpr unsigned kTextError = 1800;

std::span<const tdk::StringEntry> StringTable();

}  // namespace frame
