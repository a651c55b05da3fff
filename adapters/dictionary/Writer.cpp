#include "adapters/dictionary/Writer.h"

#include "adapters/dictionary/JsonFormat.h"
#include "adapters/dictionary/JsonText.h"
#include "adapters/dictionary/ServerRows.h"
#include "runtime/Conversions.h"
#include "support/Failures.h"
#include "support/Names.h"
#include "wizard/factory/SystemList.h"

#include <ostream>
#include <string_view>
#include <unordered_set>
#include <variant>
#include <vector>

namespace formwizard::adapters::dictionary {
namespace {

using namespace wizard::factory;

// What the reader takes for a value that is left out.
std::string DefaultOf(const Column& column, const std::string& name) {
  if (column.Kind == ColumnKind::Number) return std::to_string(column.Default);
  return column.Kind == ColumnKind::Caption ? name : std::string(column.DefaultText);
}

// The row's columns as members of an object that goes on, without what the server does not tell and what goes without
// saying.
std::string MembersText(Shape shape, ResultSet& row) {
  std::string text = "{ ", name;
  const Table table = *TableOf(shape);
  const auto columns = ColumnsOf(table);
  for (std::size_t i = 0; i < columns.size(); ++i) {
    const Variant value = row.GetData({table, i});
    if (std::holds_alternative<runtime::Null>(value)) continue;
    const Column& column = columns[i];
    const std::string shown = ValueText(column, value);
    if (i == 0) name = shown;
    if (!column.IsRequired() && shown == DefaultOf(column, name)) continue;
    if (text.size() > 2) text += ", ";
    text += Quoted(column.Name) + ": " + (column.Kind == ColumnKind::Number ? shown : Quoted(shown));
  }
  return text;
}

// Names of which each may come once. A damaged dictionary could tell of one as often as it has rows, every time with
// all that belongs to it.
class Once {
 public:
  void Take(const std::string& name, const std::string& what) {
    if (!names_.insert(name).second) throw support::InputError(what + ": the server tells of it twice");
  }

 private:
  std::unordered_set<std::string> names_;
};

class SystemWriter {
 public:
  SystemWriter(ObjectFactory& server, std::string system, Classes classes, std::ostream& out)
      : server_(server), system_(std::move(system)), classes_(classes), out_(out) {}

  void WriteClasses(const std::function<void(double part)>& onProgress) {
    JsonList list(out_, ", \"classes\": [", "    ");
    const std::vector<ClassRow> classes = ReadClasses();
    for (const ClassRow& row : classes) {
      if (onProgress) onProgress(static_cast<double>(&row - classes.data()) / static_cast<double>(classes.size()));
      at_ = row.Name;
      list.Next() << row.Members;
      WriteProperties(row.Name);
      WriteQueries(row.Name);
      out_ << " }";
    }
    list.End();
  }

  // Where the server was asked last.
  std::string Place() const { return "system \"" + system_ + "\"" + (at_.empty() ? "" : ", class " + at_); }

 private:
  struct ClassRow {
    std::string Name, Members;
  };

  std::vector<ClassRow> ReadClasses() {
    std::vector<ClassRow> classes;
    Once names;
    const auto rows = server_.ResultSet("%ClassDefinition", "ClassInfo");
    rows->Execute({});
    while (rows->Next()) {
      const bool isSystem = !runtime::EqualsNumber(rows->GetData(ClassColumn("System")), runtime::Int32(0));
      if (isSystem && classes_ == Classes::NoSystemClasses) continue;
      classes.push_back({ToText(rows->GetData(ClassColumn("Name"))), MembersText(Shape::Class, *rows)});
      names.Take(classes.back().Name, Place() + ", class " + classes.back().Name);
    }
    rows->Close();
    return classes;
  }

  void WriteProperties(const std::string& className) {
    const auto rows = server_.ResultSet("%CompiledProperty", "PropertyInfo");
    rows->Execute({className});
    JsonList list(out_, ", \"properties\": [", "      ");
    while (rows->Next()) list.Next() << MembersText(Shape::Property, *rows) << " }";
    list.End();
    rows->Close();
  }

  void WriteQueries(const std::string& className) {
    const auto rows = server_.ResultSet("%CompiledQuery", "QueryInfo");
    rows->Execute({className});
    JsonList list(out_, ", \"queries\": [", "      ");
    Once names;
    while (rows->Next()) {
      const std::string name = ToText(rows->GetData(QueryColumn("Name")));
      names.Take(name, Place() + ", query " + name);
      const auto query = server_.ResultSet(className, name);
      auto* const named = dynamic_cast<NamedParameters*>(query.get());
      list.Next() << MembersText(Shape::Query, *rows);
      WriteNames("columns", query->GetColumnCount(), [&](Int16 column) { return query->GetColumnName(column); });
      WriteNames("params", query->GetParamCount(),
                 [&](Int16 param) { return named ? named->GetParamName(param) : "param" + Text(param); });
      out_ << " }";
    }
    list.End();
    rows->Close();
  }

  void WriteNames(std::string_view key, Int16 count, auto nameOf) {
    if (count < Int16(1)) return;
    out_ << ", " << Quoted(key) << ": [";
    for (Int16 i(1); i <= count; i += Int16(1)) out_ << (i == Int16(1) ? "" : ", ") << Quoted(nameOf(i));
    out_ << ']';
  }

  ObjectFactory& server_;
  std::string system_;
  Classes classes_;
  std::ostream& out_;
  std::string at_;
};

// Connects to the system for as long as its classes are written.
void WriteSystem(FactoryCreator& creator, const System& system, Classes classes, std::ostream& out,
                 const std::function<void(double part)>& onProgress) {
  const auto server = creator.Create();
  SystemWriter writer(*server, system.Name, classes, out);
  try {
    if (!system.Connect.empty()) server->Connect(system.Connect);
    if (!server->IsConnected()) throw support::InputError(writer.Place() + ": the server refuses the connection");
    out << "{ \"name\": " << Quoted(system.Name) << ", \"connect\": " << Quoted(system.Connect);
    writer.WriteClasses(onProgress);
    out << " }";
    server->Disconnect();
  } catch (const runtime::RuntimeError& error) {
    throw support::InputError(writer.Place() + ": " + error.Description());
  }
}

}  // namespace

void WriteDictionary(FactoryCreator& server, const std::string& system, Classes classes, std::ostream& out,
                     const std::function<void(double part)>& onProgress) {
  const std::vector<System> systems = SystemsIn(server.Create()->SystemList());
  const support::Names names(systems, [](const System& each) { return std::string_view(each.Name); });
  const auto only = names.Find(system);
  if (!system.empty() && !only) {
    throw support::InputError("the server has no system \"" + system + "\"; " + names.Answer(system));
  }
  const auto inSystem = [&](const System& each) {
    return [&](double part) {
      if (onProgress)
        onProgress((static_cast<double>(&each - systems.data()) + part) / static_cast<double>(systems.size()));
    };
  };
  JsonList list(out, DocumentBegin, "  ");
  Once connects;
  for (const System& each : systems) {
    if (!system.empty() && &each != &systems[*only]) continue;
    connects.Take(each.Connect, "system \"" + each.Name + "\", its connect string");
    list.Next();
    WriteSystem(server, each, classes, out, inSystem(each));
  }
  list.End(std::string(DocumentBegin) + "]");
  out << " }\n";
}

}  // namespace formwizard::adapters::dictionary
