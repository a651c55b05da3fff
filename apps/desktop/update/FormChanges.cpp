#include "apps/desktop/update/FormChanges.h"

#include "adapters/qt/Text.h"
#include "system/Text.h"

#include <algorithm>

namespace formwizard::apps::desktop {
namespace {

using adapters::qt::Text;
using vbtext::Difference;

ChangeKind KindOf(vbtext::Change change) {
  switch (change) {
    case vbtext::Change::Added:
      return ChangeKind::New;
    case vbtext::Change::Removed:
      return ChangeKind::Gone;
    default:
      return ChangeKind::Changed;
  }
}

int LineOf(const std::optional<vbtext::LineRange>& range) { return range ? static_cast<int>(range->First) : -1; }

int LinesIn(const Difference& difference) {
  const auto count = [](const std::optional<vbtext::LineRange>& range) { return range ? range->Count() : 0; };
  return static_cast<int>(std::max(count(difference.A), count(difference.B)));
}

// "Sub txtDOB_Change" is "txtDOB_Change"; what was renamed goes by its new name.
std::string ShortName(const std::string& name) { return name.substr(name.rfind(' ') + 1); }

class Gatherer {
 public:
  explicit Gatherer(const system::CodePage& codePage) : codePage_(codePage) {}

  void Add(const Difference& difference, std::vector<FormChange>& controls, std::vector<FormChange>& code) const {
    if (difference.What == "control") {
      FormChange change = MadeOf(difference, ShortName(difference.Name));
      change.Control = ShortName(difference.Name);
      controls.push_back(std::move(change));
    } else if (difference.What == "property") {
      AddProperty(difference, controls);
    } else {
      FormChange change = MadeOf(difference, ShortName(difference.Name));
      change.Lines = LinesIn(difference);
      code.push_back(std::move(change));
    }
  }

  QString Shown(const std::string& bytes) const {
    return Text(system::IsUtf8(bytes) ? bytes : codePage_.Decode(bytes));
  }

 private:
  FormChange MadeOf(const Difference& difference, const std::string& name) const {
    return {.Kind = KindOf(difference.Kind),
            .Name = Shown(name),
            .Properties = {},
            .Lines = 0,
            .Control = "",
            .Before = LineOf(difference.A),
            .After = LineOf(difference.B),
            .Conflict = ""};
  }

  // Those of one control stand together.
  void AddProperty(const Difference& difference, std::vector<FormChange>& controls) const {
    const std::size_t dot = std::min(difference.Name.find('.'), difference.Name.size());
    const std::string control = difference.Name.substr(0, dot);
    const QString property = Shown(difference.Name.substr(std::min(dot + 1, difference.Name.size())));
    const auto known = std::ranges::find(controls, control, &FormChange::Control);
    if (known != controls.end()) {
      if (known->Kind == ChangeKind::Changed) known->Properties << property;
      return;
    }
    FormChange change = MadeOf(difference, control);
    change.Kind = ChangeKind::Changed;
    change.Properties << property;
    change.Control = control;
    controls.push_back(std::move(change));
  }

  const system::CodePage& codePage_;
};

}  // namespace

bool MakesRoom(const FormChange& change) {
  static const QStringList places{"Left",       "Top",         "Width",       "Height",
                                  "ScaleWidth", "ScaleHeight", "ClientWidth", "ClientHeight"};
  return change.Kind == ChangeKind::Changed && !change.Properties.isEmpty() &&
         std::ranges::all_of(change.Properties, [](const QString& each) { return places.contains(each); });
}

FormChanges ChangesIn(const UpdateChoices& update, const system::CodePage& codePage) {
  const Gatherer gatherer(codePage);
  FormChanges changes;
  for (const UpdateChoices::Conflict& each : update.Conflicts()) {
    const std::string name(kept::ShortName(each.Name));
    const int line = static_cast<int>(each.Places.front().MineLine) - 1;
    changes.ToDecide.push_back({.Kind = ChangeKind::Conflict,
                                .Name = gatherer.Shown(name),
                                .Properties = {},
                                .Lines = 0,
                                .Control = each.Name.starts_with("control ") ? name : "",
                                .Before = line,
                                .After = -1,
                                .Conflict = each.Name});
  }
  const kept::Sides& sides = update.Form().Sides;
  const kept::FormTexts& result = update.Result().Form;
  for (const Difference& each : kept::DifferencesOf(sides.Mine, result))
    gatherer.Add(each, changes.Controls, changes.Procedures);
  const auto changesForm = [](const FormChange& each) { return !MakesRoom(each); };
  std::stable_partition(changes.Controls.begin(), changes.Controls.end(), changesForm);
  for (const Difference& each : kept::DifferencesOf(sides.Theirs, result))
    gatherer.Add(each, changes.Yours, changes.Yours);
  for (FormChange& each : changes.Yours) each.Kind = ChangeKind::Yours;
  return changes;
}

}  // namespace formwizard::apps::desktop
