// One example of each dialog, for tests and pictures of all of them.
#pragma once

#include <memory>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "services/dialog.h"

namespace desktop_test {

/// Shows a state and takes every value for it.
class ExampleDialog : public Dialog {
 public:
  ExampleDialog(std::string name, const char* title, DialogState state,
                std::vector<std::string_view> buttons)
      : name_(std::move(name)),
        title_(title),
        state_(std::move(state)),
        buttons_(std::move(buttons)) {}

  std::string_view Name() const override { return name_; }
  tdk::WString Title() const override;
  DialogState State() const override { return state_; }
  DialogSet Set(std::string_view key, const DialogState& value) override;
  std::vector<std::string_view> Buttons() const override { return buttons_; }
  std::optional<int> Press(std::string_view button) override {
    return button == "OK" ? kOk : kCancel;
  }

 private:
  std::string name_;
  const char* title_;
  DialogState state_;
  std::vector<std::string_view> buttons_;
};

/// `folder`: shown where one is. The module must be loaded: it has some of the texts.
std::vector<std::unique_ptr<Dialog>> EveryDialog(const std::string& folder);

}  // namespace desktop_test
