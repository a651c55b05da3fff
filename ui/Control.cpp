#include "ui/Control.h"

#include "ui/Form.h"

namespace formwizard::ui {

bool Control::IsShown() const {
  for (const Control* control = this; control; control = control->Container) {
    if (!control->Visible) return false;
  }
  return true;
}

bool Control::TakesInput() const {
  for (const Control* control = this; control; control = control->Container) {
    if (!control->Visible || !control->Enabled) return false;
  }
  return !Parent || Parent->Enabled;
}

std::string_view AccessKeyOf(std::string_view caption) {
  for (std::size_t at = caption.find('&'); at < caption.size(); at = caption.find('&', at + 2)) {
    const std::string_view rest = caption.substr(at + 1);
    if (rest.empty()) return {};
    if (rest.front() == '&') continue;
    std::size_t length = 1;
    while (length < rest.size() && (static_cast<unsigned char>(rest[length]) & 0xC0) == 0x80) ++length;
    return rest.substr(0, length);
  }
  return {};
}

}  // namespace formwizard::ui
