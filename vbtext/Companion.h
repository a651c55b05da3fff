// The .frx beside a form, which holds what has no place in a line: pictures, long texts, lists.
#pragma once

#include "vbtext/Header.h"

#include <cstddef>
#include <optional>
#include <string_view>
#include <vector>

namespace formwizard::vbtext {

// A value such as $"frmPerson.frx":0646, taken apart.
struct CompanionReference {
  std::string_view File;  // without its quotes
  std::size_t Offset;
  bool IsText;  // has the "$" in front
};

// Nothing for a value that refers to no companion.
std::optional<CompanionReference> ReferenceIn(std::string_view value);

// The records of a companion file. They follow one another, in the order of the references in the form.
class Companion {
 public:
  // Bytes of the file, which must outlive this object; nothing when it is not there or cannot be read.
  Companion(const HeaderNode& form, std::optional<std::string_view> bytes);

  // All bytes from the offset to that of the next reference. Nothing when the file does not reach so far, or is not
  // there.
  std::optional<std::string_view> RecordAt(std::size_t offset) const;

 private:
  std::optional<std::string_view> bytes_;
  std::vector<std::size_t> offsets_;  // ascending
};

}  // namespace formwizard::vbtext
