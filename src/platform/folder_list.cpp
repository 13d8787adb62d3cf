#include "platform/folder_list.h"

#include <algorithm>
#include <filesystem>

#include "platform/paths.h"

namespace platform {

std::vector<std::string> FilesWithExtension(std::string_view folder, std::string_view extension) {
  std::vector<std::string> names;
  std::error_code error;
  std::filesystem::directory_iterator each(NativePath(folder), error);
  for (; !error && each != std::filesystem::directory_iterator(); each.increment(error)) {
    const std::string name = each->path().filename().string();
    std::error_code unknown;
    if (Extension(name) == extension && !each->is_directory(unknown)) names.push_back(name);
  }
  std::sort(names.begin(), names.end());
  return names;
}

bool IsThere(std::string_view path) {
  std::error_code error;
  return std::filesystem::exists(NativePath(path), error);
}

}  // namespace platform
