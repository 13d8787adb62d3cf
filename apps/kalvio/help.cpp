#include "help.h"

#include <algorithm>
#include <vector>

#include "console.h"
#include "layout.h"
#include "module.h"
#include "services/translate.h"

namespace {

constexpr std::size_t kScreenWidth = 80;
constexpr std::size_t kWidestLabel = 24;
constexpr std::string_view kIndent = "  ";

struct Entry {
  std::string label;
  std::string text;
};

std::string Translated(const char* text) { return Xlate(text).ToUtf8(); }

// Labels with their texts beside them. A label that is wider than the others may be stands on a
// line of its own.
std::string Entries(const std::vector<Entry>& entries) {
  std::size_t widest = 0;
  for (const Entry& entry : entries) {
    const std::size_t width = DisplayWidth(entry.label);
    if (width <= kWidestLabel) widest = std::max(widest, width);
  }
  const std::size_t column = kIndent.size() + widest + 2;
  std::string text;
  for (const Entry& entry : entries) {
    const std::string wrapped = Wrapped(entry.text, kScreenWidth, column);
    text.append(kIndent).append(entry.label);
    if (DisplayWidth(entry.label) > widest) {
      text.append("\n").append(column, ' ');
    } else {
      text.append(widest - DisplayWidth(entry.label) + 2, ' ');
    }
    text += wrapped;
  }
  return text;
}

std::string Heading(const char* text) { return "\n" + Translated(text) + "\n"; }

std::string NameWithValue(const OptionRow& row) {
  std::string name = row.name;
  if (name == "--help") name = "-h, --help";
  if (!row.IsFlag() && !row.IsPositional()) name.append(" ").append(row.value);
  return name;
}

std::string HelpOf(const OptionRow& row) {
  std::string text = Translated(row.help);
  if (row.fallback != nullptr) {
    const auto fallback = Fill(Xlate("(default: {1})"), {Xlate(row.fallback)});
    text.append(" ").append(fallback.ToUtf8());
  }
  if (row.repeats && !row.IsPositional()) text += ' ' + Translated(ToXlate("(may be repeated)"));
  return text;
}

std::vector<Entry> OptionEntries(std::string_view command) {
  std::vector<Entry> entries;
  for (const OptionRow& row : OptionTable()) {
    if (row.BelongsTo(command) && row.IsShown())
      entries.push_back({NameWithValue(row), HelpOf(row)});
  }
  return entries;
}

std::string Examples(std::span<const char* const> examples) {
  std::string text;
  for (const char* example : examples) text.append(kIndent).append(example).append("\n");
  return text;
}

std::string Statuses(std::span<const int> statuses) {
  std::vector<Entry> entries;
  for (const StatusRow& row : StatusTable()) {
    if (std::find(statuses.begin(), statuses.end(), row.status) == statuses.end()) continue;
    entries.push_back(
        {console::Number(static_cast<std::uint64_t>(row.status)), Translated(row.help)});
  }
  return Entries(entries);
}

std::string FunctionNames() {
  std::string names;
  for (const std::string_view name : ModuleFunctions())
    names.append(names.empty() ? "" : " ").append(name);
  return std::string(kIndent) + Wrapped(names, kScreenWidth, kIndent.size());
}

}  // namespace

std::string ProgramHelp() {
  std::vector<Entry> commands;
  for (const CommandRow& row : CommandTable()) {
    commands.push_back({row.name, Translated(row.summary)});
  }
  return Translated(ToXlate("Usage: kalvio COMMAND [options]")) + "\n" +
         Wrapped(Translated(ToXlate("Brings field-survey jobs in and out of their file formats.")),
                 kScreenWidth, 0) +
         Heading(ToXlate("Commands:")) + Entries(commands) + Heading(ToXlate("Options:")) +
         Entries(OptionEntries("")) + Heading(ToXlate("Examples:")) + Examples(ProgramExamples()) +
         "\n" +
         Wrapped(Translated(ToXlate("kalvio COMMAND --help tells more about a command.")),
                 kScreenWidth, 0);
}

std::string CommandHelp(const CommandRow& command) {
  std::string text =
      Translated(ToXlate("Usage:")) + " kalvio " + command.name + ' ' + command.synopsis + "\n\n";
  text += Wrapped(Translated(command.about), kScreenWidth, 0) + '\n' +
          Entries(OptionEntries(command.name));
  if (command.name == std::string_view("call")) {
    text += Heading(ToXlate("Functions:")) + FunctionNames();
  }
  return text + Heading(ToXlate("Examples:")) + Examples(command.examples) +
         Heading(ToXlate("Exit status:")) + Statuses(command.statuses);
}
