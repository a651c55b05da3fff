#include "adapters/qt/ViewKinds.h"

#include <stdexcept>

namespace formwizard::adapters::qt {

std::unique_ptr<View> MakeView(FormWindow& window, ui::Control& control) {
  for (const auto make : {MakeSimpleView, MakeListView, MakeTreeView}) {
    if (auto view = make(window, control)) return view;
  }
  throw std::logic_error("a kind of control without a view: " + control.Name);
}

}  // namespace formwizard::adapters::qt
