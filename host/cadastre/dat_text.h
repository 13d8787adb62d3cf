// Texts as the land agency's file can hold them.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace dat {

/// How often texts had to be changed.
struct TextChanges {
  std::uint64_t separators = 0;    ///< "|" became "/"
  std::uint64_t letters = 0;       ///< a letter that the code page lacks became "?"
  std::uint64_t reportWords = 0;   ///< the word that begins the report was cut short
  std::uint64_t numericNotes = 0;  ///< a note that is a number got a word in front
};

/// A name or any other text, in the file's code page, without what would end its field or its line.
std::string FieldText(std::string_view utf8, TextChanges& changes);

/// Without the blanks at both ends.
std::string_view Trimmed(std::string_view text);

/// Whether nothing of a name would be left in the file.
bool IsNameless(std::string_view name);

/// A text of the file's first records: upper case, without accents.
std::string HeadingText(std::string_view utf8, TextChanges& changes);

/// The note at the end of an observation. Readers tell a note from a measure by its letters, so one
/// that is a number gets a word in front.
std::string NoteText(std::string_view utf8, TextChanges& changes);

}  // namespace dat
