#include "ui/OptionButton.h"

#include "ui/Form.h"

#include <algorithm>
#include <cstddef>

namespace formwizard::ui {

std::vector<OptionButton*> OptionButton::Group() const {
  std::vector<OptionButton*> options;
  if (!Parent) return options;
  for (Control* control : Parent->Controls()) {
    auto* option = dynamic_cast<OptionButton*>(control);
    if (option && option->Container == Container) options.push_back(option);
  }
  return options;
}

std::vector<OptionButton*> OptionButton::Choices() const {
  std::vector<OptionButton*> options = Group();
  std::erase_if(options, [](const OptionButton* option) { return !option->TakesInput(); });
  return options;
}

void OptionButton::SetValue(bool value) {
  if (std::exchange(value_, value) == value) return;
  Changed();
  if (!value) return;
  for (OptionButton* other : Group()) {
    if (other != this) other->SetValue(false);
  }
  OnClick();
}

bool OptionButton::IsTabStop() const {
  const std::vector<OptionButton*> options = Choices();
  const auto chosen = std::ranges::find_if(options, &OptionButton::Value);
  return !options.empty() && this == (chosen == options.end() ? options.front() : *chosen);
}

void OptionButton::PressArrow(int by) {
  const std::vector<OptionButton*> options = Choices();
  const auto at = std::ranges::find(options, this);
  if (at == options.end()) return;
  const auto count = static_cast<std::ptrdiff_t>(options.size());
  OptionButton& next = *options[static_cast<std::size_t>((at - options.begin() + by + count) % count)];
  Parent->SetFocus(next);
  next.Click();
}

}  // namespace formwizard::ui
