#include "language.h"

#include <cstdlib>

#include "services/translate.h"

void StartLanguage(const std::optional<std::string>& chosen) {
  if (chosen) {
    SetLanguage(*chosen);
    return;
  }
  for (const char* const variable : {"LC_ALL", "LC_MESSAGES", "LANG"}) {
    const char* const value = std::getenv(variable);
    if (value == nullptr || *value == '\0') continue;
    SetLanguage(value);
    return;
  }
}
