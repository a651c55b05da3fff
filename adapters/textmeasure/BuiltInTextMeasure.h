// Text widths that are the same on every machine.
#pragma once

#include "ui/TextMeasure.h"

namespace formwizard::adapters::textmeasure {

// Adds up the built-in advance widths; 15 twips a pixel.
class BuiltInTextMeasure : public ui::TextMeasure {
 public:
  double WidthOf(std::string_view caption) const override;
};

}  // namespace formwizard::adapters::textmeasure
