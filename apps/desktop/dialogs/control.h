// The controls of a dialog's window: each shows a part of the state and hands on what is entered.
#pragma once

#include <QWidget>
#include <memory>
#include <optional>

#include "apps/desktop/dialogs/control_table.h"
#include "apps/desktop/dialogs/dialog_shape.h"
#include "point_preview.h"

class QComboBox;
class QSpinBox;

/// Reads the beginning of a text or CSV file as a layout dialog has it.
class PreviewSource {
 public:
  virtual ~PreviewSource();
  /// `dialog`: the layout dialog's name, `layout` its state. Nothing when there is no file to read.
  virtual std::optional<PointPreview> Preview(std::string_view dialog,
                                              const DialogState& layout) = 0;
};

/// What controls reach of the window that they stand in.
class ControlHost {
 public:
  virtual ~ControlHost();
  /// Hands a value to the presenter, then every control shows the state that came of it.
  virtual void Put(const char* key, const DialogState& value) = 0;
  virtual void Press(std::string_view button) = 0;
  virtual const DialogShape& Shape() const = 0;
  /// The first points of the file, as the dialog has its layout.
  virtual std::optional<PointPreview> Preview() = 0;
};

class Control {
 public:
  virtual ~Control();
  /// The widget of the whole control; owned by the window.
  virtual QWidget* Widget() = 0;
  /// What its label leads to.
  virtual QWidget* Focus() { return Widget(); }
  /// Whether it takes the whole width, its label above.
  virtual bool IsWide() const { return false; }
  /// Whether it grows with the window.
  virtual bool Grows() const { return false; }
  /// Shows `state`; nothing that happens here comes back as input.
  virtual void Refresh(const DialogState& state) = 0;
  /// Whether there is anything to show, as of the last Refresh.
  virtual bool HasContents() const { return true; }
};

/// `row` must outlive the control, and so must `host`.
std::unique_ptr<Control> MakeControl(const ControlRow& row, ControlHost& host);

// By what they are made of.
std::unique_ptr<Control> MakeSimpleControl(const ControlRow& row, ControlHost& host);
std::unique_ptr<Control> MakeChoiceControl(const ControlRow& row, ControlHost& host);
std::unique_ptr<Control> MakeListControl(const ControlRow& row, ControlHost& host);
std::unique_ptr<Control> MakeColumnControl(const ControlRow& row, ControlHost& host);
std::unique_ptr<Control> MakeFileControl(const ControlRow& row, ControlHost& host);
std::unique_ptr<Control> MakePreviewControl(const ControlRow& row, ControlHost& host);

/// A combo box; on a handheld its texts are cut rather than make the window wide.
QComboBox* NewCombo(const char* name, const DialogShape& shape);
/// Puts the choices there, where they are others than before, and shows the chosen one.
void FillCombo(QComboBox& combo, const std::vector<Choice>& choices, const DialogState& chosen);
/// A number that is typed freely and whose arrows stay within the limits.
QSpinBox* NewNumber(const QString& name, int least, int most);
