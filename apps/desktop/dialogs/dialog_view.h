// The window of one dialog.
#pragma once

#include <QDialog>
#include <exception>
#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <vector>

#include "apps/desktop/dialogs/control.h"

class FormGrid;
class QGroupBox;
class QLabel;

/// Shows a presenter: its state in controls, its buttons below. What is entered goes to the
/// presenter at once, and everything shows the state that came of it. Nothing is decided here.
class DialogView : public QDialog, public ControlHost {
 public:
  /// `dialog` and `preview` (may be null) are not owned. A dialog that the table does not have
  /// shows its buttons alone.
  DialogView(Dialog& dialog, const DialogShape& shape, PreviewSource* preview, QWidget* parent);
  ~DialogView() override;

  /// Called when the dialog has closed.
  std::function<void()> onClosed;
  /// The code that it closed with; nothing while it is open.
  std::optional<int> Code() const { return code_; }
  /// What a button's press threw, which closed the dialog; to be thrown on.
  std::exception_ptr Failure() const { return failure_; }
  const Dialog& Presenter() const { return dialog_; }

  void Put(const char* key, const DialogState& value) override;
  void Press(std::string_view button) override;
  const DialogShape& Shape() const override { return shape_; }
  std::optional<PointPreview> Preview() override;

  /// Escape and the window's own cross.
  void reject() override;

 private:
  // A control with its label and the frame that both stand in, if any.
  struct Shown {
    const ControlRow* row;
    std::unique_ptr<Control> control;
    QLabel* label = nullptr;
    QGroupBox* frame = nullptr;
  };

  void FocusFirst();
  QWidget* NewBody();
  QWidget* Scrolling(QWidget* body) const;
  void AddControls(std::span<const ControlRow> rows, QWidget* body);
  void AddControl(const ControlRow& row, FormGrid& form, QGroupBox* frame);
  QLabel* NewLabel(const ControlRow& row, Control& control) const;
  void AddButtons(QWidget& body);
  void Refresh();
  void Refresh(Shown& shown, const DialogState& state);
  void ShowRow(Shown& shown, bool isShown);
  void Close(int code);

  Dialog& dialog_;
  DialogShape shape_;
  PreviewSource* preview_;
  std::vector<Shown> controls_;
  std::optional<int> code_;
  std::exception_ptr failure_;
};
