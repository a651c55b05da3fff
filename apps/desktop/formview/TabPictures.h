// Controls that show one of several pages under a row of tabs.
#pragma once

#include "adapters/vb6files/FormTree.h"

#include <QPainter>
#include <QRect>

namespace formwizard::apps::desktop {

// Its pages hold controls; those of the pages that are not shown stand far off to the left.
void DrawPagedTabs(QPainter& painter, const adapters::vb6files::FormNode& control, const QRect& place);
// Tabs alone: what it shows stands beside it on the form.
void DrawTabStrip(QPainter& painter, const adapters::vb6files::FormNode& control, const QRect& place);

}  // namespace formwizard::apps::desktop
