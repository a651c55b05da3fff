// Somebody who walks through the wizard as form descriptions say.
#pragma once

#include "apps/forms/FormDescription.h"
#include "support/Failures.h"
#include "support/Names.h"
#include "wizard/frmWizard.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace formwizard::apps::forms {

// A choice that the dialog does not offer: the dictionary is whole, and has not what the description says.
class NotOffered : public support::InputError {
 public:
  using InputError::InputError;
};

// Walks through a dialog that has just opened to the properties of a class, for somebody who goes on from there; both
// names as they stand in the dialog. False where it stands on the way, at the step that does not have what is meant.
bool GoToProperties(wizard::frmWizard& dialog, const std::string& system, const std::string& className);

// The same to the Attributes step, with the fields of the description and what is set for them, the first one chosen.
// What the class does not offer any longer is left out and named: "Home.City", "Spouse.Name (combo ByName)". Where
// nothing is left to be shown it stands at the properties.
std::vector<std::string> GoToAttributes(wizard::frmWizard& dialog, const FormDescription& form);

// Has one form after the other made, each as by a freshly loaded add-in, so that it comes out the same alone and in a
// batch. What is the same for all of them, such as the list of classes, is read once.
class WizardUser {
 public:
  using ClassListener = std::function<void(const std::string& name, const std::string& caption)>;

  // The first two must outlive this object. `system` is empty for the one that the dialog proposes.
  WizardUser(wizard::WizardServices& services, generator::ide::Vbe& environment, std::string system);

  // Performs a user's actions on the dialog: chooses the system, the class and the properties, sets their attributes
  // and presses Finish. What became of it stands in the state of the services. NotOffered with what is offered instead;
  // nothing has been generated then. Without a system of the run, that of the description is chosen.
  // `atFinish` is called just before that with the class's name, and with the name without its package.
  void Make(const FormDescription& form, const ClassListener& atFinish = {});

  // The one that the last form was made for, as the dialog calls it.
  std::string System() const;

 private:
  void MakeIn(const FormDescription& form, const ClassListener& atFinish);
  void OpenDialog(const FormDescription& form);
  void ChooseSystem(const FormDescription& form);
  const ui::Node& ChooseClass(const FormDescription& form);

  wizard::WizardServices& services_;
  generator::ide::Vbe& environment_;
  std::optional<std::string> proposed_;  // the system that the dialog proposed first
  std::string system_, opened_;          // opened_: the system of the description that the dialog was opened for
  std::unique_ptr<wizard::frmWizard> dialog_;
  support::Names classNames_;       // full ones
  std::vector<ui::Node*> classes_;  // those that the dialog shows, in the same order
};

}  // namespace formwizard::apps::forms
