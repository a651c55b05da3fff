// The wizard with nobody in front of it: all that it is given, and the forms that it makes as descriptions say.
#pragma once

#include "adapters/textmeasure/BuiltInTextMeasure.h"
#include "apps/forms/Offers.h"
#include "apps/forms/RunProfile.h"
#include "apps/forms/WizardUser.h"
#include "wizard/WizardServices.h"

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace formwizard::apps::forms {

struct WorkshopOptions {
  std::string Dictionary;
  std::string Profile = "";   // empty: the default one
  bool HasProfile = true;     // otherwise every setting is its default
  std::string Language = "";  // empty: the user's
  std::string System = "";    // empty: the one that the dialog proposes
};

class Workshop {
 public:
  // Opens the dictionary. support::InputError for what cannot be read. `desktop`, which shows the messages, must
  // outlive the workshop.
  Workshop(const WorkshopOptions& options, ui::Desktop& desktop);
  Workshop(const Workshop&) = delete;
  Workshop& operator=(const Workshop&) = delete;
  ~Workshop() = default;

  // support::InputError, with the place, for a value of the profile that is not allowed. What else is odd about it.
  std::vector<std::string> CheckProfile() const;

  // Where the forms are made; it must outlive the workshop. Once, before the first form.
  void WorkIn(generator::ide::Vbe& environment);

  // As WizardUser::Make. `first` stands in front of the settings of the description, and those of the profile. What has
  // become of the form stands in State until the next one is made.
  void Make(const FormDescription& form, const SettingTexts& first, const WizardUser::ClassListener& atFinish = {});
  const wizard::AddInState& State() const { return services_.State; }

  // Writes the system that is to be remembered; false when that failed.
  bool StoreProfile() { return profile_.Store(); }
  // By which the forms are made: three letters, English where there are no texts in the user's; the system that the
  // last form was made for.
  const std::string& Language();
  std::string System() const { return user_->System(); }
  // What a class of a system offers to forms, which is read once; nothing for a class or system that there is not.
  const OfferedClass& OfferedBy(const std::string& system, const std::string& className) {
    return offers_.ClassOf(system, className);
  }

  const std::string& ProfileFile() const { return profileFile_; }
  const ui::TextMeasure& Measure() const { return measure_; }

 private:
  std::string LanguageInEffect() const;

  std::string language_;  // empty until it is asked for
  bool isProfileNamed_;
  std::string system_, profileFile_;  // profileFile_: empty for none
  std::unique_ptr<settings::ProfileStore> profiles_;
  RunProfile profile_;
  std::unique_ptr<support::ResourceLibraries> satellites_;
  adapters::textmeasure::BuiltInTextMeasure measure_;
  std::unique_ptr<wizard::factory::FactoryCreator> server_;
  Offers offers_;
  wizard::WizardServices services_;
  std::optional<WizardUser> user_;
};

}  // namespace formwizard::apps::forms
