// The tables of a class dictionary.
#pragma once

#include <cstdint>

namespace formwizard::adapters::sqlite {

// Written into the head of every dictionary, so that no other SQLite file is taken for one.
inline constexpr std::int64_t ApplicationId = 0x4F465744;  // "OFWD"
inline constexpr std::int64_t SchemaVersion = 1;

// Rows stand in the order of the import: by id, or by position below their owner.
inline constexpr const char* Schema = R"sql(
  CREATE TABLE systems (id INTEGER PRIMARY KEY, name TEXT NOT NULL UNIQUE, connect TEXT NOT NULL UNIQUE);
  CREATE TABLE classes (id INTEGER PRIMARY KEY, system INTEGER NOT NULL, name TEXT NOT NULL, is_system INTEGER NOT NULL,
                        is_persistent INTEGER NOT NULL);
  CREATE TABLE properties (class INTEGER NOT NULL, position INTEGER NOT NULL, name TEXT NOT NULL, caption TEXT NOT NULL,
                           type TEXT NOT NULL, datatype INTEGER NOT NULL, serial INTEGER NOT NULL,
                           collection TEXT NOT NULL, required INTEGER NOT NULL, editable INTEGER NOT NULL,
                           max_len INTEGER NOT NULL, PRIMARY KEY (class, position)) WITHOUT ROWID;
  CREATE TABLE queries (id INTEGER PRIMARY KEY, class INTEGER NOT NULL, name TEXT NOT NULL, contain_id INTEGER NOT NULL);
  CREATE TABLE query_columns (query INTEGER NOT NULL, position INTEGER NOT NULL, name TEXT NOT NULL,
                              PRIMARY KEY (query, position)) WITHOUT ROWID;
  CREATE TABLE query_params (query INTEGER NOT NULL, position INTEGER NOT NULL, name TEXT NOT NULL,
                             PRIMARY KEY (query, position)) WITHOUT ROWID;
)sql";

// Made after the rows are in.
inline constexpr const char* Indexes = R"sql(
  CREATE UNIQUE INDEX classes_by_name ON classes (system, name, is_system, is_persistent);
  CREATE UNIQUE INDEX queries_by_class ON queries (class, id, name, contain_id);
)sql";

}  // namespace formwizard::adapters::sqlite
