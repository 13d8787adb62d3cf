// Hears of trouble with files as long as it lives.
#pragma once

#include <utility>
#include <vector>

#include "platform/file_trouble.h"

class TroubleLog {
 public:
  TroubleLog()
      : before_(platform::SetFileTroubleListener(
            [this](const platform::FileTrouble& trouble) { troubles_.push_back(trouble); })) {}
  ~TroubleLog() { platform::SetFileTroubleListener(std::move(before_)); }
  TroubleLog(const TroubleLog&) = delete;
  TroubleLog& operator=(const TroubleLog&) = delete;

  const std::vector<platform::FileTrouble>& Troubles() const { return troubles_; }

  /// True when just one trouble was heard of, and it was this one.
  bool HasOnly(platform::FileTrouble::Action action, const std::string& path, int error) const {
    return troubles_.size() == 1 && troubles_[0].action == action && troubles_[0].path == path &&
           troubles_[0].error == error;
  }

 private:
  platform::FileTroubleListener before_;
  std::vector<platform::FileTrouble> troubles_;
};
