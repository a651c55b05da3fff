#include "apps/forms/KeptForms.h"

#include "apps/forms/DescriptionText.h"
#include "apps/forms/WizardUser.h"
#include "runtime/Conversions.h"
#include "support/Failures.h"
#include "support/Names.h"
#include "system/Paths.h"
#include "vbtext/Document.h"

#include <algorithm>
#include <utility>

namespace formwizard::apps::forms {
namespace {

using adapters::vb6files::FormFiles;
using adapters::vb6files::ProjectOnDisk;

support::Names NamesOf(const std::vector<kept::Property>& properties) {
  return {properties, [](const kept::Property& property) { return std::string_view(property.Path); }};
}

// The names of the class as it was when a form was made and as it is now, which are mostly the same.
class ClassNames {
 public:
  ClassNames(const std::vector<kept::Property>& was, const OfferedClass& is)
      : was_(was), is_(is.Properties), now_(is.Paths) {
    if (was != is_) before_ = NamesOf(was);
  }

  bool IsLost(const std::string& property) const { return before_ && before_->Find(property) && !now_.Find(property); }
  // As the class spells it.
  std::string NameFor(const std::string& property) const {
    if (const auto found = now_.Find(property)) return is_[*found].Path;
    const auto found = before_ ? before_->Find(property) : std::nullopt;
    return found ? was_[*found].Path : property;
  }

