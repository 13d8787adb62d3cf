// What the program tells about itself: helps, version, man page, completions, and complaints about
// its words.
#include <algorithm>

#include "tests/run_kalvio.h"

namespace e2e {
namespace {

using testing::AllOf;
using testing::Each;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;
using testing::SizeIs;
using testing::StartsWith;

const std::vector<std::string> kCommands = {"convert", "cadastral", "plot",
                                            "show",    "call",      "formats"};
const std::vector<std::string> kLanguages = {"en", "it"};

// Characters that begin one: all bytes but those that go on with one.
std::size_t CharacterCount(const std::string& line) {
  return static_cast<std::size_t>(std::count_if(line.begin(), line.end(), [](char c) {
    return (static_cast<unsigned char>(c) & 0xC0) != 0x80;
  }));
}

void ExpectFits(const std::string& text) {
  for (const std::string& line : Lines(text)) EXPECT_LE(CharacterCount(line), 80U) << line;
}

// The lines of a help that are commands to type.
std::vector<std::string> Examples(const std::string& help) {
  std::vector<std::string> examples;
  for (const std::string& line : Lines(help)) {
    if (line.starts_with("  kalvio ")) examples.push_back(line.substr(2));
  }
  return examples;
}

std::vector<std::string> Words(const std::string& line) {
  std::vector<std::string> words;
  for (std::size_t start = 0; start < line.size();) {
    const std::size_t end = std::min(line.find(' ', start), line.size());
    words.push_back(line.substr(start, end - start));
    start = end + 1;
  }
  return words;
}

// A file that the build makes beside the program's folder.
std::string Page(const std::string& name) {
  const std::string program = KALVIO_PROGRAM;
  const std::string folder = program.substr(0, program.rfind('/'));
  return ReadBytes(folder.substr(0, folder.rfind('/')) + "/share/" + name);
}

TEST(Help, OfTheProgramFitsAScreenAndShowsThreeExamples) {
  for (const std::string& language : kLanguages) {
    const Outcome run = RunKalvio({"--help", "--lang", language});
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.err, "");
    EXPECT_LE(Lines(run.out).size(), 24U) << run.out;
    ExpectFits(run.out);
    EXPECT_THAT(Examples(run.out), SizeIs(3)) << run.out;
  }
}

TEST(Help, OfTheProgramNamesTheCommands) {
  const std::string help = RunKalvio({"--help"}).out;
  for (const std::string& command : kCommands) EXPECT_THAT(help, HasSubstr("\n  " + command));
}

TEST(Help, OfEveryCommandShowsExamplesAndExitStatuses) {
  for (const std::string& command : kCommands) {
    for (const std::string& language : kLanguages) {
      const Outcome run = RunKalvio({command, "--help", "--lang", language});
      EXPECT_EQ(run.status, 0) << command;
      ExpectFits(run.out);
      EXPECT_THAT(Examples(run.out), Each(StartsWith("kalvio " + command))) << run.out;
      EXPECT_THAT(Examples(run.out), Not(SizeIs(0))) << run.out;
      EXPECT_THAT(run.out, AllOf(HasSubstr("\n  0  "), HasSubstr("\n  1  "), HasSubstr("\n  2  ")));
    }
  }
}

TEST(Help, OfCallAloneHasStatusThreeAndTheFunctions) {
  EXPECT_THAT(RunKalvio({"call", "--help"}).out,
              AllOf(HasSubstr("\n  3  "), HasSubstr("FExportLandXMLFile")));
  EXPECT_THAT(RunKalvio({"convert", "--help"}).out, Not(HasSubstr("\n  3  ")));
}

TEST(Help, HasAShortFormAndNeedsNoOtherWords) {
  EXPECT_EQ(RunKalvio({"convert", "-h"}).out, RunKalvio({"convert", "--help"}).out);
  EXPECT_EQ(RunKalvio({"convert", "a.jb2", "--help"}).out, RunKalvio({"convert", "--help"}).out);
  EXPECT_EQ(RunKalvio({"-h"}).out, RunKalvio({"--help"}).out);
}

// An example that the program itself calls bad usage would be none.
TEST(Help, ExamplesAreGoodUsage) {
  const TemporaryFolder folder;
  std::vector<std::string> examples = Examples(RunKalvio({"--help"}).out);
  for (const std::string& command : kCommands) {
    const auto more = Examples(RunKalvio({command, "--help"}).out);
    examples.insert(examples.end(), more.begin(), more.end());
  }
  ASSERT_GE(examples.size(), 10U);
  folder.Write("answers.json", "[]");
  for (const std::string& example : examples) {
    std::vector<std::string> words = Words(example.substr(0, example.find(" >")));
    words.erase(words.begin());
    const Outcome run = RunKalvio(words, {.folder = folder.Path()});
    EXPECT_LT(run.status, 2) << example << ": " << run.err;
  }
}

TEST(Version, IsOneLine) {
  const Outcome run = RunKalvio({"--version"});
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(run.out, "kalvio 0.1.0\n");
}

TEST(Version, FullStandardOutputFails) {
  EXPECT_EQ(RunKalvio({"--version"}, {.output = "/dev/full"}).status, 1);
  EXPECT_EQ(RunKalvio({"--help"}, {.closedOutput = true}).status, 1);
}

TEST(Language, IsChosenByTheOptionWhereverItStands) {
  const std::string italian = RunKalvio({"--help", "--lang", "it"}).out;
  EXPECT_THAT(italian, HasSubstr("Uso: kalvio"));
  EXPECT_EQ(RunKalvio({"--lang", "it", "--help"}).out, italian);
  EXPECT_EQ(RunKalvio({"--lang=it", "--help"}).out, italian);
  EXPECT_EQ(RunKalvio({"--lang", "it_IT.UTF-8", "--help"}).out, italian);
  EXPECT_EQ(RunKalvio({"--lang", "it", "formats"}).out, RunKalvio({"formats", "--lang", "it"}).out);
}

TEST(Language, IsOtherwiseThatOfTheEnvironmentInItsOrder) {
  const std::string italian = RunKalvio({"--help", "--lang", "it"}).out;
  const std::string english = RunKalvio({"--help", "--lang", "en"}).out;
  const auto help = [](std::optional<std::string> all, std::optional<std::string> messages,
                       std::optional<std::string> lang) {
    return RunKalvio({"--help"},
                     {.variables = {{"LC_ALL", all}, {"LC_MESSAGES", messages}, {"LANG", lang}}})
        .out;
  };
  ASSERT_NE(italian, english);
  EXPECT_EQ(help("it_IT.UTF-8", "en_US", "en_US"), italian);
  EXPECT_EQ(help("C", "it_IT", "it_IT"), english);
  EXPECT_EQ(help("", "it_IT", "en_US"), italian);
  EXPECT_EQ(help(std::nullopt, std::nullopt, "it_IT"), italian);
  EXPECT_EQ(help(std::nullopt, std::nullopt, std::nullopt), english);
  EXPECT_EQ(help("fr_FR", std::nullopt, std::nullopt), english);
}

TEST(Language, OfComplaintsIsChosenToo) {
  EXPECT_THAT(RunKalvio({"nonesuch", "--lang", "it"}).err, HasSubstr("comando"));
}

TEST(Language, UnknownOneIsBadUsage) {
  EXPECT_EQ(RunKalvio({"formats", "--lang", "fr"}).status, 2);
}

TEST(BadUsage, NamesTheWordAndEndsWithStatusTwo) {
  const std::vector<std::pair<std::vector<std::string>, std::string>> cases = {
      {{}, "--help"},
      {{"convret"}, "\"convret\""},
      {{""}, "\"\""},
      {{"--verbose"}, "--verbose"},
      {{"show", "--verbose", "."}, "--verbose"},
      {{"show", "-x", "."}, "-x"},
      {{"show", "--json=1", "."}, "--json"},
      {{"show", ".", "--lang"}, "--lang"},
      {{"call", "FImportJB2File", "--job"}, "--job"},
      {{"call"}, "call"},
      {{"call", "FImportJB2File", "more"}, "\"more\""},
      {{"formats", "--json"}, "--json"},
      {{"convert", "--version", "a.jb2", "b.jb2"}, "--version"}};
  for (const auto& [words, word] : cases) {
    const Outcome run = RunKalvio(words);
    EXPECT_EQ(run.status, 2) << word;
    EXPECT_EQ(run.out, "") << word;
    EXPECT_THAT(run.err, AllOf(StartsWith("kalvio: "), HasSubstr(word)));
    EXPECT_THAT(Lines(run.err), SizeIs(1));
  }
}

TEST(BadUsage, SuggestsWhatWasMeant) {
  EXPECT_THAT(RunKalvio({"convret"}).err, HasSubstr("did you mean \"convert\"?"));
  EXPECT_THAT(RunKalvio({"show", "--jsn", "."}).err, HasSubstr("did you mean \"--json\"?"));
  EXPECT_THAT(RunKalvio({"call", "FimportJB2file"}).err,
              HasSubstr("did you mean \"FImportJB2File\"?"));
  EXPECT_THAT(RunKalvio({"nonesuch"}).err, Not(HasSubstr("did you mean")));
}

TEST(BadUsage, WordsAfterTwoDashesAreNoOptions) {
  const TemporaryFolder folder;
  folder.Write("--all.jb2", SmallJb2());
  const Outcome run = RunKalvio({"show", "--", "--all.jb2"}, {.folder = folder.Path()});
  EXPECT_EQ(run.status, 0) << run.err;
}

TEST(ManPage, IsMadeFromTheTableOfOptions) {
  const std::string page = Page("man/man1/kalvio.1");
  EXPECT_EQ(page, RunKalvio({"--generate", "man"}).out);
  EXPECT_THAT(page, AllOf(StartsWith(".TH KALVIO 1"), HasSubstr(".SH EXIT STATUS")));
  for (const std::string& command : kCommands)
    EXPECT_THAT(page, HasSubstr(".SS kalvio " + command));
  EXPECT_THAT(page, HasSubstr("\\-\\-answers"));
}

// What bash would offer for these words, of which the last is being typed.
std::vector<std::string> Completions(const std::vector<std::string>& words) {
  const TemporaryFolder folder;
  const std::string script =
      folder.Write("completions", Page("bash-completion/completions/kalvio"));
  std::string typed;
  for (const std::string& word : words) typed += " '" + word + "'";
  const Outcome run = RunProgram("bash", {"-c", ". '" + script + "'; COMP_WORDS=(kalvio" + typed +
                                                    "); COMP_CWORD=$((${#COMP_WORDS[@]} - 1)); "
                                                    "_kalvio; printf '%s\\n' \"${COMPREPLY[@]}\""});
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(run.err, "");
  auto offered = Lines(run.out);
  std::sort(offered.begin(), offered.end());
  return offered;
}

TEST(BashCompletion, OffersCommandsOptionsFunctionsAndChoices) {
  EXPECT_THAT(Completions({""}), ElementsAre("cadastral", "call", "compute", "convert", "formats",
                                             "plot", "show", "terrain"));
  EXPECT_THAT(Completions({"--v"}), ElementsAre("--version"));
  EXPECT_THAT(Completions({"convert", "--pro"}), ElementsAre("--progress"));
  EXPECT_THAT(Completions({"convert", "--progress", "a"}), ElementsAre("always", "auto"));
  EXPECT_THAT(Completions({"show", "x", "--j"}), ElementsAre("--json"));
  EXPECT_THAT(Completions({"call", "FImportJ"}), ElementsAre("FImportJB2File", "FImportJB3File"));
}

}  // namespace
}  // namespace e2e
