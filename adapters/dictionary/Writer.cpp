#include "adapters/dictionary/Writer.h"

#include "adapters/dictionary/JsonFormat.h"
#include "adapters/dictionary/JsonText.h"
#include "runtime/Conversions.h"
#include "support/Failures.h"
#include "wizard/factory/SystemList.h"

#include <ostream>
#include <string_view>
#include <unordered_set>
#include <variant>
#include <vector>

namespace formwizard::adapters::dictionary {
namespace {

using namespace wizard::factory;

std::string ValueText(const Column& column, const Variant& value) {
  if (column.Kind != ColumnKind::Number) return Quoted(ToText(value));
  const std::string number = Text(runtime::RoundToInt32(runtime::NumericValue(value)));
  return column.Most > 1 || number == "0" ? number : "1";  // true is -1
}

// The row's columns as members of an object that goes on. What the server does not tell is left out.
std::string MembersText(Shape shape, ResultSet& row) {
  std::string text = "{ ";
  for (const Member& member : MembersOf(shape)) {
    if (!member.Of) continue;
    const Variant value = row.GetDataByName(member.Key);
    if (std::holds_alternative<runtime::Null>(value)) continue;
    text += (text.size() > 2 ? ", " : "") + Quoted(member.Key) + ": " + ValueText(*member.Of, value);
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

  void WriteClasses() {
    JsonList list(out_, "    ");
    for (const ClassRow& row : ReadClasses()) {
      at_ = row.Name;
      list.Next() << row.Members << ", \"properties\": [";
      WriteProperties(row.Name);
      out_ << ", \"queries\": [";
      WriteQueries(row.Name);
      out_ << " }";
    }
    list.End("]");
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
      const bool isSystem = !runtime::EqualsNumber(rows->GetDataByName("System"), runtime::Int32(0));
      if (isSystem && classes_ == Classes::NoSystemClasses) continue;
      classes.push_back({ToText(rows->GetDataByName("Name")), MembersText(Shape::Class, *rows)});
      names.Take(classes.back().Name, Place() + ", class " + classes.back().Name);
    }
    rows->Close();
    return classes;
  }

  void WriteProperties(const std::string& className) {
    const auto rows = server_.ResultSet("%CompiledProperty", "PropertyInfo");
    rows->Execute({className});
    JsonList list(out_, "      ");
    while (rows->Next()) list.Next() << MembersText(Shape::Property, *rows) << " }";
    list.End("]");
    rows->Close();
  }

  void WriteQueries(const std::string& className) {
    const auto rows = server_.ResultSet("%CompiledQuery", "QueryInfo");
    rows->Execute({className});
    JsonList list(out_, "      ");
    Once names;
    while (rows->Next()) {
      const std::string name = ToText(rows->GetDataByName("Name"));
      names.Take(name, Place() + ", query " + name);
      const auto query = server_.ResultSet(className, name);
      auto* const named = dynamic_cast<NamedParameters*>(query.get());
      list.Next() << MembersText(Shape::Query, *rows) << ", \"columns\": [";
      WriteNames(query->GetColumnCount(), [&](Int16 column) { return query->GetColumnName(column); });
      out_ << "], \"params\": [";
      WriteNames(query->GetParamCount(),
                 [&](Int16 param) { return named ? named->GetParamName(param) : "param" + Text(param); });
      out_ << "] }";
    }
    list.End("]");
    rows->Close();
  }

  void WriteNames(Int16 count, auto nameOf) {
    for (Int16 i(1); i <= count; i += Int16(1)) out_ << (i == Int16(1) ? "" : ", ") << Quoted(nameOf(i));
  }

  ObjectFactory& server_;
  std::string system_;
  Classes classes_;
  std::ostream& out_;
  std::string at_;
};

// Connects to the system for as long as its classes are written.
void WriteSystem(FactoryCreator& creator, const System& system, Classes classes, std::ostream& out) {
  const auto server = creator.Create();
  SystemWriter writer(*server, system.Name, classes, out);
  try {
    if (!system.Connect.empty()) server->Connect(system.Connect);
    if (!server->IsConnected()) throw support::InputError(writer.Place() + ": the server refuses the connection");
    out << "{ \"name\": " << Quoted(system.Name) << ", \"connect\": " << Quoted(system.Connect) << ", \"classes\": [";
    writer.WriteClasses();
    out << " }";
    server->Disconnect();
  } catch (const runtime::RuntimeError& error) {
    throw support::InputError(writer.Place() + ": " + error.Description());
  }
}

}  // namespace

void WriteDictionary(FactoryCreator& server, const std::string& system, Classes classes, std::ostream& out) {
  const std::string systems = server.Create()->SystemList();
  out << DocumentBegin;
  JsonList list(out, "  ");
  bool isKnown = system.empty();
  Once connects;
  for (const System& each : SystemsIn(systems)) {
    if (!system.empty() && each.Name != system) continue;
    isKnown = true;
    connects.Take(each.Connect, "system \"" + each.Name + "\", its connect string");
    list.Next();
    WriteSystem(server, each, classes, out);
  }
  list.End("] }\n");
  if (!isKnown) throw support::InputError("the server has no system \"" + system + "\"; it has " + systems);
}

}  // namespace formwizard::adapters::dictionary
