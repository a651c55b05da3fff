// What has become of a form since it was made: what was edited by hand, and what its class asks for now.
#pragma once

#include "kept/ClassChanges.h"
#include "kept/FormTexts.h"
#include "vbtext/Comparison.h"

#include <string>
#include <string_view>
#include <vector>

namespace formwizard::kept {

// As the environment sees it; lines count in the two texts. Throws vbtext::Fault for a text that is no form.
std::vector<vbtext::Difference> DifferencesOf(const FormTexts& a, const FormTexts& b);

struct State {
  bool IsMissing = false;                 // the project has no such form; nothing else is known then
  bool IsForeign = false;                 // the base is not the one that was made; nothing else is known then
  std::string Reason;                     // of either, with the remedy
  std::vector<vbtext::Difference> Edits;  // from what was generated to what stands in the project
  ClassChanges Class;
  std::string Problem;         // why the form cannot be made any longer; empty when it can
  bool AsksOtherwise = false;  // the description names another class, system or fields than the form was made with
  bool HasOtherSettings = false, IsOfOtherVersion = false;
  std::vector<vbtext::Difference> Output;  // from what was generated to what would be

  bool IsEdited() const { return !Edits.empty(); }
  // Another version or other settings alone are no fault.
  bool IsOutdated() const;
  bool IsMadeOtherwise() const { return HasOtherSettings || (IsOfOtherVersion && !Output.empty()); }
  // "unchanged", "edited", "outdated" and so on, of which more than one may hold.
  std::vector<std::string_view> Words() const;
};

}  // namespace formwizard::kept
