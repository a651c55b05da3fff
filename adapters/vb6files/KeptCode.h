// What a form that is filled by the wizard keeps of its own code.
#pragma once

#include <string>
#include <vector>

namespace formwizard::adapters::vb6files {

// All texts are UTF-8.
struct KeptCode {
  std::string FormerName;               // of the form
  std::vector<std::string> Procedures;  // that it had
  std::vector<std::string> Doubled;     // those of them that the new code has too
};

// What the user is to do about it; `form` is the form's name now.
std::string NoteOn(const std::string& form, const KeptCode& kept);

}  // namespace formwizard::adapters::vb6files
