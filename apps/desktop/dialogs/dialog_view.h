// The window of one dialog.
#pragma once

#include <QDialog>
#include <exception>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

#include "apps/desktop/dialogs/control.h"

class ButtonBar;
class QFormLayout;
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
  // A control with its label and the form row that both stand in.
  struct Shown {
    const ControlRow* row;
    std::unique_ptr<Control> control;
    QLabel* label = nullptr;
    QFormLayout* form = nullptr;
    QGroupBox* frame = nullptr;
  };

  QWidget* NewBody();
  QFormLayout* FormOf(const ControlRow& row, QFormLayout& body, QGroupBox*& frame);
  void AddControl(const ControlRow& row, QFormLayout& body);
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
