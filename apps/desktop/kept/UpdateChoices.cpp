#include "apps/desktop/kept/UpdateChoices.h"

#include <algorithm>
#include <utility>

namespace formwizard::apps::desktop {

UpdateChoices::UpdateChoices(const forms::KeptForms& forms, forms::KeptForm form)
    : forms_(&forms), form_(std::move(form)) {
  Merge();
}

void UpdateChoices::Choose(const std::string& conflict, merge::Choice choice) {
  const auto chosen = std::ranges::find(conflicts_, conflict, &Conflict::Name);
  if (chosen == conflicts_.end() || chosen->Takes == choice) return;
  chosen->Takes = choice;
  Merge();
}

bool UpdateChoices::IsDecided() const {
  return std::ranges::all_of(conflicts_, [](const Conflict& each) { return each.Takes.has_value(); });
}

void UpdateChoices::Merge() {
  const auto before = std::exchange(conflicts_, {});
  const auto taken = [&](const std::string& name) {
    const auto found = std::ranges::find(before, name, &Conflict::Name);
    return found == before.end() ? std::nullopt : found->Takes;
  };
  result_ = forms_->UpdateOf(
      form_, [&](const kept::UpdateConflict& each) { return taken(each.Name).value_or(merge::Choice::Mine); });
  for (const kept::UpdateConflict& each : result_.Decided) {
    const auto known = std::ranges::find(conflicts_, each.Name, &Conflict::Name);
    if (known == conflicts_.end()) {
      conflicts_.push_back({each.Name, {each}, taken(each.Name)});
    } else {
      known->Places.push_back(each);
    }
  }
}

}  // namespace formwizard::apps::desktop
