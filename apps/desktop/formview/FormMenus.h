// A menu of a form as a real one.
#pragma once

#include "adapters/vb6files/FormTree.h"

#include <QPoint>
#include <QWidget>

#include <functional>

namespace formwizard::apps::desktop {

// Opens it at a place of the screen and returns at once; it goes when it is closed. An entry that is chosen is passed
// on. The form must live as long as `owner` shows it.
void PopUpMenu(QWidget& owner, const adapters::vb6files::FormNode& menu, const QPoint& place,
               const std::function<void(const adapters::vb6files::FormNode& entry)>& onEntry);

}  // namespace formwizard::apps::desktop
