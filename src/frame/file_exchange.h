// The steps that all exchanges of one file have in common.
#pragma once

#include <optional>

#include "services/window.h"
#include "tdk/wstring.h"

namespace frame {

enum class Direction { kImport, kExport };

/// Asks for the file in the current job's folder: the full path, or nothing on cancel. `title` is
/// shown as it is; `initialName` is offered, without an extension.
std::optional<tdk::WString> AskForFile(CWnd* parent, const tdk::WString& title,
                                       const tdk::WString& extensions, Direction direction,
                                       const tdk::WString& initialName = {});

/// Says that there is nothing to export.
void TellNothingToExport(CWnd* parent);

}  // namespace frame
