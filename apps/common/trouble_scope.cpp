#include "trouble_scope.h"

#include "console.h"
#include "platform/paths.h"

TroubleScope::TroubleScope()
    : previous_(platform::SetFileTroubleListener([this](const platform::FileTrouble& trouble) {
        if (!first_) first_ = trouble;
      })) {}

TroubleScope::~TroubleScope() { platform::SetFileTroubleListener(previous_); }

std::string TroubleScope::Reason(const std::string& path) const {
  if (!first_) return {};
  const std::string reason = console::InWords(*first_);
  return first_->path == platform::NativePath(path) ? reason : first_->path + ": " + reason;
}
