// What the wizard is given by the program that shows it.
#pragma once

#include "generator/Generation.h"
#include "generator/ide/Ide.h"
#include "model/FormModel.h"
#include "settings/ProfileStore.h"
#include "settings/Settings.h"
#include "support/Localization.h"
#include "support/Strings.h"
#include "ui/Desktop.h"
#include "ui/TextMeasure.h"
#include "wizard/factory/Factory.h"

#include <memory>
#include <string>

namespace formwizard::wizard {

// Lives as long as the add-in is loaded and outlives every dialog.
struct AddInState {
  model::FormModel Form;
  settings::Settings Settings;
  generator::GeneratorState Generator;
  std::shared_ptr<generator::ide::VBComponent> NewComponent;  // of the last generation, complete or not; may be null
};

// Everything referred to must outlive the dialog.
struct WizardServices {
  ui::Desktop& Desktop;
  const ui::TextMeasure& Measure;
  settings::ProfileStore& Profiles;
  std::string ProfileFile;  // path of "outility.ini"
  factory::FactoryCreator& Factories;
  support::Strings& Strings;
  support::Localization& Localization;
  std::string Language;  // three letters; empty: the user's
  AddInState& State;
};

}  // namespace formwizard::wizard
