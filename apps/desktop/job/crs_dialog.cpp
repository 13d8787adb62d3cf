#include "apps/desktop/job/crs_dialog.h"

#include <nlohmann/json.hpp>

#include "services/ini_file.h"
#include "services/message_box.h"
#include "services/translate.h"

namespace {

constexpr const char* kSection = "Desktop";
constexpr const char* kReferenceSystem = "ReferenceSystem";

}  // namespace

tdk::WString KeptReferenceSystem() { return CIniFile().ReadString(kSection, kReferenceSystem, {}); }

void KeepReferenceSystem(const tdk::WString& crs) {
  CIniFile().WriteString(kSection, kReferenceSystem, crs);
}

ReferenceSystemDialog::ReferenceSystemDialog(CWnd* parent, const CLibGps& library)
    : parent_(parent) {
  for (int i = 0; i < library.GetGrpArSize() && crs_.IsEmpty(); ++i) {
    crs_ = library.GetGrpAt(i)->GetCrs();
  }
  if (crs_.IsEmpty()) crs_ = KeptReferenceSystem();
}

tdk::WString ReferenceSystemDialog::Title() const { return Xlate("Reference system"); }

DialogState ReferenceSystemDialog::State() const { return {{"crs", crs_.ToUtf8()}}; }

DialogSet ReferenceSystemDialog::Set(std::string_view key, const DialogState& value) {
  if (key != "crs") return DialogSet::kUnknownKey;
  if (!value.is_string()) return DialogSet::kWrongValue;
  crs_ = tdk::WString(value.get<std::string>());
  return DialogSet::kDone;
}

std::optional<int> ReferenceSystemDialog::Press(std::string_view button) {
  if (button != "OK") return kCancel;
  IGeodesy* const geodesy = IGeodesy::Current();
  if (crs_.IsEmpty() || (geodesy != nullptr && geodesy->TransformOf(crs_) != nullptr)) return kOk;
  CreateMessageBox(parent_, Xlate("Error"),
                   Xlate("this is no reference system of plane coordinates that is known"),
                   kBoxExclamation);
  return std::nullopt;
}
