#include "services/cts_out_dat_string.h"

#include "host/cadastre/compose.h"
#include "platform/output_file.h"
#include "services/message_box.h"
#include "services/translate.h"

namespace {

void Tell(HWND owner, const tdk::WString& text) {
  CreateMessageBox(owner, Xlate("Warning"), text, kBoxExclamation);
}

tdk::WString Lines(const std::vector<tdk::WString>& texts) {
  constexpr std::size_t kShown = 10;  // more would not fit the screen of a controller
  tdk::WString lines;
  for (std::size_t i = 0; i < texts.size() && i < kShown; ++i) {
    lines += (i == 0 ? tdk::WString() : tdk::WString("\n")) + texts[i];
  }
  if (texts.size() > kShown) lines += "\n…";
  return lines;
}

}  // namespace

CCtsOutDatString::CCtsOutDatString(HWND owner, CCts* cadastre, CLibCmp* surveys, CLibGps* gps)
    : owner_(owner), cadastre_(cadastre), surveys_(surveys), gps_(gps) {}

bool CCtsOutDatString::WriteFileText(const tdk::WString& path) const {
  const dat::DatText text = dat::Compose(*cadastre_, *surveys_, *gps_);
  if (!text.faults.empty()) {
    Tell(owner_, Lines(text.faults));
    return false;
  }
  platform::OutputFile file;
  const bool isOpen = file.Open(path.ToUtf8());
  if (isOpen) file.Buffer() = text.bytes;
  if (!isOpen || !file.Commit()) {
    Tell(owner_, Fill(Xlate("{1} cannot be written."), {path}));
    return false;
  }
  if (owner_ == nullptr || owner_->GetViews() == nullptr) return true;
  for (const tdk::WString& remark : text.remarks) owner_->GetViews()->TakeNote({path, 0, remark});
  return true;
}
