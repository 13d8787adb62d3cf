#include "arguments.h"

#include <CLI/CLI.hpp>
#include <algorithm>

#include "failure.h"
#include "nearest_word.h"
#include "services/translate.h"

std::optional<std::string> Arguments::Value(std::string_view option) const {
  const auto& values = All(option);
  return values.empty() ? std::nullopt : std::optional(values.back());
}

const std::vector<std::string>& Arguments::All(std::string_view option) const {
  static const std::vector<std::string> none;
  const auto found = values_.find(option);
  return found == values_.end() ? none : found->second;
}

void Arguments::Set(std::string_view option, std::vector<std::string> values) {
  values_.insert_or_assign(std::string(option), std::move(values));
}

namespace {

constexpr std::string_view kLanguage = "--lang";

struct Slot {
  const OptionRow* row;
  CLI::Option* option;
};

bool IsOption(const std::string& word) { return word.size() > 1 && word.front() == '-'; }

std::string_view CommandName(const Arguments& arguments) {
  return arguments.command == nullptr ? "" : arguments.command->name;
}

std::vector<std::string_view> OptionNames(std::string_view command) {
  std::vector<std::string_view> names;
  for (const OptionRow& row : OptionTable()) {
    if (row.BelongsTo(command) && row.IsShown() && !row.IsPositional()) {
      names.emplace_back(row.name);
    }
  }
  return names;
}

[[noreturn]] void RefuseCommand(const std::string& name) {
  std::vector<std::string_view> names;
  for (const CommandRow& row : CommandTable()) names.emplace_back(row.name);
  throw BadUsage(
      Fill(Xlate("there is no command \"{1}\"; kalvio --help lists them"), {tdk::WString(name)})
          .ToUtf8() +
      SuggestedWord(name, names));
}

[[noreturn]] void RefuseWord(const std::string& word, std::string_view command) {
  if (!IsOption(word)) {
    throw BadUsage(Fill(Xlate("unexpected word \"{1}\""), {tdk::WString(word)}).ToUtf8());
  }
  const std::string name = word.substr(0, word.find('='));
  throw BadUsage(Fill(Xlate("unknown option {1}"), {tdk::WString(name)}).ToUtf8() +
                 SuggestedWord(name, OptionNames(command)));
}

void RefuseExtras(std::vector<std::string> extras, std::string_view command) {
  std::erase(extras, "--");  // the mark after which every word is positional is no word itself
  // An unknown option explains the words that it leaves over, so it is told first.
  std::stable_partition(extras.begin(), extras.end(), IsOption);
  if (!extras.empty()) RefuseWord(extras.front(), command);
}

// Options of the program itself may stand before the command.
bool TakesNextWord(const std::string& word) {
  const auto rows = OptionTable();
  return std::any_of(rows.begin(), rows.end(), [&](const OptionRow& row) {
    return row.BelongsTo("") && row.name == word && !row.IsFlag();
  });
}

// The command is the first word that is neither an option nor the value of one. Its position; the
// number of words when there is none.
std::size_t CommandPosition(const std::vector<std::string>& words) {
  std::size_t i = 0;
  while (i < words.size() && IsOption(words[i])) i += TakesNextWord(words[i]) ? 2 : 1;
  return std::min(i, words.size());
}

CLI::Option* AddTo(CLI::App& app, const OptionRow& row) {
  if (row.IsFlag()) {
    const std::string name = row.name;
    return app.add_flag(name == "--help" ? "-h,--help" : name)->disable_flag_override();
  }
  CLI::Option* const option = app.add_option(row.name);
  option->expected(1)->allow_extra_args(row.IsPositional() && row.repeats);
  return option->multi_option_policy(row.repeats ? CLI::MultiOptionPolicy::TakeAll
                                                 : CLI::MultiOptionPolicy::TakeLast);
}

// Inputs and output come as one list: which of them is the output, only the last word tells.
bool IsPartOfList(const OptionRow& row) { return row.name == std::string_view("OUTPUT"); }

std::vector<Slot> AddRows(CLI::App& app, std::string_view command) {
  std::vector<Slot> slots;
  for (const OptionRow& row : OptionTable()) {
    if (row.BelongsTo(command) && !IsPartOfList(row)) slots.push_back({&row, AddTo(app, row)});
  }
  return slots;
}

std::string_view WithoutDashes(std::string_view name) {
  return name.substr(std::min(name.find_first_not_of('-'), name.size()));
}

// What the parser calls a mismatch is a value that is missing, or one for a flag. It names the
// option first, a flag without its dashes.
[[noreturn]] void RefuseMismatch(std::string_view what, const std::vector<Slot>& slots) {
  const std::string_view name = WithoutDashes(what.substr(0, what.find_first_of(": ")));
  for (const Slot& slot : slots) {
    if (WithoutDashes(slot.row->name) != name) continue;
    const auto pattern =
        slot.row->IsFlag() ? Xlate("option {1} takes no value") : Xlate("option {1} needs a value");
    throw BadUsage(Fill(pattern, {slot.row->name}).ToUtf8());
  }
  throw BadUsage(std::string(what));
}

void Parse(CLI::App& app, std::vector<std::string> reversed, const std::vector<Slot>& slots) {
  try {
    app.parse(reversed);
  } catch (const CLI::ArgumentMismatch& error) {
    RefuseMismatch(error.what(), slots);
  } catch (const CLI::ParseError& error) {
    throw BadUsage(error.what());
  }
}

// A value that is a list of words, as "2000|r14", allows these only.
void CheckChoice(const OptionRow& row, const std::string& value) {
  const std::string_view choices = row.value;
  if (row.IsPositional() || choices.find('|') == std::string_view::npos) return;
  const auto allowed = CLI::detail::split(std::string(choices), '|');
  if (std::find(allowed.begin(), allowed.end(), value) != allowed.end()) return;
  // A language may be called as locales are: it_IT.UTF-8.
  if (row.name == kLanguage && SetLanguage(value)) return;
  throw BadUsage(
      Fill(Xlate("{1} must be one of {2}, not \"{3}\""),
           {row.name, tdk::WString(CLI::detail::join(allowed, ", ")), tdk::WString(value)})
          .ToUtf8());
}

void Store(const Slot& slot, Arguments& arguments) {
  const auto& results = slot.option->results();
  if (results.empty()) return;
  if (slot.row->IsPositional()) {
    arguments.words.insert(arguments.words.end(), results.begin(), results.end());
    return;
  }
  if (!slot.row->IsFlag()) {
    for (const std::string& value : results) CheckChoice(*slot.row, value);
  }
  arguments.Set(slot.row->name, results);
}

void CheckWordCount(const Arguments& arguments) {
  if (arguments.command == nullptr || arguments.Has("--help")) return;
  std::size_t words = arguments.words.size();
  // A job that is there already stands for an input.
  if (words != 0 && arguments.Has("--job")) ++words;
  if (words < arguments.command->least) {
    throw BadUsage(Fill(Xlate("too few words; usage: kalvio {1} {2}"),
                        {arguments.command->name, arguments.command->synopsis})
                       .ToUtf8());
  }
}

}  // namespace

