// Which child of a control is which on the three sides.
#pragma once

#include "merge/Sequence.h"
#include "vbtext/Header.h"

#include <optional>
#include <vector>

namespace formwizard::merge {

// The same control on the three sides; null where it is not.
struct Trio {
  const vbtext::HeaderNode* Base = nullptr;
  const vbtext::HeaderNode* Mine = nullptr;
  const vbtext::HeaderNode* Theirs = nullptr;
};

struct Siblings {
  std::vector<Trio> All;     // that any side has
  std::optional<Row> Order;  // of what is left of them, by place in All; nothing where orders or names contradict
};

// The children of a control that all three sides have.
Siblings ChildrenOf(const Trio& node);

}  // namespace formwizard::merge
