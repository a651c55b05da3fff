// Somebody who walks through the wizard as form descriptions say.
#pragma once

#include "apps/forms/FormDescription.h"
#include "support/Names.h"
#include "wizard/frmWizard.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace formwizard::apps::forms {

// Has one form after the other made, each as by a freshly loaded add-in, so that it comes out the same alone and in a
// batch. What is the same for all of them, such as the list of classes, is read once.
class WizardUser {
 public:
  using ClassListener = std::function<void(const std::string& name, const std::string& caption)>;

  // The first two must outlive this object. `system` is empty for the one that the dialog proposes.
  WizardUser(wizard::WizardServices& services, generator::ide::Vbe& environment, std::string system);

  // Performs a user's actions on the dialog: chooses the system, the class and the properties, sets their attributes
  // and presses Finish. What became of it stands in the state of the services. support::InputError for a choice that
  // the dialog does not offer, with what it offers; nothing has been generated then.
  // `atFinish` is called just before that with the class's name, and with the name without its package.
  void Make(const FormDescription& form, const ClassListener& atFinish = {});

 private:
  void OpenDialog(const FormDescription& form);
  void ChooseSystem(const FormDescription& form);
  const ui::Node& ChooseClass(const FormDescription& form);

  wizard::WizardServices& services_;
  generator::ide::Vbe& environment_;
  std::string system_;
  std::unique_ptr<wizard::frmWizard> dialog_;
  support::Names classNames_;       // full ones
  std::vector<ui::Node*> classes_;  // those that the dialog shows, in the same order
};

}  // namespace formwizard::apps::forms
