// The port to text measurement in the dialogs' font.
#pragma once

#include <string_view>

namespace formwizard::ui {

// Measures as an auto-sizing label in the dialogs' font (8 points, 96 dots per inch) does.
class TextMeasure {
 public:
  virtual ~TextMeasure() = default;
  // In twips. The caption is UTF-8; "&" marks an access key and takes no room, "&&" is one ampersand.
  virtual double WidthOf(std::string_view caption) const = 0;
};

}  // namespace formwizard::ui
