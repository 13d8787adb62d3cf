#include "services/translate.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace {

using tdk::WString;

struct Translate : testing::Test {
  ~Translate() override { SetLanguage("en"); }
};

std::string Filled(const char* pattern, std::initializer_list<WString> arguments) {
  return Fill(pattern, arguments).ToUtf8();
}

TEST_F(Translate, GivesTheTextItselfInEnglish) {
  EXPECT_TRUE(SetLanguage("en"));
  EXPECT_EQ(Xlate("There are no data to export."), WString("There are no data to export."));
  EXPECT_EQ(Language(), "en");
}

TEST_F(Translate, GivesTheItalianText) {
  EXPECT_TRUE(SetLanguage("it"));
  EXPECT_EQ(Xlate("Warning"), WString("Attenzione"));
  EXPECT_EQ(Xlate("There are no data to export."), WString("Non ci sono dati da esportare."));
  EXPECT_EQ(Language(), "it");
}

TEST_F(Translate, TakesAHostStringToo) {
  SetLanguage("it");
  EXPECT_EQ(Xlate(WString("Warning")), WString("Attenzione"));
}

TEST_F(Translate, GivesTheTextItselfWhereTheCatalogueHasNoEntry) {
  SetLanguage("it");
  EXPECT_EQ(Xlate("no entry: è così"), WString("no entry: è così"));
  EXPECT_EQ(Xlate("warning"), WString("warning"));
  EXPECT_EQ(Xlate(""), WString(""));
}

TEST_F(Translate, TakesALocaleNameThatBeginsWithALanguage) {
  for (const char* name : {"it_IT.UTF-8", "it_CH", "it.UTF-8", "it@euro"}) {
    SetLanguage("en");
    EXPECT_TRUE(SetLanguage(name)) << name;
    EXPECT_EQ(Language(), "it") << name;
  }
  EXPECT_TRUE(SetLanguage("en_GB.UTF-8"));
  EXPECT_EQ(Language(), "en");
}

TEST_F(Translate, TakesAnUnknownLanguageForEnglish) {
  for (const char* name : {"de", "", "C", "italian", "IT-it", "_", "i"}) {
    SetLanguage("it");
    EXPECT_FALSE(SetLanguage(name)) << name;
    EXPECT_EQ(Language(), "en") << name;
    EXPECT_EQ(Xlate("Warning"), WString("Warning")) << name;
  }
}

TEST_F(Translate, ChangesTheLanguageBack) {
  SetLanguage("it");
  SetLanguage("en");
  EXPECT_EQ(Xlate("Warning"), WString("Warning"));
}

TEST_F(Translate, ListsEnglishAndItalian) {
  const auto languages = Languages();
  for (const char* name : {"en", "it"}) {
    EXPECT_EQ(std::count(languages.begin(), languages.end(), name), 1) << name;
  }
}

TEST(Fill, PutsTheArgumentsInTheirPlaces) {
  EXPECT_EQ(Filled("Error on line {1}: {2}", {"7", "no entity"}), "Error on line 7: no entity");
  EXPECT_EQ(Filled("{1}", {"a"}), "a");
}

TEST(Fill, TakesPlaceholdersInAnyOrderAndMoreThanOnce) {
  EXPECT_EQ(Filled("{2}{1}", {"a", "b"}), "ba");
  EXPECT_EQ(Filled("{1}{1} {2}", {"a", "b"}), "aa b");
}

TEST(Fill, KnowsMoreThanNineArguments) {
  EXPECT_EQ(Filled("{10}{1}", {"a", "b", "c", "d", "e", "f", "g", "h", "i", "j"}), "ja");
}

TEST(Fill, LeavesAPlaceholderWithoutAnArgumentAsItIs) {
  EXPECT_EQ(Filled("{1} and {2}", {"a"}), "a and {2}");
  EXPECT_EQ(Filled("{1}", {}), "{1}");
  EXPECT_EQ(Filled("{0} {99999999999999999999}", {"a"}), "{0} {99999999999999999999}");
  EXPECT_EQ(Filled("{-1}", {"a"}), "{-1}");
}

TEST(Fill, LeavesBracesThatAreNoPlaceholder) {
  EXPECT_EQ(Filled("{} {a} {1 } { 1} }{ {{", {"x"}), "{} {a} {1 } { 1} }{ {{");
  EXPECT_EQ(Filled("{{1}}", {"x"}), "{x}");
  EXPECT_EQ(Filled("} {1}", {"x"}), "} x");
}

TEST(Fill, LeavesABraceThatIsNeverClosed) {
  EXPECT_EQ(Filled("{1", {"x"}), "{1");
  EXPECT_EQ(Filled("{1} {2", {"x", "y"}), "x {2");
  EXPECT_EQ(Filled("{", {"x"}), "{");
}

TEST(Fill, LeavesBracesOfAnArgument) { EXPECT_EQ(Filled("{1}{2}", {"{2}", "{1}"}), "{2}{1}"); }

TEST(Fill, LeavesATextWithoutPlaceholders) {
  EXPECT_EQ(Filled("", {"x"}), "");
  EXPECT_EQ(Filled("così è", {"x"}), "così è");
  EXPECT_EQ(Filled("a{1}b", {""}), "ab");
}

}  // namespace
