// The form's picture joined to the window: commands, zoom, status bar, and the way to the code.
#pragma once

#include "apps/desktop/basics/Texts.h"
#include "apps/desktop/code/CodePane.h"
#include "apps/desktop/formview/FormView.h"
#include "apps/desktop/window/Actions.h"
#include "apps/desktop/window/StatusLine.h"

#include <functional>

namespace formwizard::apps::desktop {

// The names under which the form and its controls have procedures.
QStringList ObjectsOf(const adapters::vb6files::FormNode& form);

class FormCommands {
 public:
  // All must outlive this object. `showCode` brings the code to the front.
  FormCommands(const Texts& texts, Actions& actions, FormView& form, CodePane& code, StatusLine& status,
               std::function<void()> showCode);

  // As it is remembered: a scale, or nothing for one that fits.
  QString Zoom() const;
  void SetZoom(const QString& zoom);

  // Where the selected control is, in the status bar.
  void ShowPlace();
  // In the code, where it has the procedure.
  void ShowProcedure(const std::string& name);
  // Called when another control is selected.
  std::function<void()> OnSelect = [] {};

 private:
  const adapters::vb6files::FormNode* Selected() const;
  void GoToHandler(const adapters::vb6files::FormNode& node);

  const Texts& texts_;
  FormView& form_;
  CodePane& code_;
  StatusLine& status_;
  std::function<void()> showCode_;
};

}  // namespace formwizard::apps::desktop
