// Values that scripts and views hand to dialogs.
#pragma once

#include <algorithm>
#include <array>
#include <cstdint>
#include <nlohmann/json.hpp>

#include "services/dialog.h"

namespace ui {

/// A whole number within least..most; else `target` stays as it is.
inline DialogSet SetWhole(const DialogState& value, int least, int most, int& target) {
  if (!value.is_number_integer()) return DialogSet::kWrongValue;
  const auto number = value.get<std::int64_t>();
  if (number < least || number > most) return DialogSet::kWrongValue;
  target = static_cast<int>(number);
  return DialogSet::kDone;
}

/// A list of exactly so many whole numbers within least..most.
template <std::size_t Count>
DialogSet SetWholes(const DialogState& value, int least, int most, std::array<int, Count>& target) {
  if (!value.is_array() || value.size() != Count) return DialogSet::kWrongValue;
  std::array<int, Count> numbers{};
  for (std::size_t i = 0; i < Count; ++i) {
    const DialogSet outcome = SetWhole(value[i], least, most, numbers[i]);
    if (outcome != DialogSet::kDone) return outcome;
  }
  target = numbers;
  return DialogSet::kDone;
}

inline DialogSet SetFlag(const DialogState& value, bool& target) {
  if (!value.is_boolean()) return DialogSet::kWrongValue;
  target = value.get<bool>();
  return DialogSet::kDone;
}

}  // namespace ui
