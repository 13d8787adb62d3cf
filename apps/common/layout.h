// Text on a screen of characters.
#pragma once

#include <string>
#include <string_view>

/// How many columns a terminal shows `utf8` in: combining marks take none, East Asian wide
/// characters two.
std::size_t DisplayWidth(std::string_view utf8);

/// The text with a blank in place of every control character, so that what a file holds cannot
/// steer a terminal.
std::string Printable(std::string_view utf8);

/// `text` broken at its blanks into lines of at most `width` columns. The first is to stand after
/// `indent` columns that are there already, the others begin with as many blanks. Ends with a line
/// feed.
std::string Wrapped(std::string_view text, std::size_t width, std::size_t indent);
