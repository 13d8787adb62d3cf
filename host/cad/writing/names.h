// Names of layers and blocks as a version allows them, each once.
#pragma once

#include <cstdint>
#include <map>
#include <set>
#include <string>
#include <string_view>

namespace cad_writer {

/// What names may be: capitals, digits and few signs, 31 of them; or nearly anything, 255 long.
enum class NameRule : std::uint8_t { kShort, kLong };

/// The names of one table of a file.
class NameTable {
 public:
  explicit NameTable(NameRule rule) : rule_(rule) {}

  /// The name, in UTF-8, that stands for `utf8` in the file. Names are the same in small
  /// letters and capitals; one that is taken gets a number behind it.
  std::string Add(std::string_view utf8);

 private:
  std::u32string Free(const std::u32string& name);

  NameRule rule_;
  std::set<std::u32string> taken_;             // without capitals
  std::map<std::u32string, int> lastNumbers_;  // by the name that was asked for
};

}  // namespace cad_writer
