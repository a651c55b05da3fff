#include "apps/cli/Options.h"
#include "apps/common/Dictionaries.h"
#include "apps/common/Platform.h"
#include "runtime/Variant.h"
#include "support/Failures.h"
#include "support/Messages.h"
#include "wizard/factory/SystemList.h"

#include <nlohmann/json.hpp>

#include <functional>
#include <iostream>

namespace formwizard::apps::cli {
namespace {

using Json = nlohmann::ordered_json;
using runtime::Variant;
using wizard::factory::ObjectFactory;
using wizard::factory::ResultSet;
using wizard::factory::System;
using wizard::factory::SystemsIn;

// A factory that is connected to the system asked for, or to the first one.
class Server {
 public:
  explicit Server(const BrowseOptions& options)
      : creator_(options.Server ? common::InstalledServer() : common::OpenDictionary(options.Dictionary)),
        source_(options.Server ? "the server" : options.Dictionary),
        Factory(creator_->Create()) {}

  void Connect(const BrowseOptions& options) {
    std::string known;
    for (const System& system : SystemsIn(Factory->SystemList())) {
      if (options.System.empty() || system.Name == options.System) {
        Factory->Connect(system.Connect);
        if (Factory->IsConnected()) return;
        throw support::InputError(source_ + ": unable to connect to system \"" + system.Name + "\"");
      }
      known += (known.empty() ? "" : ", ") + system.Name;
    }
    throw support::InputError(source_ + ": there is no system \"" + options.System + "\"; there are " +
                              (known.empty() ? "none" : known));
  }

  void CheckClass(const std::string& name) const {
    const auto classes = Factory->ResultSet("%ClassDefinition", "ClassInfo");
    classes->Execute({});
    while (classes->Next()) {
      if (runtime::EqualsText(classes->GetDataByName("Name"), name)) return;
    }
    throw support::InputError(source_ + ": there is no class \"" + name +
                              "\"; see \"ostrel-form-wizard classes --all\"");
  }

 private:
  std::unique_ptr<wizard::factory::FactoryCreator> creator_;
  std::string source_;  // begins messages

 public:
  std::unique_ptr<ObjectFactory> Factory;
};

Json ValueOf(const Variant& value) {
  if (const auto* number = std::get_if<runtime::Int32>(&value)) return number->Value();
  return ToText(value);
}

std::string Dumped(const Json& value) { return value.dump(-1, ' ', false, Json::error_handler_t::replace); }

// Writes rows as they come: an array of objects, or one line a row with tabs between the values.
class Table {
 public:
  explicit Table(bool json) : json_(json) {
    if (json_) std::cout << "[";
  }
  void Row(const Json& row) {
    if (json_) {
      std::cout << (first_ ? "\n  " : ",\n  ") << Dumped(row);
    } else {
      std::string line;
      for (const auto& [key, value] : row.items()) {
        if (!line.empty()) line += '\t';
        line += support::Escaped(value.is_string() ? value.get<std::string>() : Dumped(value));
      }
      std::cout << line << '\n';
    }
    first_ = false;
  }

  // Only a whole table is valid JSON.
  int End() {
    if (json_) std::cout << (first_ ? "]\n" : "\n]\n");
    return Done;
  }

 private:
  bool json_, first_ = true;
};

Json RowOf(ResultSet& rows) {
  Json row;
  for (runtime::Int16 column(1); column <= rows.GetColumnCount(); column += runtime::Int16(1)) {
    const std::string name = rows.GetColumnName(column);
    row[name] = ValueOf(rows.GetDataByName(name));
  }
  return row;
}

}  // namespace

int ListSystems(const BrowseOptions& options) {
  const Server server(options);
  Table table(options.Json);
  for (const System& system : SystemsIn(server.Factory->SystemList())) {
    table.Row(Json{{"name", system.Name}, {"connect", system.Connect}});
  }
  return table.End();
}

int ListClasses(const BrowseOptions& options) {
  Server server(options);
  server.Connect(options);
  Table table(options.Json);
  const auto rows = server.Factory->ResultSet("%ClassDefinition", "ClassInfo");
  rows->Execute({});
  while (rows->Next()) {
    const bool offered = runtime::EqualsNumber(rows->GetDataByName("System"), runtime::Int32(0)) &&
                         runtime::EqualsNumber(rows->GetDataByName("Persistent"), runtime::Int32(1));
    if (options.All) {
      table.Row(RowOf(*rows));
    } else if (offered) {
      Json row;
      row["Name"] = ValueOf(rows->GetDataByName("Name"));
      table.Row(row);
    }
  }
  return table.End();
}

int ListProperties(const BrowseOptions& options) {
  Server server(options);
  server.Connect(options);
  server.CheckClass(options.Class);
  Table table(options.Json);
  const auto rows = server.Factory->ResultSet("%CompiledProperty", "PropertyInfo");
  rows->Execute({options.Class});
  while (rows->Next()) table.Row(RowOf(*rows));
  return table.End();
}

int ListQueries(const BrowseOptions& options) {
  Server server(options);
  server.Connect(options);
  server.CheckClass(options.Class);
  Table table(options.Json);
  const auto rows = server.Factory->ResultSet("%CompiledQuery", "QueryInfo");
  rows->Execute({options.Class});
  while (rows->Next()) {
    Json row = RowOf(*rows);
    const auto query = server.Factory->ResultSet(options.Class, row["Name"].get<std::string>());
    Json columns = Json::array();
    for (runtime::Int16 column(1); column <= query->GetColumnCount(); column += runtime::Int16(1)) {
      columns.push_back(query->GetColumnName(column));
    }
    row["columns"] = columns;
    row["params"] = query->GetParamCount().Value();
    table.Row(row);
  }
  return table.End();
}

}  // namespace formwizard::apps::cli
