#include "shape_options.h"

#include <array>
#include <nlohmann/json.hpp>
#include <span>

#include "platform/letters.h"
#include "platform/paths.h"

namespace {

// What fields of names and of codes are called, best first.
constexpr std::array<std::string_view, 9> kNames = {"name",  "nome",  "punto", "point", "numero",
                                                    "pt_id", "label", "id",    "fid"};
constexpr std::array<std::string_view, 8> kCodes = {"code",        "codice", "cod",   "descr",
                                                    "description", "desc",   "layer", "note"};

// Position in the dialog's list, whose first entry is the empty one; 0 when none fits.
int FieldCalled(const DialogState& fields, std::span<const std::string_view> names) {
  for (const std::string_view name : names) {
    for (std::size_t i = 0; i < fields.size(); ++i) {
      if (platform::Small(fields[i].get<std::string>()) == name) return static_cast<int>(i) + 1;
    }
  }
  return 0;
}

bool IsSet(Dialog& dialog, std::string_view key, const DialogState& value) {
  return dialog.Set(key, value) == DialogSet::kDone;
}

// The folder, with its separator, and the name without its extension.
std::pair<std::string, std::string> Parts(const std::string& path) {
  std::string name(platform::FileName(path));
  std::string folder = path.substr(0, path.size() - name.size());
  name = name.substr(0, platform::Small(name).find(".shp"));
  return {std::move(folder), std::move(name)};
}

}  // namespace

bool FillShapeImport(Dialog& dialog, const std::string& path, bool makesPoints) {
  const auto [folder, name] = Parts(path);
  if (!IsSet(dialog, "folder", folder) || !IsSet(dialog, "file", name)) return false;
  const DialogState state = dialog.State();
  if (!makesPoints || !state["pointOptionsVisible"].get<bool>()) return true;
  if (!IsSet(dialog, "createPoints", true)) return false;
  if (!state["associationVisible"].get<bool>()) return true;
  return IsSet(dialog, "nameField", FieldCalled(state["fields"], kNames)) &&
         IsSet(dialog, "codeField", FieldCalled(state["fields"], kCodes));
}

bool FillShapeExport(Dialog& dialog, const std::string& path) {
  DialogState positions = DialogState::array();
  for (std::size_t i = 0; i < dialog.State()["themes"].size(); ++i) positions.push_back(i);
  std::string folder = Parts(path).first;
  if (folder.size() > 1) folder.pop_back();  // the separator, which the module puts there again
  return IsSet(dialog, "themes", positions) && IsSet(dialog, "folder", folder);
}
