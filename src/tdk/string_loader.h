// Texts that are known by a number.
#pragma once

#include <span>

#include "tdk/wstring.h"

namespace tdk {

struct StringEntry {
  unsigned id;
  const char* text;  ///< UTF-8, in English
};

/// The texts by number of every library that has made its table known.
class CStringLoader {
 public:
  /// Makes the table of a library known. `instance` stands for the library: a second call for the
  /// same one replaces its table. The entries must live as long as the library stays loaded.
  static void Init(const void* instance, std::span<const StringEntry> table);
  static void Remove(const void* instance);

  /// The text of that number, untranslated; empty when no table has it.
  static WString Load(unsigned id);
};

}  // namespace tdk
