#include "apps/desktop/basics/Texts.h"

#include "adapters/qt/Text.h"
#include "support/Strings.h"

namespace formwizard::apps::desktop {
namespace {

constexpr std::size_t LongestText = 1024;

}  // namespace

Texts::Texts(const support::ResourceLibraries& libraries, const std::string& folder, std::string language) {
  if (language.empty()) language = libraries.UserLanguage();
  library_ = libraries.LoadAsData(folder + std::string(support::ApplicationName) + language + ".dll");
}

QString Texts::operator()(T id) const {
  const std::string own = library_ ? library_->LoadString(static_cast<int>(id), LongestText) : "";
  return adapters::qt::Text(own.empty() ? resources::EnglishText(id) : own);
}

}  // namespace formwizard::apps::desktop
