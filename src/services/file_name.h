// Names of files.
#pragma once

#include "tdk/wstring.h"

/// The file's name in a path, with its extension.
tdk::WString EstraiIlNomeFile(const tdk::WString& path);
