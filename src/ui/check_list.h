// A list whose rows can be checked.
#pragma once

#include <nlohmann/json_fwd.hpp>
#include <string>
#include <vector>

#include "services/dialog.h"
#include "tdk/wstring.h"

namespace ui {

class CheckList {
 public:
  /// `key` is the list's name for scripts. Nothing is checked at first.
  CheckList(std::string key, const std::vector<tdk::WString>& names);

  const std::string& Key() const { return key_; }
  /// A list of {"name", "checked"}.
  DialogState State() const;
  /// Takes the list of positions that are to be checked in place of the marks there are.
  DialogSet Set(const DialogState& positions);
  void CheckAll(bool checked);
  /// The checked positions, in order.
  std::vector<int> Checked() const;

 private:
  struct Row {
    tdk::WString name;
    bool checked = false;
  };
  std::string key_;
  std::vector<Row> rows_;
};

}  // namespace ui
