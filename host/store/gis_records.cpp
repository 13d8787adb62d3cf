#include "host/store/gis_records.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "platform/numbers.h"

namespace {

template <class Type>
struct Named {
  std::string_view name;
  Type type;
};

using NamedEntity = Named<gis::EntityType>;
using NamedField = Named<gis::FieldType>;
constexpr std::array kEntityTypes = {NamedEntity{"point", gis::EntityType::kPoint},
                                     NamedEntity{"line", gis::EntityType::kLine},
                                     NamedEntity{"polygon", gis::EntityType::kPolygon}};
constexpr std::array kFieldTypes = {
    NamedField{"text", gis::FieldType::kText}, NamedField{"integer", gis::FieldType::kInteger},
    NamedField{"real", gis::FieldType::kReal}, NamedField{"date", gis::FieldType::kDate},
    NamedField{"bool", gis::FieldType::kBool}};

template <class Table, class Type>
std::string NameIn(const Table& table, Type type) {
  for (const auto& row : table) {
    if (row.type == type) return std::string(row.name);
  }
  return {};
}

template <class Table>
auto TypeIn(const Table& table, std::string_view name) {
  std::optional<decltype(table[0].type)> type;
  if (name.empty()) type = table[0].type;
  for (const auto& row : table) {
    if (row.name == name) type = row.type;
  }
  return type;
}

std::string JsonPlace(const char* list, std::size_t i, const char* more = "") {
  std::string place = std::string(list) + "[";
  platform::AppendWhole(place, static_cast<std::int64_t>(i));
  return place + "]" + more;
}

bool AnyDefined(const std::vector<double>& numbers) {
  return std::ranges::any_of(numbers, IsDefined);
}

std::optional<gis::Value> WholeIn(const JsonValue& json) {
  if (const auto* whole = std::get_if<std::int64_t>(&json)) return *whole;
  if (const auto* real = std::get_if<double>(&json)) {
    constexpr double kExact = 9007199254740992;  // 2^53
    if (std::trunc(*real) == *real && std::fabs(*real) <= kExact) {
      return static_cast<std::int64_t>(*real);
    }
  }
  const auto* natural = std::get_if<std::uint64_t>(&json);
  if (natural != nullptr && std::in_range<std::int64_t>(*natural)) {
    return static_cast<std::int64_t>(*natural);
  }
  return std::nullopt;
}

std::optional<gis::Value> RealIn(const JsonValue& json) {
  double number = 0;
  if (!Put(json, number).empty()) return std::nullopt;
  return number;
}

}  // namespace

ThemeRecord RecordOf(const gis::CLibGis& library, const gis::CTheme& theme) {
  const gis::CTable* const table = theme.GetTable();
  const bool hasOther = table != nullptr && !(table->GetName() == theme.GetName());
  return {theme.GetName().ToUtf8(),   NameIn(kEntityTypes, theme.GetType()),
          theme.Is3D() ? 3 : 2,       hasOther ? table->GetName().ToUtf8() : std::string(),
          theme.GetReferenceSystem(), library.GetThemeTargetDrawing(&theme)};
}

GisFieldRecord RecordOf(const gis::Field& field) {
  return {field.name.ToUtf8(), NameIn(kFieldTypes, field.type), field.width, field.decimals};
}

std::optional<gis::EntityType> EntityTypeNamed(std::string_view name) {
  return TypeIn(kEntityTypes, name);
}
std::optional<gis::FieldType> FieldTypeNamed(std::string_view name) {
  return TypeIn(kFieldTypes, name);
}

std::string DateText(const gis::Date& date) {
  constexpr std::int64_t kBeyond = 100000000;  // a digit more, so that leading zeros stay
  std::string digits;
  platform::AppendWhole(digits, kBeyond + date.year * 10000 + date.month * 100 + date.day);
  return digits.substr(1, 4) + "-" + digits.substr(5, 2) + "-" + digits.substr(7, 2);
}

std::optional<gis::Date> DateIn(std::string_view text) {
  constexpr std::size_t kLength = 10;
  if (text.size() != kLength || text[4] != '-' || text[7] != '-') return std::nullopt;
  const auto year = platform::ParseWhole(text.substr(0, 4));
  const auto month = platform::ParseWhole(text.substr(5, 2));
  const auto day = platform::ParseWhole(text.substr(8, 2));
  if (!year || !month || !day) return std::nullopt;
  const gis::Date date{static_cast<int>(*year), static_cast<int>(*month), static_cast<int>(*day)};
  return gis::IsValid(date) ? std::optional(date) : std::nullopt;
}

std::optional<gis::Value> ValueIn(const JsonValue& json, gis::FieldType type,
                                  std::string& expected) {
  if (std::holds_alternative<std::nullptr_t>(json)) return gis::Value();
  const auto* const text = std::get_if<const std::string*>(&json);
  const auto* const flag = std::get_if<bool>(&json);
  switch (type) {
    case gis::FieldType::kText:
      expected = "a text or null";
      if (text != nullptr) return std::string_view(**text);
      break;
    case gis::FieldType::kInteger: expected = "a whole number or null"; return WholeIn(json);
    case gis::FieldType::kReal: expected = "a number or null"; return RealIn(json);
    case gis::FieldType::kDate:
      expected = "a date such as \"2024-02-29\" or null";
      if (text != nullptr) {
        if (const auto date = DateIn(**text)) return *date;
      }
      break;
    case gis::FieldType::kBool:
      expected = "true, false or null";
      if (flag != nullptr) return *flag;
      break;
  }
  return std::nullopt;
}

