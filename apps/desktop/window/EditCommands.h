// The commands of the Edit menu.
#pragma once

#include "apps/desktop/code/CodePane.h"
#include "apps/desktop/dictionary/DictionaryPane.h"
#include "apps/desktop/formview/FormView.h"
#include "apps/desktop/properties/PropertiesPanel.h"
#include "apps/desktop/window/Actions.h"
#include "apps/desktop/window/Panes.h"

#include <functional>

namespace formwizard::apps::desktop {

class EditCommands {
 public:
  // All must outlive this object.
  EditCommands(Actions& actions, Panes& panes, CodePane& code, FormView& form, PropertiesPanel& properties,
               DictionaryPane& dictionary);

 private:
  void InCode(Actions& actions, Command command, std::function<void()> action);
  void InEither(Actions& actions, Command command, std::function<void()> inDictionary, std::function<void()> inCode);
  bool IsDictionaryInFront() const;
  void Copy();

  Panes& panes_;
  CodePane& code_;
  FormView& form_;
  PropertiesPanel& properties_;
  DictionaryPane& dictionary_;
};

}  // namespace formwizard::apps::desktop
