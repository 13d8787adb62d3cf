#include "apps/desktop/dialogs/choices.h"

#include <initializer_list>
#include <nlohmann/json.hpp>

#include "apps/desktop/qt_text.h"
#include "tdk/string_loader.h"

namespace choices {
namespace {

// Texts by their position.
std::vector<Choice> Numbered(std::initializer_list<const char*> texts) {
  std::vector<Choice> list;
  for (const char* const text : texts) {
    list.push_back({Translated(text), static_cast<int>(list.size())});
  }
  return list;
}

// Texts that the module knows by numbers, by their position.
std::vector<Choice> Loaded(unsigned first, int count) {
  std::vector<Choice> list;
  for (int i = 0; i < count; ++i) {
    const tdk::WString text = tdk::CStringLoader::Load(first + static_cast<unsigned>(i));
    list.push_back({ToQt(Xlate(text)), i});
  }
  return list;
}

void AppendNames(const DialogState& state, const char* key, std::vector<Choice>& list,
                 int firstValue) {
  const auto names = state.find(key);
  if (names == state.end() || !names->is_array()) return;
  for (const auto& name : *names) {
    list.push_back({ToQt(name.get<std::string>()), firstValue++});
  }
}

}  // namespace

std::vector<Choice> PointKinds(const DialogState& /*state*/) {
  return Numbered(
      {ToXlate("Known Points"), ToXlate("Control points"), ToXlate("TS"), ToXlate("Gps groups")});
}

std::vector<Choice> FieldTypes(const DialogState& /*state*/) {
  return {{Translated(ToXlate("Fixed length")), "fixed"},
          {Translated(ToXlate("Delimited")), "delimited"}};
}

std::vector<Choice> Units(const DialogState& state) {
  std::vector<Choice> list = {{"----------", "all"}};
  AppendNames(state, "units", list, 0);
  return list;
}

std::vector<Choice> Files(const DialogState& state) {
  std::vector<Choice> list;
  AppendNames(state, "files", list, 0);
  for (Choice& choice : list) choice.value = ToUtf8(choice.text);
  return list;
}

std::vector<Choice> BasicSeparators(const DialogState& /*state*/) {
  return {{Translated(ToXlate("Space")), "space"},
          {Translated(ToXlate("Comma")), "comma"},
          {Translated(ToXlate("Tab")), "tab"}};
}

std::vector<Choice> BasicFields(const DialogState& /*state*/) {
  return Numbered({ToXlate("Name"), ToXlate("North"), ToXlate("East"), ToXlate("Elev."),
                   ToXlate("Descr."), ToXlate("Date"), ToXlate("Time"), "-----"});
}

std::vector<Choice> FullSeparators(const DialogState& /*state*/) {
  return Numbered({ToXlate("Space"), ToXlate("Comma"), ToXlate("Semicolon"), ToXlate("Tab")});
}

// The catalogues are the module's, and so are their numbers.
std::vector<Choice> GpsFields(const DialogState& /*state*/) { return Loaded(1808, 22); }
std::vector<Choice> TotalStationFields(const DialogState& /*state*/) { return Loaded(1870, 22); }
std::vector<Choice> AngleFormats(const DialogState& /*state*/) { return Loaded(1836, 6); }
std::vector<Choice> DrawingVersions(const DialogState& /*state*/) { return Loaded(1801, 4); }

std::vector<Choice> CoordinateTypes(const DialogState& /*state*/) {
  return Numbered({ToXlate("From Theme"), ToXlate("2D"), ToXlate("3D")});
}

std::vector<Choice> TableFields(const DialogState& state) {
  std::vector<Choice> list = {{QString(), 0}};
  AppendNames(state, "fields", list, 1);
  return list;
}

}  // namespace choices
