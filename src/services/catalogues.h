// The compiled catalogues of po/, built into the library.
#pragma once

#include <span>

std::span<const unsigned char> ItalianCatalogue();
