// Lists of words in the values of options.
#pragma once

#include <string>
#include <string_view>
#include <vector>

/// The words between commas, without blanks around them; empty ones are left out.
std::vector<std::string> WordList(std::string_view text);

/// The same of every value of an option that may be given more than once.
std::vector<std::string> WordList(const std::vector<std::string>& values);
