// The first points of a text or CSV file, column by column.
#pragma once

#include "text_options.h"

class HostDocument;

/// Prints on standard output what the columns of the file were read as. `all`: every line of it.
void PreviewPoints(HostDocument& document, const TextOptions& options, bool all);
