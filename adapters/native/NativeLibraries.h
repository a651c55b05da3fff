// Satellite libraries and the user's locale as Windows gives them.
#pragma once

#include "support/ResourceLibraries.h"

namespace formwizard::adapters::native {

class NativeLibraries : public support::ResourceLibraries {
 public:
  // Whether a file is a whole library with texts. Asked before the system maps it, which trusts what it finds there:
  // half a file would end the environment.
  using Check = bool (*)(const std::string& path);
  explicit NativeLibraries(Check isWhole) : isWhole_(isWhole) {}

  std::string UserLanguage() const override;
  int UserLocaleId() const override;
  std::unique_ptr<support::ResourceLibrary> LoadAsData(const std::string& path) const override;

 private:
  Check isWhole_;
};

}  // namespace formwizard::adapters::native
