// The pages of the chosen component: its form, or why there is none, and its code.
#pragma once

#include "adapters/vb6files/ProjectOnDisk.h"
#include "apps/desktop/basics/Texts.h"
#include "apps/desktop/code/CodePane.h"
#include "apps/desktop/formview/FormView.h"
#include "apps/desktop/kept/UnsavedUpdates.h"
#include "apps/desktop/window/FormPage.h"
#include "apps/desktop/window/Panes.h"
#include "apps/desktop/window/ProjectModel.h"

namespace formwizard::apps::desktop {

class ComponentPages {
 public:
  // All must outlive this object.
  ComponentPages(const Texts& texts, FormPage& page, FormView& form, CodePane& code, Panes& panes)
      : texts_(texts), page_(page), form_(form), code_(code), panes_(panes) {}

  // Null for no project, and for nothing chosen in one; `updated` for a form that has no update that is not saved. A
  // form that is damaged is shown as code, and said why.
  void Show(adapters::vb6files::ProjectOnDisk* project, const ProjectModel::Component* chosen,
            const UnsavedUpdates::Updated* updated);

 private:
  void ShowForm(const std::string& name, const adapters::vb6files::FormFiles& texts, const system::CodePage& codePage);
  void ShowModule(adapters::vb6files::ProjectOnDisk& project, const std::string& name);
  void OfferCode(const QString& instead);

  const Texts& texts_;
  FormPage& page_;
  FormView& form_;
  CodePane& code_;
  Panes& panes_;
};

}  // namespace formwizard::apps::desktop
