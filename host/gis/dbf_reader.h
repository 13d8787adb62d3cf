// Tables of dBASE files.
#pragma once

#include <memory>
#include <optional>
#include <string_view>
#include <vector>

#include "host/gis/remarks.h"
#include "host/gis/streams.h"
#include "host/gis/table_encoding.h"
#include "model/gis_table.h"

namespace shape {

enum class RowState { kRead, kDeleted, kUnreadable };

/// The way to the rows of one open table.
class DbfReader {
 public:
  /// `label`: what the ".cpg" file says. Nothing when the table cannot be read. The stream must
  /// outlive the reader.
  static std::unique_ptr<DbfReader> Open(Stream& dbf, std::string_view label);

  const std::vector<gis::Field>& Fields() const { return fields_; }
  /// As many as the file has room for, whatever its header says.
  int RowCount() const { return rowCount_; }
  const std::string& EncodingName() const { return encoding_.Name(); }

  /// Appends a row to the table, whose fields must be Fields(). Nothing is appended for a row that
  /// is marked as deleted, cannot be read or is not there.
  RowState ReadRow(int row, gis::CTable& table);
  /// What was read otherwise than it stands; once all rows have been read.
  void TellRemarks(Remarks& remarks) const;

 private:
  struct Column {
    int offset = 0;
    int width = 0;
    char kind = 'C';  // of the file
    std::uint64_t badValues = 0;
    std::string text;  // the value of the open row, where it had to be converted
  };
  struct Closer {
    void operator()(DBFInfo* table) const;
  };

  DbfReader(DBFHandle table, std::uint64_t fileSize, std::string_view label);
  bool ReadFields();
  void CountRows(std::uint64_t fileSize);
  gis::Value ValueOf(std::string_view bytes, std::size_t field, gis::CTable& table);
  gis::Value NumberOf(std::string_view bytes, std::size_t field, gis::CTable& table);
  gis::Value TextOf(std::string_view bytes, Column& column);

  std::unique_ptr<DBFInfo, Closer> table_;
  TableEncoding encoding_;
  std::vector<gis::Field> fields_;
  std::vector<Column> columns_;
  std::vector<gis::Value> values_;  // of the open row
  int rowCount_ = 0;
  int claimedRows_ = 0;
};

}  // namespace shape
