#include "host/gis/dbf_writer.h"

#include <algorithm>
#include <ctime>
#include <memory>

#include "platform/numbers.h"
#include "services/progress.h"

namespace shape {
namespace {

constexpr std::string_view kEndOfFile = "\x1A";

// One record as bytes.
class RecordText {
 public:
  explicit RecordText(const DbfLayout& layout)
      : layout_(layout), bytes_(static_cast<std::size_t>(layout.recordLength), ' ') {}

  std::string& Of(const gis::CTable* table, int row) {
    std::size_t offset = 1;
    for (const DbfColumn& column : layout_.columns) {
      const gis::Value value = column.field < 0 || table == nullptr
                                   ? gis::Value(std::int64_t{row} + 1)
                                   : table->GetValue(row, column.field);
      Put(value, column, bytes_.data() + offset);
      offset += static_cast<std::size_t>(column.width);
    }
    return bytes_;
  }

 private:
  void Put(const gis::Value& value, const DbfColumn& column, char* to) {
    const auto width = static_cast<std::size_t>(column.width);
    const std::string_view text = TextOf(value, column);
    const std::size_t size = std::min(text.size(), width);
    char* const start = column.kind == 'N' ? to + (width - size) : to;
    std::fill(to, start, ' ');
    std::copy_n(text.data(), size, start);
    std::fill(start + size, to + width, ' ');
  }

  std::string_view TextOf(const gis::Value& value, const DbfColumn& column) {
    if (gis::IsNull(value)) return NullOf(column.kind);
    if (const auto* text = std::get_if<std::string_view>(&value)) return Fitting(*text, column);
    if (const auto* flag = std::get_if<bool>(&value)) return *flag ? "T" : "F";
    text_.clear();
    if (const auto* whole = std::get_if<std::int64_t>(&value)) {
      platform::AppendWhole(text_, *whole);
    } else if (const auto* date = std::get_if<gis::Date>(&value)) {
      AppendDate(*date);
    } else {
      AppendReal(text_, std::get<double>(value), column);
    }
    return text_;
  }

  static std::string_view NullOf(char kind) {
    if (kind == 'D') return "00000000";
    return kind == 'L' ? "?" : "";
  }

  void AppendDate(const gis::Date& date) {
    constexpr std::int64_t kBeyond = 100000000;  // a digit more, so that leading zeros stay
    platform::AppendWhole(text_, kBeyond + date.year * 10000 + date.month * 100 + date.day);
    text_.erase(0, 1);
  }

  const DbfLayout& layout_;
  std::string bytes_;
  std::string text_;
};

void SetToday(DBFHandle table) {
  const std::time_t now = std::time(nullptr);
  std::tm today{};
  if (localtime_r(&now, &today) == nullptr) return;
  DBFSetLastModifiedDate(table, today.tm_year, today.tm_mon + 1, today.tm_mday);
}

bool AddColumns(DBFHandle table, const DbfLayout& layout) {
  return std::ranges::all_of(layout.columns, [table](const DbfColumn& column) {
    return DBFAddNativeFieldType(table, column.name.c_str(), column.kind, column.width,
                                 column.decimals) >= 0;
  });
}

bool WriteRecords(DBFHandle file, const gis::CTable* table, int rows, const DbfLayout& layout) {
  DBFSetWriteEndOfFileChar(file, 0);  // after each record it would cost more than the records
  SetToday(file);
  bool isGood = AddColumns(file, layout);
  RecordText record(layout);
  ProgressSteps progress(static_cast<std::uint64_t>(rows));
  for (int row = 0; row < rows && isGood; ++row) {
    progress.Step();
    isGood = DBFWriteTuple(file, row, record.Of(table, row).data()) != 0;
  }
  return isGood;
}

}  // namespace

bool WriteDbf(const gis::CTable* table, int rows, const DbfLayout& layout, OutputStream& dbf,
              OutputStream& cpg) {
  StreamSet streams;
  streams.Add("dbf", dbf);
  streams.Add("cpg", cpg);
  SAHooks hooks = streams.Hooks();
  std::unique_ptr<DBFInfo, decltype(&DBFClose)> file(
      DBFCreateLL(StreamSet::Name("dbf").c_str(), "UTF-8", &hooks), &DBFClose);
  if (file == nullptr) return false;
  const bool isGood = WriteRecords(file.get(), table, rows, layout);
  file.reset();
  dbf.Append(kEndOfFile);
  return isGood;
}

}  // namespace shape
