// What a server tells of its classes, row by row.
#pragma once

#include "wizard/factory/Dictionary.h"
#include "wizard/factory/Factory.h"
#include "wizard/factory/SystemList.h"

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

namespace formwizard::adapters::dictionary {

// The text of a value, of a number its digits; empty for what the server does not tell.
std::string ValueText(const wizard::factory::Column& column, const wizard::factory::Variant& value);

// A factory that is connected to the system. support::InputError when the server refuses it.
std::unique_ptr<wizard::factory::ObjectFactory> Connected(wizard::factory::FactoryCreator& server,
                                                          const wizard::factory::System& system);

// Texts in the order of the columns of a table, the name first.
using TextRow = std::vector<std::string>;

struct QueryRow {
  TextRow Values;
  std::vector<std::string> Columns, Params;
};

// The classes of one system as a dictionary has them, in the order of their names. Whatever the server refuses is
// support::InputError.
class ClassRows {
 public:
  // `source` begins messages. `server` must outlive this object.
  ClassRows(wizard::factory::FactoryCreator& server, const wizard::factory::System& system, std::string source);

  // False behind the last class.
  bool Next();
  // Of the current class.
  const TextRow& Class() const { return class_; }
  std::vector<TextRow> Properties();
  std::vector<QueryRow> Queries();

  std::size_t Count();  // of all classes

 private:
  std::vector<TextRow> RowsOf(const char* ofClass, const char* query, wizard::factory::Table table);
  QueryRow WithNames(TextRow values);
  [[noreturn]] void Fail(const std::string& reason) const;
  template <typename Action>
  auto Try(Action&& action) const;

  std::string source_, system_;
  std::unique_ptr<wizard::factory::ObjectFactory> server_;
  std::unique_ptr<wizard::factory::ResultSet> classes_;
  TextRow class_;
};

}  // namespace formwizard::adapters::dictionary
