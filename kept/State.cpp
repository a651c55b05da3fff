#include "kept/State.h"

#include "vbtext/Document.h"

#include <optional>

namespace formwizard::kept {

std::vector<vbtext::Difference> DifferencesOf(const FormTexts& a, const FormTexts& b) {
  if (a == b) return {};
  const vbtext::Document first = vbtext::DocumentOf(a.Frm), second = vbtext::DocumentOf(b.Frm);
  const auto records = [](const FormTexts& form) {
    return form.Frx.empty() ? std::nullopt : std::optional<std::string_view>(form.Frx);
  };
  return vbtext::Compare({first, records(a)}, {second, records(b)});
}

bool State::IsOutdated() const {
  if (!Class.IsEmpty() || AsksOtherwise || !Problem.empty()) return true;
  return !Output.empty() && !IsMadeOtherwise();
}

std::vector<std::string_view> State::Words() const {
  if (IsMissing) return {"missing"};
  if (IsForeign) return {"base not ours"};
  std::vector<std::string_view> words;
  if (IsEdited()) words.emplace_back("edited");
  if (IsOutdated()) words.emplace_back("outdated");
  if (HasOtherSettings) words.emplace_back("made with other settings");
  if (IsOfOtherVersion && !Output.empty()) words.emplace_back("made by another version");
  if (words.empty()) words.emplace_back("unchanged");
  return words;
}

}  // namespace formwizard::kept
