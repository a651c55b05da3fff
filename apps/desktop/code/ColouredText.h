// Code as it is copied: its text, and the same with its colours.
#pragma once

#include <QMimeData>
#include <QTextCursor>

namespace formwizard::apps::desktop {

// What is selected. In the colours for a white page, unless it is too much to be coloured; who takes it over owns it.
QMimeData* ColouredText(const QTextCursor& selection, const QString& fontFamily);

}  // namespace formwizard::apps::desktop
