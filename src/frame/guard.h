// The wall between an exchange and the host.
#pragma once

#include <exception>

#include "frame/start_up.h"
#include "services/progress.h"
#include "services/window.h"

namespace frame {

/// Tells the host that an exchange broke off, and why.
void TellBrokenOff(CWnd* parent, const char* reason);

/// Runs one exchange, which tells its progress to the views of `parent`: 0 when a pointer that it
/// needs is null or the module was not started, else what `exchange` returns. No exception gets
/// out; one that reaches the wall is told and answered with 0.
template <class Exchange, class... Needed>
int Guarded(CWnd* parent, Exchange exchange, const Needed*... needed) noexcept {
  if (!IsModuleStarted() || parent == nullptr || ((needed == nullptr) || ...)) return 0;
  const ProgressScope progress(parent->GetViews());
  try {
    return exchange();
  } catch (const std::exception& error) {
    TellBrokenOff(parent, error.what());
  } catch (...) {
    // A host that ends a call from within one of its own dialogs knows why.
  }
  return 0;
}

}  // namespace frame
