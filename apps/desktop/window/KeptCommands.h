// The commands on kept forms, and what the window shows of how these stand.
#pragma once

#include "apps/desktop/kept/KeptStates.h"
#include "apps/desktop/window/KeptParts.h"
#include "apps/desktop/window/MissingCommands.h"
#include "apps/desktop/window/UpdateCommands.h"

#include <map>
#include <string>

namespace formwizard::apps::desktop {

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
  void PreferSeen();
  void CheckAgain();
  void CarryOutKeeping();
  void Told(const std::string& form, const Standing* standing);
  void TellProblem(const QString& problem);
  void TellChecked(const std::string& problem);
  void Mark(const std::string& form, const kept::State& state);
  void TellInBar(const std::string& form, const Standing& standing);

  KeptParts parts_;
  const Texts& texts_;
  KeptStates states_;
  UpdateCommands update_;
  MissingCommands missing_;
  std::string project_;                       // whose states are known
  std::map<std::string, std::string> names_;  // of its forms, by those in small letters
  QString toldInBar_;                         // of the component that is shown
  QString problem_;                           // why nothing is known of any, as it was told
  bool isAskedFor_ = false;                   // how many are outdated
};

}  // namespace formwizard::apps::desktop
