// Views by the kind of their control. Each of these returns null for a control of another kind.
#pragma once

#include "adapters/qt/View.h"

namespace formwizard::adapters::qt {

std::unique_ptr<View> MakeSimpleView(FormWindow& window, ui::Control& control);
std::unique_ptr<View> MakeListView(FormWindow& window, ui::Control& control);
std::unique_ptr<View> MakeTreeView(FormWindow& window, ui::Control& control);

}  // namespace formwizard::adapters::qt
