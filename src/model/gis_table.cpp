#include "model/gis_table.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "model/undefined.h"
#include "platform/letters.h"

namespace gis {
namespace {

constexpr std::uint64_t kNullText = std::uint64_t{1} << 63;
constexpr std::int64_t kNullWhole = std::numeric_limits<std::int64_t>::min();

std::int32_t Packed(const Date& date) { return date.year * 10000 + date.month * 100 + date.day; }
Date Unpacked(std::int32_t date) { return {date / 10000, date / 100 % 100, date % 100}; }

int DaysOf(int year, int month) {
  constexpr int kDays[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
  const bool isLeap = year % 4 == 0 && (year % 100 != 0 || year % 400 == 0);
  return kDays[month - 1] + (month == 2 && isLeap ? 1 : 0);
}

template <class T>
T ValueOr(const Value& value, T otherwise) {
  const T* held = std::get_if<T>(&value);
  return held != nullptr ? *held : otherwise;
}

}  // namespace

bool IsValid(const Date& date) {
  return date.year >= 1 && date.year <= 9999 && date.month >= 1 && date.month <= 12 &&
         date.day >= 1 && date.day <= DaysOf(date.year, date.month);
}

double NumberOf(const Value& value) {
  if (const auto* whole = std::get_if<std::int64_t>(&value)) return static_cast<double>(*whole);
  return ValueOr(value, UndefinedValue);
}

Value Column::At(std::size_t row) const {
  switch (type_) {
    case FieldType::kText: {
      if ((ends_[row] & kNullText) != 0) return {};
      const std::uint64_t first = row == 0 ? 0 : ends_[row - 1] & ~kNullText;
      return std::string_view(texts_).substr(first, ends_[row] - first);
    }
    case FieldType::kInteger: return wholes_[row] == kNullWhole ? Value() : Value(wholes_[row]);
    case FieldType::kReal: return std::isnan(reals_[row]) ? Value() : Value(reals_[row]);
    case FieldType::kDate: return dates_[row] == 0 ? Value() : Value(Unpacked(dates_[row]));
    case FieldType::kBool: return flags_[row] < 0 ? Value() : Value(flags_[row] != 0);
  }
  return {};
}

void Column::AddText(const Value& value) {
  const auto* text = std::get_if<std::string_view>(&value);
  if (text != nullptr) texts_ += *text;
  ends_.push_back(texts_.size() | (text != nullptr ? 0 : kNullText));
}

void Column::Add(const Value& value) {
  ++size_;
  switch (type_) {
    case FieldType::kText: return AddText(value);
    case FieldType::kInteger: return wholes_.push_back(ValueOr(value, kNullWhole));
    case FieldType::kReal: {
      const double number = NumberOf(value);
      return reals_.push_back(IsDefined(number) ? number
                                                : std::numeric_limits<double>::quiet_NaN());
    }
    case FieldType::kDate: {
      const Date date = ValueOr(value, Date());
      return dates_.push_back(IsValid(date) ? Packed(date) : 0);
    }
    case FieldType::kBool:
      return flags_.push_back(IsNull(value) ? std::int8_t{-1} : ValueOr(value, false));
  }
}

void Column::Reserve(std::size_t rows) {
  if (type_ == FieldType::kText) ends_.reserve(rows);
  if (type_ == FieldType::kInteger) wholes_.reserve(rows);
  if (type_ == FieldType::kReal) reals_.reserve(rows);
  if (type_ == FieldType::kDate) dates_.reserve(rows);
  if (type_ == FieldType::kBool) flags_.reserve(rows);
}

void Column::MakeReal() {
  if (type_ != FieldType::kInteger) return;
  Column reals(FieldType::kReal);
  reals.Reserve(wholes_.capacity());
  for (std::size_t row = 0; row < size_; ++row) reals.Add(At(row));
  *this = std::move(reals);
}

int CTable::FindField(const tdk::WString& name) const {
  const auto found = std::ranges::find_if(fields_, [&](const Field& field) {
    return platform::AreSameInAnyLetters(field.name.ToUtf8(), name.ToUtf8());
  });
  return found == fields_.end() ? -1 : static_cast<int>(found - fields_.begin());
}

void CTable::AddField(const Field& field) {
  fields_.push_back(field);
  Column& added = columns_.emplace_back(field.type);
  for (std::size_t row = 0; row < rows_; ++row) added.Add({});
}

void CTable::MakeReal(int field, int decimals) {
  const auto at = static_cast<std::size_t>(field);
  columns_[at].MakeReal();
  fields_[at].type = columns_[at].Type();
  fields_[at].decimals = decimals;
}

Value CTable::GetValue(int row, int field) const {
  if (row < 0 || static_cast<std::size_t>(row) >= rows_) return {};
  return columns_[static_cast<std::size_t>(field)].At(static_cast<std::size_t>(row));
}

void CTable::AddRow(std::span<const Value> values) {
  for (std::size_t i = 0; i < columns_.size(); ++i) {
    columns_[i].Add(i < values.size() ? values[i] : Value());
  }
  ++rows_;
}

void CTable::Reserve(std::size_t rows) {
  for (Column& column : columns_) column.Reserve(rows);
}

}  // namespace gis
