// A class dictionary in memory: a store of rows, and the server that it plays.
#pragma once

#include "runtime/Integer.h"
#include "runtime/RuntimeError.h"
#include "wizard/factory/Dictionary.h"
#include "wizard/factory/Factory.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

namespace formwizard::fuzz {

namespace factory = wizard::factory;

class MemoryDictionary : public factory::DictionaryStore {
 public:
  using Value = std::variant<std::int32_t, std::string>;
  struct Row {
    std::int64_t Id, Owner, Position;
    std::vector<Value> Values;

    const std::string& Text(std::size_t column) const { return std::get<std::string>(Values.at(column)); }
    bool operator==(const Row&) const = default;
  };

  void Add(factory::Table table, const factory::Row& row) override {
    Row& kept = Tables.at(static_cast<std::size_t>(table)).emplace_back(Row{row.Id, row.Owner, row.Position, {}});
    for (const factory::Value& value : row.Values) {
      kept.Values.push_back(std::visit([](const auto& it) { return Value(Kept(it)); }, value));
    }
  }
  std::vector<Row> Below(factory::Table table, std::int64_t owner) const {
    std::vector<Row> rows;
    for (const Row& row : Tables.at(static_cast<std::size_t>(table))) {
      if (row.Owner == owner) rows.push_back(row);
    }
    return rows;
  }

  // The one of these rows with this text in a column.
  static const Row& With(const std::vector<Row>& rows, std::size_t column, std::string_view text) {
    const auto found = std::ranges::find_if(rows, [&](const Row& row) { return row.Text(column) == text; });
    if (found == rows.end()) runtime::Raise(runtime::AutomationError, "there is none");
    return *found;
  }

  std::array<std::vector<Row>, factory::TableCount> Tables;

 private:
  static std::int32_t Kept(std::int32_t number) { return number; }
  static std::string Kept(std::string_view text) { return std::string(text); }
};

class MemoryRows : public factory::ResultSet, public factory::NamedParameters {
 public:
  using Row = MemoryDictionary::Row;

  MemoryRows(factory::Table table, std::vector<Row> rows) : table_(table), rows_(std::move(rows)) {}
  MemoryRows(std::vector<Row> columns, std::vector<Row> parameters)
      : columns_(std::move(columns)), parameters_(std::move(parameters)) {}

  void Execute(std::span<const std::string_view>) override {}
  bool Next() override { return ++row_ <= rows_.size(); }
  runtime::Variant GetDataByName(std::string_view column) override {
    const auto columns = factory::ColumnsOf(table_);
    const auto found = std::ranges::find(columns, column, &factory::Column::Name);
    const auto& value = rows_.at(row_ - 1).Values.at(static_cast<std::size_t>(found - columns.begin()));
    if (const auto* number = std::get_if<std::int32_t>(&value)) return runtime::Int32(*number);
    return std::get<std::string>(value);
  }
  runtime::Int16 GetColumnCount() override { return runtime::Int16(columns_.size()); }
  std::string GetColumnName(runtime::Int16 column) override { return NameOf(columns_, column); }
  runtime::Int16 GetParamCount() override { return runtime::Int16(parameters_.size()); }
  std::string GetParamName(runtime::Int16 parameter) override { return NameOf(parameters_, parameter); }
  void Close() override {}

 private:
  static std::string NameOf(const std::vector<Row>& rows, runtime::Int16 number) {
    return rows.at(static_cast<std::size_t>(number.Value()) - 1).Text(0);
  }

  factory::Table table_ = factory::Table::Classes;
  std::vector<Row> rows_, columns_, parameters_;
  std::size_t row_ = 0;
};

class MemoryServer : public factory::FactoryCreator {
 public:
  // Must outlive the server and what it creates.
  explicit MemoryServer(const MemoryDictionary& dictionary) : dictionary_(dictionary) {}

  std::unique_ptr<factory::ObjectFactory> Create() override { return std::make_unique<Factory>(dictionary_); }

 private:
  class Factory : public factory::ObjectFactory {
   public:
    explicit Factory(const MemoryDictionary& dictionary) : dictionary_(dictionary) {}

    void Connect(const std::string& connect) override {
      system_ = MemoryDictionary::With(dictionary_.Below(factory::Table::Systems, 0), 1, connect).Id;
    }
    bool Disconnect() override { return true; }
    bool IsConnected() override { return system_ != 0; }
    std::string SystemList() override {
      std::string list;
      for (const auto& system : dictionary_.Below(factory::Table::Systems, 0)) {
        list += (list.empty() ? "" : ";") + system.Text(0) + "," + system.Text(1);
      }
      return list;
    }
    std::unique_ptr<factory::ResultSet> ResultSet(std::string_view name, std::string_view query) override {
      const auto classes = dictionary_.Below(factory::Table::Classes, system_);
      if (name == "%ClassDefinition") return std::make_unique<MemoryRows>(factory::Table::Classes, classes);
      if (name == "%CompiledProperty") return std::make_unique<RowsOfClass>(*this, factory::Table::Properties, classes);
      if (name == "%CompiledQuery") return std::make_unique<RowsOfClass>(*this, factory::Table::Queries, classes);
      const auto queries = dictionary_.Below(factory::Table::Queries, MemoryDictionary::With(classes, 0, name).Id);
      const std::int64_t id = MemoryDictionary::With(queries, 0, query).Id;
      return std::make_unique<MemoryRows>(dictionary_.Below(factory::Table::QueryColumns, id),
                                          dictionary_.Below(factory::Table::QueryParams, id));
    }

   private:
    // Knows its rows when it is told the class.
    class RowsOfClass : public MemoryRows {
     public:
      RowsOfClass(const Factory& factory, factory::Table table, std::vector<Row> classes)
          : MemoryRows(table, {}), dictionary_(factory.dictionary_), of_(table), classes_(std::move(classes)) {}
      void Execute(std::span<const std::string_view> parameters) override {
        static_cast<MemoryRows&>(*this) =
            MemoryRows(of_, dictionary_.Below(of_, MemoryDictionary::With(classes_, 0, parameters[0]).Id));
      }

     private:
      const MemoryDictionary& dictionary_;
      factory::Table of_;
      std::vector<Row> classes_;
    };

    const MemoryDictionary& dictionary_;
    std::int64_t system_ = 0;
  };

  const MemoryDictionary& dictionary_;
};

}  // namespace formwizard::fuzz
