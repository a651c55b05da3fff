// The tables of a class dictionary in SQL, made from what a dictionary consists of.
#pragma once

#include "wizard/factory/Dictionary.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace formwizard::adapters::sqlite {

// Written into the head of every dictionary, so that no other SQLite file is taken for one.
inline constexpr std::int64_t ApplicationId = 0x4F465744;  // "OFWD"
inline constexpr std::int64_t SchemaVersion = 1;

std::vector<std::string> CreateTables();
// Made after the rows are in.
std::vector<std::string> CreateIndexes();

// Rows of such a table are known by their ids, those of another by owner and position.
bool HasId(wizard::factory::Table table);

// Takes of each row its id when the table has one, its owner when it has one, its position when it has no id, and the
// values.
std::string InsertInto(wizard::factory::Table table, std::size_t rows);

// The table's columns without ids, owner and position; `rest` is what follows the name of the table.
std::string SelectFrom(wizard::factory::Table table, std::string_view rest);

// A statement with all white space made one blank, as statements are compared.
std::string OneLine(std::string_view sql);

}  // namespace formwizard::adapters::sqlite
