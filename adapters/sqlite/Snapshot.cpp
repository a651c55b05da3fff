#include "adapters/sqlite/Snapshot.h"

#include "adapters/sqlite/JsonFormat.h"
#include "adapters/sqlite/JsonText.h"
#include "runtime/Conversions.h"
#include "support/Failures.h"
#include "wizard/factory/SystemList.h"

#include <ostream>
#include <string_view>
#include <variant>
#include <vector>

namespace formwizard::adapters::sqlite {
namespace {

using wizard::factory::Int16;
using wizard::factory::ObjectFactory;
using wizard::factory::Variant;

bool IsNull(const Variant& value) { return std::holds_alternative<runtime::Null>(value); }

std::string Number(const Variant& value) { return Text(runtime::RoundToInt32(runtime::NumericValue(value))); }

std::string ValueText(const Member& member, const Variant& value) {
  if (member.Type == MemberType::Count) return Number(value);
  if (member.Type == MemberType::Flag) return Number(value) == "0" ? "0" : "1";
  return Quoted(ToText(value));
}

struct ClassRow {
  std::string Name, System, Persistent;
};

class Snapshot {
 public:
  Snapshot(ObjectFactory& server, std::string system, std::ostream& out)
      : server_(server), system_(std::move(system)), out_(out) {}

  void WriteClasses() {
    JsonList list(out_, "    ");
    for (const ClassRow& row : Classes()) {
      at_ = row.Name;
      list.Next() << "{ \"Name\": " << Quoted(row.Name) << ", \"System\": " << row.System
                  << ", \"Persistent\": " << row.Persistent << ", \"properties\": [";
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
  std::vector<ClassRow> Classes() {
    std::vector<ClassRow> classes;
    const auto rows = server_.ResultSet("%ClassDefinition", "ClassInfo");
    rows->Execute({});
    while (rows->Next()) {
      const Variant isSystem = rows->GetDataByName("System");
      if (!runtime::EqualsNumber(isSystem, runtime::Int32(0))) continue;
      classes.push_back(
          {ToText(rows->GetDataByName("Name")), Number(isSystem), Number(rows->GetDataByName("Persistent"))});
    }
    rows->Close();
    return classes;
  }

  void WriteProperties(const std::string& className) {
    const auto rows = server_.ResultSet("%CompiledProperty", "PropertyInfo");
    rows->Execute({className});
    JsonList list(out_, "      ");
    while (rows->Next()) {
      list.Next() << "{ ";
      bool isFirst = true;
      for (const Member& member : MembersOf(Shape::Property)) {
        const Variant value = rows->GetDataByName(member.Key);
        if (IsNull(value)) continue;
        out_ << (isFirst ? "" : ", ") << Quoted(member.Key) << ": " << ValueText(member, value);
        isFirst = false;
      }
      out_ << " }";
    }
    list.End("]");
    rows->Close();
  }

  void WriteQueries(const std::string& className) {
    const auto rows = server_.ResultSet("%CompiledQuery", "QueryInfo");
    rows->Execute({className});
    JsonList list(out_, "      ");
    while (rows->Next()) {
      const std::string name = ToText(rows->GetDataByName("Name"));
      list.Next() << "{ \"Name\": " << Quoted(name) << ", \"ContainId\": " << Number(rows->GetDataByName("ContainId"))
                  << ", \"columns\": [";
      const auto query = server_.ResultSet(className, name);
      const Int16 columns = query->GetColumnCount();
      for (Int16 i(1); i <= columns; i += Int16(1)) {
        out_ << (i == Int16(1) ? "" : ", ") << Quoted(query->GetColumnName(i));
      }
      out_ << "], \"params\": [";  // the server tells how many there are, not their names
      const Int16 params = query->GetParamCount();
      for (Int16 i(1); i <= params; i += Int16(1))
        out_ << (i == Int16(1) ? "\"" : ", \"") << "param" << Text(i) << "\"";
      out_ << "] }";
    }
    list.End("]");
    rows->Close();
  }

  ObjectFactory& server_;
  std::string system_;
  std::ostream& out_;
  std::string at_;
};

// Connects to the system for as long as its classes are written.
void WriteSystem(wizard::factory::FactoryCreator& creator, const std::string& name, const std::string& connect,
                 std::ostream& out) {
  const auto server = creator.Create();
  Snapshot snapshot(*server, name, out);
  try {
    if (!connect.empty()) server->Connect(connect);
    if (!server->IsConnected()) throw support::InputError(snapshot.Place() + ": the server refuses the connection");
    out << "{ \"name\": " << Quoted(name) << ", \"connect\": " << Quoted(connect) << ", \"classes\": [";
    snapshot.WriteClasses();
    out << " }";
    server->Disconnect();
  } catch (const runtime::RuntimeError& error) {
    throw support::InputError(snapshot.Place() + ": " + error.Description());
  }
}

}  // namespace

void WriteSnapshot(wizard::factory::FactoryCreator& server, const std::string& system, std::ostream& out) {
  const std::string systems = server.Create()->SystemList();
  out << "{ \"systems\": [";
  JsonList list(out, "  ");
  bool isKnown = system.empty();
  for (const auto& [name, connect] : wizard::factory::SystemsIn(systems)) {
    if (!system.empty() && name != system) continue;
    isKnown = true;
    list.Next();
    WriteSystem(server, name, connect, out);
  }
  list.End("] }\n");
  if (!isKnown) throw support::InputError("the server has no system \"" + system + "\"; it has " + systems);
}

}  // namespace formwizard::adapters::sqlite
