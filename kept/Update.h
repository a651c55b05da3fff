// Brings a form up to what its class asks for, with all that was edited by hand.
#pragma once

#include "kept/FormTexts.h"
#include "merge/Options.h"

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace formwizard::kept {

// What the user and the class both changed. Texts are bytes of the form; empty where the thing is gone.
struct UpdateConflict {
  std::string Name;  // "procedure Sub cmd__Save_Click", "control txtName"
  std::string Mine, Theirs;
  std::size_t MineLine = 0, TheirsLine = 0;  // where they stand, counted from 1; 0 for a text that is empty
};

struct Update {
  FormTexts Form;                         // mine where nothing is to be done
  std::vector<UpdateConflict> Conflicts;  // that nothing decided; the form has them between marks
  std::vector<UpdateConflict> Decided;
  std::vector<std::string> Notes;  // bytes of the form's code page
};

// What becomes of a conflict of this name; nothing where the user has not decided.
using Decision = std::function<std::optional<merge::Choice>(const UpdateConflict& conflict)>;

// The word by which a user names a conflict: "cmd__Save_Click", "txtName".
std::string_view ShortName(std::string_view conflict);

// `stem` is the name of mine's file without ".frm", in bytes. Throws vbtext::Fault for a text that is no form.
Update UpdateOf(const Sides& sides, std::string_view stem, const Decision& decide);

}  // namespace formwizard::kept
