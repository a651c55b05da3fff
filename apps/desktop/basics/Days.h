// How a day is called.
#pragma once

#include "apps/desktop/basics/Texts.h"

#include <QDate>

namespace formwizard::apps::desktop {

// "today", "yesterday", else as the user's language writes it; empty for no day.
QString DayText(const Texts& texts, const QDate& day);

}  // namespace formwizard::apps::desktop
