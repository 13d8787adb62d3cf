// One batch of changes.
#pragma once

#include "tdk/source_event.h"

/// Brackets the changes of an import, so that the host refreshes its views once, at the end. Every
/// way out of the scope ends the batch exactly once.
class ChangeEventScope {
 public:
  /// `source` may be null: then there is nobody to tell.
  explicit ChangeEventScope(tdk::CSourceEvent* source) : source_(source) {
    if (source_ != nullptr) source_->BeginEvent();
  }
  ~ChangeEventScope() {
    if (source_ != nullptr) source_->EndEvent();
  }
  ChangeEventScope(const ChangeEventScope&) = delete;
  ChangeEventScope& operator=(const ChangeEventScope&) = delete;

 private:
  tdk::CSourceEvent* source_;
};
