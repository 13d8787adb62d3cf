#include "host/store/database.h"

#include <filesystem>
#include <system_error>

#include "model/undefined.h"

Database::Database(const std::string& path, Mode mode) : path_(path) {
  // Reading too may have to write: a save that was killed is undone by who opens the file next.
  // Where nothing can be written, SQLite contents itself with reading.
  // One thread has it: locking at each value of a row would take a tenth of the time.
  const int flags = SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX |
                    (mode == Mode::kCreate ? SQLITE_OPEN_CREATE : 0);
  // A relative path might begin with "file:", which SQLite takes for the beginning of an address.
  const std::string absolute = std::filesystem::absolute(path).string();
  sqlite3* handle = nullptr;
  const int result = sqlite3_open_v2(absolute.c_str(), &handle, flags, nullptr);
  handle_.reset(handle);
  if (result != SQLITE_OK) FailWithReason();
  constexpr int kPatienceMilliseconds = 1000;
  sqlite3_busy_timeout(handle, kPatienceMilliseconds);
  // Else a quoted name that is no column would be a text.
  sqlite3_db_config(handle, SQLITE_DBCONFIG_DQS_DML, 0, nullptr);
  // The file may come from anywhere: what its schema says must not call functions.
  sqlite3_db_config(handle, SQLITE_DBCONFIG_TRUSTED_SCHEMA, 0, nullptr);
}

void Database::Run(const std::string& sql) const {
  if (sqlite3_exec(Handle(), sql.c_str(), nullptr, nullptr, nullptr) != SQLITE_OK) FailWithReason();
}

std::int64_t Database::WholeOf(const std::string& sql) const {
  Statement statement(*this, sql);
  std::int64_t value = 0;
  if (statement.Step()) statement.Read(value);
  return value;
}

void Database::Fail(const std::string& reason) const { throw JobError(path_ + ": " + reason); }

void Database::FailWithReason() const {
  if (handle_ == nullptr) Fail("not enough memory");
  std::string reason = sqlite3_errmsg(Handle());
  const int error = sqlite3_system_errno(Handle());
  if (sqlite3_errcode(Handle()) == SQLITE_CANTOPEN && error != 0) {
    reason += ": " + std::generic_category().message(error);
  }
  Fail(reason);
}

Statement::Statement(const Database& database, const std::string& sql) : database_(database) {
  sqlite3_stmt* statement = nullptr;
  Check(sqlite3_prepare_v2(database.Handle(), sql.c_str(), -1, &statement, nullptr));
  statement_.reset(statement);
}

void Statement::Check(int result) const {
  if (result != SQLITE_OK) database_.FailWithReason();
}

void Statement::FailAtColumn(int column) const {
  const char* const name = sqlite3_column_name(statement_.get(), column);
  database_.Fail(std::string("the job is damaged: a value of \"") + (name == nullptr ? "" : name) +
                 "\" does not fit there");
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
  Check(sqlite3_bind_text64(statement_.get(), ++next_, text.data(), text.size(), SQLITE_STATIC,
                            SQLITE_UTF8));
}

void Statement::Bind(double value) {
  ++next_;
  Check(IsDefined(value) ? sqlite3_bind_double(statement_.get(), next_, value)
                         : sqlite3_bind_null(statement_.get(), next_));
}

void Statement::BindWhole(std::int64_t value) {
  Check(sqlite3_bind_int64(statement_.get(), ++next_, value));
}

void Statement::Read(std::string& text) {
  const int column = next_++;
  if (sqlite3_column_type(statement_.get(), column) != SQLITE_TEXT) FailAtColumn(column);
  const unsigned char* const bytes = sqlite3_column_text(statement_.get(), column);
  if (bytes == nullptr) database_.FailWithReason();
  text.assign(reinterpret_cast<const char*>(bytes),
              static_cast<std::size_t>(sqlite3_column_bytes(statement_.get(), column)));
}

void Statement::Read(double& value) {
  const int column = next_++;
  switch (sqlite3_column_type(statement_.get(), column)) {
    case SQLITE_NULL: value = UndefinedValue; break;
    case SQLITE_INTEGER:
    case SQLITE_FLOAT: value = sqlite3_column_double(statement_.get(), column); break;
    default: FailAtColumn(column);
  }
}

void Statement::Read(float& value) {
  double wide = UndefinedValue;
  Read(wide);
  value = ToSingle(wide);
}

std::int64_t Statement::ReadWhole() {
  const int column = next_++;
  if (sqlite3_column_type(statement_.get(), column) != SQLITE_INTEGER) FailAtColumn(column);
  return sqlite3_column_int64(statement_.get(), column);
}