 private:
  const std::vector<kept::Property>&was_, &is_;
  const support::Names& now_;
  std::optional<support::Names> before_;  // nothing when it is the same
};

bool HasAllFields(const support::Names& paths, const FormDescription& description) {
  return std::ranges::all_of(description.Fields,
                             [&](const FieldChoice& field) { return paths.Find(field.Property.Value).has_value(); });
}

// Without the fields that the class had and has lost. One that has nothing left stays as it is, and cannot be made.
void TakeOutLostFields(FormDescription& description, const ClassNames& names) {
  const auto isLost = [&](const FieldChoice& field) { return names.IsLost(field.Property.Value); };
  if (std::ranges::all_of(description.Fields, isLost)) return;
  std::erase_if(description.Fields, isLost);
  for (FieldChoice& field : description.Fields) {
    if (field.UpdateAfter && names.IsLost(field.UpdateAfter->Value)) field.UpdateAfter.reset();
  }
}

std::vector<kept::ShownField> FieldsIn(const FormDescription& description, const ClassNames& names) {
  std::vector<kept::ShownField> fields;
  fields.reserve(description.Fields.size());
  for (const FieldChoice& field : description.Fields) {
    fields.push_back({names.NameFor(field.Property.Value), field.Caption.has_value()});
  }
  return fields;
}

void Take(const FormDescription& choices, FormDescription& description) {
  description.Class = choices.Class;
  description.System = choices.System;
  description.Settings = choices.Settings;
  description.Fields = choices.Fields;
}

// No file is empty.
std::optional<std::string_view> UnlessEmpty(std::string_view bytes) {
  return bytes.empty() ? std::nullopt : std::optional(bytes);
}

// What stands in the files of a kept form; nothing for one that is not there.
struct KeptBytes {
  std::optional<std::string_view> Json, Frm, Frx;
};

void PutInto(const KeptFolder& folder, const std::string& form, const FormDescription& description,
             const kept::FormTexts& made, const KeptBytes& old, ProjectOnDisk& project) {
  folder.CheckIsFolder();
  project.Put(folder.FileOf(form, ".json"), TextOf(description), old.Json);
  project.Put(folder.FileOf(form, ".frm"), made.Frm, old.Frm);
  project.Put(folder.FileOf(form, ".frx"), UnlessEmpty(made.Frx), old.Frx);
}

std::string_view StemOf(std::string_view path) {
  path.remove_prefix(system::FolderPart(std::string(path)).size());
  return path.substr(0, path.rfind('.'));
}

}  // namespace

KeptForms::KeptForms(system::FileSystem& files, ProjectOnDisk& project, const std::string& dictionary,
                     const std::string& program)
    : files_(files),
      project_(project),
      folder_(files, project.Path()),
      remake_(files, dictionary, program),
      objectLines_(project.ObjectLines()) {
  for (const adapters::vb6files::ComponentSummary& component : project.Summaries()) {
    if (!component.IsForm) continue;
    if (!component.Problem.empty()) {
      unread_.push_back(component);
    } else {
      components_.emplace(runtime::LowerCase(component.Name), component.Name);
      const std::string_view stem = StemOf(component.File);
      if (!runtime::EqualIgnoringCase(stem, component.Name)) {
        calledOtherwise_.emplace(runtime::LowerCase(stem), component.Name);
      }
    }
  }
}

std::vector<std::string> KeptForms::Meant(const std::vector<std::string>& names) const {
  std::vector<std::string> all = folder_.Forms();
  if (names.empty()) return all;
  const support::Names known(all, [](const std::string& each) { return std::string_view(each); });
  std::vector<std::string> meant;
  for (const std::string& name : names) {
    const auto found = known.Find(name);
    if (!found) {
      throw support::InputError(folder_.Path() + ": no form \"" + name + "\" is kept; " + known.Answer(name));
    }
    if (std::ranges::find(meant, all[*found]) == meant.end()) meant.push_back(all[*found]);
  }
  return meant;
}

const std::string* KeptForms::NameInProject(const std::string& form) const {
  const auto found = components_.find(runtime::LowerCase(form));
  return found == components_.end() ? nullptr : &found->second;
}

// A file that cannot be read may hold any form, one that is gone the form that it is named after. The environment
// leaves the file its name when it renames a form.
void KeptForms::LookForFile(KeptForm& form) const {
  form.State.IsMissing = true;
  form.State.Reason = project_.Path() + ": the project has no such form any more; ";
  if (const auto renamed = calledOtherwise_.find(runtime::LowerCase(form.Name)); renamed != calledOtherwise_.end()) {
    form.State.Reason += "its file holds " + renamed->second + ": rename the files of " + form.Name + " in " +
                         folder_.Path() + " likewise";
  } else {
    form.State.Reason += "add it again, rename the files of " + form.Name + " in " + folder_.Path() +
                         " as it is called now, or take them out";
  }
  for (const adapters::vb6files::ComponentSummary& each : unread_) {
    if (!each.IsGone) throw support::InputError(each.Problem);
    if (runtime::EqualIgnoringCase(each.Name, form.Name)) form.State.Reason = each.Problem;
  }
}

KeptForm KeptForms::Look(const std::string& name, bool lists, const FormDescription* choices) {
  KeptForm form;
  form.Name = name;
  form.Texts = folder_.Read(name);
  FormDescription description = folder_.DescriptionIn(form.Texts, name);
  if (choices) Take(*choices, description);
  const int codePage = project_.ProjectCodePage().Number();
  if (description.CodePage && description.CodePage->Value != codePage) {
    throw support::InputError(description.CodePage->Where.Text() + ": the form was made in code page " +
                              std::to_string(description.CodePage->Value) + ", and this run is in " +
                              std::to_string(codePage) + "; give --code-page " +
                              std::to_string(description.CodePage->Value));
  }
  const std::string* const component = NameInProject(name);
  if (!component) LookForFile(form);
  form.State.IsForeign = component && !IsAsMade(form.Texts, *description.Made);
  if (form.State.IsForeign) {
    form.State.Reason =
        folder_.FileOf(name, form.Texts.Frm ? ".json" : ".frm") +
        (form.Texts.Frm ? ": this was not written for the form beside it"
                        : ": the form as it was generated is not there any more") +
        "; restore both files from one commit, or take the form up again by \"ostrel-form-wizard keep\"";
  }
  if (form.State.IsMissing || form.State.IsForeign) return form;
  FormFiles mine = project_.TextsOf(*component);
  form.File = project_.FileOf(*component);
  form.Sides.Base = {std::move(form.Texts.Frm).value(), std::move(form.Texts.Frx).value_or("")};
  form.Sides.Mine = {std::move(mine.Frm), std::move(mine.Frx)};
  Examine(form, std::move(description), lists);
  return form;
}

void KeptForms::CompareWithProject(KeptForm& form, bool lists) const {
  try {
    if (lists) {
      form.State.Edits = kept::DifferencesOf(form.Sides.Base, form.Sides.Mine);
    } else if (!(form.Sides.Base == form.Sides.Mine)) {
      static_cast<void>(vbtext::StartOfCode(form.Sides.Mine.Frm));
    }
  } catch (const vbtext::Fault& fault) {
    throw support::InputError(
        form.File + ":" + std::to_string(fault.Line + 1) + ": expected " + fault.Expected +
        "; mend the form, such as by taking out the marks that a merge has left; \"ostrel-form-wizard lint\" "
        "says more");
  }
}

void KeptForms::Examine(KeptForm& form, FormDescription description, bool lists) {
  kept::State& state = form.State;
  CompareWithProject(form, lists);
  const OfferedClass& offered = remake_.OfferedTo(description);
  const MadeForm made = *std::exchange(description.Made, std::nullopt);
  state.AsksOtherwise = made.Fields != SumOfFields(description);
  state.HasOtherSettings = made.Settings != SumOfSettings(description);
  state.IsOfOtherVersion = made.Program != remake_.Program();
  if (made.Class != offered.Properties || !HasAllFields(offered.Paths, description)) {
    const ClassNames names(made.Class, offered);
    state.Class = kept::ChangesOf(made.Class, offered.Properties, FieldsIn(description, names));
    TakeOutLostFields(description, names);
  }
  try {
    const bool isOld = state.IsOutdated() || state.HasOtherSettings;
    Remade remade = remake_.Make(description,
                                 {folder_.FileOf(form.Name, ".frm"), form.Sides.Base, made.IsReused, objectLines_,
                                  project_.ProjectCodePage().Number()},
                                 isOld);
    form.Sides.Theirs = std::move(remade.Form);
    form.Next = std::move(remade.Description);
    form.Messages = std::move(remade.Messages);
  } catch (const NotOffered& lost) {
    form.Sides.Theirs = form.Sides.Base;
    state.Problem = lost.what();
  }
  if (lists || !state.IsOutdated()) state.Output = kept::DifferencesOf(form.Sides.Base, form.Sides.Theirs);
}

kept::Update KeptForms::UpdateOf(const KeptForm& form, const kept::Decision& decide) const {
  return kept::UpdateOf(form.Sides, project_.ProjectCodePage().Encode(StemOf(form.File)), decide);
}

void PutKeptTexts(ProjectOnDisk& project, const KeptFolder& folder, const std::string& form,
                  const FormDescription& description, const kept::FormTexts& made, const KeptTexts& old) {
  PutInto(folder, form, description, made, {old.Json, old.Frm, old.Frx}, project);
}

void KeptForms::Put(const KeptForm& form, const kept::Update& update) {
  const kept::FormTexts &mine = form.Sides.Mine, &base = form.Sides.Base;
  project_.PutTexts(*NameInProject(form.Name), {update.Form.Frm, update.Form.Frx}, {mine.Frm, mine.Frx});
  PutInto(folder_, form.Name, form.Next.value(), form.Sides.Theirs, {form.Texts.Json, base.Frm, UnlessEmpty(base.Frx)},
          project_);
}

void KeptForms::Release(const std::string& name) {
  const KeptTexts old = folder_.Read(name);
  project_.Put(folder_.FileOf(name, ".json"), std::nullopt, old.Json);
  project_.Put(folder_.FileOf(name, ".frm"), std::nullopt, old.Frm);
  project_.Put(folder_.FileOf(name, ".frx"), std::nullopt, old.Frx);
}

Taken KeptForms::Keep(const FormDescription& description, const std::string& form) {
  const std::string* const component = NameInProject(form);
  if (!component) {
    for (const adapters::vb6files::ComponentSummary& each : unread_) {
      if (runtime::EqualIgnoringCase(each.Name, form)) throw support::InputError(each.Problem);
    }
    std::vector<std::string> all;
    for (const auto& [key, name] : components_) all.push_back(name);
    const support::Names known(all, [](const std::string& each) { return std::string_view(each); });
    throw support::InputError(project_.Path() + ": the project has no form \"" + form + "\"; " + known.Answer(form));
  }
  FormFiles mine = project_.TextsOf(*component);
  const kept::FormTexts texts{std::move(mine.Frm), std::move(mine.Frx)};
  Remade remade = remake_.Make(
      description, {project_.FileOf(*component), texts, true, objectLines_, project_.ProjectCodePage().Number()});
  remade.Description->Made->IsReused = !remake_.IsLikeNew(
      description, {project_.FileOf(*component), remade.Form, true, objectLines_, project_.ProjectCodePage().Number()});
  PutKeptTexts(project_, folder_, *component, *remade.Description, remade.Form, folder_.Read(*component));
  Taken taken{*component, {}, std::move(remade.Messages)};
  taken.State.Edits = kept::DifferencesOf(remade.Form, texts);
  return taken;
}

}  // namespace formwizard::apps::forms
