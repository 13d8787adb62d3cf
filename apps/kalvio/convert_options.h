// The values of the options of "convert" that the table of options cannot check by itself.
#pragma once

#include "arguments.h"

/// Throws Failure (bad usage) for columns, widths, a number of rows or a reference system that
/// cannot be.
void CheckLayoutOptions(const Arguments& arguments);
