// Which property of a control is which on the three sides.
#pragma once

#include "vbtext/Header.h"

#include <vector>

namespace formwizard::merge {

using Properties = std::vector<vbtext::HeaderProperty>;

// Null on a side that has no such property.
struct PropertyTrio {
  const vbtext::HeaderProperty* Base = nullptr;
  const vbtext::HeaderProperty* Mine = nullptr;
  const vbtext::HeaderProperty* Theirs = nullptr;
};

// Those of mine in their order, then those of base that mine lacks, then those that only theirs has. A header may hold
// a property twice: the second one of a name is the second one elsewhere.
std::vector<PropertyTrio> PropertiesOf(const Properties& base, const Properties& mine, const Properties& theirs);

}  // namespace formwizard::merge
