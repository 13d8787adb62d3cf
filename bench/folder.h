// A folder for temporary files.
#pragma once

#include <cstdlib>
#include <filesystem>
#include <stdexcept>
#include <string>

namespace bench {

[[noreturn]] inline void Die(const std::string& why) { throw std::runtime_error(why); }

/// Lives in the folder for temporary files (TMPDIR) and goes with the object.
class Folder {
 public:
  Folder() {
    std::string name = (std::filesystem::temp_directory_path() / "kalvio-bench-XXXXXX").string();
    if (mkdtemp(name.data()) == nullptr) Die("no folder for temporary files");
    path_ = name;
  }
  ~Folder() { std::filesystem::remove_all(path_); }
  Folder(const Folder&) = delete;
  Folder& operator=(const Folder&) = delete;
  std::string File(const std::string& name) const { return (path_ / name).string(); }

 private:
  std::filesystem::path path_;
};

}  // namespace bench
