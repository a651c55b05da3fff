#include "adapters/sqlite/Database.h"

#include "runtime/RuntimeError.h"
#include "support/Failures.h"

#include <sqlite3.h>

#include <array>
#include <cstdio>
#include <filesystem>
#include <utility>

namespace formwizard::adapters::sqlite {
namespace {

[[noreturn]] void Fail(sqlite3* handle) {
  runtime::Raise(runtime::AutomationError, std::string("Class dictionary: ") + sqlite3_errmsg(handle));
}

constexpr bool HasDrives = std::filesystem::path::preferred_separator == '\\';

// The path as a URI that says that nobody changes the file: no locks, no look for a journal.
std::string ImmutableUri(const std::string& path) {
  std::string uri = "file:";
  const bool isOnDrive = HasDrives && path.substr(1, 1) == ":";
  const bool isFromRoot = path.starts_with('/') || (HasDrives && path.starts_with('\\'));
  if (isOnDrive || isFromRoot) uri += isOnDrive ? "///" : "//";  // a host without a name
  for (const char c : path) {
    if (c == '?' || c == '#' || c == '%') {
      std::array<char, 4> code{};
      std::snprintf(code.data(), code.size(), "%%%02X", static_cast<unsigned>(c));
      uri += code.data();
    } else {
      uri += HasDrives && c == '\\' ? '/' : c;
    }
  }
  return uri + "?immutable=1";
}

}  // namespace

Database Database::OpenForReading(const std::string& path) {
  sqlite3* handle = nullptr;
  const int result = sqlite3_open_v2(ImmutableUri(path).c_str(), &handle,
                                     SQLITE_OPEN_READONLY | SQLITE_OPEN_URI | SQLITE_OPEN_NOMUTEX, nullptr);
  Database database(handle);
  if (result != SQLITE_OK) {
    throw support::InputError(path + ": the class dictionary cannot be opened (" + sqlite3_errstr(result) +
                              "); make one with \"dictionary import\"");
  }
  return database;
}

Database Database::CreateForFilling(const std::string& path) {
  sqlite3* handle = nullptr;
  const int result =
      sqlite3_open_v2(path.c_str(), &handle, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE | SQLITE_OPEN_NOMUTEX, nullptr);
  Database database(handle);
  if (result != SQLITE_OK) throw support::SaveError(path + ": creating the file failed: " + sqlite3_errstr(result));
  return database;
}

Database::Database(Database&& other) noexcept : handle_(std::exchange(other.handle_, nullptr)) {}

Database::~Database() { sqlite3_close(handle_); }

Statement Database::Prepare(std::string_view sql) {
  sqlite3_stmt* statement = nullptr;
  if (sqlite3_prepare_v3(handle_, sql.data(), static_cast<int>(sql.size()), SQLITE_PREPARE_PERSISTENT, &statement,
                         nullptr) != SQLITE_OK) {
    Fail(handle_);
  }
  return Statement(statement);
}

void Database::Run(const std::string& sql) {
  if (sqlite3_exec(handle_, sql.c_str(), nullptr, nullptr, nullptr) != SQLITE_OK) Fail(handle_);
}

std::int64_t Database::Number(std::string_view sql) {
  Statement statement = Prepare(sql);
  return statement.Step() ? statement.Number(0) : 0;
}

Statement::Statement(Statement&& other) noexcept : handle_(std::exchange(other.handle_, nullptr)) {}

Statement& Statement::operator=(Statement&& other) noexcept {
  std::swap(handle_, other.handle_);
  return *this;
}

Statement::~Statement() { sqlite3_finalize(handle_); }

void Statement::Check(int result) const {
  if (result != SQLITE_OK) Fail(sqlite3_db_handle(handle_));
}

void Statement::Bind(int parameter, std::int64_t value) { Check(sqlite3_bind_int64(handle_, parameter, value)); }

void Statement::Bind(int parameter, std::string_view text) {
  Check(sqlite3_bind_text(handle_, parameter, text.data(), static_cast<int>(text.size()), SQLITE_TRANSIENT));
}

bool Statement::Step() {
  const int result = sqlite3_step(handle_);
  if (result != SQLITE_ROW && result != SQLITE_DONE) Fail(sqlite3_db_handle(handle_));
  return result == SQLITE_ROW;
}

void Statement::Reset() {
  sqlite3_reset(handle_);  // repeats the result of the last step, which was looked at
}

std::int64_t Statement::Number(int column) const { return sqlite3_column_int64(handle_, column); }

std::string_view Statement::Text(int column) const {
  const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(handle_, column));
  return text ? std::string_view(text, static_cast<std::size_t>(sqlite3_column_bytes(handle_, column)))
              : std::string_view();
}

bool Statement::IsText(int column) const { return sqlite3_column_type(handle_, column) == SQLITE_TEXT; }

}  // namespace formwizard::adapters::sqlite
