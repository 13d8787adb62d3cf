// Files of the exchange tests: folders that go away again, and what lies in them.
#pragma once

#include <gtest/gtest.h>
#include <stdlib.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <string_view>

namespace exchange_test {

/// A folder of its own for one test, removed with all that is in it.
class TempFolder {
 public:
  TempFolder() {
    std::string pattern = (std::filesystem::temp_directory_path() / "kalvio-test-XXXXXX").string();
    if (::mkdtemp(pattern.data()) == nullptr) ADD_FAILURE() << "no folder " << pattern;
    folder_ = pattern;
  }
  ~TempFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(folder_, ignored);
  }
  TempFolder(const TempFolder&) = delete;
  TempFolder& operator=(const TempFolder&) = delete;

  const std::string& Path() const { return folder_; }
  std::string Path(std::string_view name) const { return folder_ + '/' + std::string(name); }
  bool IsEmpty() const { return std::filesystem::is_empty(folder_); }

 private:
  std::string folder_;
};

inline void WriteFile(const std::string& path, std::string_view bytes) {
  std::ofstream file(path, std::ios::binary);
  file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  file.close();
  if (!file) ADD_FAILURE() << "cannot write " << path;
}

/// All bytes of a file; a failure of the test when there is none.
inline std::string ReadFile(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  if (!file) ADD_FAILURE() << "cannot read " << path;
  return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

/// The folder of the running test program, with its final separator.
inline std::string ProgramFolder() {
  return std::filesystem::read_symlink("/proc/self/exe").parent_path().string() + '/';
}

/// Another working directory for as long as it lives.
class WorkingFolder {
 public:
  explicit WorkingFolder(const std::string& folder) : before_(std::filesystem::current_path()) {
    std::filesystem::current_path(folder);
  }
  ~WorkingFolder() {
    std::error_code ignored;
    std::filesystem::current_path(before_, ignored);
  }
  WorkingFolder(const WorkingFolder&) = delete;
  WorkingFolder& operator=(const WorkingFolder&) = delete;

 private:
  std::filesystem::path before_;
};

}  // namespace exchange_test
