// Why a file of an exchange could not be opened or written.
#pragma once

#include <optional>
#include <string>

#include "platform/file_trouble.h"

/// Keeps the first trouble with files while one exchange runs.
class TroubleScope {
 public:
  TroubleScope();
  ~TroubleScope();
  TroubleScope(const TroubleScope&) = delete;
  TroubleScope& operator=(const TroubleScope&) = delete;

  /// Empty when there was none. `path` is the file that it is about; another one is named.
  std::string Reason(const std::string& path) const;

 private:
  std::optional<platform::FileTrouble> first_;
  platform::FileTroubleListener previous_;
};
