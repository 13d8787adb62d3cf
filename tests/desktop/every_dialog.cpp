#include "tests/desktop/every_dialog.h"

#include "services/translate.h"

namespace desktop_test {
namespace {

using Buttons = std::vector<std::string_view>;

DialogState Rows(std::initializer_list<const char*> names) {
  DialogState rows = DialogState::array();
  for (const char* const name : names) {
    rows.push_back({{"name", name}, {"checked", rows.size() % 2 == 0}});
  }
  return rows;
}

DialogState Numbers(int count, int value) {
  DialogState list = DialogState::array();
  for (int i = 0; i < count; ++i) list.push_back(value < 0 ? i : value);
  return list;
}

}  // namespace

tdk::WString ExampleDialog::Title() const { return Xlate(title_); }

DialogSet ExampleDialog::Set(std::string_view key, const DialogState& value) {
  const auto found = state_.find(key);
  if (found == state_.end()) return DialogSet::kUnknownKey;
  *found = value;
  return DialogSet::kDone;
}

std::vector<std::unique_ptr<Dialog>> EveryDialog(const std::string& folder) {
  std::vector<std::unique_ptr<Dialog>> all;
  const auto add = [&](const char* name, const char* title, DialogState state, Buttons buttons) {
    all.push_back(std::make_unique<ExampleDialog>(name, title, std::move(state), buttons));
  };
  const Buttons ok = {"OK", "Cancel"};
  const Buttons change = {"OK", "Cancel", "Change"};
  const Buttons wizard = {"<<", ">>", "Cancel", "Select All", "Deselect All"};
  const DialogState basic = {0, 2, 1, 3, 4, 7};
  add("file", "JB2 file import",
      {{"folder", folder},
       {"extensions", "jb2"},
       {"import", true},
       {"initialName", ""},
       {"path", ""}},
      ok);
  add("cad-file", "Dxf/Dwg file export",
      {{"folder", folder},
       {"extensions", "dxf"},
       {"import", false},
       {"initialName", ""},
       {"version", 0},
       {"explode", false},
       {"notVisible", false},
       {"path", "plan"}},
      ok);
  const char* const textTitle = "Import / Export text file / csv file";
  add("text-main", textTitle,
      {{"kind", 2},
       {"fieldType", "delimited"},
       {"folder", folder},
       {"file", "points"},
       {"files", nullptr},
       {"unit", "all"},
       {"units", {"S1", "S2"}}},
      change);
  add("text-main", textTitle,
      {{"kind", 0},
       {"fieldType", nullptr},
       {"folder", folder},
       {"file", "known"},
       {"files", {"known", "traverse", "wall"}},
       {"unit", nullptr},
       {"units", nullptr}},
      change);
  add("delimited-fields", "Delimited fields",
      {{"headerRows", 1}, {"separator", "comma"}, {"fields", basic}, {"quoteNames", false}}, ok);
  add("fixed-fields", "Fixed length fields",
      {{"headerRows", 0}, {"fields", basic}, {"lengths", Numbers(6, 12)}}, ok);
  for (const char* const name : {"gps-export", "ts-export"}) {
    add(name, "Export",
        {{"fields", Numbers(18, -1)},
         {"decimals", Numbers(18, 3)},
         {"separator", 1},
         {"quoteNames", true},
         {"angleFormat", 5}},
        ok);
  }
  add("landxml-survey", "Survey",
      {{"jobs", Rows({"WALL", "ROAD 12"})},
       {"gpsGroups", Rows({"base 1"})},
       {"pointGroups", Rows({"known.csv", "fixed.txt", "traverse.csv"})}},
      wizard);
  add("landxml-triangulation", "Triangulation", {{"surfaces", Rows({"ground", "project"})}},
      wizard);
  add("landxml-roads", "Road Projects", {{"roads", Rows({"axis A", "axis B", "axis C"})}}, wizard);
  add("shape-export", "Export to Shape file",
      {{"themes", Rows({"trees", "kerbs", "buildings"})},
       {"coordinateType", 0},
       {"folder", folder},
       {"maxChars", 80}},
      change);
  add("shape-import", "Import of Shape file",
      {{"folder", folder},
       {"files", {"buildings", "kerbs", "trees"}},
       {"file", "trees"},
       {"createPoints", true},
       {"nameField", 1},
       {"codeField", 0},
       {"fields", {"NAME", "KIND"}},
       {"pointOptionsVisible", true},
       {"associationVisible", true},
       {"associationEnabled", true}},
      change);
  add("job-folder", "Job folder", {{"folder", folder}}, ok);
  add("reference-system", "Reference system", {{"crs", "EPSG:32632"}}, ok);
  return all;
}

}  // namespace desktop_test
