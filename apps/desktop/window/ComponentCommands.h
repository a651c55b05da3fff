// What is done with the component that is chosen in the project's tree.
#pragma once

#include "apps/desktop/Environment.h"
#include "apps/desktop/basics/Texts.h"
#include "apps/desktop/formview/FormView.h"
#include "apps/desktop/window/Actions.h"
#include "apps/desktop/window/Files.h"
#include "apps/desktop/window/ProjectTree.h"

#include <QWidget>

#include <functional>
#include <string>

namespace formwizard::apps::desktop {

class ComponentCommands {
 public:
  // All must outlive this object; messages stand over the window.
  ComponentCommands(QWidget& window, const Texts& texts, Actions& actions, Environment& environment, Files& files,
                    ProjectTree& tree, FormView& form);

  // To be called when another component is chosen: enables what can be done with it.
  void ShowState();

  // What was made of a component is taken back; the name that it has now, empty when it is gone.
  std::function<void(const std::string& component)> OnTakenBack = [](const std::string&) {};

 private:
  void Remove();
  void SavePicture();
  void ShowInFolder();

  QWidget& window_;
  const Texts& texts_;
  Actions& actions_;
  Environment& environment_;
  Files& files_;
  ProjectTree& tree_;
  FormView& form_;
};

}  // namespace formwizard::apps::desktop
