#include "adapters/vb6files/Designer.h"

#include "adapters/vb6files/Values.h"
#include "runtime/Conversions.h"

#include <algorithm>

namespace formwizard::adapters::vb6files {
namespace {

bool TakesChildren(const Control& container, const ControlClass& child) {
  const ClassBits bit = container.Class().Bit;
  if (child.Bit == classbit::Menu) return bit == classbit::Menu;
  return bit == classbit::Frame || bit == classbit::PictureBox;
}

}  // namespace

Control& Designer::Add(std::string_view progId, Control* container) {
  const ControlClass* known = FindControlClass(progId);
  if (!known || (!known->Library().empty() && !libraries_.Find(known->Library()))) {
    runtime::Raise(runtime::ControlNotFound, "ActiveX control '" + std::string(progId) +
                                                 "' not found: the project does not refer to its library");
  }
  if (container && !TakesChildren(*container, *known)) runtime::Raise(runtime::InvalidPropertyValue);

  Control& control = controls_.emplace_back(*this, *known, DefaultName(known->NameStem));
  byName_.emplace(runtime::LowerCase(control.name_), &control);
  control.parent_ = container;
  (container ? container->children_ : topLevel_).push_back(&control);
  if (FindProperty(known->Bit, "TabIndex")) tabOrder_.push_back(&control);
  return control;
}

std::string Designer::DefaultName(std::string_view stem) const {
  for (int number = 1;; ++number) {
    std::string name = std::string(stem) + std::to_string(number);
    if (!byName_.contains(runtime::LowerCase(name))) return name;
  }
}

const Control* Designer::Find(std::string_view name) const {
  const auto found = byName_.find(runtime::LowerCase(name));
  return found == byName_.end() ? nullptr : found->second;
}

void Designer::Rename(Control& control, std::string_view name) {
  std::string bytes = CodePageOfForm.Encode(name);
  if (bytes == control.name_) return;
  CheckObjectName(name);
  const std::string key = runtime::LowerCase(bytes);
  const auto found = byName_.find(key);
  if (found != byName_.end() && found->second != &control) {
    runtime::Raise(runtime::NameConflict, "Name conflicts: the form already has a control '" + std::string(name) + "'");
  }
  byName_.erase(runtime::LowerCase(control.name_));
  byName_.emplace(key, &control);
  control.name_ = std::move(bytes);
}

void Designer::Move(Control& control, Control& container) {
  for (const Control* above = &container; above; above = above->parent_) {
    if (above == &control) runtime::Raise(runtime::InvalidPropertyValue);
  }
  if (!TakesChildren(container, control.class_) || control.class_.Bit == classbit::Menu) {
    runtime::Raise(runtime::InvalidPropertyValue);
  }
  std::vector<Control*>& old = control.parent_ ? control.parent_->children_ : topLevel_;
  // Usually the youngest control moves, which stands last.
  old.erase(std::next(std::find(old.rbegin(), old.rend(), &control)).base());
  container.children_.push_back(&control);
  control.parent_ = &container;
}

// A permutation of 0 to n - 1: the others move up or down by one.
void Designer::SetTabIndex(Control& control, int index) {
  if (index < 0) runtime::Raise(runtime::InvalidPropertyValue);
  const auto current = std::next(std::find(tabOrder_.rbegin(), tabOrder_.rend(), &control)).base();
  const auto last = static_cast<int>(tabOrder_.size()) - 1;
  const auto target = tabOrder_.begin() + std::min(index, last);
  if (target <= current) {
    std::rotate(target, current, current + 1);
  } else {
    std::rotate(current, current + 1, target + 1);
  }
}

bool Designer::UsesLibrary(std::string_view library) const {
  return std::ranges::any_of(controls_, [&](const Control& c) { return c.class_.Library() == library; });
}

bool Designer::HasMenuBar() const {
  return std::ranges::any_of(topLevel_,
                             [](const Control* c) { return c->class_.FileLayer == Layer::Menu && c->IsVisible(); });
}

void Designer::AppendTo(std::string& out, FrxBuilder& frx) const {
  for (std::size_t i = 0; i < tabOrder_.size(); ++i) tabOrder_[i]->tabIndex_ = i;
  AppendLayers(topLevel_, out, 1, frx);
}

// Of the first two layers the youngest control comes first; menus stand in the order of the bar.
void Designer::AppendLayers(const std::vector<Control*>& controls, std::string& out, int level, FrxBuilder& frx) {
  for (const Layer layer : {Layer::Windowed, Layer::Lightweight}) {
    for (auto control = controls.rbegin(); control != controls.rend(); ++control) {
      if ((*control)->class_.FileLayer == layer) (*control)->AppendTo(out, level, frx);
    }
  }
  for (const Control* control : controls) {
    if (control->class_.FileLayer == Layer::Menu) control->AppendTo(out, level, frx);
  }
}

}  // namespace formwizard::adapters::vb6files
