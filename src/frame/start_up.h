// What happens when a host loads the module and when it unloads it.
#pragma once

namespace frame {

/// Tells the program that waits for the module, if one does, then makes the module known to the
/// host's framework. False when the framework refuses it; every exchange is then impossible.
bool StartModule();
void StopModule();

/// Whether the module was started and not refused.
bool IsModuleStarted();

}  // namespace frame
