// Top-level windows that programs of this process have, found by their name.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

namespace platform {

struct WindowMessage {
  unsigned message;
  std::uintptr_t wparam;
  std::intptr_t lparam;
};

using WindowHandler = std::function<void(const WindowMessage&)>;

/// Makes a top-level window known under `name`; `handler` takes its messages. A name that is there
/// is replaced.
void RegisterWindow(std::string_view name, WindowHandler handler);
void UnregisterWindow(std::string_view name);

/// Hands `message` to the window of that name and returns when it has been handled. False when
/// there is none.
bool SendToWindow(std::string_view name, const WindowMessage& message);

}  // namespace platform
