// What the wizard is given by the program that shows it, and what lasts from one of its dialogs to the next.
#pragma once

#include "generator/Generation.h"
#include "generator/ide/Ide.h"
#include "model/FormModel.h"
#include "settings/Profile.h"
#include "settings/Settings.h"
#include "support/Localization.h"
#include "support/ResourceLibraries.h"
#include "support/Strings.h"
#include "ui/Desktop.h"
#include "ui/TextMeasure.h"
#include "wizard/factory/Factory.h"

#include <memory>
#include <string>
#include <utility>

namespace formwizard::wizard {

// The ports of the wizard and where its files stand. A program names each of them: { .Desktop = ..., ... }.
struct WizardPorts {
  ui::Desktop& Desktop;
  const ui::TextMeasure& Measure;
  settings::ProfileStore& Profiles;
  factory::FactoryCreator& Factories;
  const support::ResourceLibraries& Libraries;
  std::string ProfileFile{settings::ProfileName};  // its path
  std::string ProgramFolder = "";                  // with its trailing separator; satellites stand there
  std::string Language = "";                       // three letters; empty: the user's
};

// Lives as long as the add-in is loaded and outlives every dialog.
struct AddInState {
  model::FormModel Form;
  settings::Settings Settings;
  generator::GeneratorState Generator;
  std::shared_ptr<generator::ide::VBComponent> NewComponent;  // of the last generation, complete or not; may be null
};

// One loaded add-in. What the ports refer to must outlive it, and it must outlive the dialogs.
struct WizardServices : WizardPorts {
  explicit WizardServices(WizardPorts ports)
      : WizardPorts(std::move(ports)), Strings(Libraries, ProgramFolder), Localization(Strings, Libraries) {}
  WizardServices(const WizardServices&) = delete;
  WizardServices& operator=(const WizardServices&) = delete;
  ~WizardServices() = default;

  support::Strings Strings;
  support::Localization Localization;
  AddInState State;
};

}  // namespace formwizard::wizard
