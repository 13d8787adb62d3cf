// Names of files.
#pragma once

#include "tdk/wstring.h"

/// The file's name in a path, with its extension.
tdk::WString EstraiIlNomeFile(const tdk::WString& path);

/// The path without its extension and the dot before it; a name without a dot stays.
tdk::WString EliminaEstensioneFile(const tdk::WString& path);
