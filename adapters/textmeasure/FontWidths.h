// Advance widths of the dialogs' font: MS Sans Serif, 8 points, at 96 dots per inch.
#pragma once

#include <cstdint>

namespace formwizard::adapters::textmeasure {

// In pixels. The widths are those that the platform's own text measurement gives for this font.
int PixelsOf(char32_t character);

}  // namespace formwizard::adapters::textmeasure
