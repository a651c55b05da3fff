// What becomes of a form, in a few lines to be asked about.
#pragma once

#include "apps/desktop/basics/Texts.h"
#include "apps/desktop/kept/UpdateChoices.h"
#include "system/CodePage.h"

#include <QString>
#include <QStringList>

#include <string>
#include <vector>

namespace formwizard::apps::desktop {

// "a, b, c and 3 more".
QString Listed(const Texts& texts, const std::vector<std::string>& names);

// What is new, changed and gone, by controls and procedures, and what else there is to know.
QString SummaryOf(const Texts& texts, const UpdateChoices& update, const system::CodePage& codePage);

// What both have changed.
QString ConflictsIn(const Texts& texts, const UpdateChoices& update, const system::CodePage& codePage);

}  // namespace formwizard::apps::desktop
