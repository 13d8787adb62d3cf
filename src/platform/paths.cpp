#include "platform/paths.h"

#include <dlfcn.h>
#include <unistd.h>

#include <algorithm>
#include <array>

#include "platform/letters.h"

namespace platform {
namespace {

constexpr std::string_view kSeparators = "/\\";
constexpr std::size_t kLongestProcessPath = 1023;

}  // namespace

std::string NativePath(std::string_view path) {
  std::string native(path);
  std::replace(native.begin(), native.end(), '\\', '/');
  return native;
}

bool IsAbsolutePath(std::string_view path) {
  if (path.empty()) return false;
  return kSeparators.find(path.front()) != std::string_view::npos ||
         path.find(':') != std::string_view::npos;
}

std::string JoinPath(std::string_view folder, std::string_view name) {
  std::string joined(folder);
  if (!joined.empty() && kSeparators.find(joined.back()) == std::string_view::npos) joined += '\\';
  return joined.append(name);
}

std::string_view FileName(std::string_view path) {
  const std::size_t last = path.find_last_of(kSeparators);
  return last == std::string_view::npos ? path : path.substr(last + 1);
}

std::string Extension(std::string_view path) {
  const std::string_view name = FileName(path);
  const std::size_t dot = name.rfind('.');
  if (dot == std::string_view::npos) return {};
  return Small(name.substr(dot + 1));
}

std::optional<std::string> ExecutableFolder() {
  std::array<char, kLongestProcessPath + 1> buffer;
  const ssize_t length = readlink("/proc/self/exe", buffer.data(), buffer.size());
  if (length <= 0 || static_cast<std::size_t>(length) > kLongestProcessPath) return std::nullopt;
  const std::string_view path(buffer.data(), static_cast<std::size_t>(length));
  return std::string(path.substr(0, path.rfind('/') + 1));
}

std::string FolderOfCode(const void* place) {
  Dl_info facts{};
  if (dladdr(place, &facts) == 0) return {};
  const std::string_view path = facts.dli_fname;
  return std::string(path.substr(0, path.rfind('/') + 1));
}

}  // namespace platform
