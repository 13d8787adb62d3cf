#include "host/gis/dbf_reader.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <cstring>

#include "model/undefined.h"
#include "platform/numbers.h"
#include "services/translate.h"

namespace shape {
namespace {

constexpr char kDeleted = '*';
constexpr int kExactDigits = 18;  // of whole numbers that surely fit 64 bits

bool IsBlankCharacter(char c) { return c == ' ' || c == '\0' || c == '\t'; }

std::string_view WithoutEnd(std::string_view bytes) {
  bytes = bytes.substr(0, bytes.find('\0'));
  while (!bytes.empty() && IsBlankCharacter(bytes.back())) bytes.remove_suffix(1);
  return bytes;
}

std::string_view Trimmed(std::string_view bytes) {
  while (!bytes.empty() && IsBlankCharacter(bytes.front())) bytes.remove_prefix(1);
  return WithoutEnd(bytes);
}

// The binary fields of younger kinds of dBASE, little-endian as everything today.
template <class Number>
Number Binary(std::string_view bytes) {
  static_assert(std::endian::native == std::endian::little);
  Number number;
  std::memcpy(&number, bytes.data(), sizeof number);
  return number;
}

bool IsBinaryWhole(char kind, int width) { return (kind == 'I' || kind == '+') && width == 4; }
bool IsBinaryReal(char kind, int width) { return (kind == 'O' || kind == 'B') && width == 8; }
bool IsNumber(char kind) { return kind == 'N' || kind == 'F'; }

gis::FieldType TypeOf(char kind, int width, int decimals) {
  using enum gis::FieldType;
  if (kind == 'D') return kDate;
  if (kind == 'L') return kBool;
  if (IsNumber(kind)) return decimals == 0 ? kInteger : kReal;
  if (IsBinaryWhole(kind, width)) return kInteger;
  return IsBinaryReal(kind, width) ? kReal : kText;
}

// How wide a binary number is as text.
int TextWidth(char kind, int width) {
  if (IsBinaryWhole(kind, width)) return 11;
  return IsBinaryReal(kind, width) ? 24 : width;
}

bool IsUnderstood(char kind, int width) {
  return kind == 'C' || kind == 'D' || kind == 'L' || IsNumber(kind) ||
         IsBinaryWhole(kind, width) || IsBinaryReal(kind, width);
}

gis::Value DateOf(std::string_view text) {
  const auto number = platform::ParseWhole(text);
  if (text.size() != 8 || !number) return {};
  const auto packed = static_cast<int>(*number);
  const gis::Date date{packed / 10000, packed / 100 % 100, packed % 100};
  return gis::IsValid(date) ? gis::Value(date) : gis::Value();
}

gis::Value FlagOf(char c) {
  if (c == 'T' || c == 't' || c == 'Y' || c == 'y' || c == '1') return true;
  if (c == 'F' || c == 'f' || c == 'N' || c == 'n' || c == '0') return false;
  return {};
}

bool IsNullDate(std::string_view text) {
  return text.empty() || text.find_first_not_of('0') == std::string_view::npos;
}

bool IsNullNumber(std::string_view text) {
  return text.empty() || text.find_first_not_of('*') == std::string_view::npos;
}

}  // namespace

void DbfReader::Closer::operator()(DBFInfo* table) const { DBFClose(table); }

std::unique_ptr<DbfReader> DbfReader::Open(Stream& dbf, std::string_view label) {
  StreamSet streams;
  streams.Add("dbf", dbf);
  SAHooks hooks = streams.Hooks();
  DBFHandle const table = DBFOpenLL(StreamSet::Name("dbf").c_str(), "rb", &hooks);
  if (table == nullptr) return nullptr;
  std::unique_ptr<DbfReader> reader(new DbfReader(table, dbf.Size(), label));
  return reader->ReadFields() ? std::move(reader) : nullptr;
}

DbfReader::DbfReader(DBFHandle table, std::uint64_t fileSize, std::string_view label)
    : table_(table), encoding_(TableEncoding::Of(label, table->iLanguageDriver)) {
  CountRows(fileSize);
}

void DbfReader::CountRows(std::uint64_t fileSize) {
  claimedRows_ = std::max(0, DBFGetRecordCount(table_.get()));
  const auto header = static_cast<std::uint64_t>(std::max(0, table_->nHeaderLength));
  const auto length = static_cast<std::uint64_t>(std::max(1, table_->nRecordLength));
  const std::uint64_t room = fileSize > header ? (fileSize - header) / length : 0;
  rowCount_ = static_cast<int>(std::min<std::uint64_t>(room, static_cast<unsigned>(claimedRows_)));
}

bool DbfReader::ReadFields() {
  const int count = DBFGetFieldCount(table_.get());
  for (int i = 0; i < count; ++i) {
    std::array<char, XBASE_FLDNAME_LEN_READ + 1> name{};
    int width = 0;
    int decimals = 0;
    DBFGetFieldInfo(table_.get(), i, name.data(), &width, &decimals);
    const Column column{
        table_->panFieldOffset[i], width, DBFGetNativeFieldType(table_.get(), i), 0, {}};
    if (column.offset < 1 || width < 0 || column.offset + width > table_->nRecordLength) {
      return false;
    }
    columns_.push_back(column);
    std::string scratch;
    const std::string_view utf8 = encoding_.ToUtf8(WithoutEnd(name.data()), scratch);
    fields_.push_back({tdk::WString(utf8), TypeOf(column.kind, width, decimals),
                       TextWidth(column.kind, width), decimals});
  }
  values_.resize(columns_.size());
  return true;
}

RowState DbfReader::ReadRow(int row, gis::CTable& table) {
  const char* const record = row < rowCount_ ? DBFReadTuple(table_.get(), row) : nullptr;
  if (record == nullptr) return RowState::kUnreadable;
  if (record[0] == kDeleted) return RowState::kDeleted;
  for (std::size_t i = 0; i < columns_.size(); ++i) {
    const std::string_view bytes(record + columns_[i].offset,
                                 static_cast<std::size_t>(columns_[i].width));
    values_[i] = ValueOf(bytes, i, table);
  }
  table.AddRow(values_);
  return RowState::kRead;
}

gis::Value DbfReader::ValueOf(std::string_view bytes, std::size_t field, gis::CTable& table) {
  Column& column = columns_[field];
  if (IsNumber(column.kind)) return NumberOf(bytes, field, table);
  if (IsBinaryWhole(column.kind, column.width)) {
    return std::int64_t{Binary<std::int32_t>(bytes)};
  }
  if (IsBinaryReal(column.kind, column.width)) return Binary<double>(bytes);
  const std::string_view text = Trimmed(bytes);
  if (column.kind == 'D') {
    const gis::Value date = DateOf(text);
    if (gis::IsNull(date) && !IsNullDate(text)) ++column.badValues;
    return date;
  }
  if (column.kind == 'L') {
    const gis::Value flag = FlagOf(text.empty() ? ' ' : text[0]);
    if (gis::IsNull(flag) && !text.empty() && text[0] != '?') ++column.badValues;
    return flag;
  }
  return TextOf(bytes, column);
}

gis::Value DbfReader::TextOf(std::string_view bytes, Column& column) {
  const std::string_view text = WithoutEnd(bytes);
  return text.empty() ? gis::Value() : encoding_.ToUtf8(text, column.text);
}

gis::Value DbfReader::NumberOf(std::string_view bytes, std::size_t field, gis::CTable& table) {
  const std::string_view text = Trimmed(bytes);
  if (IsNullNumber(text)) return {};
  const bool isWhole = table.GetField(static_cast<int>(field)).type == gis::FieldType::kInteger;
  if (isWhole && text.size() <= kExactDigits) {
    if (const auto whole = platform::ParseWhole(text)) return *whole;
  }
  const auto number = platform::ParseDecimal(text);
  if (!number || !IsDefined(*number)) {
    ++columns_[field].badValues;
    return {};
  }
  if (!isWhole) return *number;
  if (const auto whole = platform::ParseWhole(text)) return *whole;
  constexpr double kExact = 9007199254740992;  // 2^53
  if (std::trunc(*number) == *number && std::fabs(*number) <= kExact) {
    return static_cast<std::int64_t>(*number);
  }
  table.MakeReal(static_cast<int>(field), 0);  // whole numbers by its header only
  return *number;
}

void DbfReader::TellRemarks(Remarks& remarks) const {
  if (encoding_.HasBadLabel()) {
    Remark(remarks, ToXlate("the .cpg file names no encoding that is known"));
  }
  RemarkCount(remarks, ToXlate("texts that are no UTF-8, taken as Windows-1252: {1}"),
              encoding_.Misfits());
  if (claimedRows_ > rowCount_) {
    Remark(remarks, ToXlate("the table says that it has {1} records, but there are {2}"),
           {NumberText(static_cast<std::uint64_t>(claimedRows_)),
            NumberText(static_cast<std::uint64_t>(rowCount_))});
  }
  for (std::size_t i = 0; i < columns_.size(); ++i) {
    const Column& column = columns_[i];
    if (!IsUnderstood(column.kind, column.width)) {
      Remark(remarks, ToXlate("field {1} is of a kind that is not known ({2}), taken as text"),
             {fields_[i].name, tdk::WString(std::string(1, column.kind))});
    }
    if (column.badValues != 0) {
      Remark(remarks, ToXlate("field {1} has values that are none of its kind, left empty: {2}"),
             {fields_[i].name, NumberText(column.badValues)});
    }
  }
}

}  // namespace shape
