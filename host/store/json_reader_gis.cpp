// What becomes of the GIS themes of a JSON job.
#include "host/store/json_reader.h"

// The shape of a theme, from the inside out.
struct JsonJobReader::GisLevels {
  using R = JsonJobReader;
  static constexpr Form kList = Form::kListOfObjects;
  static constexpr Form kLists = Form::kListOfLists;

  static constexpr Level kVertex[] = {
      {"", Form::kRow, nullptr, nullptr, &R::EndThemeVertex, {}, 4, 2}};
  static constexpr Level kPart[] = {{"", kLists, nullptr, &R::BeginThemePart, nullptr, kVertex}};
  static constexpr Level kFeature[] = {
      {"parts", kLists, nullptr, nullptr, nullptr, kPart},
      {"values", Form::kValues, nullptr, nullptr, &R::EndThemeValue}};
  static constexpr Level kTheme[] = {
      {"fields", kList, &R::Select<&R::themeField_>, &R::BeginThemeField, &R::EndThemeField},
      {"features", kList, nullptr, &R::BeginFeature, &R::EndFeature, kFeature}};
};

constinit const JsonJobReader::Level JsonJobReader::kGis[1] = {
    {"themes", GisLevels::kList, &JsonJobReader::SelectTheme, &JsonJobReader::BeginTheme,
     &JsonJobReader::EndTheme, GisLevels::kTheme}};

JsonJobReader::Slot JsonJobReader::SelectTheme(std::string_view key) {
  Slot slot;
  ForEachField<ThemeRecord>([&](const auto& field) {
    if (field.key == key) slot = &(themes_.theme.*field.member);
  });
  return slot;
}

void JsonJobReader::EndThemeVertex() {
  for (std::size_t i = part_; i < row_.size(); ++i) row_[i] = UndefinedValue;
  themes_.AddVertex({row_[0], row_[1], row_[2], row_[3]});
}

void JsonJobReader::EndTheme() {
  if (const auto trouble = themes_.Finish(*document_.GetLibGis())) {
    place_.SetKey(trouble->key);
    Fail(trouble->reason);
  }
}
