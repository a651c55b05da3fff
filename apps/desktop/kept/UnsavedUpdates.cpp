#include "apps/desktop/kept/UnsavedUpdates.h"

#include "system/ContentSum.h"
#include "vbtext/Tokens.h"

#include <algorithm>

namespace formwizard::apps::desktop {

kept::State UnsavedUpdates::Updated::State() const {
  kept::State state;
  state.Edits = kept::DifferencesOf(Form.Sides.Theirs, Update.Form);
  return state;
}

void UnsavedUpdates::Take(const std::vector<UpdateChoices>& decided, const QDateTime& now) {
  ++commands_;
  for (const UpdateChoices& each : decided) {
    TakeBack(each.Form().Name);
    updated_.push_back({each.Form().Name, Updated{each.Form(), each.Result()}, commands_, now});
  }
}

void UnsavedUpdates::Release(const std::string& form, const QDateTime& now) {
  TakeBack(form);
  updated_.push_back({form, std::nullopt, ++commands_, now});
}

const UnsavedUpdates::Entry* UnsavedUpdates::EntryOf(const std::string& form) const {
  const auto found =
      std::ranges::find_if(updated_, [&](const Entry& each) { return vbtext::IsSameName(each.Name, form); });
  return found == updated_.end() ? nullptr : &*found;
}

bool UnsavedUpdates::IsReleased(const std::string& form) const {
  const Entry* entry = EntryOf(form);
  return entry && !entry->Form;
}

const UnsavedUpdates::Updated* UnsavedUpdates::Find(const std::string& form) const {
  const Entry* entry = EntryOf(form);
  return entry && entry->Form ? &*entry->Form : nullptr;
}

forms::KeptForm UnsavedUpdates::Look(forms::KeptForms& forms, const std::string& form, bool lists) const {
  const Updated* updated = Find(form);
  return forms.Look(form, lists, updated ? &*updated->Form.Next : nullptr);
}

std::vector<std::string> UnsavedUpdates::LastForms() const {
  std::vector<std::string> names;
  for (const Entry& each : updated_) {
    if (each.Command == updated_.back().Command) names.push_back(each.Name);
  }
  return names;
}

bool UnsavedUpdates::TakeBack(const std::string& form) {
  return std::erase_if(updated_, [&](const Entry& each) { return vbtext::IsSameName(each.Name, form); }) > 0;
}

void UnsavedUpdates::TakeBackLast() {
  if (IsEmpty()) return;
  std::erase_if(updated_, [last = updated_.back().Command](const Entry& each) { return each.Command == last; });
}

void UnsavedUpdates::Clear() {
  updated_.clear();
  decided_.clear();
}

void UnsavedUpdates::RememberDecisions(const std::vector<UpdateChoices>& forms) {
  for (const UpdateChoices& each : forms) {
    decided_[each.Form().Name] = {system::ContentSum(each.Form().Sides.Mine.Frm), each.Decided()};
  }
}

UpdateChoices::Decisions UnsavedUpdates::DecisionsOn(const forms::KeptForm& form) const {
  const auto found = decided_.find(form.Name);
  const bool isSame = found != decided_.end() && found->second.Mine == system::ContentSum(form.Sides.Mine.Frm);
  return isSame ? found->second.Choices : UpdateChoices::Decisions();
}

void UnsavedUpdates::PutInto(forms::KeptForms& forms) const {
  for (const Entry& each : updated_) {
    if (each.Form) {
      forms.Put(each.Form->Form, each.Form->Update);
    } else {
      forms.Release(each.Name);
    }
  }
}

}  // namespace formwizard::apps::desktop
