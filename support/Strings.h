// The texts of the wizard and of the forms it writes, by string id, in the language of the user.
#pragma once

#include "runtime/Variant.h"
#include "support/ResourceLibraries.h"

#include <memory>
#include <string>
#include <string_view>

namespace formwizard::support {

// Begins the file names of the satellites and is the profile's section.
inline constexpr std::string_view ApplicationName = "OstrelFormWizard";

inline constexpr char ProductName[] = "Ostrel Form Wizard";  // in title bars and on the menu

class Strings {
 public:
  // `libraries` must outlive this object; `directory` is the program's own, with its trailing separator.
  Strings(const ResourceLibraries& libraries, std::string directory);

  // Loads directory & appName & language & ".dll". An empty `language` is determined from the user's locale and written
  // back. A library that cannot be loaded leaves the program's own English texts in use; no message is shown.
  void LoadResourceLibrary(std::string_view appName, std::string& language);

  // The text of a string id. A loaded library that lacks the id yields the empty text; the program's own table raises
  // error 326 for an id it does not have.
  std::string LoadResStringLocal(int id) const;

  // The text of a numeric value's string id; any other value is returned unchanged.
  runtime::Variant LoadResStringValue(const runtime::Variant& value) const;

 private:
  const ResourceLibraries& libraries_;
  std::string directory_;
  std::unique_ptr<ResourceLibrary> library_;
};

}  // namespace formwizard::support
