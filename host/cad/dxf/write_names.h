// Names of layers and blocks as a version allows them, each once.
#pragma once

#include <map>
#include <set>
#include <string>
#include <string_view>

#include "host/cad/dxf/write_tags.h"

namespace dxf_writer {

/// The names of one table of a file.
class NameTable {
 public:
  explicit NameTable(Version version) : version_(version) {}

  /// The name that stands for `utf8` in the file, in its code page. Names are the same in small
  /// letters and capitals; one that is taken gets a number behind it.
  std::string Add(std::string_view utf8);

 private:
  std::u32string Free(const std::u32string& name);

  Version version_;
  std::set<std::u32string> taken_;             // without capitals
  std::map<std::u32string, int> lastNumbers_;  // by the name that was asked for
};

}  // namespace dxf_writer
