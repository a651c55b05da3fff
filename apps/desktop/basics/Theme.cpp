#include "apps/desktop/basics/Theme.h"

#include <array>
#include <cmath>

namespace formwizard::apps::desktop {
namespace {

struct Colours {
  QRgb Light, Dark;
};

// In the order of the shades.
constexpr std::array<Colours, 7> Table{{
    {0xFFDCDFE3, 0xFF1C1D1F},  // canvas
    {0xFFE6F0FB, 0xFF24384F},  // message bar
    {0xFFDFF3E4, 0xFF23402D},  // new
    {0xFFFBEFD3, 0xFF453717},  // changed
    {0xFFFADFDF, 0xFF4A2626},  // gone, conflict
    {0xFFFFE9A3, 0xFF4A3C0E},  // found
    {0xFFD5D8DC, 0xFF3A3B3E},  // lines
}};

// As accessibility guidelines count it.
double Luminance(const QColor& colour) {
  const auto linear = [](double part) {
    return part <= 0.03928 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
  };
  return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) + 0.0722 * linear(colour.blueF());
}

double Contrast(const QColor& one, const QColor& other) {
  const double a = Luminance(one), b = Luminance(other);
  return (std::max(a, b) + 0.05) / (std::min(a, b) + 0.05);
}

}  // namespace

QColor ColourOf(Shade shade, const QPalette& palette) {
  const Colours& colours = Table.at(static_cast<std::size_t>(shade));
  const bool isDark = palette.color(QPalette::Window).lightness() < palette.color(QPalette::WindowText).lightness();
  return {isDark ? colours.Dark : colours.Light};
}

QColor SecondaryText(const QPalette& palette) {
  const QColor text = palette.color(QPalette::WindowText), behind = palette.color(QPalette::Window);
  const auto mixed = [](int front, int back) { return (front * 65 + back * 35) / 100; };
  return {mixed(text.red(), behind.red()), mixed(text.green(), behind.green()), mixed(text.blue(), behind.blue())};
}

QPalette ReadableHighlight(const QPalette& palette) {
  QPalette readable;
  constexpr double enough = 4.5;
  for (const QPalette::ColorGroup group : {QPalette::Active, QPalette::Inactive}) {
    QColor highlight = palette.color(group, QPalette::Highlight);
    const QColor text = palette.color(group, QPalette::HighlightedText);
    if (text.lightness() < highlight.lightness()) continue;  // dark text on a light colour
    for (int step = 0; step < 20 && Contrast(highlight, text) < enough; ++step) highlight = highlight.darker(105);
    if (highlight != palette.color(group, QPalette::Highlight))
      readable.setColor(group, QPalette::Highlight, highlight);
  }
  return readable;
}

}  // namespace formwizard::apps::desktop
