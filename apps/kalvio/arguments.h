// The words of the command line, taken apart.
#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "option_table.h"

/// A command with its words.
class Arguments {
 public:
  const CommandRow* command = nullptr;  ///< null: none, only flags of the program itself
  std::vector<std::string> words;       ///< the positional ones

  bool Has(std::string_view option) const { return values_.contains(option); }
  /// The last value given.
  std::optional<std::string> Value(std::string_view option) const;
  const std::vector<std::string>& All(std::string_view option) const;
  void Set(std::string_view option, std::vector<std::string> values);

 private:
  std::map<std::string, std::vector<std::string>, std::less<>> values_;
};

/// The language that the words choose, wherever they do; known before anything else, so that
/// complaints about the other words are in it.
std::optional<std::string> ChosenLanguage(const std::vector<std::string>& words);

/// Takes the words apart; throws Failure (bad usage).
Arguments ParseArguments(const std::vector<std::string>& words);
