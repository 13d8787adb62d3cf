// Names by keys: repeated ones are all found.
#include <algorithm>
#include <map>
#include <set>

#include "host/survey/name_keys.h"
#include "tests/support/random.h"

namespace {

using survey::KeyOf;

TEST(NameKeys, DifferWithEveryCharacterAndLength) {
  std::set<std::uint64_t> keys;
  for (std::size_t length = 0; length <= 40; ++length) {
    const std::string name(length, 'A');
    EXPECT_TRUE(keys.insert(KeyOf(name)).second) << length;
    for (std::size_t at = 0; at < length; ++at) {
      std::string other = name;
      other[at] = 'B';
      EXPECT_TRUE(keys.insert(KeyOf(other)).second) << other;
    }
  }
}

TEST(NameKeys, FilterHasAllThatWasAddedAndFewOthers) {
  constexpr int kNames = 20'000;
  survey::KeyFilter filter(kNames);
  for (int i = 0; i < kNames; ++i) filter.Add(KeyOf("P" + std::to_string(i)));
  int others = 0;
  for (int i = 0; i < kNames; ++i) {
    ASSERT_TRUE(filter.Has(KeyOf("P" + std::to_string(i))));
    if (filter.Has(KeyOf("Q" + std::to_string(i)))) ++others;
  }
  EXPECT_LT(others, kNames / 100);
}

TEST(NameKeys, EveryRepeatedNameIsFoundAndFewOthers) {
  Random random;
  for (int run = 0; run < 50; ++run) {
    const int count = random.Whole(0, 2000);
    const int different = random.Whole(1, 3000);
    std::vector<std::string> names;
    std::map<std::string, int> times;
    std::vector<survey::ShortKey> keys;
    survey::LaterKeys later(static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i) {
      names.push_back("P" + std::to_string(random.Whole(1, different)));
      ++times[names.back()];
      later.Add(KeyOf(names.back()));
      keys.push_back(survey::ShortOf(KeyOf(names.back())));
    }
    const std::vector<std::uint32_t> found = survey::RepeatedPositions(keys, later.Finish());
    ASSERT_TRUE(std::is_sorted(found.begin(), found.end()));
    std::size_t repeated = 0;
    for (std::size_t i = 0; i < names.size(); ++i) {
      if (times[names[i]] < 2) continue;
      ++repeated;
      ASSERT_TRUE(std::binary_search(found.begin(), found.end(), i)) << names[i];
    }
    EXPECT_LE(found.size(), repeated + 4);
  }
}

}  // namespace