std::optional<std::string> ChosenLanguage(const std::vector<std::string>& words) {
  const std::string prefix = std::string(kLanguage) + '=';
  std::optional<std::string> chosen;
  for (std::size_t i = 0; i < words.size(); ++i) {
    if (words[i] == kLanguage && i + 1 < words.size()) chosen = words[i + 1];
    if (words[i].starts_with(prefix)) chosen = words[i].substr(prefix.size());
  }
  return chosen;
}

Arguments ParseArguments(const std::vector<std::string>& words) {
  Arguments arguments;
  const std::size_t position = CommandPosition(words);
  std::vector<std::string> reversed(words.rbegin(), words.rend());
  if (position < words.size()) {
    arguments.command = FindCommand(words[position]);
    if (arguments.command == nullptr) RefuseCommand(words[position]);
    reversed.erase(reversed.end() - 1 - static_cast<std::ptrdiff_t>(position));
  }
  CLI::App app;
  app.set_help_flag("");
  app.allow_extras();
  const std::vector<Slot> slots = AddRows(app, CommandName(arguments));
  Parse(app, std::move(reversed), slots);
  RefuseExtras(app.remaining(), CommandName(arguments));
  for (const Slot& slot : slots) Store(slot, arguments);
  CheckWordCount(arguments);
  return arguments;
}
