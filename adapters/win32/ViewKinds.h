// Makes the view of one kind of control.
#pragma once

#include "adapters/win32/View.h"

namespace formwizard::adapters::win32 {

std::unique_ptr<View> MakeView(FormWindow& window, ui::Label& control);
std::unique_ptr<View> MakeView(FormWindow& window, ui::Frame& control);
std::unique_ptr<View> MakeView(FormWindow& window, ui::CommandButton& control);
std::unique_ptr<View> MakeView(FormWindow& window, ui::CheckBox& control);
std::unique_ptr<View> MakeView(FormWindow& window, ui::OptionButton& control);
std::unique_ptr<View> MakeView(FormWindow& window, ui::TextBox& control);
std::unique_ptr<View> MakeView(FormWindow& window, ui::UpDown& control);
std::unique_ptr<View> MakeView(FormWindow& window, ui::PictureBox& control);
std::unique_ptr<View> MakeView(FormWindow& window, ui::StatusBar& control);
std::unique_ptr<View> MakeView(FormWindow& window, ui::ListBox& control);
std::unique_ptr<View> MakeView(FormWindow& window, ui::ComboBox& control);
std::unique_ptr<View> MakeView(FormWindow& window, ui::TreeView& control);

}  // namespace formwizard::adapters::win32
