#include "ui/Form.h"

#include "runtime/Conversions.h"
#include "ui/RuntimeErrorMessage.h"

#include <algorithm>
#include <utility>

namespace formwizard::ui {
namespace {

CommandButton* FindButton(const std::vector<Control*>& controls, Property<bool> CommandButton::*role) {
  for (Control* control : controls) {
    auto* button = dynamic_cast<CommandButton*>(control);
    if (button && button->*role && button->TakesInput()) return button;
  }
  return nullptr;
}

}  // namespace

void Form::Add(Control& control, const Design& design) {
  control.Name = design.Name;
  control.Tag = design.Tag;
  control.Parent = this;
  control.Container = design.Container;
  control.Left = Int32(design.Left);
  control.Top = Int32(design.Top);
  control.Width = Int32(design.Width);
  control.Height = Int32(design.Height);
  controls_.push_back(&control);
}

void Form::Load() {
  Reopen();
  OnLoad();
}

void Form::Reopen() {
  unloaded_ = false;
  activeControl_ = nullptr;
  Enabled = true;
}

void Form::Unload() {
  if (std::exchange(unloaded_, true)) return;
  Changed();
  OnUnload();
}

void Form::ShowError(const runtime::RuntimeError& error) {
  Enabled = true;  // the event may have ended while it was busy
  ShowRuntimeError(desktop_, error, Caption);
}

void Form::SetFocus(Control& control) {
  if (!control.TakesFocus() || !control.TakesInput()) runtime::Raise(runtime::InvalidProcedureCall);
  if (std::exchange(activeControl_, &control) != &control) Changed();
}

Control* Form::NextFocus() const {
  const auto found = std::ranges::find_if(controls_, [](Control* control) {
    return control->IsTabStop() && control->TakesInput() && !dynamic_cast<CommandButton*>(control);
  });
  return found == controls_.end() ? DefaultButton() : *found;
}

CommandButton* Form::DefaultButton() const { return FindButton(controls_, &CommandButton::Default); }
CommandButton* Form::CancelButton() const { return FindButton(controls_, &CommandButton::Cancel); }

Control* Form::AnnouncedBy(const Control& label) const {
  auto next = std::ranges::find(controls_, &label);
  if (next == controls_.end()) return nullptr;
  next = std::find_if(next + 1, controls_.end(), [&](const Control* control) {
    return control->TakesFocus() && control->Container == label.Container;
  });
  return next == controls_.end() ? nullptr : *next;
}

Control* Form::ControlOf(std::string_view accessKey) const {
  // The search goes on behind the control with the focus, so that two with the same key are reached in turn.
  const auto active = std::ranges::find(controls_, ActiveControl());
  const auto start = active == controls_.end() ? 0 : active + 1 - controls_.begin();
  const auto count = static_cast<std::ptrdiff_t>(controls_.size());
  for (std::ptrdiff_t i = 0; i < count; ++i) {
    Control* control = controls_[static_cast<std::size_t>((start + i) % count)];
    const std::string_view key = AccessKeyOf(control->CaptionText());
    if (key.empty() || !control->TakesInput() || !runtime::EqualIgnoringCase(key, accessKey)) continue;
    Control* target = control->TakesFocus() ? control : AnnouncedBy(*control);
    if (target && target->TakesInput()) return target;
  }
  return nullptr;
}

void Form::PressEnter() {
  auto* button = dynamic_cast<CommandButton*>(ActiveControl());
  if (!button) button = DefaultButton();
  if (button) button->Click();
}

void Form::PressEscape() {
  if (CommandButton* button = CancelButton()) button->Click();
}

void Form::PressTab(bool backward) {
  std::vector<Control*> stops;
  std::ranges::copy_if(controls_, std::back_inserter(stops),
                       [](const Control* c) { return c->IsTabStop() && c->TakesInput(); });
  if (stops.empty()) return;
  const auto count = static_cast<std::ptrdiff_t>(stops.size());
  const auto found = std::ranges::find(stops, ActiveControl());
  std::ptrdiff_t at = backward ? 0 : -1;
  if (found != stops.end()) at = found - stops.begin();
  at = (at + (backward ? -1 : 1) + count) % count;
  SetFocus(*stops[static_cast<std::size_t>(at)]);
}

void Form::PressAccessKey(std::string_view key) {
  Control* control = ControlOf(key);
  if (!control) return;
  SetFocus(*control);
  control->PressAccessKey();
}

void Form::Close() {
  if (Enabled) Guarded([this] { Unload(); })();
}

}  // namespace formwizard::ui
