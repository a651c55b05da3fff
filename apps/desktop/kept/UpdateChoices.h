// The update of one kept form while the user decides what becomes of what both changed.
#pragma once

#include "apps/forms/KeptForms.h"
#include "kept/Update.h"
#include "merge/Options.h"

#include <cstddef>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace formwizard::apps::desktop {

// Whoever makes a form anew, from its class or from other choices, gives what KeptForms::Look told of it, with
// Sides.Theirs and Next as they shall become. The update view shows the choices; UnsavedUpdates takes them when they
// are decided.
class UpdateChoices {
 public:
  // By the names of conflicts.
  using Decisions = std::map<std::string, merge::Choice>;

  // All places of one name, which are decided together.
  struct Conflict {
    std::string Name;  // "procedure Sub cmd__Save_Click", in bytes
    std::vector<kept::UpdateConflict> Places;
    std::optional<merge::Choice> Takes;  // mine or theirs; nothing until the user has chosen
  };

  // `forms` must outlive this object. What is `decided` of it is chosen at first. vbtext::Fault for a text that is no
  // form.
  UpdateChoices(const forms::KeptForms& forms, forms::KeptForm form, Decisions decided = {});

  const forms::KeptForm& Form() const { return form_; }
  // In the order of the form. What is decided may bring up another one.
  const std::vector<Conflict>& Conflicts() const { return conflicts_; }
  void Choose(const std::string& conflict, merge::Choice choice);
  bool IsDecided() const;
  // Also on conflicts that another choice has taken away.
  const Decisions& Decided() const { return decided_; }
  // The form as it becomes; where nothing is chosen yet, with what stands in the project.
  const kept::Update& Result() const { return result_; }

 private:
  void Merge();

  const forms::KeptForms* forms_;
  forms::KeptForm form_;
  Decisions decided_;
  std::vector<Conflict> conflicts_;
  kept::Update result_;
};

}  // namespace formwizard::apps::desktop
