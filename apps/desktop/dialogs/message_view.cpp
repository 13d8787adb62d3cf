#include "apps/desktop/dialogs/message_view.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QScrollArea>
#include <QStyle>
#include <QVBoxLayout>

#include "apps/desktop/dialogs/button_bar.h"
#include "apps/desktop/dialogs/handheld_style.h"
#include "apps/desktop/dialogs/mnemonics.h"
#include "services/message_box.h"
#include "services/translate.h"

namespace {

QLabel* NewIcon(const QWidget& window, unsigned flags) {
  auto* const icon = new QLabel;
  icon->setObjectName("icon");
  const auto kind = (flags & kBoxInformation) == kBoxInformation ? QStyle::SP_MessageBoxInformation
                    : (flags & kBoxExclamation) == kBoxExclamation ? QStyle::SP_MessageBoxWarning
                    : (flags & kBoxYesNo) != 0                     ? QStyle::SP_MessageBoxQuestion
                                                                   : QStyle::SP_CustomBase;
  if (kind == QStyle::SP_CustomBase) return icon;
  const int size = window.style()->pixelMetric(QStyle::PM_LargeIconSize);
  icon->setPixmap(window.style()->standardIcon(kind).pixmap(size, size));
  icon->setAlignment(Qt::AlignTop);
  return icon;
}

QWidget* NewText(const QString& text, const DialogShape& shape) {
  auto* const label = new QLabel(QString(text).remove('\r'));
  label->setObjectName("text");
  label->setTextFormat(Qt::PlainText);
  label->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  label->setWordWrap(true);
  label->setAlignment(Qt::AlignTop | Qt::AlignLeft);
  if (!shape.isHandheld) {
    constexpr int kLetters = 60;
    label->setMinimumWidth(std::min(label->fontMetrics().averageCharWidth() * kLetters,
                                    label->fontMetrics().size(0, label->text()).width() + 1));
    return label;
  }
  auto* const scroll = new QScrollArea;
  scroll->setWidget(label);
  scroll->setWidgetResizable(true);
  scroll->setFrameShape(QFrame::NoFrame);
  return scroll;
}

}  // namespace

MessageView::MessageView(const QString& caption, const QString& text, unsigned flags,
                         const DialogShape& shape, QWidget* parent)
    : QDialog(parent), flags_(flags) {
  setObjectName("message");
  setWindowTitle(caption);
  setWindowModality(Qt::ApplicationModal);
  std::vector<std::string_view> labels = {ToXlate("OK")};
  if (IsQuestion()) labels = {ToXlate("Yes"), ToXlate("No")};
  auto* const bar = new ButtonBar(labels, shape.WithButtonsBelow(), [this](std::string_view label) {
    Close(label == "OK" ? kAnswerOk : label == "Yes" ? kAnswerYes : kAnswerNo);
  });
  auto* const layout = new QVBoxLayout(this);
  auto* const contents = new QHBoxLayout;
  contents->setContentsMargins(layout->contentsMargins());
  contents->addWidget(NewIcon(*this, flags), 0, Qt::AlignTop);
  contents->addWidget(NewText(text, shape), 1);
  layout->addLayout(contents, 1);
  layout->addWidget(bar);
  FillScreen(*this, *layout, shape);
  // A question is answered with care: Enter alone changes nothing.
  bar->Button(labels.back())->setDefault(true);
  bar->Button(labels.back())->setFocus();
  AssignMnemonics(this);
}

bool MessageView::IsQuestion() const { return (flags_ & kBoxYesNo) != 0; }

void MessageView::reject() { Close(IsQuestion() ? kAnswerNo : kAnswerOk); }

void MessageView::Close(int answer) {
  if (answer_ != 0) return;
  answer_ = answer;
  hide();
  if (onClosed) onClosed();
}
