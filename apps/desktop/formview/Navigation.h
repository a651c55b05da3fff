// Which control of a form the mouse or a key leads to, by index into its places; PlacedNode::None for none.
#pragma once

#include "apps/desktop/formview/FormPlaces.h"

#include <QPoint>

#include <cstddef>
#include <vector>

namespace formwizard::apps::desktop {

// What is in front there; the form, 0, where nothing stands on it.
std::size_t NodeAt(const std::vector<PlacedNode>& places, const QPoint& point);

// The nearest one in a direction, which is one pixel to a side. From the form, the first in tab order.
std::size_t Nearest(const std::vector<PlacedNode>& places, std::size_t from, const QPoint& direction);

// From what is not in the tab order, its first or last.
std::size_t NextInTabOrder(const std::vector<PlacedNode>& places, std::size_t from, bool backward);

// For each the label in front of it in the tab order of its container, which is its caption; None for none.
std::vector<std::size_t> LabelsOf(const std::vector<PlacedNode>& places);

}  // namespace formwizard::apps::desktop
