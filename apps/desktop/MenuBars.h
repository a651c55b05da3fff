// The main window's menus as the command bars that an add-in sees.
#pragma once

#include "generator/ide/CommandBars.h"

#include <QMenu>

#include <memory>

namespace formwizard::apps::desktop {

// The controls of the environment's menu bar. Only its Add-Ins menu is there; the other positions are empty.
std::shared_ptr<generator::ide::CommandBarControls> MenuBarWith(QMenu& addInsMenu);

// Clicks on a control of these menus.
std::unique_ptr<generator::ide::CommandBarEvents> ConnectClicks(
    const std::shared_ptr<generator::ide::CommandBarControl>& control, generator::ide::CommandBarEvents::Click onClick);

}  // namespace formwizard::apps::desktop
