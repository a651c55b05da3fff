// The control libraries that a project refers to, in the order of its "Object=" lines.
#pragma once

#include <algorithm>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace formwizard::adapters::vb6files {

// One "Object=" line. Texts are bytes in the project's code page.
struct ObjectReference {
  std::string Id;       // "{831FDD16-0C5C-11D2-A9FC-0000F8754DA1}#2.0#0"
  std::string File;     // "MSCOMCTL.OCX", spelled as the project spells it
  std::string Library;  // "MSComctlLib"; empty for a library of which no control class is known here
};

class ControlLibraries {
 public:
  void Add(ObjectReference reference) { references_.push_back(std::move(reference)); }

  // Null when the project does not refer to the library.
  const ObjectReference* Find(std::string_view library) const {
    const auto found = std::ranges::find(references_, library, &ObjectReference::Library);
    return found == references_.end() ? nullptr : &*found;
  }
  std::span<const ObjectReference> InProjectOrder() const { return references_; }

 private:
  std::vector<ObjectReference> references_;
};

}  // namespace formwizard::adapters::vb6files
