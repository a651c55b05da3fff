#include "adapters/textmeasure/BuiltInTextMeasure.h"

#include "adapters/textmeasure/FontWidths.h"
#include "ui/WindowFrame.h"

#include <algorithm>

namespace formwizard::adapters::textmeasure {
namespace {

constexpr char32_t Replacement = 0xFFFD;

// Takes the next character off a UTF-8 text; a damaged one counts as one replacement character a byte.
char32_t TakeCharacter(std::string_view& text) {
  const auto lead = static_cast<unsigned char>(text.front());
  const std::size_t length = lead < 0x80 ? 1 : lead < 0xC0 ? 0 : lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
  if (length == 0 || length > text.size()) {
    text.remove_prefix(1);
    return Replacement;
  }
  char32_t character = length == 1 ? lead : lead & (0x7Fu >> length);
  for (std::size_t i = 1; i < length; ++i) character = (character << 6) | (static_cast<unsigned char>(text[i]) & 0x3Fu);
  text.remove_prefix(length);
  return character;
}

}  // namespace

double BuiltInTextMeasure::WidthOf(std::string_view caption) const {
  int pixels = 0;
  while (!caption.empty()) {
    // "&" marks an access key and is not drawn, "&&" is one that is.
    if (caption.starts_with('&')) {
      caption.remove_prefix(1);
      if (caption.empty()) break;
    }
    pixels += PixelsOf(TakeCharacter(caption));
  }
  return pixels * ui::TwipsPerPixel;
}

}  // namespace formwizard::adapters::textmeasure