void ThemeBuilder::AddFeature() { features_.emplace_back(); }

void ThemeBuilder::AddVertex(const gis::Vertex& vertex) {
  xs_.push_back(vertex.x);
  ys_.push_back(vertex.y);
  zs_.push_back(vertex.z);
  ms_.push_back(vertex.m);
}

void ThemeBuilder::AddValue(const JsonValue& value) {
  ++features_.back().values;
  std::visit(
      [this](const auto& plain) {
        if constexpr (std::is_same_v<std::decay_t<decltype(plain)>, const std::string*>) {
          values_.emplace_back(*plain);
        } else {
          values_.emplace_back(plain);
        }
      },
      value);
}

std::optional<ThemeTrouble> ThemeBuilder::Finish(gis::CLibGis& library) {
  const auto type = EntityTypeNamed(theme.type);
  if (!type) return ThemeTrouble{"type", "expected \"point\", \"line\" or \"polygon\""};
  if (theme.dimension != 0 && theme.dimension != 2 && theme.dimension != 3) {
    return ThemeTrouble{"dimension", "expected 2 or 3"};
  }
  const tdk::WString name(theme.name);
  const tdk::WString tableName(theme.table.empty() ? theme.name : theme.table);
  if (library.FindTheme(name) != nullptr) {
    return ThemeTrouble{"name", "there is a theme of that name already"};
  }
  auto table = std::make_unique<gis::CTable>(tableName);
  if (auto trouble = AddFields(*table)) return trouble;
  if (auto trouble = AddRows(*table)) return trouble;
  const bool is3D = theme.dimension == 3 || (theme.dimension == 0 && AnyDefined(zs_));
  auto built = std::make_unique<gis::CTheme>(name, *type, is3D, AnyDefined(ms_));
  AddShapes(*built);
  built->SetReferenceSystem(theme.referenceSystem);
  if (library.FindTable(tableName) != nullptr) {
    return ThemeTrouble{"table", "there is a table of that name already"};
  }
  built->SetTable(library.AddTable(std::move(table), false));
  gis::CTheme* const added = library.AddTheme(std::move(built), false);
  if (added == nullptr) return ThemeTrouble{"name", "the host takes no more of these"};
  library.SetThemeTargetDrawing(added, theme.targetDrawing);
  return std::nullopt;
}

std::optional<ThemeTrouble> ThemeBuilder::AddFields(gis::CTable& table) const {
  for (std::size_t i = 0; i < fields.size(); ++i) {
    const auto type = FieldTypeNamed(fields[i].type);
    if (!type) {
      return ThemeTrouble{JsonPlace("fields", i, ".type"),
                          "expected \"text\", \"integer\", \"real\", \"date\" or \"bool\""};
    }
    table.AddField({tdk::WString(fields[i].name), *type, fields[i].width, fields[i].decimals});
  }
  return std::nullopt;
}

std::optional<ThemeTrouble> ThemeBuilder::AddRows(gis::CTable& table) const {
  const auto fieldCount = static_cast<std::size_t>(table.GetNumFields());
  std::vector<gis::Value> row(fieldCount);
  table.Reserve(features_.size());
  std::size_t next = 0;
  for (std::size_t f = 0; f < features_.size(); ++f) {
    row.assign(fieldCount, gis::Value());
    for (std::size_t i = 0; i < features_[f].values; ++i, ++next) {
      const auto place = [&] { return JsonPlace("features", f, JsonPlace(".values", i).c_str()); };
      if (i >= fieldCount) return ThemeTrouble{place(), "there are fewer fields"};
      const JsonValue json = std::visit(
          [](const auto& plain) -> JsonValue {
            if constexpr (std::is_same_v<std::decay_t<decltype(plain)>, std::string>) {
              return &plain;
            } else {
              return plain;
            }
          },
          values_[next]);
      std::string expected;
      const auto value = ValueIn(json, table.GetField(static_cast<int>(i)).type, expected);
      if (!value) {
        return ThemeTrouble{place(), "expected " + expected + ", found " + InWords(json)};
      }
      row[i] = *value;
    }
    table.AddRow(row);
  }
  return std::nullopt;
}

void ThemeBuilder::AddShapes(gis::CTheme& built) const {
  built.Reserve(features_.size(), parts_.size(), xs_.size());
  std::size_t part = 0;
  for (const Feature& feature : features_) {
    built.AddFeature();
    for (std::size_t i = 0; i < feature.parts; ++i, ++part) {
      const std::size_t end = part + 1 < parts_.size() ? parts_[part + 1] : xs_.size();
      if (parts_[part] == end) continue;  // nothing of a shape
      built.AddPart();
      for (std::size_t v = parts_[part]; v < end; ++v) {
        built.AddVertex({xs_[v], ys_[v], zs_[v], ms_[v]});
      }
    }
  }
}
