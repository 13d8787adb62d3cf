// The man page and the shell's completions, made from the program's own table of options.
#pragma once

#include <string>

/// In the man macros, in English.
std::string ManPage();

std::string BashCompletion();
