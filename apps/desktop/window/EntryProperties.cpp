#include "apps/desktop/window/EntryProperties.h"

#include "adapters/qt/Text.h"
#include "adapters/vb6files/FormTree.h"
#include "apps/desktop/basics/Icons.h"
#include "apps/desktop/formview/ControlOrigins.h"
#include "support/Failures.h"
#include "system/FileSystem.h"

#include <QApplication>
#include <QDeadlineTimer>

#include <algorithm>
#include <utility>

namespace formwizard::apps::desktop {
namespace {

using adapters::qt::Text;
namespace vb6files = adapters::vb6files;

constexpr int SliceMilliseconds = 10, WhileBusy = 100;

bool IsIn(const QWidget& pane, const QWidget* focus) { return focus == &pane || pane.isAncestorOf(focus); }

// A property of an object or reference is shown by those of its own.
bool IsOf(const QString& shown, const QString& property) {
  return shown == property || (shown.startsWith(property) && shown.at(property.size()) == '.');
}

}  // namespace

EntryProperties::EntryProperties(const Texts& texts, DictionaryPane& dictionary, PropertiesPanel& panel,
                                 const Environment& environment, QWidget& views)
    : texts_(texts), dictionary_(dictionary), panel_(panel), environment_(environment), views_(views) {
  slices_.setSingleShot(true);
  connect(&slices_, &QTimer::timeout, this, [this] { ReadOn(); });
  connect(qApp, &QApplication::focusChanged, this, [this](QWidget*, QWidget* focus) { Follow(focus); });
  dictionary_.OnChosen = [this] {
    if (dictionary_.isVisible()) Show();
  };
}

void EntryProperties::Follow(QWidget* focus) {
  if (!focus) return;
  const bool isShown = panel_.IsOtherShown();
  if (IsIn(dictionary_, focus)) {
    if (!isShown) Show();
  } else if (isShown && IsIn(views_, focus) && !IsIn(panel_, focus)) {
    panel_.ShowSelection();
  }
}

void EntryProperties::Show() {
  if (dictionary_.NameOfChosen().isEmpty()) return;
  if (!unread_.empty()) slices_.start(0);
  const bool isClass = !dictionary_.Chosen().Class.isEmpty();
  panel_.ShowOther(dictionary_.NameOfChosen(), IconNamed(isClass ? "class" : "dictionary"), Rows());
}

std::vector<PropertyRow> EntryProperties::Rows() const {
  std::vector<PropertyRow> rows;
  const auto title = [&](T text) { rows.push_back({texts_(text), "", "", true}); };
  const Facts facts = dictionary_.FactsOfChosen();
  if (!facts.empty()) title(T::EntryInTheDictionary);
  for (const auto& [name, value] : facts) rows.push_back({name, value, texts_(T::EntryMeans)});
  const DictionaryModel::ClassName chosen = dictionary_.Chosen();
  bool isFirst = true;
  for (const MadeForm& form : forms_) {
    if (Text(form.Class) != chosen.Class || chosen.Class.isEmpty()) continue;
    const auto shows = [&](const QString& property) { return IsOf(property, chosen.Member); };
    if (!chosen.Member.isEmpty() && std::ranges::none_of(form.Properties, shows)) continue;
    if (std::exchange(isFirst, false)) title(T::EntryForms);
    rows.push_back({Text(form.Name), "", texts_(T::EntryFormMeans), false, LeadsTo::Form});
  }
  return rows;
}

void EntryProperties::ReadProject() {
  forms_.clear();
  unread_.clear();
  if (environment_.Project()) unread_ = environment_.Project()->Summaries();
  std::erase_if(unread_, [](const auto& component) { return !component.IsForm; });
  std::ranges::sort(unread_, std::ranges::greater(), &vb6files::ComponentSummary::Name);
  if (dictionary_.isVisible()) slices_.start(0);
}

// A form that cannot be read says so when it is looked at.
EntryProperties::MadeForm EntryProperties::Read(const vb6files::ComponentSummary& form) const {
  vb6files::ProjectOnDisk& project = *environment_.Project();
  MadeForm made{form.Name, "", {}};
  try {
    const auto saved = form.IsChanged ? std::nullopt : system::RealFileSystem().Read(form.File);
    const std::string text = form.IsChanged ? project.TextsOf(form.Name).Frm : saved.value_or("");
    const FormOrigin origin = OriginOf(project.ProjectCodePage().Decode(text));
    made.Class = origin.Class;
    for (const auto& [control, property] : origin.Properties) made.Properties.push_back(Text(property));
  } catch (const support::InputError&) {
    made.Class.clear();
  }
  return made;
}

void EntryProperties::ReadOn() {
  if (QApplication::activeModalWidget()) return slices_.start(WhileBusy);
  const QDeadlineTimer until(SliceMilliseconds);
  const std::size_t before = forms_.size();
  while (!unread_.empty() && !until.hasExpired()) {
    MadeForm form = Read(unread_.back());
    unread_.pop_back();
    if (!form.Class.empty()) forms_.push_back(std::move(form));
  }
  if (!unread_.empty()) slices_.start(0);
  if (panel_.IsOtherShown() && forms_.size() > before) Show();
}

}  // namespace formwizard::apps::desktop
