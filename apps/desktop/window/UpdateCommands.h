// The commands that bring kept forms up to their classes, and take that back.
#pragma once

#include "apps/desktop/Environment.h"
#include "apps/desktop/basics/Texts.h"
#include "apps/desktop/kept/KeptStates.h"
#include "apps/desktop/kept/UpdateChoices.h"
#include "apps/desktop/window/Actions.h"
#include "apps/desktop/window/Files.h"
#include "apps/desktop/window/ProjectTree.h"
#include "apps/desktop/window/StatusLine.h"

#include <QStringList>
#include <QWidget>

#include <optional>
#include <string>
#include <vector>

namespace formwizard::apps::desktop {

class UpdateCommands {
 public:
  // All must outlive this object.
  struct Parts {
    QWidget& Window;
    const Texts& Words;
    Actions& Commands;
    Environment& Project;
    Files& Opened;
    ProjectTree& Tree;
    const KeptStates& States;
    StatusLine& Status;
  };
  explicit UpdateCommands(const Parts& parts);

  // What can be done with what is chosen and open.
  void Enable();

 private:
  void UpdateChosen();
  void UpdateAll();
  bool HasDictionary();
  // Nothing where the user closed what was to be said about it, or nothing is to be done.
  std::vector<UpdateChoices> ChoicesFor(const std::string& form);
  UpdateChoices ChoicesOf(forms::KeptForm form);
  bool IsWanted(const forms::KeptForm& form) const;
  QString ProblemOf(const forms::KeptForm& form) const;
  // Where the dictionary has not the class of the form: whether another one was opened.
  std::optional<bool> OfferDictionary(const forms::KeptForm& form);
  void LetDecide(std::vector<UpdateChoices> forms, Command command);

  void UndoLast();
  void UndoUnsaved();
  void UndoSaved();
  bool IsUndoWanted(const QStringList& forms, const QDateTime& when, const QString& why);

  Parts parts_;
  const Texts& texts_;
};

}  // namespace formwizard::apps::desktop
