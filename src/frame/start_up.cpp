#include "frame/start_up.h"

#include "frame/string_table.h"
#include "platform/window_registry.h"
#include "services/extensions.h"

namespace frame {
namespace {

constexpr unsigned kFirstPrivateMessage = 1024;
constexpr platform::WindowMessage kStarted{kFirstPrivateMessage + 141, 1, 0};

bool started = false;

// Its address stands for this library.
const void* Instance() { return &started; }

// The first window that is there gets the message; the second is an older program's name. What a
// window throws must not get into the loader, which is no place for exceptions.
void NotifyStart() {
  try {
    if (!platform::SendToWindow("KalvioFieldStart", kStarted)) {
      platform::SendToWindow("Avvio_TrembaloCrash", kStarted);
    }
  } catch (...) {
    // The window had its message; the module starts all the same.
  }
}

// Nothing of the module may stay known to the host: its table of texts goes away with it.
void Detach() {
  tdk::CStringLoader::Remove(Instance());
  DetachExtension(Instance());
}

// The loader runs these when the library is loaded and unloaded. It offers no way to refuse a load,
// so a module that was refused stays loaded and does nothing.
__attribute__((constructor)) void OnLoad() { StartModule(); }
__attribute__((destructor)) void OnUnload() { StopModule(); }

}  // namespace

bool StartModule() {
  NotifyStart();
  if (!AttachExtension(Instance())) return false;
  tdk::CStringLoader::Init(Instance(), StringTable());
  started = RegisterExtensionResources(Instance());
  if (!started) Detach();
  return started;
}

void StopModule() {
  if (!started) return;
  started = false;
  Detach();
}

bool IsModuleStarted() { return started; }

}  // namespace frame
