// What the tests of written files have in common.
#pragma once

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <string>
#include <vector>

#include "platform/output_file.h"

using Names = std::vector<std::string>;

inline constexpr std::size_t kMoreThanAFlush = 700'000;

inline bool WriteWhole(const std::string& path, const std::string& text) {
  platform::OutputFile file;
  if (!file.Open(path)) return false;
  file.Buffer() += text;
  return file.Commit();
}

inline mode_t ModeOf(const std::string& path) {
  struct stat facts {};
  EXPECT_EQ(stat(path.c_str(), &facts), 0) << path;
  return facts.st_mode & 07777;
}
