#include "services/extensions.h"

#include <map>

namespace {

// Each extension, and whether its resources are available.
std::map<const void*, bool>& Extensions() {
  static std::map<const void*, bool> extensions;
  return extensions;
}

}  // namespace

bool AttachExtension(const void* instance) { return Extensions().emplace(instance, false).second; }

bool RegisterExtensionResources(const void* instance) {
  const auto found = Extensions().find(instance);
  if (found != Extensions().end()) found->second = true;
  return found != Extensions().end();
}

void DetachExtension(const void* instance) { Extensions().erase(instance); }
