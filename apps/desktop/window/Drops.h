// Files that are dropped on a window.
#pragma once

#include <QStringList>
#include <QWidget>

#include <functional>

namespace formwizard::apps::desktop {

// Has the window take files that the program can open, projects, dictionaries and toolboxes, as long as it lives.
// `open` is called with them once whoever dropped them need not wait for what is asked.
void TakeDrops(QWidget& window, std::function<void(const QStringList& files)> open);

}  // namespace formwizard::apps::desktop
