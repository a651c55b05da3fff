// A form as bytes, and the three of them that an update knows.
#pragma once

#include <string>

namespace formwizard::kept {

struct FormTexts {
  std::string Frm;
  std::string Frx;  // empty when there is none

  bool operator==(const FormTexts&) const = default;
};

struct Sides {
  FormTexts Base;    // as it was generated
  FormTexts Mine;    // as it stands in the project
  FormTexts Theirs;  // as it would be generated now
};

}  // namespace formwizard::kept
