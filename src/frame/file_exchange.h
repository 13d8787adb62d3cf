// The steps that all exchanges of one file have in common.
#pragma once

#include <optional>

#include "services/window.h"
#include "tdk/wstring.h"

namespace frame {

enum class Direction { kImport, kExport };

/// Asks for the file in the current job's folder: the full path, or nothing on cancel. `title` is
/// shown as it is.
std::optional<tdk::WString> AskForFile(CWnd* parent, const tdk::WString& title,
                                       const tdk::WString& extensions, Direction direction);

/// Says that there is nothing to export.
void TellNothingToExport(CWnd* parent);

/// Says that this version does not exchange files of that format, and returns 0.
int TellNotBuiltYet(CWnd* parent, const char* format);

}  // namespace frame
