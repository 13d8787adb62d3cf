#include "services/message_box.h"

#include "services/dialog.h"

HostViews::~HostViews() = default;
void HostViews::ShowProgress(std::uint64_t /*done*/, std::uint64_t /*total*/) {}
void HostViews::TakeNote(const ExchangeNote& /*note*/) {}

Dialog::~Dialog() = default;

int ShowDialog(CWnd* parent, Dialog& dialog) {
  if (parent == nullptr || parent->GetViews() == nullptr) return Dialog::kCancel;
  return parent->GetViews()->ShowDialog(dialog);
}

int CreateMessageBox(CWnd* parent, const tdk::WString& caption, const tdk::WString& text,
                     unsigned flags) {
  if (parent == nullptr || parent->GetViews() == nullptr) {
    return (flags & kBoxYesNo) != 0 ? kAnswerNo : kAnswerOk;
  }
  return parent->GetViews()->ShowMessage(caption, text, flags);
}
