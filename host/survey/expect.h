// Walking through many objects without waiting for each.
#pragma once

#include <cstddef>
#include <span>

namespace survey {

/// To be called at each step `i` of a walk: what the walk comes to a little later is fetched
/// meanwhile. `bytes`: how much of an object, from its beginning, the walk looks at.
template <class T>
void ExpectNext(std::span<T* const> walk, std::size_t i, std::size_t bytes = sizeof(T)) {
  constexpr std::size_t kAhead = 16;
  constexpr std::size_t kLine = 64;
  if (i + kAhead >= walk.size()) return;
  const auto* const next = reinterpret_cast<const char*>(walk[i + kAhead]);
  for (std::size_t at = 0; at < bytes; at += kLine) __builtin_prefetch(next + at);
}

}  // namespace survey
