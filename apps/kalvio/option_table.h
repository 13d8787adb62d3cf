// What the program can be told: the one table behind the parser, the helps, the man page and the
// completions.
#pragma once

#include <span>
#include <string_view>

/// One option, flag or positional word of one command or several.
struct OptionRow {
  const char* commands;  ///< with blanks between; "*": every command; "": the program alone
  const char* name;      ///< "--job", or "INPUT" for a positional word
  const char* value;     ///< what the value is called, with "|" between its choices; null: a flag
  const char* help;      ///< to be translated; null: not shown
  const char*
      fallback;  ///< to be translated: what holds without the option; null: nothing worth telling
  bool repeats = false;

  bool IsFlag() const { return value == nullptr; }
  bool IsPositional() const { return name[0] != '-'; }
  bool IsShown() const { return help != nullptr; }
  bool IsOfAll() const { return commands == std::string_view("*"); }
  /// `which`: a command, or "" for the program.
  bool BelongsTo(std::string_view which) const;
};

struct CommandRow {
  const char* name;
  const char* synopsis;  ///< its words after the name
  const char* summary;   ///< to be translated: one line of the program's help
  const char* about;     ///< to be translated: what the command's help begins with
  std::span<const char* const> examples;
  std::span<const int> statuses;  ///< the exit statuses it may end with
  /// How many positional words it takes.
  std::size_t least;
  std::size_t most;
};

struct StatusRow {
  int status;
  const char* help;  ///< to be translated
};

std::span<const OptionRow> OptionTable();
std::span<const CommandRow> CommandTable();
std::span<const StatusRow> StatusTable();
/// What people see first.
std::span<const char* const> ProgramExamples();

/// Null when there is no such command.
const CommandRow* FindCommand(std::string_view name);
