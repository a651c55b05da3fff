#include "apps/desktop/window/MissingCommands.h"

#include "adapters/qt/Text.h"
#include "apps/desktop/kept/FormFile.h"
#include "support/Messages.h"

namespace formwizard::apps::desktop {
namespace {

using adapters::qt::Text;

}  // namespace

MissingCommands::MissingCommands(const KeptParts& parts, const KeptStates& states)
    : parts_(parts), texts_(parts.Words), states_(states) {
  parts_.Commands.On(Command::StopKeeping, [this] { StopKeeping(); });
  parts_.Commands.On(Command::AddFormAgain, [this] { AddAgain(); });
  for (const Command command : {Command::AddFormAgain, Command::StopKeeping})
    parts_.Tree.ContextActions << &parts_.Commands[command];
}

// What has an update that is not saved goes on being kept with it.
bool MissingCommands::MayStopKeeping() const {
  const ProjectModel::Component* chosen = parts_.Tree.Chosen();
  return chosen ? chosen->IsForm && !chosen->IsChanged && states_.IsKept(chosen->Name)
                : !parts_.Tree.ChosenMissing().empty();
}

void MissingCommands::Enable() {
  const std::string missing = parts_.Tree.ChosenMissing();
  if (missing != looked_) {
    looked_ = missing;
    file_ = missing.empty() ? "" : FileOfForm(system::RealFileSystem(), *parts_.Project.Project(), missing);
  }
  parts_.Commands.Enable(Command::StopKeeping, MayStopKeeping());
  parts_.Commands.Enable(Command::AddFormAgain, !file_.empty());
}

void MissingCommands::ShowChosen() {
  const std::string name = parts_.Tree.ChosenMissing();
  const Standing* standing = states_.Find(name);
  parts_.Around.SetHeading(Text(name), texts_(T::KeptMissing));
  const Command command = file_.empty() ? Command::StopKeeping : Command::AddFormAgain;
  const std::string why = !standing ? "" : standing->Problem.empty() ? standing->State.Reason : standing->Problem;
  QAction& action = parts_.Commands[command];
  parts_.Page.ShowInstead().Say(Text(support::Shortened(why)), action.iconText(), [&action] { action.trigger(); });
}

void MissingCommands::StopKeeping() {
  if (!MayStopKeeping()) return;
  const std::string name = parts_.Tree.ChosenName();
  parts_.Project.Updates().Release(name);
  parts_.Opened.OnProject("");
  parts_.Status.Say(texts_(T::KeptReleased, Text(name)));
}

void MissingCommands::AddAgain() {
  if (file_.empty()) return;
  const std::string name = looked_;
  const bool isAdded = parts_.Opened.Try(T::AddFormAgain, texts_(T::CannotBeOpened, Text(file_)),
                                         [this] { parts_.Project.AddFormFile(file_); });
  if (!isAdded) return;
  parts_.Opened.OnProject(name);
  parts_.Status.Say(texts_(T::KeptAddedAgain, Text(name)));
}

}  // namespace formwizard::apps::desktop
