// Letters without their accents.
#pragma once

#include <string_view>

namespace dat {

/// The ASCII letters that stand for a character: itself, or what is written where accents cannot
/// be. Empty when there is nothing of the kind.
std::string_view PlainLetters(char32_t character);

}  // namespace dat
