// What the program tells about itself, made from its own table of options.
#pragma once

#include <string>

#include "option_table.h"

/// Fits a screen of 24 lines and 80 columns.
std::string ProgramHelp();

std::string CommandHelp(const CommandRow& command);
