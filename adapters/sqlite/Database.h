// A SQLite database and its prepared statements.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

struct sqlite3;
struct sqlite3_stmt;

namespace formwizard::adapters::sqlite {

class Statement;

class Database {
 public:
  // Opens an existing file for reading: it is taken not to change meanwhile. support::InputError when it is no SQLite
  // file.
  static Database OpenForReading(const std::string& path);
  // Creates an empty file that is filled in one go. support::SaveError when that fails.
  static Database CreateForFilling(const std::string& path);

  Database(Database&& other) noexcept;
  Database& operator=(Database&&) = delete;
  Database(const Database&) = delete;
  ~Database();

  // Each raises RuntimeError 440 with SQLite's own description on failure.
  Statement Prepare(std::string_view sql);
  void Run(const std::string& sql);
  std::int64_t Number(std::string_view sql);  // the first column of the first row, 0 without one

 private:
  explicit Database(sqlite3* handle) : handle_(handle) {}

  sqlite3* handle_;
};

// Parameters count from 1, columns from 0.
class Statement {
 public:
  explicit Statement(sqlite3_stmt* handle) : handle_(handle) {}
  Statement(Statement&& other) noexcept;
  Statement& operator=(Statement&& other) noexcept;
  Statement(const Statement&) = delete;
  ~Statement();

  void Bind(int parameter, std::int64_t value);
  void Bind(int parameter, std::string_view text);  // copied
  // True while there is a further row.
  bool Step();
  // Ready for another run.
  void Reset();

  std::int64_t Number(int column) const;
  std::string_view Text(int column) const;  // valid until the next Step
  bool IsText(int column) const;

 private:
  void Check(int result) const;

  sqlite3_stmt* handle_;
};

}  // namespace formwizard::adapters::sqlite
