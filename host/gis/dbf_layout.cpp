#include "host/gis/dbf_layout.h"

#include <algorithm>
#include <cmath>

#include "host/gis/field_names.h"
#include "model/undefined.h"
#include "platform/character_set.h"
#include "platform/numbers.h"
#include "services/translate.h"

namespace shape {
namespace {

constexpr int kWidestText = 254;
constexpr int kWidestNumber = 20;  // for other programs
constexpr int kMostDecimals = 15;
constexpr std::size_t kMostFields = 255;
constexpr int kLongestRecord = 65535;

template <class Visit>
void ForEachValue(const gis::CTable& table, int field, const Visit& visit) {
  for (int row = 0; row < table.GetNumRows(); ++row) {
    const gis::Value value = table.GetValue(row, field);
    if (!gis::IsNull(value)) visit(value);
  }
}

int WidthOf(const std::string& text) { return static_cast<int>(text.size()); }

std::string Fixed(double value, int decimals) {
  std::string text;
  platform::AppendFixed(text, value, decimals);
  return text;
}

// How many decimals a number needs to be the same again.
int DecimalsOf(double value) {
  std::string text;
  platform::AppendShortest(text, value);
  const std::size_t exponentAt = text.find('e');
  std::int64_t exponent = 0;
  if (exponentAt != std::string::npos) {
    exponent =
        platform::ParseWholePrefix(std::string_view(text).substr(exponentAt + 1)).value_or(0);
  }
  const std::string_view mantissa = std::string_view(text).substr(0, exponentAt);
  const std::size_t point = mantissa.find('.');
  const std::int64_t behind =
      point == std::string_view::npos ? 0 : static_cast<std::int64_t>(mantissa.size() - point - 1);
  return static_cast<int>(std::max<std::int64_t>(0, behind - exponent));
}

struct Range {
  double least = 0;
  double most = 0;
  void Add(double value) {
    least = std::min(least, value);
    most = std::max(most, value);
  }
};

void LayOutText(const gis::CTable& table, DbfColumn& column, int declared, Remarks& remarks) {
  int width = std::clamp(declared, 1, static_cast<int>(column.mostCharacters));
  width = std::min(width, kWidestText);
  std::uint64_t cut = 0;
  column.width = kWidestText;
  ForEachValue(table, column.field, [&](const gis::Value& value) {
    const auto text = std::get<std::string_view>(value);
    const std::string_view fitting = Fitting(text, column);
    width = std::max(width, static_cast<int>(fitting.size()));
    if (fitting.size() < text.size()) ++cut;
  });
  column.width = width;
  if (table.GetField(column.field).width > kWidestText) {
    Remark(remarks,
           ToXlate("field {1} is to have {2} characters, but a text has at most 254 bytes"),
           {table.GetField(column.field).name,
            NumberText(static_cast<std::uint64_t>(table.GetField(column.field).width))});
  }
  if (cut == 0) return;
  Remark(remarks, ToXlate("texts of field {1} that were cut: {2}"),
         {table.GetField(column.field).name, NumberText(cut)});
}

void LayOutWhole(const gis::CTable& table, DbfColumn& column, int declared) {
  std::int64_t least = 0;
  std::int64_t most = 0;
  ForEachValue(table, column.field, [&](const gis::Value& value) {
    const auto number = std::get<std::int64_t>(value);
    least = std::min(least, number);
    most = std::max(most, number);
  });
  std::string low;
  std::string high;
  platform::AppendWhole(low, least);
  platform::AppendWhole(high, most);
  column.width = std::max({declared, least < 0 ? WidthOf(low) : 1, WidthOf(high)});
}

// With an exponent where a number has no room without.
int WidestReal(const gis::CTable& table, const DbfColumn& column) {
  int widest = 0;
  std::string text;
  ForEachValue(table, column.field, [&](const gis::Value& value) {
    text.clear();
    AppendReal(text, std::get<double>(value), column);
    widest = std::max(widest, WidthOf(text));
  });
  return widest;
}

void LayOutReal(const gis::CTable& table, DbfColumn& column, int declared, Remarks& remarks) {
  Range range;
  int decimals = 0;
  const bool asNeeded = column.decimals <= 0;
  ForEachValue(table, column.field, [&](const gis::Value& value) {
    const double number = std::get<double>(value);
    range.Add(number);
    if (asNeeded) decimals = std::max(decimals, DecimalsOf(number));
  });
  column.mayBeFine = decimals > kMostDecimals;
  if (asNeeded) column.decimals = std::clamp(decimals, 1, kMostDecimals);
  column.decimals = std::min(column.decimals, kMostDecimals);
  const int needed = std::max(WidthOf(Fixed(range.least, column.decimals)),
                              WidthOf(Fixed(range.most, column.decimals)));
  const bool isWide = needed > std::max(kWidestNumber, declared) || column.mayBeFine;
  column.width = std::max(declared, isWide ? kWidestNumber : needed);
  if (isWide) column.width = std::max(column.width, WidestReal(table, column));
  if (column.width <= std::max(kWidestNumber, declared)) return;
  Remark(remarks,
         ToXlate("field {1} has numbers of more than 20 characters, which some programs cannot "
                 "read"),
         {table.GetField(column.field).name});
}

DbfColumn LayOutField(const gis::CTable& table, int position, int mostCharacters,
                      Remarks& remarks) {
  const gis::Field& field = table.GetField(position);
  DbfColumn column;
  column.field = position;
  column.mostCharacters = static_cast<std::size_t>(std::clamp(mostCharacters, 1, kWidestText));
  const int declared = std::clamp(field.width, 0, kWidestText);
  switch (field.type) {
    case gis::FieldType::kText: LayOutText(table, column, declared, remarks); break;
    case gis::FieldType::kInteger:
      column.kind = 'N';
      LayOutWhole(table, column, declared);
      break;
    case gis::FieldType::kReal:
      column.kind = 'N';
      column.decimals = field.decimals;
      LayOutReal(table, column, declared, remarks);
      break;
    case gis::FieldType::kDate:
      column.kind = 'D';
      column.width = 8;
      break;
    case gis::FieldType::kBool:
      column.kind = 'L';
      column.width = 1;
      break;
  }
  return column;
}

DbfColumn NumberColumn() {
  constexpr int kWidth = 10;
  DbfColumn column;
  column.name = "ID";
  column.kind = 'N';
  column.width = kWidth;
  return column;
}

void NameColumns(const gis::CTable& table, DbfLayout& layout, Remarks& remarks) {
  std::vector<std::string> names;
  for (int i = 0; i < table.GetNumFields(); ++i) names.push_back(table.GetField(i).name.ToUtf8());
  const std::vector<std::string> shortened = ShortNames(names);
  for (std::size_t i = 0; i < names.size(); ++i) {
    layout.columns[i].name = shortened[i];
    if (names[i] == shortened[i]) continue;
    Remark(remarks, ToXlate("field \"{1}\" is called \"{2}\" in the file"),
           {tdk::WString(names[i]), tdk::WString(shortened[i])});
  }
}

}  // namespace

bool DbfLayout::Fits() const {
  return columns.size() <= kMostFields && recordLength <= kLongestRecord;
}

std::uint64_t DbfLayout::SizeOf(int records) const {
  constexpr std::uint64_t kDescription = 32;  // of the file, and of each field
  constexpr std::uint64_t kMarks = 2;         // one ends the fields, one the file
  return kDescription * (1 + columns.size()) + kMarks +
         static_cast<std::uint64_t>(records) * static_cast<std::uint64_t>(recordLength);
}

std::string_view Fitting(std::string_view text, const DbfColumn& column) {
  return platform::CutUtf8(platform::FirstCharacters(text, column.mostCharacters),
                           static_cast<std::size_t>(column.width));
}

void AppendReal(std::string& text, double value, const DbfColumn& column) {
  const std::size_t start = text.size();
  platform::AppendFixed(text, value, column.decimals);
  const bool isWide = text.size() - start > static_cast<std::size_t>(column.width);
  const auto isSame = [&] {
    return platform::ParseDecimal(std::string_view(text).substr(start)) == value;
  };
  if (!isWide && (!column.mayBeFine || isSame())) return;
  text.resize(start);
  platform::AppendShortest(text, value);
}

DbfLayout LayOut(const gis::CTable* table, int mostCharacters, Remarks& remarks) {
  DbfLayout layout;
  if (table == nullptr || table->GetNumFields() == 0) {
    layout.columns.push_back(NumberColumn());
    Remark(remarks, ToXlate("there are no fields; the features are numbered in field ID"));
  } else {
    for (int i = 0; i < table->GetNumFields(); ++i) {
      layout.columns.push_back(LayOutField(*table, i, mostCharacters, remarks));
    }
    NameColumns(*table, layout, remarks);
  }
  for (const DbfColumn& column : layout.columns) layout.recordLength += column.width;
  return layout;
}

}  // namespace shape
