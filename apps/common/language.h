// The language of a program's texts.
#pragma once

#include <optional>
#include <string>

/// The one that the user chose, else that of the first of LC_ALL, LC_MESSAGES and LANG that is set.
void StartLanguage(const std::optional<std::string>& chosen);
