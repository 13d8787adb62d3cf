#include "host/gis/shape_paths.h"

#include <algorithm>

#include "platform/folder_list.h"
#include "platform/input_file.h"
#include "platform/letters.h"
#include "platform/paths.h"

namespace shape {
namespace {

constexpr std::string_view kExtensions[] = {"shp", "shx", "dbf", "prj", "cpg"};

// Spatial and attribute indexes of several programs, and one's own way to name a reference system.
constexpr std::string_view kObsolete[] = {"sbn", "sbx", "qix", "fbn", "fbx",
                                          "ain", "aih", "ind", "idm", "qpj"};

}  // namespace

std::string BaseOf(std::string_view path) {
  std::string base = platform::NativePath(path);
  const std::string extension = platform::Extension(base);
  if (std::ranges::find(kExtensions, extension) != std::end(kExtensions)) {
    base.resize(base.size() - extension.size() - 1);
  }
  return base;
}

std::string Sibling(const std::string& base, std::string_view extension) {
  const std::size_t start = base.size() + 1;
  std::string path = base + "." + std::string(extension);
  // Each bit makes a capital of one letter; all small letters come first.
  for (unsigned capitals = 0; capitals < 1U << extension.size(); ++capitals) {
    for (std::size_t i = 0; i < extension.size(); ++i) {
      path[start + i] = (capitals >> i & 1U) != 0 ? platform::Capital(extension[i]) : extension[i];
    }
    if (platform::IsThere(path)) return path;
  }
  return path.replace(start, extension.size(), extension);
}

std::optional<std::string> ReadSibling(const std::string& base, std::string_view extension,
                                       std::uint64_t most) {
  const std::string path = Sibling(base, extension);
  platform::InputFile file;
  if (!platform::IsThere(path) || !file.Open(path) || file.Size() > most) return std::nullopt;
  std::string bytes(file.Size(), '\0');
  std::size_t size = 0;
  while (size < bytes.size()) {
    const std::size_t got = file.Read(bytes.data() + size, bytes.size() - size);
    if (got == 0) break;
    size += got;
  }
  bytes.resize(size);
  return bytes;
}

std::string FileNameOf(const std::string& themeName) {
  std::string name = themeName.empty() ? "_" : themeName;
  std::ranges::replace_if(
      name, [](char c) { return c == '/' || c == '\\' || static_cast<unsigned char>(c) < ' '; },
      '_');
  return name;
}

std::vector<std::string> ObsoleteFiles(const std::string& base) {
  std::vector<std::string> files;
  for (const std::string_view extension : kObsolete) {
    std::string path = Sibling(base, extension);
    if (platform::IsThere(path)) files.push_back(std::move(path));
  }
  return files;
}

}  // namespace shape
