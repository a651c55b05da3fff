// The libraries of controls that a form names in its "Object =" lines.
#pragma once

#include "lint/Subject.h"

#include <optional>
#include <string>
#include <string_view>
#include <unordered_set>

namespace formwizard::lint {

class LibraryLines {
 public:
  explicit LibraryLines(const Subject& subject);

  // False only where it is certain that no line stands for the library: its identifier is known and not there; or there
  // is no line at all, and it is neither the environment's nor the project's own.
  bool MayHave(std::string_view library) const;

 private:
  std::unordered_set<std::string> identifiers_;
  bool hasLines_ = false;
  std::optional<std::string_view> project_;
};

}  // namespace formwizard::lint
