// In which character set the texts of a table are.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "platform/character_set.h"

namespace shape {

class TableEncoding {
 public:
  /// By what a ".cpg" file says (empty: there is none), else by the language byte of the table,
  /// else each text is UTF-8 where it can be and Windows-1252 where it cannot.
  static TableEncoding Of(std::string_view label, int languageByte);

  /// The bytes as UTF-8: they themselves where they are, else converted into `scratch`.
  std::string_view ToUtf8(std::string_view bytes, std::string& scratch);

  /// "UTF-8", "CP850"; empty when neither label nor language byte told one.
  const std::string& Name() const { return name_; }
  /// Whether there was a label that names nothing that is known.
  bool HasBadLabel() const { return hasBadLabel_; }
  /// Texts that were to be UTF-8 and were taken as Windows-1252.
  std::uint64_t Misfits() const { return misfits_; }

 private:
  std::string name_;
  std::optional<platform::CharacterSet> set_;  // of other sets than those two
  bool isCodePage_ = false;                    // Windows-1252, and nothing else
  bool hasBadLabel_ = false;
  std::uint64_t misfits_ = 0;
};

}  // namespace shape
