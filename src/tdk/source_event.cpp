#include "tdk/source_event.h"

namespace tdk {

ISourceEventListener::~ISourceEventListener() = default;
CSourceEvent::~CSourceEvent() = default;

void CSourceEvent::BeginEvent() {
  ++depth_;
  if (listener_ != nullptr) listener_->OnBeginEvent();
}

void CSourceEvent::EndEvent() {
  --depth_;
  if (listener_ != nullptr) listener_->OnEndEvent();
}

}  // namespace tdk
