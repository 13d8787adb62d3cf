#include "host/store/file_trouble_catcher.h"

#include <system_error>
#include <utility>

namespace {

std::string_view InWords(platform::FileTrouble::Action action) {
  using Action = platform::FileTrouble::Action;
  switch (action) {
    case Action::kOpen: return "opened";
    case Action::kRead: return "read";
    case Action::kCreate: return "created";
    case Action::kWrite: break;
  }
  return "written";
}

}  // namespace

FileTroubleCatcher::FileTroubleCatcher()
    : previous_(platform::SetFileTroubleListener([this](const platform::FileTrouble& trouble) {
        if (!first_) first_ = trouble;
      })) {}

FileTroubleCatcher::~FileTroubleCatcher() {
  platform::SetFileTroubleListener(std::move(previous_));
}

std::string FileTroubleCatcher::Reason() const {
  if (!first_) return "trouble with the file";
  std::string reason("cannot be ");
  return reason.append(InWords(first_->action))
      .append(": ")
      .append(std::generic_category().message(first_->error));
}
