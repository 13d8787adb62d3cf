#include "pages.h"

#include "console.h"
#include "module.h"
#include "option_table.h"

namespace {

// Text for the man macros: what they would take for markup is escaped.
std::string Escaped(std::string_view text) {
  std::string escaped;
  for (const char c : text) {
    if (c == '\\') {
      escaped += "\\e";
    } else if (c == '-') {
      escaped += "\\-";
    } else {
      escaped += c;
    }
  }
  const bool likeARequest = escaped.starts_with('.') || escaped.starts_with('\'');
  return likeARequest ? "\\&" + escaped : escaped;
}

std::string Bold(std::string_view text) { return "\\fB" + Escaped(text) + "\\fR"; }

std::string Paragraph(std::string_view label, std::string_view text) {
  return ".TP\n" + std::string(label) + "\n" + Escaped(text) + "\n";
}

std::string OptionParagraph(const OptionRow& row) {
  std::string label = Bold(row.name);
  if (!row.IsFlag() && !row.IsPositional()) label += " \\fI" + Escaped(row.value) + "\\fR";
  std::string text = row.help;
  if (row.fallback != nullptr) text.append(" (default: ").append(row.fallback).append(")");
  if (row.repeats && !row.IsPositional()) text += " (may be repeated)";
  return Paragraph(label, text);
}

std::string OptionParagraphs(std::string_view command) {
  std::string text;
  for (const OptionRow& row : OptionTable()) {
    const bool isAsked = row.IsOfAll() ? command == "*" : row.BelongsTo(command);
    if (isAsked && row.IsShown()) text += OptionParagraph(row);
  }
  return text;
}

std::string ExampleLines(std::span<const char* const> examples) {
  std::string text = ".PP\n.nf\n.RS\n";
  for (const char* example : examples) text += Escaped(example) + "\n";
  return text + ".RE\n.fi\n";
}

std::string Synopsis() {
  std::string text = ".SH SYNOPSIS\n.nf\n";
  for (const CommandRow& command : CommandTable()) {
    text += "\\fBkalvio " + std::string(command.name) + "\\fR " + Escaped(command.synopsis) + "\n";
  }
  return text + "\\fBkalvio \\-\\-version\\fR | \\fB\\-\\-help\\fR\n.fi\n";
}

std::string Commands() {
  std::string text = ".SH COMMANDS\n";
  for (const CommandRow& command : CommandTable()) {
    text += ".SS kalvio " + std::string(command.name) + "\n" + Escaped(command.about) + "\n" +
            OptionParagraphs(command.name) + ExampleLines(command.examples);
  }
  return text;
}

std::string Statuses() {
  std::string text = ".SH EXIT STATUS\n";
  for (const StatusRow& row : StatusTable()) {
    text += Paragraph(Bold(console::Number(static_cast<std::uint64_t>(row.status))), row.help);
  }
  return text;
}

std::string Environment() {
  return ".SH ENVIRONMENT\n" +
         Paragraph(Bold("KALVIO_MODULE"),
                   "the exchange module to load, in place of the installed one") +
         Paragraph(Bold("LC_ALL") + ", " + Bold("LC_MESSAGES") + ", " + Bold("LANG"),
                   "the first that is set chooses the language where --lang does not");
}

// "    convert) options="--job --quiet"; words="…" ;;"
std::string CompletionCase(const CommandRow& command) {
  std::string options;
  for (const OptionRow& row : OptionTable()) {
    if (!row.BelongsTo(command.name) || row.IsPositional() || !row.IsShown()) continue;
    options.append(options.empty() ? "" : " ").append(row.name);
  }
  std::string line = "    " + std::string(command.name) + ") options=\"" + options + '"';
  if (command.name == std::string_view("call")) {
    line += "; words=\"";
    for (const std::string_view name : ModuleFunctions()) line.append(name).append(" ");
    line.back() = '"';
  }
  return line + " ;;\n";
}

// The choices of options that have some, as cases of the word before the cursor.
std::string ChoiceCases() {
  std::string cases;
  for (const OptionRow& row : OptionTable()) {
    if (row.IsFlag() || row.IsPositional() || !row.IsShown()) continue;
    std::string choices = row.value;
    if (choices.find('|') == std::string::npos) continue;
    for (char& c : choices) c = c == '|' ? ' ' : c;
    cases += "    " + std::string(row.name) + ") COMPREPLY=($(compgen -W \"" + choices +
             "\" -- \"$word\")); return ;;\n";
  }
  return cases;
}

}  // namespace

std::string ManPage() {
  return ".TH KALVIO 1 \"\" \"kalvio " KALVIO_VERSION
         "\" \"User Commands\"\n"
         ".SH NAME\nkalvio \\- bring field\\-survey jobs in and out of their file formats\n" +
         Synopsis() + Commands() + ".SH COMMON OPTIONS\n" + OptionParagraphs("*") +
         OptionParagraphs("") + Statuses() + Environment();
}

std::string BashCompletion() {
  std::string names;
  std::string cases;
  for (const CommandRow& command : CommandTable()) {
    names.append(names.empty() ? "" : " ").append(command.name);
    cases += CompletionCase(command);
  }
  return "# Completions of kalvio for bash.\n"
         "_kalvio() {\n"
         "  local word=${COMP_WORDS[COMP_CWORD]} before=${COMP_WORDS[COMP_CWORD-1]} options= "
         "words=\n"
         "  case $before in\n" +
         ChoiceCases() +
         "  esac\n"
         "  case ${COMP_WORDS[1]} in\n" +
         cases +
         "  esac\n"
         "  if [ \"$COMP_CWORD\" -eq 1 ]; then\n"
         "    options=\"--help --version --lang\"; words=\"" +
         names +
         "\"\n"
         "  elif [ \"$COMP_CWORD\" -gt 2 ]; then\n"
         "    words=\n"
         "  fi\n"
         "  case $word in\n"
         "    -*) COMPREPLY=($(compgen -W \"$options\" -- \"$word\")) ;;\n"
         "    *) COMPREPLY=($(compgen -W \"$words\" -- \"$word\")) ;;\n"
         "  esac\n"
         "}\n"
         "complete -o default -F _kalvio kalvio\n";
}
