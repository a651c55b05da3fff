#include "apps/cli/Commands.h"
#include "apps/cli/Listing.h"
#include "apps/common/Dictionaries.h"
#include "apps/common/Endings.h"
#include "apps/common/Platform.h"
#include "apps/forms/DescribedForm.h"
#include "apps/forms/PropertyTree.h"
#include "runtime/Variant.h"
#include "support/Failures.h"
#include "support/Messages.h"
#include "support/Names.h"
#include "wizard/factory/SystemList.h"

#include <CLI/CLI.hpp>

#include <functional>
#include <iostream>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace formwizard::apps::cli {
namespace {

using forms::ForEachProperty;
using forms::TreeProperty;
using wizard::factory::ClassColumn;
using wizard::factory::ObjectFactory;
using wizard::factory::ResultSet;
using wizard::factory::System;
using wizard::factory::SystemsIn;

struct BrowseOptions {
  std::string Dictionary, System, Class;
  bool Server = false;  // the installed server instead of a dictionary
  bool Json = false, All = false, Description = false;
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

  const std::string& Source() const { return source_; }  // begins messages

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
  std::string source_;

 public:
  std::unique_ptr<ObjectFactory> Factory;
};

ListedRow ValueOf(const runtime::Variant& value) {
  if (const auto* number = std::get_if<runtime::Int32>(&value)) return number->Value();
  if (std::holds_alternative<runtime::Null>(value)) return nullptr;
  return ToText(value);
}

// The server's columns of a row, with their values.
ListedRow ColumnsOf(ResultSet& row) {
  ListedRow columns;
  for (runtime::Int16 column(1); column <= row.GetColumnCount(); column += runtime::Int16(1)) {
    const std::string name = row.GetColumnName(column);
    columns[name] = ValueOf(row.GetDataByName(name));
  }
  return columns;
}

std::string YesNo(bool is) { return is ? "yes" : "no"; }

std::string CellOf(const ListedRow& value) {
  if (value.is_null()) return "";
  return value.is_string() ? value.get<std::string>() : value.dump();
}

// What a listing ends with.
int EndOf(Listing& listing) {
  listing.End();
  return common::Done;
}

int ListSystems(const BrowseOptions& options) {
  const Server server(options);
  Listing listing(std::cout, FormOfListing(options.Json), {"SYSTEM", "CONNECTION"});
  for (const System& system : SystemsIn(server.Factory->SystemList())) {
    listing.Add({system.Name, system.Connect}, [&] {
      return ListedRow{{"name", system.Name}, {"connect", system.Connect}};
    });
  }
  return EndOf(listing);
}

int ListClasses(const BrowseOptions& options) {
  Server server(options);
  server.Connect(options);
  std::vector<std::string> headings{"CLASS"};
  if (options.All) headings.insert(headings.end(), {"SYSTEM", "PERSISTENT"});
  Listing listing(std::cout, FormOfListing(options.Json), std::move(headings));
  const auto rows = server.Factory->ResultSet("%ClassDefinition", "ClassInfo");
  rows->Execute({});
  while (rows->Next()) {
    const std::string name = ToText(rows->GetData(ClassColumn("Name")));
    const bool isSystem = !runtime::EqualsNumber(rows->GetData(ClassColumn("System")), runtime::Int32(0));
    const bool isPersistent = runtime::EqualsNumber(rows->GetData(ClassColumn("Persistent")), runtime::Int32(1));
    if (options.All) {
      listing.Add({name, YesNo(isSystem), YesNo(isPersistent)}, [&] { return ColumnsOf(*rows); });
    } else if (!isSystem && isPersistent) {
      listing.Add({name}, [&] { return ListedRow{{"Name", name}}; });
    }
  }
  return EndOf(listing);
}

ListedRow RowOf(const TreeProperty& property, ResultSet& columns) {
  ListedRow row{{"path", property.Path}, {"kind", property.Kind}};
  row.update(ColumnsOf(columns));
  return row;
}

int ListProperties(const BrowseOptions& options) {
  Server server(options);
  server.Connect(options);
  const std::string className = server.ClassMeant(options.Class);
  if (options.Description) {
    const std::string warning = forms::DescribeForm(*server.Factory, server.Source(), className, std::cout);
    if (!warning.empty()) std::cerr << "ostrel-form-wizard: warning: " << support::Shown(warning) << '\n';
    return common::Done;
  }
  Listing listing(std::cout, FormOfListing(options.Json),
                  {"PROPERTY", "KIND", "TYPE", "REQUIRED", "READ-ONLY", "WIDTH", "CAPTION"});
  ForEachProperty(*server.Factory, className, options.All, [&](const TreeProperty& property, ResultSet& columns) {
    listing.Add(
        {property.Path, std::string(property.Kind), property.Type, YesNo(property.IsRequired),
         YesNo(property.IsReadOnly), property.Width, property.Caption},
        [&] { return RowOf(property, columns); }, property.Depth);
  });
  return EndOf(listing);
}

int ListQueries(const BrowseOptions& options) {
  Server server(options);
  server.Connect(options);
  const std::string className = server.ClassMeant(options.Class);
  Listing listing(std::cout, FormOfListing(options.Json), {"QUERY", "ID-COLUMN", "COLUMNS", "PARAMETERS"});
  const auto rows = server.Factory->ResultSet("%CompiledQuery", "QueryInfo");
  rows->Execute({className});
  while (rows->Next()) {
    ListedRow row = ColumnsOf(*rows);
    const auto query = server.Factory->ResultSet(className, CellOf(row["Name"]));
    row["columns"] = ListedRow::array();
    std::string names;
    for (runtime::Int16 column(1); column <= query->GetColumnCount(); column += runtime::Int16(1)) {
      row["columns"].push_back(query->GetColumnName(column));
      names += (names.empty() ? "" : ",") + query->GetColumnName(column);
    }
    row["params"] = query->GetParamCount().Value();
    listing.Add({CellOf(row["Name"]), CellOf(row["ContainId"]), std::move(names), CellOf(row["params"])},
                [&] { return row; });
  }
  return EndOf(listing);
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

void AddListing(CLI::App& command, Task& task, Takes takes, int (*list)(const BrowseOptions&),
                const std::shared_ptr<BrowseOptions>& options) {
  AddSource(command, *options);
  AddJson(command, options->Json);
  if (takes != Takes::Dictionary) {
    command.add_option("--system", options->System, "the system (default: the first one)")->type_name("NAME");
  }
  if (takes == Takes::Class) {
    command.add_option("--class", options->Class, "the class")->required()->type_name("NAME");
  }
  command.callback([&task, list, options] {
    if (options->Dictionary.empty() && !options->Server) throw CLI::RequiredError("--dictionary or --server");
    task = {[list, options] { return list(*options); }, options->Dictionary, false, options->Json};
  });
}

}  // namespace

void AddSystems(CLI::App& command, Task& task) {
  AddListing(command, task, Takes::Dictionary, ListSystems, std::make_shared<BrowseOptions>());
}

void AddClasses(CLI::App& command, Task& task) {
  const auto options = std::make_shared<BrowseOptions>();
  AddListing(command, task, Takes::System, ListClasses, options);
  command.add_flag("--all", options->All, "include system and non-persistent classes");
}

void AddProperties(CLI::App& command, Task& task) {
  const auto options = std::make_shared<BrowseOptions>();
  AddListing(command, task, Takes::Class, ListProperties, options);
  CLI::Option* all = command.add_flag("--all", options->All, "include those that no form can show");
  command.add_flag("--description", options->Description, "show a form description that chooses all of them")
      ->excludes(all);
}

void AddQueries(CLI::App& command, Task& task) {
  AddListing(command, task, Takes::Class, ListQueries, std::make_shared<BrowseOptions>());
}

}  // namespace formwizard::apps::cli
