// How the window says what has become of a kept form.
#pragma once

#include "apps/desktop/basics/Texts.h"
#include "apps/desktop/code/LineMargin.h"
#include "apps/desktop/kept/KeptStates.h"

#include <QString>
#include <QStringList>

#include <vector>

namespace formwizard::apps::desktop {

// "edited and outdated".
QString WordsOf(const Standing& standing, const Texts& texts);
// The pictures that stand for it.
QStringList IconsOf(const Standing& standing);
// Of more than `most` and one the first: "a, b, c and 3 more".
QString Listed(const QStringList& names, qsizetype most, const Texts& texts);
// "Notes (new), SSN (caption), Age (gone)", of many the first.
QString WordsOf(const kept::ClassChanges& changes, const Texts& texts);

// The lines of the code, which begins so many lines below the form's first, that were edited by hand.
std::vector<LineRange> EditedLines(const kept::State& state, int codeBegins);

}  // namespace formwizard::apps::desktop
