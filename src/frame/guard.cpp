#include "frame/guard.h"

#include "services/translate.h"

namespace frame {

void TellBrokenOff(CWnd* parent, const char* reason) {
  try {
    if (parent->GetViews() == nullptr) return;
    parent->GetViews()->TakeNote(
        {{}, 0, Fill(Xlate("The exchange was broken off: {1}"), {tdk::WString(reason)})});
  } catch (...) {
    // There is nobody left to tell.
  }
}

}  // namespace frame
