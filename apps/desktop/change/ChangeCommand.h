// "Change Form...": a kept form of the project is made anew by other choices, with what was edited in it.
#pragma once

#include "apps/desktop/Environment.h"
#include "apps/desktop/basics/Texts.h"
#include "apps/desktop/kept/UpdateChoices.h"
#include "apps/desktop/window/Actions.h"
#include "apps/desktop/window/Files.h"
#include "apps/forms/FormDescription.h"

#include <QWidget>

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace formwizard::apps::desktop {

class ChangeCommand {
 public:
  // All must outlive this object; messages stand over the window.
  ChangeCommand(QWidget& window, const Texts& texts, Actions& actions, Environment& environment, Files& files);

  // The component that the command is about; null for none. Enables it where that is a kept form.
  void SetComponent(const adapters::vb6files::ComponentSummary* component);

  // A form has changed and is not saved.
  std::function<void(const std::string& form)> OnChanged = [](const std::string&) {};

 private:
  enum class Answer : std::uint8_t { Done, ChooseAgain };

  void Change();
  bool MayChange();
  void ChangeByWizard();
  std::optional<forms::FormDescription> ChoicesKept();
  bool HasClass(const forms::FormDescription& choices);
  Answer Take(const forms::FormDescription& before, const forms::FormDescription& choices);
  Answer LetDecide(const UpdateChoices& update);
  Answer AskAgain(const QString& what, const QString& why);
  QString CommandToKeep() const;
  QString Name() const;

  QWidget& window_;
  const Texts& texts_;
  Actions& actions_;
  Environment& environment_;
  Files& files_;
  std::string form_;  // that the command is about; empty for none
};

}  // namespace formwizard::apps::desktop
