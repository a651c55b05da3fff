// Texts on forms, laid out by the widths of the environment's own font, so that a line breaks where it does there and
// nothing is cut off, whatever font stands in for it. Measures are pixels at 96 dots per inch.
#pragma once

#include "adapters/vb6files/FormTree.h"

#include <QPainter>
#include <QRect>
#include <QString>

#include <cstdint>
#include <string_view>

namespace formwizard::apps::desktop {

// Flag of DrawText beside Qt's: an ampersand underlines the next character.
constexpr int WithAccessKey = Qt::TextShowMnemonic;

// In the control's font and its colour, grey when it is disabled. Of Qt's flags those of alignment, and TextSingleLine,
// TextWordWrap and TextWrapAnywhere.
void DrawText(QPainter& painter, const QRect& place, int flags, std::string_view utf8,
              const adapters::vb6files::FormNode& control, std::uint32_t defaultColor);

// What a line takes without the mark of its access key, and how high any line is.
int WidthOfLine(const adapters::vb6files::FormNode& control, std::string_view utf8);
int HeightOfLine(const adapters::vb6files::FormNode& control);

// Without the mark of the access key.
QString WithoutMarks(const QString& text);

// As much of a text as is drawn.
QString ShownText(std::string_view utf8);

}  // namespace formwizard::apps::desktop
