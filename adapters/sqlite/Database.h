// A SQLite database and its prepared statements.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

struct sqlite3_stmt;

namespace formwizard::adapters::sqlite {

class Connection;
class Statement;

class Database {
 public:
  // Opens an existing file for reading: it is taken not to change meanwhile, and not to be trusted. Its schema runs
  // nothing, and no statement does more than the size of the file accounts for. support::InputError, here and in every
  // operation, when the file cannot be read or is damaged; its message names the file.
  static Database OpenForReading(const std::string& path);
  // An empty file, without a path one that goes with the database, which is filled in one go; `shown` is what messages
  // call it. support::SaveError, here and in every operation, when that fails.
  static Database OpenForFilling(const std::string& path, const std::string& shown);

  Database(Database&&) noexcept;
  Database& operator=(Database&&) = delete;
  Database(const Database&) = delete;
  ~Database();

  Statement Prepare(std::string_view sql);
  void Run(const std::string& sql);
  std::int64_t Number(std::string_view sql);  // the first column of the first row, 0 without one

 private:
  explicit Database(std::unique_ptr<Connection> connection);

  std::unique_ptr<Connection> connection_;
};

// Parameters count from 1, columns from 0. The database must outlive it.
class Statement {
 public:
  Statement(Connection& connection, sqlite3_stmt* handle) : connection_(&connection), handle_(handle) {}
  Statement(Statement&& other) noexcept;
  Statement& operator=(Statement&& other) noexcept;
  Statement(const Statement&) = delete;
  ~Statement();

  void Bind(int parameter, std::int64_t value);
  void Bind(int parameter, std::string_view text);      // copied
  void BindKept(int parameter, std::string_view text);  // which the caller keeps until the next Reset
  // True while there is a further row.
  bool Step();
  // Ready for another run.
  void Reset();

  // The value of a column, which must be of that type.
  std::int32_t Number(int column) const;
  std::string_view Text(int column) const;  // valid until the next Step
  std::int64_t Id(int column) const;

 private:
  void Check(int result) const;

  Connection* connection_;
  sqlite3_stmt* handle_;
  std::int64_t rows_ = 0;
};

}  // namespace formwizard::adapters::sqlite
