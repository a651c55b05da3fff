// The texts of the program's windows in the user's language.
#pragma once

#include "resources/DesktopTexts.h"
#include "support/ResourceLibraries.h"

#include <QString>

#include <memory>
#include <string>

namespace formwizard::apps::desktop {

using T = resources::DesktopText;

class Texts {
 public:
  Texts() = default;  // English
  // Of the library of that language (three letters, empty for the user's) beside the program; English when there is
  // none.
  Texts(const support::ResourceLibraries& libraries, const std::string& folder, std::string language);

  // What the library lacks is in English.
  QString operator()(T id) const;
  // With "%1", "%2" ... filled in.
  template <typename... Values>
  QString operator()(T id, const QString& first, const Values&... rest) const {
    return (*this)(id).arg(first, rest...);
  }

 private:
  std::shared_ptr<const support::ResourceLibrary> library_;
};

}  // namespace formwizard::apps::desktop
