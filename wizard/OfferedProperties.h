// Which properties of a class the wizard offers, and as which kind of field.
#pragma once

#include "settings/Settings.h"
#include "wizard/factory/Factory.h"

#include <string>

namespace formwizard::wizard {

struct OfferedKind {
  factory::Int16 FieldKind;                                   // a code of model::kind
  factory::Int16 settings::Settings::*RowsSetting = nullptr;  // that gives its rows; null for one row
};

// Inside an object only plain values are offered.
bool IsOffered(factory::ResultSet& row, bool insideObject);

// Of an offered property of the class itself. An object has a kind, too, which those inside it go by.
OfferedKind KindOf(factory::ResultSet& row);
// Of one inside an object of that kind.
OfferedKind KindInside(factory::Int16 objectKind, factory::ResultSet& row);

// What may be missing, which a server may say by Null, is empty.
std::string TextOrEmpty(factory::ResultSet& row, factory::PropertyColumn column);
bool IsNumber(factory::ResultSet& row, factory::PropertyColumn column, int number);

}  // namespace formwizard::wizard
