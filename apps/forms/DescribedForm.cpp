#include "apps/forms/DescribedForm.h"

#include "apps/forms/PropertyTree.h"
#include "settings/Settings.h"
#include "support/Failures.h"
#include "wizard/OfferedProperties.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <string_view>

namespace formwizard::apps::forms {
namespace {

using wizard::factory::ObjectFactory;

// Of a column. It holds some more; the last field of one may stick out of its share.
constexpr std::size_t RowsOfColumn = 80;

bool IsOfferedClass(ObjectFactory& factory, const std::string& name) {
  using wizard::factory::ClassColumn;
  const auto rows = factory.ResultSet("%ClassDefinition", "ClassInfo");
  rows->Execute({});
  while (rows->Next()) {
    if (!runtime::EqualsText(rows->GetData(ClassColumn("Name")), name)) continue;
    return runtime::EqualsNumber(rows->GetData(ClassColumn("System")), runtime::Int32(0)) &&
           runtime::EqualsNumber(rows->GetData(ClassColumn("Persistent")), runtime::Int32(1));
  }
  return false;
}

// One that a description may hold, which a server need not know.
bool IsLine(std::string_view text) { return text.find_first_of(std::string_view("\r\n\0", 3)) == text.npos; }

std::string Dumped(const nlohmann::json& value) {
  return value.dump(-1, ' ', false, nlohmann::json::error_handler_t::replace);
}

std::string FieldOf(const TreeProperty& property) {
  std::string field = "{ \"property\": " + Dumped(property.Path);
  if (IsLine(property.Caption)) field += ", \"caption\": " + Dumped(property.Caption);
  if (property.Kind == "label") field += ", \"readOnly\": true";
  return field + " }";
}

}  // namespace

std::string DescribeForm(ObjectFactory& factory, const std::string& source, const std::string& className,
                         std::ostream& out) {
  if (!IsOfferedClass(factory, className)) {
    throw support::InputError(source + ": no form can be made for class \"" + className +
                              "\", which is not persistent or is the server's own; see \"ostrel-form-wizard classes\"");
  }
  std::string fields;
  std::size_t rows = 0;
  ForEachProperty(factory, className, false, [&](const TreeProperty& property, wizard::factory::ResultSet&) {
    if (!property.IsField()) return;
    fields += (fields.empty() ? "\n    " : ",\n    ") + FieldOf(property);
    rows += static_cast<std::size_t>(property.RowCount.Value());
  });
  if (fields.empty()) {
    throw support::InputError(source + ": no form can be made for class \"" + className +
                              "\", which has no property that a form can show; choose another class");
  }
  const auto most = static_cast<std::size_t>(settings::MostColumns.Value());
  const std::size_t columns = std::min((rows + RowsOfColumn - 1) / RowsOfColumn, most);
  out << "{ \"class\": " << Dumped(className) << ",\n";
  if (columns > 1) out << "  \"settings\": { \"Columns\": " << columns << " },\n";
  out << "  \"fields\": [" << fields << " ] }\n";
  if (rows <= most * RowsOfColumn) return "";
  return "class \"" + className + "\" has " + std::to_string(rows) + " rows of fields, and a form holds about " +
         std::to_string(most * RowsOfColumn) + ": take fields out of the description before you generate";
}

}  // namespace formwizard::apps::forms
