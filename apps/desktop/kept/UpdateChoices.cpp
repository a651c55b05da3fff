#include "apps/desktop/kept/UpdateChoices.h"

#include <algorithm>
#include <utility>

namespace formwizard::apps::desktop {

UpdateChoices::UpdateChoices(const forms::KeptForms& forms, forms::KeptForm form, Decisions decided)
    : forms_(&forms), form_(std::move(form)), decided_(std::move(decided)) {
  Merge();
}

void UpdateChoices::Choose(const std::string& conflict, merge::Choice choice) {
  const auto chosen = std::ranges::find(conflicts_, conflict, &Conflict::Name);
  if (chosen == conflicts_.end() || chosen->Takes == choice) return;
  decided_[conflict] = choice;
  Merge();
}

bool UpdateChoices::IsDecided() const {
  return std::ranges::all_of(conflicts_, [](const Conflict& each) { return each.Takes.has_value(); });
}

void UpdateChoices::Merge() {
  conflicts_.clear();
  const auto taken = [&](const std::string& name) {
    const auto found = decided_.find(name);
    return found == decided_.end() ? std::nullopt : std::optional(found->second);
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
