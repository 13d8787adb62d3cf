// The window of one message box.
#pragma once

#include <QDialog>
#include <functional>

#include "apps/desktop/dialogs/dialog_shape.h"

/// A text with its icon, and OK or Yes and No below it. Escape is OK, or No.
class MessageView : public QDialog {
 public:
  /// `flags`: as in services/message_box.h. Texts are shown as they are.
  MessageView(const QString& caption, const QString& text, unsigned flags, const DialogShape& shape,
              QWidget* parent);

  std::function<void()> onClosed;
  /// The code of the button; 0 while it is open.
  int Answer() const { return answer_; }
  bool IsQuestion() const;

  void reject() override;

 private:
  void Close(int answer);

  unsigned flags_;
  int answer_ = 0;
};
