// Words that people may have meant.
#pragma once

#include <span>
#include <string>
#include <string_view>

/// "; did you mean \"convert\"?" for the one of `known` that differs from `word` by two letters at
/// most; empty when none does.
std::string SuggestedWord(std::string_view word, std::span<const std::string_view> known);
