#include "ui/check_list.h"

#include <algorithm>
#include <nlohmann/json.hpp>

namespace ui {

CheckList::CheckList(std::string key, const std::vector<tdk::WString>& names)
    : key_(std::move(key)) {
  for (const tdk::WString& name : names) rows_.push_back({name, false});
}

DialogState CheckList::State() const {
  DialogState state = DialogState::array();
  for (const Row& row : rows_) {
    state.push_back({{"name", row.name.ToUtf8()}, {"checked", row.checked}});
  }
  return state;
}

DialogSet CheckList::Set(const DialogState& positions) {
  const auto isRow = [&](const DialogState& position) {
    return position.is_number_integer() && position >= 0 && position < rows_.size();
  };
  if (!positions.is_array() || !std::all_of(positions.begin(), positions.end(), isRow)) {
    return DialogSet::kWrongValue;
  }
  CheckAll(false);
  for (const DialogState& position : positions) rows_[position.get<std::size_t>()].checked = true;
  return DialogSet::kDone;
}

void CheckList::CheckAll(bool checked) {
  for (Row& row : rows_) row.checked = checked;
}

std::vector<int> CheckList::Checked() const {
  std::vector<int> positions;
  for (std::size_t i = 0; i < rows_.size(); ++i) {
    if (rows_[i].checked) positions.push_back(static_cast<int>(i));
  }
  return positions;
}

}  // namespace ui
