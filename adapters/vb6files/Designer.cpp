#include "adapters/vb6files/Designer.h"

#include "runtime/Conversions.h"

#include <algorithm>
#include <array>
#include <charconv>

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
  if (!known || (!known->Library.empty() && !libraries_.Find(known->Library))) {
    runtime::Raise(runtime::ControlNotFound, "ActiveX control '" + std::string(progId) +
                                                 "' not found: the project does not refer to its library");
  }
  if (container && !TakesChildren(*container, *known)) runtime::Raise(runtime::InvalidPropertyValue);

  const std::string_view name = DefaultName(known->NameStem);
  ListYoungest();
  Control& control = controls_.emplace_back(*this, *known, name);
  unlisted_ = &control;
  control.parent_ = container;
  (container ? container->children_ : topLevel_).push_back(&control);
  if (control.ValueOf("TabIndex")) tabOrder_.push_back(&control);
  return control;
}

std::string_view Designer::DefaultName(std::string_view stem) {
  std::array<char, 48> name{};
  char* const digits = name.data() + stem.copy(name.data(), 32);
  for (int number = 1;; ++number) {
    const std::string_view full(name.data(), std::to_chars(digits, name.data() + name.size(), number).ptr);
    if (!Named(full)) return texts_.Kept(full);
  }
}

Control* Designer::Named(std::string_view name) const {
  if (unlisted_ && runtime::EqualIgnoringCase(unlisted_->name_, name)) return unlisted_;
  const auto found = byName_.find(name);
  return found == byName_.end() ? nullptr : found->second;
}

void Designer::ListYoungest() {
  if (unlisted_) byName_.emplace(unlisted_->name_, unlisted_);
  unlisted_ = nullptr;
}

void Designer::Rename(Control& control, std::string_view name) {
  std::string room;
  const std::string_view bytes = CodePageOfForm.Encoded(name, room);
  if (bytes == control.name_) return;
  Check(name);
  const bool isListed = &control != unlisted_;
  if (isListed) ListYoungest();
  const std::string_view kept = texts_.Kept(bytes);
  const auto [place, isFree] = byName_.emplace(kept, &control);
  if (!isFree && place->second != &control) {
    Refuse(name, "which another control of the form has");
    runtime::Raise(runtime::NameConflict, "Name conflicts: the form already has a control '" + std::string(name) + "'");
  }
  if (isListed && isFree) byName_.erase(control.name_);
  if (!isListed) unlisted_ = nullptr;
  control.name_ = kept;
}

void Designer::Check(std::string_view name) {
  try {
    CheckObjectName(name);
  } catch (const runtime::RuntimeError&) {
    Refuse(name, ProblemOfObjectName(name));
    throw;
  }
}

void Designer::Refuse(std::string_view name, std::string_view problem) {
  if (!refused_) refused_ = {std::string(name), std::string(problem)};
}

void Designer::Move(Control& control, Control& container) {
  for (const Control* above = &container; above; above = above->parent_) {
    if (above == &control) runtime::Raise(runtime::InvalidPropertyValue);
  }
  if (!TakesChildren(container, control.class_) || control.class_.Bit == classbit::Menu) {
    runtime::Raise(runtime::InvalidPropertyValue);
  }
  std::pmr::vector<Control*>& old = control.parent_ ? control.parent_->children_ : topLevel_;
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
  return std::ranges::any_of(controls_, [&](const Control& c) { return c.class_.Library == library; });
}

bool Designer::HasMenuBar() const {
  return std::ranges::any_of(topLevel_,
                             [](const Control* c) { return c->class_.FileLayer == Layer::Menu && c->IsVisible(); });
}

void Designer::AppendTo(FormText& out, FrxBuilder& frx) const {
  for (std::size_t i = 0; i < tabOrder_.size(); ++i) tabOrder_[i]->tabIndex_ = i;
  AppendLayers(topLevel_, out, 1, frx);
}

// Of the first two layers the youngest control comes first; menus stand in the order of the bar.
void Designer::AppendLayers(const std::pmr::vector<Control*>& controls, FormText& out, int level, FrxBuilder& frx) {
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
