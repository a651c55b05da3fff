// The program's icons, drawn in the colours of the palette at any size and density.
#pragma once

#include <QIcon>
#include <QString>

namespace formwizard::apps::desktop {

// The picture icons/NAME.svg. What it draws in "currentColor" takes the text colour of the palette; on a selected row
// all of it takes the colour of selected text, but for badges, whose white sign would be lost. Empty for an empty name.
QIcon IconNamed(const QString& name);

}  // namespace formwizard::apps::desktop
