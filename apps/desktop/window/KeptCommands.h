// The commands on kept forms, and what the window shows of how these stand.
#pragma once

#include "apps/desktop/Environment.h"
#include "apps/desktop/basics/Texts.h"
#include "apps/desktop/code/CodePane.h"
#include "apps/desktop/formview/FormView.h"
#include "apps/desktop/kept/KeptStates.h"
#include "apps/desktop/window/Actions.h"
#include "apps/desktop/window/Files.h"
#include "apps/desktop/window/FormPage.h"
#include "apps/desktop/window/Memory.h"
#include "apps/desktop/window/Panes.h"
#include "apps/desktop/window/ProjectTree.h"
#include "apps/desktop/window/StatusLine.h"
#include "apps/desktop/window/UpdateCommands.h"

#include <map>
#include <string>

namespace formwizard::apps::desktop {

// The parts of the window in which they show; all must outlive the commands.
struct KeptParts {
  QWidget& Window;
  const Texts& Words;
  Actions& Commands;
  Environment& Project;
  Files& Opened;
  Memory& Remembered;
  ProjectTree& Tree;
  FormPage& Page;
  FormView& Form;
  CodePane& Code;
  Panes& Around;
  StatusLine& Status;
};

class KeptCommands {
 public:
  explicit KeptCommands(const KeptParts& parts);

  const KeptStates& States() const { return states_; }
  // The project or its dictionary is another one, or what it holds.
  void Check();
  // Another component is shown, or the same anew.
  void ShowChosen();

 private:
  KeptStates::Source Source() const;
  const Standing* Chosen() const;
  void ShowStanding();
  void CheckAgain();
  void CarryOutKeeping();
  void Told(const std::string& form, const Standing* standing);
  void TellChecked(const std::string& problem);
  void Mark(const std::string& form, const kept::State& state);
  void TellInBar(const std::string& form, const Standing& standing);

  KeptParts parts_;
  const Texts& texts_;
  KeptStates states_;
  UpdateCommands update_;
  std::string project_;                       // whose states are known
  std::map<std::string, std::string> names_;  // of its components, by those in small letters
  QString toldInBar_;                         // of the component that is shown
  bool isAskedFor_ = false;                   // how many are outdated
};

}  // namespace formwizard::apps::desktop
