#include "platform/window_registry.h"

#include <map>
#include <utility>

namespace platform {
namespace {

std::map<std::string, WindowHandler, std::less<>>& Windows() {
  static std::map<std::string, WindowHandler, std::less<>> windows;
  return windows;
}

}  // namespace

void RegisterWindow(std::string_view name, WindowHandler handler) {
  Windows().insert_or_assign(std::string(name), std::move(handler));
}

void UnregisterWindow(std::string_view name) {
  if (const auto found = Windows().find(name); found != Windows().end()) Windows().erase(found);
}

bool SendToWindow(std::string_view name, const WindowMessage& message) {
  const auto found = Windows().find(name);
  if (found == Windows().end()) return false;
  const WindowHandler handler = found->second;  // it may unregister itself
  handler(message);
  return true;
}

}  // namespace platform
