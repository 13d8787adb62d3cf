#include "host/store/database.h"

#include <cmath>

#include "model/undefined.h"

Database::Database(const std::string& path, Mode mode) : path_(path) {
  const int flags = mode == Mode::kRead ? SQLITE_OPEN_READONLY : SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE;
  sqlite3* handle = nullptr;
  const int result = sqlite3_open_v2(path.c_str(), &handle, flags, nullptr);
  handle_.reset(handle);
  if (result != SQLITE_OK) FailWithReason();
}

void Database::Run(const std::string& sql) {
  if (sqlite3_exec(Handle(), sql.c_str(), nullptr, nullptr, nullptr) != SQLITE_OK) FailWithReason();
}

std::int64_t Database::WholeOf(const std::string& sql) {
  Statement statement(*this, sql);
  std::int64_t value = 0;
  if (statement.Step()) statement.Read(value);
  return value;
}

void Database::Fail(const std::string& reason) const { throw JobError(path_ + ": " + reason); }
void Database::FailWithReason() const { Fail(sqlite3_errmsg(Handle())); }

Statement::Statement(const Database& database, const std::string& sql) : database_(database) {
  sqlite3_stmt* statement = nullptr;
  Check(sqlite3_prepare_v2(database.Handle(), sql.c_str(), -1, &statement, nullptr));
  statement_.reset(statement);
}

void Statement::Check(int result) const {
  if (result != SQLITE_OK) database_.FailWithReason();
}

bool Statement::Step() {
  next_ = 0;
  const int result = sqlite3_step(statement_.get());
  if (result != SQLITE_ROW && result != SQLITE_DONE) database_.FailWithReason();
  return result == SQLITE_ROW;
}

void Statement::Finish() {
  Step();
  Check(sqlite3_reset(statement_.get()));
}

void Statement::Bind(const std::string& text) {
  Check(sqlite3_bind_text(statement_.get(), ++next_, text.data(), static_cast<int>(text.size()), SQLITE_STATIC));
}

// Undefined is NULL; what is no finite number counts as undefined.
void Statement::Bind(double value) {
  Check(IsDefined(value) && std::isfinite(value) ? sqlite3_bind_double(statement_.get(), ++next_, value)
                                                 : sqlite3_bind_null(statement_.get(), ++next_));
}

void Statement::BindWhole(std::int64_t value) {
  Check(sqlite3_bind_int64(statement_.get(), ++next_, value));
}

void Statement::Read(std::string& text) {
  const auto* const bytes = reinterpret_cast<const char*>(sqlite3_column_text(statement_.get(), next_));
  const auto size = static_cast<std::size_t>(sqlite3_column_bytes(statement_.get(), next_));
  text.assign(bytes == nullptr ? "" : bytes, bytes == nullptr ? 0 : size);
  ++next_;
}

void Statement::Read(double& value) {
  const bool isNull = sqlite3_column_type(statement_.get(), next_) == SQLITE_NULL;
  value = isNull ? UndefinedValue : sqlite3_column_double(statement_.get(), next_);
  ++next_;
}

void Statement::Read(float& value) {
  double wide = 0;
  Read(wide);
  value = ToSingle(wide);
}

std::int64_t Statement::ReadWhole() { return sqlite3_column_int64(statement_.get(), next_++); }
