#include "kept/State.h"

#include "vbtext/Document.h"

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>

namespace formwizard::kept {
namespace {

// The line of a library of controls up to its version; empty for anything else.
std::string_view LibraryIn(const vbtext::Difference& difference) {
  const std::string_view line = difference.What == "component" ? std::string_view(difference.Name) : "";
  return line.substr(0, line.find('#') + 1);
}

// The environment brings libraries up to date by itself, in the project and in each form that it saves.
void TakeOutNewVersions(std::vector<vbtext::Difference>& differences) {
  std::map<std::string, int, std::less<>> sides;
  for (const vbtext::Difference& each : differences) ++sides[std::string(LibraryIn(each))];
  std::erase_if(differences, [&](const vbtext::Difference& each) {
    const std::string_view library = LibraryIn(each);
    return !library.empty() && sides.find(library)->second == 2;
  });
}

}  // namespace

std::vector<vbtext::Difference> DifferencesOf(const FormTexts& a, const FormTexts& b) {
  if (a == b) return {};
  const vbtext::Document first = vbtext::DocumentOf(a.Frm), second = vbtext::DocumentOf(b.Frm);
  const auto records = [](const FormTexts& form) {
    return form.Frx.empty() ? std::nullopt : std::optional<std::string_view>(form.Frx);
  };
  std::vector<vbtext::Difference> differences = vbtext::Compare({first, records(a)}, {second, records(b)});
  TakeOutNewVersions(differences);
  return differences;
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
