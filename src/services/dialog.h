// A dialog as the views see it: named values and buttons, no toolkit.
#pragma once

#include <nlohmann/json_fwd.hpp>
#include <optional>
#include <string_view>
#include <vector>

#include "services/window.h"
#include "tdk/wstring.h"

/// What a dialog shows, by key, in the order in which it shows it.
using DialogState = nlohmann::ordered_json;

enum class DialogSet {
  kDone,
  kUnknownKey,  ///< the dialog has no such control
  kWrongValue   ///< the control cannot hold that value; nothing was changed
};

/// The presenter of one dialog: all that it shows, checks and decides. A view (windows or a script)
/// shows State, puts what the user enters into Set and presses buttons; it decides nothing.
class Dialog {
 public:
  /// Codes that dialogs close with.
  static constexpr int kOk = 1;
  static constexpr int kCancel = 2;

  virtual ~Dialog();

  /// The name by which scripts know the dialog; never translated.
  virtual std::string_view Name() const = 0;
  virtual tdk::WString Title() const = 0;
  virtual DialogState State() const = 0;
  virtual DialogSet Set(std::string_view key, const DialogState& value) = 0;
  /// Labels of the buttons, untranslated. "Cancel" is always among them.
  virtual std::vector<std::string_view> Buttons() const = 0;
  /// Presses one of Buttons. The code with which the dialog closes; nothing when it stays open.
  virtual std::optional<int> Press(std::string_view button) = 0;
};

/// Shows `dialog` over `parent`. Without views it is cancelled.
int ShowDialog(CWnd* parent, Dialog& dialog);
