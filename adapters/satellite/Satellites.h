// Satellite libraries as files: string tables read out of the resources of a Windows library.
#pragma once

#include "support/ResourceLibraries.h"

namespace formwizard::adapters::satellite {

class Satellites : public support::ResourceLibraries {
 public:
  // From the environment's LC_ALL, LC_MESSAGES or LANG; "ENU" when they name no language that is known.
  std::string UserLanguage() const override;
  std::unique_ptr<support::ResourceLibrary> LoadAsData(const std::string& path) const override;
};

}  // namespace formwizard::adapters::satellite
