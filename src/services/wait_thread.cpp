#include "services/wait_thread.h"

#include "services/window.h"

CWaitThread* CWaitThread::GetInstance() {
  static CWaitThread instance;
  return &instance;
}

void CWaitThread::StartWait(CWnd* parent, int /*indicator*/) {
  if (depth_++ > 0) return;
  views_ = parent == nullptr ? nullptr : parent->GetViews();
  if (views_ != nullptr) views_->StartWait();
}

void CWaitThread::EndWait() {
  if (depth_ == 0 || --depth_ > 0) return;
  if (views_ != nullptr) views_->EndWait();
  views_ = nullptr;
}
