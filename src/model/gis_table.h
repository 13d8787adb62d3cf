// Tables of the GIS library: the values that belong to the features of a theme.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "tdk/wstring.h"

namespace gis {

enum class FieldType : std::uint8_t { kText, kInteger, kReal, kDate, kBool };

struct Field {
  tdk::WString name;
  FieldType type = FieldType::kText;
  int width = 0;     ///< characters in a file; 0: as many as the values need
  int decimals = 0;  ///< of a real number in a file
};

struct Date {
  int year = 0;
  int month = 0;  ///< 1 to 12
  int day = 0;    ///< 1 to 31
  friend bool operator==(const Date&, const Date&) = default;
};

/// Whether there is such a day in the calendar, in the years 1 to 9999.
bool IsValid(const Date& date);

/// A value of a table; the first alternative is null. Texts are UTF-8.
using Value = std::variant<std::monostate, std::string_view, std::int64_t, double, Date, bool>;

inline bool IsNull(const Value& value) { return value.index() == 0; }

/// A number as it is, whole or not; a null and anything else: UndefinedValue.
double NumberOf(const Value& value);

/// The values of one field. A million of them take 8 MB, and texts their letters besides.
class Column {
 public:
  explicit Column(FieldType type) : type_(type) {}

  std::size_t Size() const { return size_; }
  /// A text stays where it is only until the next value is added.
  Value At(std::size_t row) const;
  /// Appends. A value of another type than the column's, a real number that is not finite and a
  /// date that there is not are null here; a whole number may stand in a column of reals.
  void Add(const Value& value);
  void Reserve(std::size_t rows);
  /// Whole numbers become reals, for a file whose whole numbers are none after all.
  void MakeReal();
  FieldType Type() const { return type_; }

 private:
  void AddText(const Value& value);

  FieldType type_;
  std::size_t size_ = 0;
  std::string texts_;                // one after the other
  std::vector<std::uint64_t> ends_;  // where each text ends; the highest bit marks a null
  std::vector<std::int64_t> wholes_;
  std::vector<double> reals_;
  std::vector<std::int32_t> dates_;  // yyyymmdd, 0 for null
  std::vector<std::int8_t> flags_;   // -1 for null
};

/// Rows of values. Fields are added first, then rows.
class CTable {
 public:
  explicit CTable(const tdk::WString& name) : name_(name) {}

  const tdk::WString& GetName() const { return name_; }
  void SetName(const tdk::WString& name) { name_ = name; }

  int GetNumFields() const { return static_cast<int>(fields_.size()); }
  /// `field` must be one that there is, here and below.
  const Field& GetField(int field) const { return fields_[static_cast<std::size_t>(field)]; }
  /// Position of the field of that name, letter case ignored; -1 when there is none.
  int FindField(const tdk::WString& name) const;
  /// Adds a field; rows that are there already have nulls in it.
  void AddField(const Field& field);
  /// Turns a field of whole numbers into one of reals.
  void MakeReal(int field, int decimals);

  int GetNumRows() const { return static_cast<int>(rows_); }
  /// Null where there is no such row. A text stays only until the next row is added.
  Value GetValue(int row, int field) const;
  /// Values in the order of the fields: too few are filled with nulls, more are left out.
  void AddRow(std::span<const Value> values);
  void Reserve(std::size_t rows);

 private:
  tdk::WString name_;
  std::vector<Field> fields_;
  std::vector<Column> columns_;
  std::size_t rows_ = 0;
};

}  // namespace gis
