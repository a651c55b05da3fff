// The commands on forms that are kept and need not be: one that the project lacks can come back, and any can go.
#pragma once

#include "apps/desktop/kept/KeptStates.h"
#include "apps/desktop/window/KeptParts.h"

#include <string>

namespace formwizard::apps::desktop {

class MissingCommands {
 public:
  // Both must outlive this object.
  MissingCommands(const KeptParts& parts, const KeptStates& states);

  // What can be done with what is chosen.
  void Enable();
  // Of the form that is chosen and that the project lacks: why that is so, and what can be done.
  void ShowChosen();

 private:
  void StopKeeping();
  void AddAgain();
  bool MayStopKeeping() const;

  KeptParts parts_;
  const Texts& texts_;
  const KeptStates& states_;
  std::string looked_, file_;  // the form that the project lacks, and its file where that is still there
};

}  // namespace formwizard::apps::desktop
