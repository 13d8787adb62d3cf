// A thin layer over SQLite: failures become JobError, objects are released by themselves.
#pragma once

#include <sqlite3.h>

#include <array>
#include <concepts>
#include <cstdint>
#include <memory>
#include <string>

#include "host/store/fields.h"
#include "host/store/job_store.h"

class Database {
 public:
  enum class Mode { kRead, kWrite };

  /// Opens the file; kWrite makes it when it is missing. `path` names it in complaints.
  Database(const std::string& path, Mode mode);

  void Run(const std::string& sql);
  std::int64_t WholeOf(const std::string& sql);
  [[noreturn]] void Fail(const std::string& reason) const;
  [[noreturn]] void FailWithReason() const;
  sqlite3* Handle() const { return handle_.get(); }

 private:
  struct Closer {
    void operator()(sqlite3* handle) const { sqlite3_close(handle); }
  };
  std::string path_;
  std::unique_ptr<sqlite3, Closer> handle_;
};

/// A prepared statement. Values are bound and columns are read one after the other, as the tables of fields list them.
class Statement {
 public:
  Statement(const Database& database, const std::string& sql);

  /// True when there is a row; its columns are then read from the first on.
  bool Step();
  /// Runs a statement that gives no rows and makes it ready for the next values.
  void Finish();

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

  void Read(std::string& text);
  void Read(double& value);
  void Read(float& value);
  template <std::integral Whole>
  void Read(Whole& value) {
    value = static_cast<Whole>(ReadWhole());
  }
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

  struct Finalizer {
    void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
  };
  const Database& database_;
  std::unique_ptr<sqlite3_stmt, Finalizer> statement_;
  int next_ = 0;  // the value to bind or the column to read
};
