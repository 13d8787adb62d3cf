// A thin layer over SQLite: failures become JobError, and what is opened is closed by itself.
#pragma once

#include <sqlite3.h>

#include <array>
#include <concepts>
#include <cstdint>
#include <memory>
#include <string>
#include <utility>

#include "host/store/fields.h"
#include "host/store/job_store.h"

class Database {
 public:
  enum class Mode { kExisting, kCreate };

  /// Opens the file; kCreate makes it when it is missing. `path` names it in complaints. A
  /// transaction that is open when the database is closed is rolled back.
  Database(const std::string& path, Mode mode);

  void Run(const std::string& sql) const;
  /// The one number that a query gives.
  std::int64_t WholeOf(const std::string& sql) const;
  [[noreturn]] void Fail(const std::string& reason) const;
  /// As SQLite words it.
  [[noreturn]] void FailWithReason() const;
  sqlite3* Handle() const { return handle_.get(); }

 private:
  struct Closer {
    void operator()(sqlite3* handle) const { sqlite3_close(handle); }
  };
  std::string path_;
  std::unique_ptr<sqlite3, Closer> handle_;
};

/// A prepared statement. Values are bound, and columns are read, one after the other, as the tables
/// of fields list them.
class Statement {
 public:
  /// `database` is not owned.
  Statement(const Database& database, const std::string& sql);

  /// True when there is a row; its columns are then read from the first on.
  bool Step();
  /// Runs a statement that gives no rows and makes it ready for the next values.
  void Finish();

  /// Bound texts must live until the statement has run. An undefined number is NULL.
  void Bind(const std::string& text);
  void Bind(double value);
  void Bind(std::integral auto value) { BindWhole(static_cast<std::int64_t>(value)); }
  template <class Part, std::size_t size>
  void Bind(const std::array<Part, size>& parts) {
    for (const Part& part : parts) Bind(part);
  }
  template <class Record>
  void BindFields(const Record& record) {
    ForEachField<Record>([&](const auto& field) { Bind(record.*field.member); });
  }

  /// Each fails when the column holds nothing of its type, or a number out of its range.
  void Read(std::string& text);
  void Read(double& value);
  void Read(float& value);
  template <std::integral Whole>
  void Read(Whole& value) {
    const std::int64_t stored = ReadWhole();
    value = static_cast<Whole>(stored);
    // A 64-bit number without sign is stored bit by bit, as a number with one.
    if (sizeof value < sizeof stored && !std::in_range<Whole>(stored)) FailAtColumn(next_ - 1);
  }
  void Read(bool& value) { value = ReadWhole() != 0; }
  template <class Part, std::size_t size>
  void Read(std::array<Part, size>& parts) {
    for (Part& part : parts) Read(part);
  }
  template <class Record>
  void ReadFields(Record& record) {
    ForEachField<Record>([&](const auto& field) { Read(record.*field.member); });
  }

 private:
  void BindWhole(std::int64_t value);
  std::int64_t ReadWhole();
  void Check(int result) const;
  [[noreturn]] void FailAtColumn(int column) const;

  struct Finalizer {
    void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
  };
  const Database& database_;
  std::unique_ptr<sqlite3_stmt, Finalizer> statement_;
  int next_ = 0;  // the value to bind, counted from 1 as SQLite does, or the column to read
};
