#include "adapters/win32/Win32TextMeasure.h"

#include "adapters/win32/Screen.h"
#include "adapters/win32/Text.h"
#include "ui/WindowFrame.h"

#include <string>

namespace formwizard::adapters::win32 {
namespace {

constexpr double DialogFontPoints = 8;

// What is drawn of a caption: "&" marks an access key, "&&" is one ampersand.
std::wstring Drawn(const std::wstring& caption) {
  std::wstring drawn;
  for (std::size_t i = 0; i < caption.size(); ++i) {
    if (caption[i] == L'&' && ++i == caption.size()) break;
    drawn += caption[i];
  }
  return drawn;
}

}  // namespace

Win32TextMeasure::Win32TextMeasure()
    : font_(MakeFont(DialogFontPoints, DesignedDotsPerInch, "MS Sans Serif", DEFAULT_CHARSET)), context_(font_.get()) {}

double Win32TextMeasure::WidthOf(std::string_view caption) const {
  const std::wstring drawn = Drawn(Wide(caption));
  SIZE size{};
  GetTextExtentPoint32W(context_, drawn.data(), static_cast<int>(drawn.size()), &size);
  return static_cast<double>(size.cx) * ui::TwipsPerPixel;
}

}  // namespace formwizard::adapters::win32
