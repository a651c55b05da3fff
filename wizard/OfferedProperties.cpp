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

std::string TextOf(const PropertyRow& row, PropertyColumn column) { return ToText(row[column]); }
std::string CollectionOf(const PropertyRow& row) { return TextOrEmpty(row, "Collection"); }

OfferedKind PlainKind(const PropertyRow& row) {
  return {IsNumber(row, "Editable", 0) ? kind::ReadOnlyLabel : kind::TextBox};
}

}  // namespace

const runtime::Variant& PropertyRow::operator[](const factory::ColumnKey& column) const {
  std::optional<runtime::Variant>& known = known_.at(column.Index);
  if (!known) known = rows_.GetData(column);
  return *known;
}

std::optional<OfferedProperty> ReadProperty(const PropertyRow& row, const model::FieldRecord* parent) {
  if (!IsOffered(row, parent != nullptr)) return {};
  OfferedProperty property{};
  property.IsRequired = IsNumber(row, "Required", 1);
  property.Name = TextOf(row, "Name");
  if (parent) {
    property.Caption = TextOrEmpty(row, "caption");  // lower case, as it is asked for
    property.Kind = KindInside(parent->FieldKind, row);
  } else {
    property.Caption = TextOf(row, "Caption");
    property.Kind = KindOf(row);
  }
  property.MaxLen = runtime::NumericValue(row[PropertyColumn("MaxLen")]);
  property.Type = TextOf(row, "Type");
  property.IsObject = IsNumber(row, "Datatype", 0);
  return property;
}

bool IsNumber(const PropertyRow& row, PropertyColumn column, int number) {
  return runtime::EqualsNumber(row[column], runtime::Int32(number));
}

std::string TextOrEmpty(const PropertyRow& row, PropertyColumn column) {
  const runtime::Variant& value = row[column];
  return std::holds_alternative<runtime::Null>(value) ? "" : ToText(value);
}

bool IsOffered(const PropertyRow& row, bool insideObject) {
  const bool isCollection = !CollectionOf(row).empty();
  const bool isObject = IsNumber(row, "Datatype", 0);
  if (insideObject && (isObject || isCollection)) return false;
  if (isCollection && isObject) return false;  // collections of objects are never offered
  return !runtime::EqualsText(row[PropertyColumn("Type")], "%Library.List");
}

OfferedKind KindOf(const PropertyRow& row) {
  const auto found = std::ranges::find(Collections, CollectionOf(row), &CollectionKind::Collection);
  if (found != Collections.end()) return found->Kind;
  if (IsNumber(row, "Datatype", 1) || IsNumber(row, "Serial", 1)) return PlainKind(row);
  return {kind::ReferenceLabel};
}

// A property inside a reference is shown through the reference itself.
OfferedKind KindInside(Int16 objectKind, const PropertyRow& row) {
  if (objectKind == kind::ReferenceLabel) return {kind::ReferenceLabel};
  return PlainKind(row);
}

Int16 settings::Settings::*RowsSettingOf(Int16 fieldKind) {
  const auto found =
      std::ranges::find(Collections, fieldKind, [](const CollectionKind& each) { return each.Kind.FieldKind; });
  return found == Collections.end() ? nullptr : found->Kind.RowsSetting;
}

}  // namespace formwizard::wizard
