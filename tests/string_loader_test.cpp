#include "tdk/string_loader.h"

#include <gtest/gtest.h>

#include <array>

namespace {

using tdk::CStringLoader;
using tdk::StringEntry;
using tdk::WString;

constexpr std::array<StringEntry, 2> kFirst = {{{91800, "Error !"}, {91801, "Wait"}}};
constexpr std::array<StringEntry, 2> kOther = {{{91802, "Done"}, {91803, "è"}}};

// Makes a table known as long as it lives.
class KnownTable {
 public:
  explicit KnownTable(std::span<const StringEntry> table) { CStringLoader::Init(this, table); }
  ~KnownTable() { CStringLoader::Remove(this); }
  KnownTable(const KnownTable&) = delete;
  KnownTable& operator=(const KnownTable&) = delete;
};

TEST(StringLoader, FindsATextByItsNumber) {
  const KnownTable table(kFirst);
  EXPECT_EQ(CStringLoader::Load(91800), WString("Error !"));
  EXPECT_EQ(CStringLoader::Load(91801), WString("Wait"));
}

TEST(StringLoader, FindsTextsOfEveryLibrary) {
  const KnownTable first(kFirst);
  const KnownTable other(kOther);
  EXPECT_EQ(CStringLoader::Load(91801), WString("Wait"));
  EXPECT_EQ(CStringLoader::Load(91803), WString("è"));
}

TEST(StringLoader, GivesAnEmptyTextForAnUnknownNumber) {
  const KnownTable table(kFirst);
  EXPECT_TRUE(CStringLoader::Load(99999).IsEmpty());
}

TEST(StringLoader, ForgetsALibraryThatIsRemoved) {
  { const KnownTable table(kFirst); }
  EXPECT_TRUE(CStringLoader::Load(91800).IsEmpty());
}

TEST(StringLoader, ReplacesTheTableOfALibrary) {
  const KnownTable table(kFirst);
  CStringLoader::Init(&table, kOther);
  EXPECT_TRUE(CStringLoader::Load(91800).IsEmpty());
  EXPECT_EQ(CStringLoader::Load(91802), WString("Done"));
}

TEST(StringLoader, TakesALibraryThatItNeverKnewForRemoved) {
  const KnownTable table(kFirst);
  CStringLoader::Remove(&kOther);
  EXPECT_EQ(CStringLoader::Load(91800), WString("Error !"));
}

}  // namespace
