#include "apps/forms/Workshop.h"

#include "apps/common/Dictionaries.h"
#include "apps/common/Endings.h"
#include "apps/common/Languages.h"
#include "apps/common/Paths.h"
#include "apps/common/Platform.h"

namespace formwizard::apps::forms {
namespace {

constexpr const char* EnglishLanguage = "ENU";

}  // namespace

Workshop::Workshop(const WorkshopOptions& options, ui::Desktop& desktop)
    : isProfileNamed_(!options.Profile.empty()),
      system_(options.System),
      profileFile_(!options.HasProfile ? ""
                   : isProfileNamed_   ? options.Profile
                                       : common::DefaultProfile()),
      profiles_(common::PlatformProfile(profileFile_)),
      profile_(*profiles_, profileFile_),
      satellites_(common::PlatformLibraries()),
      server_(common::OpenDictionary(options.Dictionary)),
      offers_(*server_),
      services_({.Desktop = desktop,
                 .Measure = measure_,
                 .Profiles = profile_,
                 .Factories = *server_,
                 .Libraries = *satellites_,
                 .ProfileFile = profileFile_,
                 .ProgramFolder = common::ProgramFolder(),
                 .Language = common::LanguageMeant(options.Language)}) {}

std::vector<std::string> Workshop::CheckProfile() const {
  forms::CheckProfile(profile_, profileFile_);
  return WarningsOn(profileFile_, isProfileNamed_);
}

const std::string& Workshop::Language() {
  if (language_.empty()) language_ = LanguageInEffect();
  return language_;
}

std::string Workshop::LanguageInEffect() const {
  const std::string language = services_.Language.empty() ? satellites_->UserLanguage() : services_.Language;
  try {
    const std::string meant = common::LanguageMeant(language);
    return meant.empty() ? EnglishLanguage : meant;
  } catch (const common::UsageError&) {
    return EnglishLanguage;
  }
}

void Workshop::WorkIn(generator::ide::Vbe& environment) { user_.emplace(services_, environment, system_); }

void Workshop::Make(const FormDescription& form, const SettingTexts& first, const WizardUser::ClassListener& atFinish) {
  if (first.empty()) {
    profile_.Override(form.Settings);
  } else {
    SettingTexts settings = first;
    settings.insert(form.Settings.begin(), form.Settings.end());
    profile_.Override(settings);
  }
  user_->Make(form, atFinish);
}

}  // namespace formwizard::apps::forms
