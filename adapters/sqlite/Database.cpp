#include "adapters/sqlite/Database.h"

#include "support/Failures.h"
#include "system/FileSystem.h"
#include "system/Paths.h"

#include <sqlite3.h>

#include <array>
#include <cstdio>
#include <filesystem>
#include <limits>
#include <optional>
#include <utility>

namespace formwizard::adapters::sqlite {

constexpr bool HasDrives = std::filesystem::path::preferred_separator == '\\';
// By which SQLite opens files: on Windows those without a limit for paths.
constexpr const char* FileCalls = HasDrives ? "win32-longpath" : nullptr;

// The handle with what messages and limits need.
class Connection {
 public:
  enum class Use { Reading, Filling };

  Connection(const std::string& name, std::string shown, Use use) : shown_(std::move(shown)), use_(use) {
    const int flags = use == Use::Reading ? SQLITE_OPEN_READONLY | SQLITE_OPEN_URI : SQLITE_OPEN_READWRITE;
    const int result = sqlite3_open_v2(name.c_str(), &handle_, flags | SQLITE_OPEN_NOMUTEX, FileCalls);
    if (result != SQLITE_OK) {
      const std::string reason = sqlite3_errstr(result);
      sqlite3_close(handle_);
      Fail(result, reason);
    }
  }
  ~Connection() { sqlite3_close(handle_); }
  Connection(const Connection&) = delete;
  Connection& operator=(const Connection&) = delete;

  sqlite3* Handle() const { return handle_; }

