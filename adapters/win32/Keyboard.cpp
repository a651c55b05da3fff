#include "adapters/win32/Keyboard.h"

#include "adapters/win32/Text.h"

namespace formwizard::adapters::win32 {
namespace {

// A text that is reached by key is selected, so that typing replaces it.
void PressTab(FormWindow& window, bool backward) {
  window.ShownForm().PressTab(backward);
  window.ShowChanges();
  const HWND focus = GetFocus();
  if ((SendMessageW(focus, WM_GETDLGCODE, 0, 0) & DLGC_HASSETSEL) != 0) SendMessageW(focus, EM_SETSEL, 0, -1);
}

ui::UpDown* ArrowsBeside(const ui::Form& form, const ui::Control* box) {
  for (ui::Control* control : form.Controls()) {
    auto* arrows = dynamic_cast<ui::UpDown*>(control);
    if (arrows && arrows->Buddy == box) return arrows;
  }
  return nullptr;
}

bool PressArrow(FormWindow& window, WPARAM key) {
  ui::Form& form = window.ShownForm();
  ui::Control* active = form.ActiveControl();
  if (!active) return false;
  if (auto* option = dynamic_cast<ui::OptionButton*>(active)) {
    window.Act([option, by = key == VK_DOWN || key == VK_RIGHT ? 1 : -1] { option->PressArrow(by); });
    return true;
  }
  ui::UpDown* arrows = ArrowsBeside(form, active);
  if (!arrows || (key != VK_UP && key != VK_DOWN)) return false;
  window.Act([arrows, by = key == VK_UP ? 1 : -1] { arrows->Spin(by); });
  return true;
}

bool PressAccessKey(FormWindow& window, WPARAM character) {
  ui::Form& form = window.ShownForm();
  const wchar_t key = static_cast<wchar_t>(character);
  const std::string text = Utf8({&key, 1});
  if (!form.ControlOf(text)) return false;
  window.Act([&form, text] { form.PressAccessKey(text); });
  return true;
}

}  // namespace

bool PressKey(FormWindow& window, const MSG& message) {
  if (message.message == WM_SYSCHAR) return PressAccessKey(window, message.wParam);
  if (message.message != WM_KEYDOWN) return false;
  const View* view = window.ViewOf(message.hwnd);
  if (view && view->NeedsKey(message.wParam)) return false;
  ui::Form& form = window.ShownForm();
  switch (message.wParam) {
    case VK_TAB:
      window.Act([&window, backward = GetKeyState(VK_SHIFT) < 0] { PressTab(window, backward); });
      return true;
    case VK_RETURN:
      window.Act([&form] { form.PressEnter(); });
      return true;
    case VK_ESCAPE:
      window.Act([&form] { form.PressEscape(); });
      return true;
    case VK_UP:
    case VK_DOWN:
    case VK_LEFT:
    case VK_RIGHT:
      return PressArrow(window, message.wParam);
    default:
      return false;
  }
}

}  // namespace formwizard::adapters::win32
