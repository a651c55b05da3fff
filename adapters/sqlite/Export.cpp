#include "adapters/sqlite/Dictionary.h"
#include "adapters/sqlite/JsonFormat.h"
#include "adapters/sqlite/JsonText.h"
#include "adapters/sqlite/OpenDictionary.h"

#include <ostream>

namespace formwizard::adapters::sqlite {
namespace {

class Exporter {
 public:
  Exporter(Database& file, std::ostream& out)
      : out_(out),
        systems_(file.Prepare("SELECT id, name, connect FROM systems ORDER BY id")),
        classes_(file.Prepare("SELECT id, name, is_system, is_persistent FROM classes WHERE system = ?1 ORDER BY id")),
        properties_(file.Prepare("SELECT name, caption, type, datatype, serial, collection, required, editable, "
                                 "max_len FROM properties WHERE class = ?1 ORDER BY position")),
        queries_(file.Prepare("SELECT id, name, contain_id FROM queries WHERE class = ?1 ORDER BY id")),
        columns_(file.Prepare("SELECT name FROM query_columns WHERE query = ?1 ORDER BY position")),
        params_(file.Prepare("SELECT name FROM query_params WHERE query = ?1 ORDER BY position")) {}

  void Write() {
    out_ << "{ \"systems\": [";
    JsonList list(out_, "  ");
    while (systems_.Step()) {
      list.Next() << "{ \"name\": " << Quoted(systems_.Text(1)) << ", \"connect\": " << Quoted(systems_.Text(2))
                  << ", \"classes\": [";
      WriteClasses(systems_.Number(0));
      out_ << " }";
    }
    list.End("] }\n");
  }

 private:
  static Statement& Rewound(Statement& statement, std::int64_t owner) {
    statement.Reset();
    statement.Bind(1, owner);
    return statement;
  }

  void WriteClasses(std::int64_t system) {
    JsonList list(out_, "    ");
    for (Statement& row = Rewound(classes_, system); row.Step();) {
      list.Next() << "{ \"Name\": " << Quoted(row.Text(1)) << ", \"System\": " << row.Number(2)
                  << ", \"Persistent\": " << row.Number(3) << ", \"properties\": [";
      WriteProperties(row.Number(0));
      out_ << ", \"queries\": [";
      WriteQueries(row.Number(0));
      out_ << " }";
    }
    list.End("]");
  }

  void WriteProperties(std::int64_t owner) {
    JsonList list(out_, "      ");
    for (Statement& row = Rewound(properties_, owner); row.Step();) {
      list.Next() << "{ ";
      int column = 0;
      for (const Member& member : MembersOf(Shape::Property)) {
        const bool isNumber = member.Type == MemberType::Flag || member.Type == MemberType::Count;
        out_ << (column == 0 ? "" : ", ") << Quoted(member.Key) << ": ";
        if (isNumber) {
          out_ << row.Number(column);
        } else {
          out_ << Quoted(row.Text(column));
        }
        ++column;
      }
      out_ << " }";
    }
    list.End("]");
  }

  void WriteQueries(std::int64_t owner) {
    JsonList list(out_, "      ");
    for (Statement& row = Rewound(queries_, owner); row.Step();) {
      list.Next() << "{ \"Name\": " << Quoted(row.Text(1)) << ", \"ContainId\": " << row.Number(2) << ", \"columns\": ";
      WriteNames(Rewound(columns_, row.Number(0)));
      out_ << ", \"params\": ";
      WriteNames(Rewound(params_, row.Number(0)));
      out_ << " }";
    }
    list.End("]");
  }

  void WriteNames(Statement& names) {
    out_ << "[";
    for (bool first = true; names.Step(); first = false) out_ << (first ? "" : ", ") << Quoted(names.Text(0));
    out_ << "]";
  }

  std::ostream& out_;
  Statement systems_, classes_, properties_, queries_, columns_, params_;
};

}  // namespace

void ExportDictionary(const std::string& path, std::ostream& out) {
  Database file = OpenDictionaryFile(path);
  Exporter(file, out).Write();
}

}  // namespace formwizard::adapters::sqlite
