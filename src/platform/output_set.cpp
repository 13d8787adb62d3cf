#include "platform/output_set.h"

#include <unistd.h>

#include <cstdio>
#include <vector>

#include "platform/numbers.h"
#include "platform/paths.h"

namespace platform {
namespace {

/// An old file under a second name as long as it may be needed again.
class Spare {
 public:
  explicit Spare(const std::string& target) : target_(target), spare_(SpareName(target)) {
    isThere_ = link(target.c_str(), spare_.c_str()) == 0;
    wasNothing_ = !isThere_ && access(target.c_str(), F_OK) != 0;
  }

  /// Puts the old file back where it was, or nothing where there was none. On a file system without
  /// second names the new file stays.
  void Restore() {
    if (isThere_) {
      isThere_ = std::rename(spare_.c_str(), target_.c_str()) != 0;
    } else if (wasNothing_) {
      unlink(target_.c_str());
    }
  }
  void Drop() {
    if (isThere_) unlink(spare_.c_str());
    isThere_ = false;
  }

 private:
  static std::string SpareName(const std::string& target) {
    const std::string_view name = FileName(target);
    std::string spare = target.substr(0, target.size() - name.size());
    spare.append(".").append(name.substr(0, 100)).append(".old-");
    AppendWhole(spare, getpid());
    return spare;
  }

  std::string target_;
  std::string spare_;
  bool isThere_;
  bool wasNothing_;
};

}  // namespace

std::size_t PlaceTogether(std::span<OutputFile* const> files,
                          std::span<const std::string> obsolete) {
  std::vector<Spare> spares;
  for (const OutputFile* const file : files) spares.emplace_back(file->Target());
  std::size_t placed = 0;
  while (placed < files.size() && files[placed]->Place()) ++placed;
  const bool areAll = placed == files.size();
  for (std::size_t i = 0; i < placed && !areAll; ++i) spares[i].Restore();
  for (Spare& spare : spares) spare.Drop();
  for (const std::string& path : obsolete) {
    if (areAll) unlink(path.c_str());
  }
  return placed;
}

}  // namespace platform
