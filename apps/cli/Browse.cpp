#include "apps/cli/Commands.h"
#include "apps/common/Dictionaries.h"
#include "apps/common/Endings.h"
#include "apps/common/Platform.h"
#include "runtime/Variant.h"
#include "support/Failures.h"
#include "support/Messages.h"
#include "support/Names.h"
#include "wizard/factory/SystemList.h"

#include <CLI/CLI.hpp>
#include <nlohmann/json.hpp>

#include <functional>
#include <iostream>
#include <optional>
#include <vector>

namespace formwizard::apps::cli {
namespace {

using Json = nlohmann::ordered_json;
using runtime::Variant;
using wizard::factory::ClassColumn;
using wizard::factory::ObjectFactory;
using wizard::factory::ResultSet;
using wizard::factory::System;
using wizard::factory::SystemsIn;

struct BrowseOptions {
  std::string Dictionary, System, Class;
  bool Server = false, Json = false, All = false;  // the installed server instead of a dictionary
};

// A factory that is connected to the system asked for, or to the first one.
class Server {
 public:
  explicit Server(const BrowseOptions& options)
      : creator_(options.Server ? common::InstalledServer() : common::OpenDictionary(options.Dictionary)),
        source_(options.Server ? "the server" : options.Dictionary),
        Factory(creator_->Create()) {}

  void Connect(const BrowseOptions& options) {
    const std::vector<System> systems = SystemsIn(Factory->SystemList());
    const support::Names names(systems, [](const System& each) { return std::string_view(each.Name); });
    const auto found =
        options.System.empty() && !systems.empty() ? std::optional<std::size_t>(0) : names.Find(options.System);
    if (!found) {
      throw support::InputError(source_ + ": there is no system \"" + options.System + "\"; " +
                                names.Answer(options.System));
    }
    const System& system = systems[*found];
    Factory->Connect(system.Connect);
    if (!Factory->IsConnected()) {
      throw support::InputError(source_ + ": unable to connect to system \"" + system.Name +
                                "\"; see \"ostrel-form-wizard systems\"");
    }
  }

  // The name of the class that is meant. All classes are gone through for one that has neither properties nor queries,
  // and for one that is called otherwise.
  std::string ClassMeant(const std::string& name) const {
    if (Tells("%CompiledProperty", "PropertyInfo", name) || Tells("%CompiledQuery", "QueryInfo", name)) return name;
    std::vector<std::string> classes;
    const auto rows = Factory->ResultSet("%ClassDefinition", "ClassInfo");
    rows->Execute({});
    while (rows->Next()) classes.push_back(ToText(rows->GetData(ClassColumn("Name"))));
    const support::Names names(classes, [](const std::string& each) { return std::string_view(each); });
    if (const auto found = names.Find(name)) return classes[*found];
    throw support::InputError(source_ + ": there is no class \"" + name + "\"; " + names.Answer(name));
  }

 private:
  // Whether the query on the class has a row.
  bool Tells(const char* className, const char* query, const std::string& of) const {
    try {
      const auto rows = Factory->ResultSet(className, query);
      rows->Execute({of});
      return rows->Next();
    } catch (const runtime::RuntimeError&) {
      return false;  // a server may refuse a class that it does not have
    }
  }

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
    return common::Done;
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
    const bool offered = runtime::EqualsNumber(rows->GetData(ClassColumn("System")), runtime::Int32(0)) &&
                         runtime::EqualsNumber(rows->GetData(ClassColumn("Persistent")), runtime::Int32(1));
    if (options.All) {
      table.Row(RowOf(*rows));
    } else if (offered) {
      Json row;
      row["Name"] = ValueOf(rows->GetData(ClassColumn("Name")));
      table.Row(row);
    }
  }
  return table.End();
}

int ListProperties(const BrowseOptions& options) {
  Server server(options);
  server.Connect(options);
  const std::string className = server.ClassMeant(options.Class);
  Table table(options.Json);
  const auto rows = server.Factory->ResultSet("%CompiledProperty", "PropertyInfo");
  rows->Execute({className});
  while (rows->Next()) table.Row(RowOf(*rows));
  return table.End();
}

int ListQueries(const BrowseOptions& options) {
  Server server(options);
  server.Connect(options);
  const std::string className = server.ClassMeant(options.Class);
  Table table(options.Json);
  const auto rows = server.Factory->ResultSet("%CompiledQuery", "QueryInfo");
  rows->Execute({className});
  while (rows->Next()) {
    Json row = RowOf(*rows);
    const auto query = server.Factory->ResultSet(className, row["Name"].get<std::string>());
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

// Where a server can be installed it can take the place of the file.
void AddSource(CLI::App& command, BrowseOptions& options) {
  CLI::Option& file = *AddFile(command, "--dictionary", options.Dictionary, "the class dictionary");
  if (common::CanHaveServer()) {
    file.excludes(command.add_flag("--server", options.Server, "ask the installed server instead"));
  } else {
    file.required();
  }
}

// What a listing takes: a dictionary, which has systems, which have classes.
enum class Takes { Dictionary, System, Class };

// The command, to which options of its own can be added.
CLI::App& AddListing(CLI::App& program, Task& task, const char* name, const char* about, Takes takes,
                     int (*list)(const BrowseOptions&), const std::shared_ptr<BrowseOptions>& options) {
  CLI::App& command = *program.add_subcommand(name, about);
  AddSource(command, *options);
  command.add_flag("--json", options->Json, "show the result as JSON");
  if (takes != Takes::Dictionary) {
    command.add_option("--system", options->System, "the system (default: the first one)")->type_name("NAME");
  }
  if (takes == Takes::Class) {
    command.add_option("--class", options->Class, "the class")->required()->type_name("NAME");
  }
  command.callback([&task, list, options] {
    if (options->Dictionary.empty() && !options->Server) throw CLI::RequiredError("--dictionary or --server");
    task = {[list, options] { return list(*options); }, options->Dictionary};
  });
  return command;
}

}  // namespace

void AddSystems(CLI::App& program, Task& task) {
  AddListing(program, task, "systems", "list the systems of a dictionary", Takes::Dictionary, ListSystems,
             std::make_shared<BrowseOptions>());
}

void AddClasses(CLI::App& program, Task& task) {
  const auto options = std::make_shared<BrowseOptions>();
  AddListing(program, task, "classes", "list the classes that a form can be made for", Takes::System, ListClasses,
             options)
      .add_flag("--all", options->All, "include system and non-persistent classes");
}

void AddProperties(CLI::App& program, Task& task) {
  AddListing(program, task, "properties", "list the properties of a class", Takes::Class, ListProperties,
             std::make_shared<BrowseOptions>());
}

void AddQueries(CLI::App& program, Task& task) {
  AddListing(program, task, "queries", "list the queries of a class", Takes::Class, ListQueries,
             std::make_shared<BrowseOptions>());
}

}  // namespace formwizard::apps::cli
