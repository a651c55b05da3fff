// The colours of the window that the palette does not have, in a light and in a dark theme.
#pragma once

#include <QColor>
#include <QPalette>

#include <cstdint>

namespace formwizard::apps::desktop {

enum class Shade : std::uint8_t { Canvas, MessageBar, New, Changed, Gone, Found, Lines };

// Of a dark theme where the palette's background is dark.
QColor ColourOf(Shade shade, const QPalette& palette);

// Texts of lesser weight: the text colour at 65 %, on the palette's background.
QColor SecondaryText(const QPalette& palette);

// A highlight dark enough for its text, where that of the palette is not: nothing else of what is given back is set.
QPalette ReadableHighlight(const QPalette& palette);

}  // namespace formwizard::apps::desktop
