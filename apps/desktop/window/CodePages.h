// The code pages that a project can be in, for its user to choose one.
#pragma once

#include "apps/desktop/basics/Texts.h"

#include <QWidget>

#include <optional>
#include <vector>

namespace formwizard::apps::desktop {

// Those that the command line takes.
std::vector<int> CodePages();

// Asks over the window; nothing where the user cancels.
std::optional<int> AskForCodePage(QWidget& window, const Texts& texts, const QString& project, int current);

}  // namespace formwizard::apps::desktop
