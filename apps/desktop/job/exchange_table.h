// The exchange commands of the menus.
#pragma once

#include <span>
#include <string>

#include "counts.h"

struct ExchangeCommand {
  const char* text;        ///< of the menu, untranslated
  const char* function;    ///< of the module; null: LandXML, which the host reads itself
  const char* extensions;  ///< in small letters, divided by semicolons
  bool isImport;
};

std::span<const ExchangeCommand> ExchangeTable();
/// The import of a file by its extension; null when none takes it.
const ExchangeCommand* ImportOf(const std::string& path);
