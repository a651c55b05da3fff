#include "adapters/sqlite/Dictionary.h"
#include "adapters/sqlite/JsonFormat.h"
#include "adapters/sqlite/OpenDictionary.h"

#include <nlohmann/json.hpp>

#include <ostream>

namespace formwizard::adapters::sqlite {
namespace {

std::string Quoted(std::string_view text) {
  return nlohmann::json(text).dump(-1, ' ', false, nlohmann::json::error_handler_t::replace);
}

// Writes elements with a comma between them, each on a line of its own below `indent`.
class List {
 public:
  List(std::ostream& out, std::string_view indent) : out_(out), indent_(indent) {}

  std::ostream& Next() { return out_ << (first_ ? (first_ = false, "\n") : ",\n") << indent_; }
  void End(std::string_view closing) {
    if (!first_) out_ << "\n" << indent_.substr(2);
    out_ << closing;
  }

 private:
  std::ostream& out_;
  std::string_view indent_;
  bool first_ = true;
};

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
    List list(out_, "  ");
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
    List list(out_, "    ");
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
    List list(out_, "      ");
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
    List list(out_, "      ");
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
