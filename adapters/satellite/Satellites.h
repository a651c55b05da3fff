// Satellite libraries as files: string tables read out of the resources of a Windows library.
#pragma once

#include "support/ResourceLibraries.h"

namespace formwizard::adapters::satellite {

class Satellites : public support::ResourceLibraries {
 public:
  // Both from the environment's LC_ALL, LC_MESSAGES or LANG; English (United States), "ENU" and 1033, when they name no
  // language that is known.
  std::string UserLanguage() const override;
  int UserLocaleId() const override;
  std::unique_ptr<support::ResourceLibrary> LoadAsData(const std::string& path) const override;
};

}  // namespace formwizard::adapters::satellite
