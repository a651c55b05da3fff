#include "wizard/OfferedProperties.h"

#include "model/ControlKinds.h"

#include <algorithm>
#include <array>

namespace formwizard::wizard {
namespace {

namespace kind = model::kind;
using factory::Int16;
using factory::PropertyColumn;

// What a collection's control is, and the setting that gives its rows.
struct CollectionKind {
  std::string_view Collection;
  OfferedKind Kind;
};

constexpr std::array Collections{
    CollectionKind{"list", {kind::ListBox, &settings::Settings::CollectionRows}},
    CollectionKind{"array", {kind::ListView, &settings::Settings::CollectionRows}},
    CollectionKind{"binarystream", {kind::Picture, &settings::Settings::ImageRows}},
    CollectionKind{"characterstream", {kind::MultiLine, &settings::Settings::MultilineRows}},
};

std::string CollectionOf(factory::ResultSet& row) { return TextOrEmpty(row, "Collection"); }

OfferedKind PlainKind(factory::ResultSet& row) {
  return {IsNumber(row, "Editable", 0) ? kind::ReadOnlyLabel : kind::TextBox};
}

}  // namespace

bool IsNumber(factory::ResultSet& row, PropertyColumn column, int number) {
  return runtime::EqualsNumber(row.GetData(column), runtime::Int32(number));
}

std::string TextOrEmpty(factory::ResultSet& row, PropertyColumn column) {
  const runtime::Variant value = row.GetData(column);
  return std::holds_alternative<runtime::Null>(value) ? "" : ToText(value);
}

bool IsOffered(factory::ResultSet& row, bool insideObject) {
  const bool isCollection = !CollectionOf(row).empty();
  const bool isObject = IsNumber(row, "Datatype", 0);
  if (insideObject && (isObject || isCollection)) return false;
  if (isCollection && isObject) return false;  // collections of objects are never offered
  return !runtime::EqualsText(row.GetData(PropertyColumn("Type")), "%Library.List");
}

OfferedKind KindOf(factory::ResultSet& row) {
  const auto found = std::ranges::find(Collections, CollectionOf(row), &CollectionKind::Collection);
  if (found != Collections.end()) return found->Kind;
  if (IsNumber(row, "Datatype", 1) || IsNumber(row, "Serial", 1)) return PlainKind(row);
  return {kind::ReferenceLabel};
}

// A property inside a reference is shown through the reference itself.
OfferedKind KindInside(Int16 objectKind, factory::ResultSet& row) {
  if (objectKind == kind::ReferenceLabel) return {kind::ReferenceLabel};
  return PlainKind(row);
}

}  // namespace formwizard::wizard
