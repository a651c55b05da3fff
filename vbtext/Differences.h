// The differences that a comparison finds, and the parts of one.
#pragma once

#include "vbtext/Companion.h"
#include "vbtext/Comparison.h"
#include "vbtext/Document.h"
#include "vbtext/Header.h"

#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace formwizard::vbtext {

class Differences {
 public:
  void Add(Change kind, std::string_view what, std::string name, std::optional<LineRange> a,
           std::optional<LineRange> b) {
    all_.push_back({kind, what, std::move(name), a, b});
  }
  // What only one side has.
  void AddOneSided(std::string_view what, const std::string& name, LineRange lines, bool isOfA) {
    if (isOfA) {
      Add(Change::Removed, what, name, lines, std::nullopt);
    } else {
      Add(Change::Added, what, name, std::nullopt, lines);
    }
  }
  std::vector<Difference> Take() { return std::move(all_); }

 private:
  std::vector<Difference> all_;
};

// Controls, their properties, their order and the tab order.
void CompareHeaders(const HeaderNode& a, const Companion& recordsA, const HeaderNode& b, const Companion& recordsB,
                    Differences& differences);

// Declarations, comments outside of procedures, directives and procedures.
void CompareCode(const Document& a, const Document& b, Differences& differences);

}  // namespace formwizard::vbtext
