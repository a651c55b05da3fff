// Which properties of a class the wizard offers, and as which kind of field.
#pragma once

#include "model/FormModel.h"
#include "settings/Settings.h"
#include "wizard/factory/Factory.h"

#include <array>
#include <optional>
#include <string>

namespace formwizard::wizard {

// The row at which a result set on the properties stands. Each column is asked for once, and only when it is needed: a
// server may refuse what it does not know. The result set must outlive it.
class PropertyRow {
 public:
  PropertyRow(factory::ResultSet& rows) : rows_(rows) {}  // NOLINT(google-explicit-constructor)

  const runtime::Variant& operator[](const factory::ColumnKey& column) const;

 private:
  factory::ResultSet& rows_;
  mutable std::array<std::optional<runtime::Variant>, factory::PropertyColumns.size()> known_;
};

struct OfferedKind {
  factory::Int16 FieldKind;                                   // a code of model::kind
  factory::Int16 settings::Settings::*RowsSetting = nullptr;  // that gives its rows; null for one row
};

// What the wizard takes of the row of an offered property.
struct OfferedProperty {
  std::string Name, Caption;
  std::string Type;  // on the server; of a reference the class that it refers to
  OfferedKind Kind;
  bool IsRequired;
  bool IsObject;  // has properties of its own
  double MaxLen;  // in characters; 0 when it is not known
};

// Of a property inside `parent` or, for null, of the class itself; nothing for one that is not offered.
std::optional<OfferedProperty> ReadProperty(const PropertyRow& row, const model::FieldRecord* parent);

// Inside an object only plain values are offered.
bool IsOffered(const PropertyRow& row, bool insideObject);

// Of an offered property of the class itself. An object has a kind, too, which those inside it go by.
OfferedKind KindOf(const PropertyRow& row);
// Of one inside an object of that kind.
OfferedKind KindInside(factory::Int16 objectKind, const PropertyRow& row);

// Gives the rows of such a field; null for one that has one row.
factory::Int16 settings::Settings::*RowsSettingOf(factory::Int16 fieldKind);

// What may be missing, which a server may say by Null, is empty.
std::string TextOrEmpty(const PropertyRow& row, factory::PropertyColumn column);
bool IsNumber(const PropertyRow& row, factory::PropertyColumn column, int number);

}  // namespace formwizard::wizard
