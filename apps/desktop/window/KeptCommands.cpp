#include "apps/desktop/window/KeptCommands.h"

#include "adapters/qt/Text.h"
#include "apps/desktop/basics/Messages.h"
#include "apps/desktop/kept/KeptWords.h"
#include "runtime/Conversions.h"
#include "support/Failures.h"
#include "support/Messages.h"
#include "vbtext/Document.h"

#include <algorithm>
#include <utility>

namespace formwizard::apps::desktop {
namespace {

using adapters::qt::Text;

constexpr char KeepKey[] = "window/keepNewForms";

// "Update Form...", where no menu is.
QString WithoutKey(QString text) { return text.remove('&'); }

}  // namespace

KeptCommands::KeptCommands(const KeptParts& parts)
    : parts_(parts),
      texts_(parts.Words),
      states_([this] { return Source(); }),
      update_(
          {parts.Window, parts.Words, parts.Commands, parts.Project, parts.Opened, parts.Tree, states_, parts.Status}),
      missing_(parts, states_) {
  states_.OnStanding = [this](const std::string& form, const Standing* standing) { Told(form, standing); };
  states_.OnMissing = [this](std::set<std::string> missing) {
    parts_.Tree.SetMissing(std::move(missing));
    PreferSeen();
  };
  parts_.Tree.OnScrolled = [this] { PreferSeen(); };
  states_.OnDone = [this](const std::string& problem) { TellChecked(problem); };
  parts_.Commands.On(Command::CheckAgainstDictionary, [this] { CheckAgain(); });
  CarryOutKeeping();
  Check();
}

void KeptCommands::CarryOutKeeping() {
  parts_.Commands.On(Command::KeepNewForms, [this](bool wanted) {
    parts_.Project.KeepNewForms(wanted);
    parts_.Remembered.Keep(KeepKey, wanted);
  });
  const QVariant kept = parts_.Remembered.Value(KeepKey);
  parts_.Commands[Command::KeepNewForms].setChecked(!kept.isValid() || kept.toBool());
  parts_.Project.KeepNewForms(parts_.Commands[Command::KeepNewForms].isChecked());
}

KeptStates::Source KeptCommands::Source() const {
  if (!parts_.Project.Project()) return {};
  return {&parts_.Project.KeptForms(), &parts_.Project.Updates(), !parts_.Project.DictionaryPath().empty(),
          [this](const std::string& form) { return names_.contains(runtime::LowerCase(form)); }};
}

void KeptCommands::Check() {
  const auto* project = parts_.Project.Project();
  parts_.Commands.Enable(Command::CheckAgainstDictionary, project != nullptr);
  if (!project || project->Path() != project_) states_.Clear();
  project_ = project ? project->Path() : "";
  names_.clear();
  update_.Enable();
  missing_.Enable();
  if (!project) return;
  for (const ProjectModel::Component& each : project->Summaries()) {
    if (each.IsForm) names_.emplace(runtime::LowerCase(each.Name), each.Name);
  }
  states_.Start();
}

// What the user looks at comes first.
void KeptCommands::PreferSeen() {
  std::vector<std::string> names = parts_.Tree.SeenNames();
  std::ranges::reverse(names);
  names.push_back(parts_.Tree.ChosenName());
  states_.Prefer(std::move(names));
}

// The dictionary and what is shown are read again, too.
void KeptCommands::CheckAgain() {
  parts_.Opened.RefreshProject();
  parts_.Opened.OnProject("");
  const QString dictionary = Text(parts_.Project.DictionaryPath());
  isAskedFor_ = true;
  if (!(dictionary.isEmpty() ? parts_.Opened.AskForDictionary() : parts_.Opened.OpenDictionary(dictionary)))
    isAskedFor_ = false;
}

void KeptCommands::Told(const std::string& form, const Standing* standing) {
  const auto found = names_.find(runtime::LowerCase(form));
  const std::string& name = found == names_.end() ? form : found->second;
  KeptState state;
  if (standing) {
    const std::string& why = standing->Problem.empty() ? standing->State.Reason : standing->Problem;
    state = {IconsOf(*standing), WordsOf(*standing, texts_), Text(support::Shortened(why))};
  }
  parts_.Tree.SetState(name, state);
  if (parts_.Tree.ChosenName() == name) ShowStanding();
}

void KeptCommands::TellChecked(const std::string& problem) {
  update_.Enable();
  missing_.Enable();
  TellProblem(Text(support::Shortened(problem)));
  if (!std::exchange(isAskedFor_, false) || !problem.empty()) return;
  const auto number = [](std::size_t count) { return QString::number(count); };
  parts_.Status.Say(states_.Count() == 0
                        ? texts_(T::KeptNone)
                        : texts_(T::KeptChecked, number(states_.Outdated().size()), number(states_.Count())));
}

// Not again what was told last; what holds no longer goes.
void KeptCommands::TellProblem(const QString& problem) {
  if (problem == std::exchange(problem_, problem) && !isAskedFor_) return;
  if (problem.isEmpty()) return parts_.Notice.Clear();
  parts_.Notice.Say("missing", problem.toHtmlEscaped());
}

const Standing* KeptCommands::Chosen() const {
  return parts_.Tree.Chosen() && parts_.Tree.Chosen()->IsForm ? states_.Find(parts_.Tree.Chosen()->Name) : nullptr;
}

void KeptCommands::ShowChosen() {
  toldInBar_.clear();
  ShowStanding();
}

void KeptCommands::ShowStanding() {
  update_.Enable();
  missing_.Enable();
  if (!parts_.Tree.ChosenMissing().empty()) return missing_.ShowChosen();
  const ProjectModel::Component* chosen = parts_.Tree.Chosen();
  if (!chosen || !chosen->IsForm) return;
  const Standing* standing = Chosen();
  QStringList more;
  if (const std::string& name = parts_.Form.Canvas().Origin().Class; !name.empty()) more << Text(name);
  if (standing) more << WordsOf(*standing, texts_);
  parts_.Around.SetHeading(Text(chosen->Name), more.join(", "));
  if (!standing) return;
  Mark(chosen->Name, standing->State);
  TellInBar(chosen->Name, *standing);
}

// A file that is gone by now has no lines.
void KeptCommands::Mark(const std::string& form, const kept::State& state) {
  std::vector<LineRange> lines;
  const UnsavedUpdates::Updated* updated = parts_.Project.Updates().Find(form);
  try {
    if (!state.Edits.empty()) {
      const std::string frm = updated ? updated->Update.Form.Frm : parts_.Project.Project()->TextsOf(form).Frm;
      lines = EditedLines(state, static_cast<int>(vbtext::DocumentOf(frm).CodeLines.First));
    }
  } catch (const support::InputError&) {
    lines.clear();
  } catch (const vbtext::Fault&) {
    lines.clear();
  }
  parts_.Code.View().MarkEdited(lines);
}

// What was closed is not said again before something else is to be said, or the form is shown again.
void KeptCommands::TellInBar(const std::string& form, const Standing& standing) {
  const kept::State& state = standing.State;
  const QString name =
      parts_.Form.Canvas().Origin().Class.empty() ? Text(form) : Text(parts_.Form.Canvas().Origin().Class);
  const QString text = !standing.Problem.empty() ? Text(support::Shortened(standing.Problem))
                       : state.IsForeign         ? texts_(T::KeptForeignMeans, Text(form))
                       : !state.Problem.empty()  ? texts_(T::KeptCannotBeMade, Text(support::Shortened(state.Problem)))
                       : !state.Class.IsEmpty()  ? texts_(T::KeptClassChanged, name, WordsOf(state.Class, texts_))
                       : state.IsOutdated()      ? texts_(T::KeptMadeOtherwise)
                                                 : "";
  if (text == toldInBar_) return;
  toldInBar_ = text;
  if (text.isEmpty()) return parts_.Page.Bar().Clear();
  const bool canUpdate = standing.IsOutdated() && state.Problem.empty();
  parts_.Page.Bar().Say(canUpdate ? "outdated" : "missing", text.toHtmlEscaped(),
                        canUpdate ? WithoutKey(texts_(T::UpdateForm)) : "",
                        [this] { parts_.Commands[Command::UpdateForm].trigger(); });
}

}  // namespace formwizard::apps::desktop
