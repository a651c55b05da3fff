#include "adapters/win32/ViewKinds.h"

#include <array>
#include <stdexcept>

namespace formwizard::adapters::win32 {
namespace {

template <typename Kind>
std::unique_ptr<View> MakeIf(FormWindow& window, ui::Control& control) {
  auto* kind = dynamic_cast<Kind*>(&control);
  return kind ? MakeView(window, *kind) : nullptr;
}

// A combo box is also a list box, so it comes first.
constexpr std::array Makers{&MakeIf<ui::Label>,    &MakeIf<ui::Frame>,        &MakeIf<ui::CommandButton>,
                            &MakeIf<ui::CheckBox>, &MakeIf<ui::OptionButton>, &MakeIf<ui::TextBox>,
                            &MakeIf<ui::UpDown>,   &MakeIf<ui::PictureBox>,   &MakeIf<ui::StatusBar>,
                            &MakeIf<ui::ComboBox>, &MakeIf<ui::ListBox>,      &MakeIf<ui::TreeView>};

}  // namespace

std::unique_ptr<View> MakeView(FormWindow& window, ui::Control& control) {
  for (const auto make : Makers) {
    if (auto view = make(window, control)) return view;
  }
  throw std::logic_error("a kind of control without a view: " + control.Name);
}

}  // namespace formwizard::adapters::win32
