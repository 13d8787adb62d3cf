// Runs the tests under the process locale, as a desktop host does: nothing may depend on it.
#include <gtest/gtest.h>

#include <clocale>
#include <cstdlib>

// A run that is meant to show a decimal comma must really have one.
TEST(AaaLocale, HasTheDecimalPointThatThisRunIsAbout) {
  const bool comma = std::getenv("KALVIO_EXPECT_COMMA") != nullptr;
  EXPECT_STREQ(std::localeconv()->decimal_point, comma ? "," : ".");
}

int main(int argc, char** argv) {
  std::setlocale(LC_ALL, "");
  testing::InitGoogleTest(&argc, argv);
  return RUN_ALL_TESTS();
}
