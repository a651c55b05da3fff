// What goes without saying of a property that a class offers.
#pragma once

#include "kept/ClassChanges.h"

#include <algorithm>
#include <string>
#include <utility>

namespace formwizard::apps::forms {

// A text without a limit, called as its path reads: "Home City". A kept description says what is otherwise.
inline kept::Property UsualProperty(std::string path) {
  std::string caption = path;
  std::ranges::replace(caption, '.', ' ');
  return {
      .Path = std::move(path), .Kind = "text", .Type = "%Library.String", .Caption = std::move(caption), .Width = ""};
}

}  // namespace formwizard::apps::forms
