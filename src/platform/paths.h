// Paths as the host writes them (folders end in a backslash, parts are joined with backslashes) and
// as the system takes them.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace platform {

/// The path as the system takes it: every backslash becomes a slash.
std::string NativePath(std::string_view path);

/// True for a path that is used as it stands: one that begins with a slash or a backslash, or holds
/// a colon.
bool IsAbsolutePath(std::string_view path);

/// `folder` and `name` joined with one backslash; `folder` may end in a separator or be empty.
std::string JoinPath(std::string_view folder, std::string_view name);

/// The last part of a path, after its last slash or backslash.
std::string_view FileName(std::string_view path);

/// The extension in lower case, without the dot; empty when the file name has none.
std::string Extension(std::string_view path);

/// The folder of the running executable, with its final separator. Nothing when the system does not
/// tell it or when the path is longer than 1,023 characters.
std::optional<std::string> ExecutableFolder();

/// The folder of the program or library that `place` (an object or a function) is in, with its
/// final separator; empty when the system does not tell it.
std::string FolderOfCode(const void* place);

}  // namespace platform
