// Satellite libraries and the user's locale as Windows gives them.
#pragma once

#include "support/ResourceLibraries.h"

namespace formwizard::adapters::native {

class NativeLibraries : public support::ResourceLibraries {
 public:
  std::string UserLanguage() const override;
  int UserLocaleId() const override;
  std::unique_ptr<support::ResourceLibrary> LoadAsData(const std::string& path) const override;
};

}  // namespace formwizard::adapters::native
