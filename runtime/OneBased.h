// A dynamic array whose lower bound is 1 and whose every access is checked.
#pragma once

#include "runtime/Integer.h"

#include <cstddef>
#include <vector>

namespace formwizard::runtime {

// An index outside 1 to UpperBound() raises run-time error 9. Iteration runs from 1 to the upper bound.
template <typename T>
class OneBased {
 public:
  OneBased() = default;
  explicit OneBased(Int16 upperBound) : items_(Size(upperBound)) {}

  Int16 UpperBound() const { return Int16(items_.size()); }

  T& operator[](Int16 index) { return items_[Offset(index)]; }
  const T& operator[](Int16 index) const { return items_[Offset(index)]; }

  // Keeps the old items; new ones are value-initialized.
  void ReDimPreserve(Int16 upperBound) { items_.resize(Size(upperBound)); }

  auto begin() { return items_.begin(); }
  auto end() { return items_.end(); }
  auto begin() const { return items_.begin(); }
  auto end() const { return items_.end(); }

 private:
  static std::size_t Size(Int16 upperBound) {
    if (upperBound < Int16(0)) Raise(SubscriptOutOfRange);
    return static_cast<std::size_t>(upperBound.Value());
  }
  std::size_t Offset(Int16 index) const {
    if (index < Int16(1) || static_cast<std::size_t>(index.Value()) > items_.size()) Raise(SubscriptOutOfRange);
    return static_cast<std::size_t>(index.Value()) - 1;
  }

  std::vector<T> items_;
};

}  // namespace formwizard::runtime