  // The file is somebody else's: nothing in it runs, and work and memory stay within what its size accounts for.
  void Distrust(std::int64_t size) {
    constexpr int longest = 1'000'000;  // bytes of a row; an import takes less
    for (const auto& [option, value] :
         {std::pair{SQLITE_DBCONFIG_DEFENSIVE, 1}, std::pair{SQLITE_DBCONFIG_TRUSTED_SCHEMA, 0},
          std::pair{SQLITE_DBCONFIG_ENABLE_TRIGGER, 0}, std::pair{SQLITE_DBCONFIG_ENABLE_VIEW, 0},
          std::pair{SQLITE_DBCONFIG_ENABLE_LOAD_EXTENSION, 0}}) {
      sqlite3_db_config(handle_, option, value, nullptr);
    }
    for (const auto& [limit, most] :
         {std::pair{SQLITE_LIMIT_LENGTH, longest}, std::pair{SQLITE_LIMIT_SQL_LENGTH, 10'000},
          std::pair{SQLITE_LIMIT_ATTACHED, 0}, std::pair{SQLITE_LIMIT_TRIGGER_DEPTH, 0},
          std::pair{SQLITE_LIMIT_EXPR_DEPTH, 50}, std::pair{SQLITE_LIMIT_COLUMN, 100}}) {
      sqlite3_limit(handle_, limit, most);
    }
    constexpr std::int64_t bytesOfRow = 4;  // at least; pages that lead in a circle have more rows than bytes
    constexpr int interval = 1'000;
    constexpr std::int64_t alwaysAllowed = 100'000;
    mostRows_ = size / bytesOfRow;
    mostWork_ = size + alwaysAllowed;
    sqlite3_progress_handler(
        handle_, interval, [](void* self) { return (static_cast<Connection*>(self)->work_ -= interval) < 0 ? 1 : 0; },
        this);
  }

  // Before each step.
  void BeginStep(std::int64_t rowsSoFar) {
    if (rowsSoFar > mostRows_) FailDamaged("more rows than it has room for");
    work_ = mostWork_;
  }

  [[noreturn]] void Fail(int result, const std::string& reason) const {
    if (use_ == Use::Filling) throw support::SaveError(shown_ + ": writing the dictionary failed: " + reason);
    const int kind = result & 0xFF;  // without SQLite's details
    if (kind == SQLITE_CORRUPT || kind == SQLITE_NOTADB || kind == SQLITE_INTERRUPT || kind == SQLITE_TOOBIG ||
        kind == SQLITE_ERROR) {
      FailDamaged(reason);
    }
    throw support::InputError(shown_ + ": the class dictionary cannot be read (" + reason + ")");
  }
  [[noreturn]] void Fail() const { Fail(sqlite3_extended_errcode(handle_), sqlite3_errmsg(handle_)); }
  [[noreturn]] void FailDamaged(const std::string& reason) const {
    throw support::InputError(shown_ + ": the class dictionary is damaged (" + reason +
                              "); create it again with \"dictionary import --force\"");
  }

 private:
  sqlite3* handle_ = nullptr;
  std::string shown_;
  Use use_;
  std::int64_t mostRows_ = std::numeric_limits<std::int64_t>::max();
  std::int64_t mostWork_ = 0, work_ = 0;  // in steps of SQLite's own machine
};

namespace {

// The path as a URI that says that nobody changes the file: no locks, no look for a journal.
std::string ImmutableUri(const std::string& path) {
  std::string uri = "file:";
  const bool isLong = HasDrives && path.starts_with(R"(\\?\)");  // of which the system takes no other spelling
  const bool isOnDrive = HasDrives && path.substr(1, 1) == ":";
  const bool isFromRoot = !isLong && (path.starts_with('/') || (HasDrives && path.starts_with('\\')));
  if (isOnDrive || isFromRoot) uri += isOnDrive ? "///" : "//";  // a host without a name
  for (const char c : path) {
    if (c == '?' || c == '#' || c == '%' || (isLong && c == '\\')) {
      std::array<char, 4> code{};
      std::snprintf(code.data(), code.size(), "%%%02X", static_cast<unsigned>(c));
      uri += code.data();
    } else {
      uri += HasDrives && c == '\\' ? '/' : c;
    }
  }
  return uri + "?immutable=1";
}

// Without any bytes a text would be Null.
const char* NotNull(std::string_view text) { return text.empty() ? "" : text.data(); }

}  // namespace

Database::Database(std::unique_ptr<Connection> connection) : connection_(std::move(connection)) {}
Database::Database(Database&&) noexcept = default;
Database::~Database() = default;

Database Database::OpenForReading(const std::string& path) {
  auto connection = std::make_unique<Connection>(ImmutableUri(system::Utf8(system::NativePath(path))), path,
                                                 Connection::Use::Reading);
  const std::optional<system::FileStamp> stamp = system::RealFileSystem().StampOf(path);
  connection->Distrust(stamp ? static_cast<std::int64_t>(stamp->Size) : 0);
  Database database(std::move(connection));
  database.Run("PRAGMA cell_size_check = ON");
  return database;
}

Database Database::OpenForFilling(const std::string& path, const std::string& shown) {
  return Database(
      std::make_unique<Connection>(system::Utf8(system::NativePath(path)), shown, Connection::Use::Filling));
}

Statement Database::Prepare(std::string_view sql) {
  sqlite3_stmt* statement = nullptr;
  connection_->BeginStep(0);
  if (sqlite3_prepare_v3(connection_->Handle(), sql.data(), static_cast<int>(sql.size()), SQLITE_PREPARE_PERSISTENT,
                         &statement, nullptr) != SQLITE_OK) {
    connection_->Fail();
  }
  return {*connection_, statement};
}

void Database::Run(const std::string& sql) {
  connection_->BeginStep(0);
  if (sqlite3_exec(connection_->Handle(), sql.c_str(), nullptr, nullptr, nullptr) != SQLITE_OK) connection_->Fail();
}

std::int64_t Database::Number(std::string_view sql) {
  Statement statement = Prepare(sql);
  return statement.Step() ? statement.Id(0) : 0;
}

Statement::Statement(Statement&& other) noexcept
    : connection_(other.connection_), handle_(std::exchange(other.handle_, nullptr)), rows_(other.rows_) {}

Statement& Statement::operator=(Statement&& other) noexcept {
  std::swap(connection_, other.connection_);
  std::swap(handle_, other.handle_);
  std::swap(rows_, other.rows_);
  return *this;
}

Statement::~Statement() { sqlite3_finalize(handle_); }

void Statement::Check(int result) const {
  if (result != SQLITE_OK) connection_->Fail();
}

void Statement::Bind(int parameter, std::int64_t value) { Check(sqlite3_bind_int64(handle_, parameter, value)); }

void Statement::Bind(int parameter, std::string_view text) {
  Check(sqlite3_bind_text(handle_, parameter, NotNull(text), static_cast<int>(text.size()), SQLITE_TRANSIENT));
}

void Statement::BindKept(int parameter, std::string_view text) {
  Check(sqlite3_bind_text(handle_, parameter, NotNull(text), static_cast<int>(text.size()), SQLITE_STATIC));
}

bool Statement::Step() {
  connection_->BeginStep(rows_);
  const int result = sqlite3_step(handle_);
  if (result != SQLITE_ROW && result != SQLITE_DONE) connection_->Fail();
  ++rows_;
  return result == SQLITE_ROW;
}

void Statement::Reset() {
  sqlite3_reset(handle_);  // repeats the result of the last step, which was looked at
  rows_ = 0;
}

// A connection belongs to one thread, so that its values may be looked at, which is quicker than to ask for each thing.
std::int64_t Statement::Id(int column) const {
  sqlite3_value* value = sqlite3_column_value(handle_, column);
  if (sqlite3_value_type(value) != SQLITE_INTEGER) connection_->FailDamaged("a number is none");
  return sqlite3_value_int64(value);
}

std::int32_t Statement::Number(int column) const {
  const std::int64_t number = Id(column);
  if (number < std::numeric_limits<std::int32_t>::min() || number > std::numeric_limits<std::int32_t>::max()) {
    connection_->FailDamaged("a number is too large");
  }
  return static_cast<std::int32_t>(number);
}

std::string_view Statement::Text(int column) const {
  sqlite3_value* value = sqlite3_column_value(handle_, column);
  if (sqlite3_value_type(value) != SQLITE_TEXT) connection_->FailDamaged("a text is none");
  const auto* text = reinterpret_cast<const char*>(sqlite3_value_text(value));
  if (!text) connection_->Fail(SQLITE_NOMEM, sqlite3_errstr(SQLITE_NOMEM));
  return {text, static_cast<std::size_t>(sqlite3_value_bytes(value))};
}

}  // namespace formwizard::adapters::sqlite
