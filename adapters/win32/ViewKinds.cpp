#include "adapters/win32/ViewKinds.h"

#include <stdexcept>

namespace formwizard::adapters::win32 {

std::unique_ptr<View> MakeView(FormWindow& window, ui::Control& control) {
  for (const auto make : {MakeSimpleView, MakeFrameView, MakeListView, MakeTreeView}) {
    if (auto view = make(window, control)) return view;
  }
  throw std::logic_error("a kind of control without a view: " + control.Name);
}

}  // namespace formwizard::adapters::win32
